#pragma once

#include <memory>

namespace klopfmeise {

class Files;
class Sound;

/// Name and type of the one function of the module "klopfmeise_sound": it makes the sound of this machine.
/// `files` must outlive it.
inline constexpr const char* makeSoundName = "klopfmeiseMakeSound";
using MakeSound = void (*)(Files& files, std::unique_ptr<Sound>& sound);

} // namespace klopfmeise
