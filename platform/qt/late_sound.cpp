#include "platform/qt/late_sound.h"

#include "platform/qt/sound/sound_module.h"

#include <QCoreApplication>
#include <QDebug>
#include <QLibrary>

#include <utility>

namespace klopfmeise {

int LateSound::play(const std::wstring& path) {
    if (!std::exchange(tried_, true)) {
        QLibrary module(QCoreApplication::applicationDirPath() + QStringLiteral("/klopfmeise_sound.so"));
        if (const auto make = reinterpret_cast<MakeSound>(module.resolve(makeSoundName)))
            make(files_, sound_);
        else
            qWarning() << module.errorString();
    }
    return sound_ ? sound_->play(path) : 0;
}

} // namespace klopfmeise
