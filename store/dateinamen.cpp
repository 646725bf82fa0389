#include "store/dateinamen.h"

#include "platform/values/text.h"
#include "platform/values/windows1252.h"

#include <algorithm>
#include <array>

namespace klopfmeise {

namespace {

bool verboten(wchar_t zeichen) {
    const bool steuerzeichen = zeichen < L' ' || (zeichen >= 0x7F && zeichen <= 0x9F);
    return steuerzeichen || std::wstring_view(L"\\/:*?\"<>|").find(zeichen) != std::wstring_view::npos ||
           toWindows1252(zeichen) < 0;
}

/// The system keeps these for devices, with a digit behind the last two.
bool gerätename(std::wstring_view name) {
    const std::wstring_view stamm = name.substr(0, name.find(L'.'));
    constexpr auto ohneZiffer = std::to_array<std::wstring_view>({L"CON", L"PRN", L"AUX", L"NUL"});
    if (std::ranges::any_of(ohneZiffer, [&](std::wstring_view gerät) { return sameName(stamm, gerät); }))
        return true;
    return stamm.size() == 4 &&
           std::wstring_view(L"123456789²³¹").find(stamm[3]) != std::wstring_view::npos &&
           (sameName(stamm.substr(0, 3), L"COM") || sameName(stamm.substr(0, 3), L"LPT"));
}

} // namespace

bool führtHinaus(std::wstring_view name) {
    // A path ends at a zero.
    constexpr std::wstring_view trennend(L"\\/\0", 3);
    return name.empty() || name == L"." || name == L".." ||
           name.find_first_of(trennend) != std::wstring_view::npos;
}

bool zulässigerName(std::wstring_view name) {
    return name.find_first_not_of(L' ') != std::wstring_view::npos && name.front() != L'.' &&
           name.back() != L'.' && name.back() != L' ' && std::ranges::none_of(name, verboten) &&
           !gerätename(name);
}

} // namespace klopfmeise
