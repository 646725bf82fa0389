#include "platform/richtext/rtf_tables.h"

#include <algorithm>

namespace klopfmeise {

namespace {

constexpr std::size_t maxColors = 65'536;
constexpr std::size_t maxNameLength = 128;
constexpr int maxFontNumber = 32'767;

} // namespace

void RtfTables::beginFont(int number) {
    fontNumber_ = number;
    fontName_.clear();
}

void RtfTables::addToName(wchar_t character) {
    const bool leadingBlank = character == L' ' && fontName_.empty();
    if (character >= L' ' && !leadingBlank && fontName_.size() < maxNameLength)
        fontName_ += character;
}

void RtfTables::endFont() {
    while (!fontName_.empty() && fontName_.back() == L' ')
        fontName_.pop_back();
    if (fontNumber_ >= 0 && fontNumber_ <= maxFontNumber)
        fonts_.insert_or_assign(fontNumber_, fontName_);
    fontName_.clear();
}

std::wstring RtfTables::font(int number) const {
    auto found = fonts_.find(number);
    if (found == fonts_.end())
        found = fonts_.find(defaultFont_);
    return found == fonts_.end() ? std::wstring() : found->second;
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
