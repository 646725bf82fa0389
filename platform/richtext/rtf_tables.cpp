#include "platform/richtext/rtf_tables.h"

#include <algorithm>

namespace klopfmeise {

namespace {

constexpr std::size_t maxColors = 65'536;
constexpr std::size_t maxNameLength = 128;
constexpr int maxFontNumber = 32'767;

} // namespace

void RtfTables::beginFont(int number) {
    begunNumber_ = number;
    begun_ = {};
}

void RtfTables::addToName(wchar_t character) {
    const bool leadingBlank = character == L' ' && begun_.name.empty();
    if (character >= L' ' && !leadingBlank && begun_.name.size() < maxNameLength)
        begun_.name += character;
}

void RtfTables::endFont() {
    while (!begun_.name.empty() && begun_.name.back() == L' ')
        begun_.name.pop_back();
    if (begunNumber_ >= 0 && begunNumber_ <= maxFontNumber)
        fonts_.insert_or_assign(begunNumber_, begun_);
    begun_.name.clear();
}

const RtfTables::Font& RtfTables::entry(int number) const {
    static const Font none;
    auto found = fonts_.find(number);
    if (found == fonts_.end())
        found = fonts_.find(defaultFont_);
    return found == fonts_.end() ? none : found->second;
}

void RtfTables::colorPart(unsigned shift, int part) {
    mixed_ &= ~(0xFFU << shift);
    mixed_ |= static_cast<std::uint32_t>(std::clamp(part, 0, 255)) << shift;
}

void RtfTables::endColor() {
    if (colors_.size() < maxColors)
        colors_.push_back(mixed_);
    mixed_ = 0;
}

std::uint32_t RtfTables::color(int number) const {
    const bool known = number >= 0 && static_cast<std::size_t>(number) < colors_.size();
    return known ? colors_[static_cast<std::size_t>(number)] : 0;
}

} // namespace klopfmeise
