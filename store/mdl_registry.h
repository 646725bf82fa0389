#pragma once

#include "platform/machine/services.h"
#include "store/wert.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace klopfmeise {

/// HKEY_LOCAL_MACHINE, and the key of this program in it.
inline constexpr std::uint32_t Maschine = 0x80000002;
inline const std::wstring Programmschlüssel = L"Software\\Klopfmeise";

/// Status of opening the key for reading: success if it is there.
RegistryStatus RegistrySchluesselDa(Registry& registry, std::uint32_t bereich, std::wstring_view schlüssel);

/// Makes the key, or opens the one that exists. Returns the disposition: 1 made, 2 there already, 0 refused.
std::uint32_t RegistrySchluesselAnlegen(Registry& registry, std::uint32_t bereich,
                                        std::wstring_view schlüssel);

/// Writes an Integer or Long as a 32-bit number and a String as its bytes in Windows-1252 (in UTF-8 behind
/// its mark where the code page cannot hold it), without a terminator; with `mehrzeilig` a String with line
/// breaks becomes a multi-string. Success if the key could be opened and closed.
RegistryStatus RegistrySchreiben(Registry& registry, std::uint32_t bereich, std::wstring_view schlüssel,
                                 std::wstring_view name, const Wert& wert, bool mehrzeilig, bool anlegen);

/// Reads a value; `ziel` stays as it was if that fails. A string comes with all its stored bytes, a
/// terminating zero included.
RegistryStatus RegistryLesen(Registry& registry, std::uint32_t bereich, std::wstring_view schlüssel,
                             std::wstring_view name, Wert& ziel);

/// A string value as it is stored, or the digits of a number; empty if it is missing or neither.
std::wstring RegistryText(Registry& registry, std::wstring_view name);

} // namespace klopfmeise
