#include "platform/values/text.h"

#include "platform/values/utf8.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace klopfmeise {

namespace {

constexpr wchar_t escapedByte = 0xDC00;

} // namespace

std::string toUtf8(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size() + 8);
    for (const wchar_t c : text) {
        const auto code = static_cast<std::uint32_t>(c);
        if (code < 0x80) {
            bytes += static_cast<char>(code);
        } else if (code >= 0xDC80 && code <= 0xDCFF) {
            bytes += static_cast<char>(code - 0xDC00);
        } else if (code < 0x800) {
            bytes += static_cast<char>(0xC0 | code >> 6);
            bytes += static_cast<char>(0x80 | (code & 0x3F));
        } else if (code < 0x10000) {
            bytes += static_cast<char>(0xE0 | code >> 12);
            bytes += static_cast<char>(0x80 | (code >> 6 & 0x3F));
            bytes += static_cast<char>(0x80 | (code & 0x3F));
        } else {
            bytes += static_cast<char>(0xF0 | (code >> 18 & 0x07));
            bytes += static_cast<char>(0x80 | (code >> 12 & 0x3F));
            bytes += static_cast<char>(0x80 | (code >> 6 & 0x3F));
            bytes += static_cast<char>(0x80 | (code & 0x3F));
        }
    }
    return bytes;
}

std::wstring fromUtf8(std::string_view bytes) {
    // Almost all names are ASCII to their end, and a school has thousands.
    const auto plainEnd = std::ranges::find_if(bytes, [](char byte) { return (byte & 0x80) != 0; });
    std::wstring text(bytes.begin(), plainEnd);
    for (auto at = static_cast<std::size_t>(plainEnd - bytes.begin()); at < bytes.size();) {
        const auto [character, length] = utf8CharacterAt(bytes, at);
        text += length > 0 ? character
                           : static_cast<wchar_t>(escapedByte + static_cast<unsigned char>(bytes[at]));
        at += std::max<std::size_t>(length, 1);
    }
    return text;
}

wchar_t upper(wchar_t letter) {
    if (letter < 0x80)
        return letter >= L'a' && letter <= L'z' ? static_cast<wchar_t>(letter - 0x20) : letter;
    if (letter >= 0xE0 && letter <= 0xFE && letter != 0xF7)
        return static_cast<wchar_t>(letter - 0x20);
    switch (letter) {
    case L'š':
        return L'Š';
    case L'œ':
        return L'Œ';
    case L'ž':
        return L'Ž';
    case L'ÿ':
        return L'Ÿ';
    default:
        return letter;
    }
}

std::wstring upper(std::wstring_view text) {
    std::wstring result(text);
    std::ranges::transform(result, result.begin(), [](wchar_t c) { return upper(c); });
    return result;
}

bool sameName(std::wstring_view a, std::wstring_view b) {
    return std::ranges::equal(a, b, [](wchar_t x, wchar_t y) { return upper(x) == upper(y); });
}

bool matches(std::wstring_view name, std::wstring_view pattern) {
    // As on the system the patterns come from, "*.*" means every file.
    if (pattern == L"*.*")
        return true;
    std::size_t n = 0;
    std::size_t p = 0;
    std::size_t star = std::wstring_view::npos;
    std::size_t tried = 0;
    while (n < name.size()) {
        if (p < pattern.size() && (pattern[p] == L'?' || upper(pattern[p]) == upper(name[n])) &&
            pattern[p] != L'*') {
            ++n;
            ++p;
        } else if (p < pattern.size() && pattern[p] == L'*') {
            star = p++;
            tried = n;
        } else if (star != std::wstring_view::npos) {
            p = star + 1;
            n = ++tried;
        } else {
            return false;
        }
    }
    return std::ranges::all_of(pattern.substr(p), [](wchar_t c) { return c == L'*'; });
}

void appendSortKey(std::wstring& keys, std::wstring_view name) {
    for (const wchar_t c : name) {
        switch (const wchar_t big = upper(c)) {
        case L'Ä':
            keys += L'A';
            break;
        case L'Ö':
            keys += L'O';
            break;
        case L'Ü':
            keys += L'U';
            break;
        case L'ß':
            keys += L"SS";
            break;
        case L'É':
        case L'È':
        case L'Ê':
            keys += L'E';
            break;
        default:
            keys += big;
        }
    }
}

double Int(double value) { return std::floor(value); }

namespace {

std::wstring withSign(std::string_view digits, wchar_t decimalSign) {
    std::wstring text(digits.begin(), digits.end());
    std::ranges::replace(text, L'.', decimalSign);
    return text;
}

} // namespace

std::wstring formatted(double value, int decimals, wchar_t decimalSign) {
    const double scale = std::pow(10.0, decimals);
    // A decimal that ends in 5 may lie a hair below it in binary; it counts as the 5 that was meant.
    const double scaled = value * scale;
    const double rounded = std::round(scaled + std::copysign(std::abs(scaled) * 1e-15, scaled)) / scale;
    std::array<char, 400> buffer{};
    const int length =
        std::snprintf(buffer.data(), buffer.size(), "%.*f", decimals, rounded == 0 ? 0.0 : rounded);
    return withSign({buffer.data(), static_cast<std::size_t>(std::max(length, 0))}, decimalSign);
}

std::wstring numberText(double value, wchar_t decimalSign, int digits) {
    std::array<char, 40> buffer{};
    const int length = std::snprintf(buffer.data(), buffer.size(), "%.*G", digits, value);
    return withSign({buffer.data(), static_cast<std::size_t>(std::max(length, 0))}, decimalSign);
}

std::optional<double> spelledNumber(std::wstring_view text) {
    std::string digits;
    for (const wchar_t c : text) {
        if (c > 0x7F)
            return std::nullopt;
        digits += c == L',' ? '.' : static_cast<char>(c);
    }
    const auto first = digits.find_first_not_of(" \t");
    if (first == std::string::npos)
        return std::nullopt;
    const auto last = digits.find_last_not_of(" \t");
    double value = 0;
    const char* end = digits.data() + last + 1;
    const auto [stop, error] = std::from_chars(digits.data() + first, end, value);
    if (error != std::errc() || stop != end || !std::isfinite(value))
        return std::nullopt;
    return value;
}

} // namespace klopfmeise
