#include "platform/qt/sound/sound_module.h"

#include "platform/qt/sound/qt_sound.h"

#include <type_traits>

extern "C" Q_DECL_EXPORT void klopfmeiseMakeSound(const klopfmeise::Files& files,
                                                  std::unique_ptr<klopfmeise::Sound>& sound) {
    sound = std::make_unique<klopfmeise::QtSound>(files);
}

static_assert(std::is_same_v<decltype(&klopfmeiseMakeSound), klopfmeise::MakeSound>);
