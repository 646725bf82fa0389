#pragma once

#include "platform/richtext/rtf.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace klopfmeise {

/// The font table and the colour table of a document, gathered while they are read.
class RtfTables {
public:
    void setDefaultFont(int number) { defaultFont_ = number; }
    /// Begins an entry of the font table; its name follows character by character.
    void beginFont(int number);
    void addToName(wchar_t character);
    [[nodiscard]] bool nameBegun() const { return !fontName_.empty(); }
    void endFont();
    /// The name of a font; of the document's default font where the table does not hold the number.
    [[nodiscard]] std::wstring font(int number) const;

    /// A part of the colour being read: its bits begin at shift; part is cut to 0 to 255.
    void colorPart(unsigned shift, int part);
    void endColor();
    /// 0xRRGGBB; black where the table does not hold the number.
    [[nodiscard]] std::uint32_t color(int number) const;

private:
    std::unordered_map<int, std::wstring> fonts_;
    int defaultFont_ = 0;
    int fontNumber_ = 0;
    std::wstring fontName_;
    std::vector<std::uint32_t> colors_;
    std::uint32_t mixed_ = 0;
};

} // namespace klopfmeise
