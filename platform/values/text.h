#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace klopfmeise {

/// UTF-8 both ways. Bytes that are no UTF-8 (a file name of another system) become the characters U+DC80 to
/// U+DCFF and go back to the same bytes, so that every name survives the way through the program.
std::string toUtf8(std::wstring_view text);
std::wstring fromUtf8(std::string_view bytes);

/// Upper case of the letters of Windows-1252; names of files are compared in it.
wchar_t upper(wchar_t letter);
std::wstring upper(std::wstring_view text);
bool sameName(std::wstring_view a, std::wstring_view b);

/// True if `name` matches `pattern` with `*` and `?`, without regard to case.
bool matches(std::wstring_view name, std::wstring_view pattern);

/// Appends the key by which a reader sorts a name: without regard to case, ä beside a, ß as ss.
void appendSortKey(std::wstring& keys, std::wstring_view name);

/// The whole number at or below `value`, also below 0.
double Int(double value);

/// The format "###0" with `decimals` decimals behind it, rounded half away from zero.
std::wstring formatted(double value, int decimals, wchar_t decimalSign);

/// The shortest text of a number, at most `digits` digits: 15 for a Double, 7 for a Single.
std::wstring numberText(double value, wchar_t decimalSign, int digits = 15);

/// The number that a text spells (decimal point or comma, blanks around it allowed); none if it spells none.
std::optional<double> spelledNumber(std::wstring_view text);

} // namespace klopfmeise
