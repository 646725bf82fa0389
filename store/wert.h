#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace klopfmeise {

/// A tagged value of a record: Empty, Integer, Long, Single, Double or String. The type stored depends on who
/// wrote last; a value is used by what it says.
using Wert = std::variant<std::monostate, std::int16_t, std::int32_t, float, double, std::wstring>;

/// The value at the start of a slot: a 16-bit little-endian tag (0, 2, 3, 4, 5, 8), then the data. Empty
/// where the tag is unknown or the value is cut off.
Wert wertAus(std::string_view bytes);
/// The bytes of a value. A String longer than `platz` bytes of slot is cut to it.
std::string bytesAus(const Wert& wert, std::size_t platz);

bool istLeer(const Wert& wert);
/// The number that a value says; a String says the number it spells. None for Empty and for other Strings.
std::optional<double> zahlAus(const Wert& wert);
/// Empty equals 0 and the empty string; a number never equals the empty string.
bool gleich(const Wert& wert, double zahl);
bool gleich(const Wert& wert, std::wstring_view text);
/// The value itself, or the Integer 0 where it is Empty, the empty string or no finite number.
Wert oderNull(const Wert& wert);
/// The value as text, numbers in their shortest form.
std::wstring textAus(const Wert& wert, wchar_t dezimalzeichen);

/// A whole number as the smaller of Integer and Long that holds it.
Wert ganzzahl(int zahl);

} // namespace klopfmeise
