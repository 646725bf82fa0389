#include "platform/qt/sound/sound_module.h"

#include "platform/qt/sound/pulse_sound.h"

#include <system_error>
#include <type_traits>

extern "C" [[gnu::visibility("default")]] void
klopfmeiseMakeSound(klopfmeise::Files& files, std::unique_ptr<klopfmeise::Sound>& sound) {
    try {
        sound = std::make_unique<klopfmeise::PulseSound>(files);
    } catch (const std::system_error&) {
        // No thread is to be had: silence.
        sound.reset();
    }
}

static_assert(std::is_same_v<decltype(&klopfmeiseMakeSound), klopfmeise::MakeSound>);
