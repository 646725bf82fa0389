#pragma once

#include "platform/machine/services.h"

#include <QSoundEffect>
#include <QString>

#include <map>
#include <memory>
#include <optional>

namespace klopfmeise {

/// Wave files through the machine's sound device. Each file is loaded when it is first played and kept;
/// nothing is loaded, not even the sound system, before the first sound, nor ever on a machine without a
/// device.
class QtSound final : public Sound {
public:
    explicit QtSound(const Files& files)
        : files_(files) {}

    int play(const std::wstring& path) override;

private:
    bool audible();

    const Files& files_;
    std::optional<bool> audible_;
    std::map<QString, std::unique_ptr<QSoundEffect>> effects_;
    QSoundEffect* playing_ = nullptr;
};

} // namespace klopfmeise
