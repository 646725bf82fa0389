#include "platform/qt/sound/qt_sound.h"

#include "platform/qt/qt_text.h"

#include <QAudioDevice>
#include <QFile>
#include <QMediaDevices>
#include <QUrl>
#include <QtEndian>

#include <algorithm>

namespace klopfmeise {

namespace {

constexpr int longestWait = 3000;
/// Milliseconds granted for loading the file and opening the device.
constexpr int startUp = 250;

/// Milliseconds that a wave file plays, from the header of its canonical form; the bound if that is not
/// readable.
int duration(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray header = file.read(44);
    if (header.size() < 44)
        return 0;
    const auto bytesPerSecond = qFromLittleEndian<quint32>(header.constData() + 28);
    const qint64 bytes = file.size() - header.size();
    return bytesPerSecond == 0
               ? longestWait
               : static_cast<int>(std::min<qint64>(longestWait, bytes * 1000 / bytesPerSecond));
}

} // namespace

bool QtSound::audible() {
    if (!audible_)
        audible_ = !QMediaDevices::defaultAudioOutput().isNull();
    return *audible_;
}

int QtSound::play(const std::wstring& path) {
    const QString file = toQt(files_.shown(path));
    if (!QFile::exists(file) || !audible())
        return 0;
    auto& effect = effects_[file];
    if (!effect) {
        effect = std::make_unique<QSoundEffect>();
        effect->setSource(QUrl::fromLocalFile(file));
    }
    if (playing_)
        playing_->stop();
    playing_ = effect.get();
    effect->play();
    return std::min(longestWait, duration(file) + startUp);
}

} // namespace klopfmeise
