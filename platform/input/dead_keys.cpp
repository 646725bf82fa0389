#include "platform/input/dead_keys.h"

#include <algorithm>
#include <array>
#include <utility>

namespace klopfmeise {

namespace {

struct Accent {
    wchar_t sign;
    std::wstring_view plain;
    std::wstring_view composed;
};

constexpr std::array accents = std::to_array<Accent>({
    {L'´', L"aeiouyAEIOUY", L"áéíóúýÁÉÍÓÚÝ"},
    {L'`', L"aeiouAEIOU", L"àèìòùÀÈÌÒÙ"},
    {L'^', L"aeiouAEIOU", L"âêîôûÂÊÎÔÛ"},
    {L'~', L"anoANO", L"ãñõÃÑÕ"},
    {L'¨', L"aeiouyAEIOUY", L"äëïöüÿÄËÏÖÜŸ"},
    {L'¸', L"cC", L"çÇ"},
    {L'°', L"aA", L"åÅ"},
    {L'ˇ', L"szSZ", L"šžŠŽ"},
});

} // namespace

std::wstring DeadKeys::accent(wchar_t sign) {
    const wchar_t before = std::exchange(waiting_, sign);
    if (before == sign)
        waiting_ = 0;
    return before == 0 ? std::wstring() : std::wstring(1, before);
}

std::wstring DeadKeys::typed(std::wstring_view text) {
    if (waiting_ == 0 || text.empty())
        return std::wstring(text);
    const wchar_t sign = std::exchange(waiting_, 0);
    if (text.front() == L' ')
        return std::wstring(1, sign);
    const auto* accent = std::ranges::find(accents, sign, &Accent::sign);
    const auto at = accent == accents.end() ? std::wstring_view::npos : accent->plain.find(text.front());
    if (at == std::wstring_view::npos)
        return sign + std::wstring(text);
    return std::wstring(1, accent->composed[at]);
}

} // namespace klopfmeise
