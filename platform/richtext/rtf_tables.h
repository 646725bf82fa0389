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
    void setCodePage(int page) { begun_.codePage = page; }
    void addToName(wchar_t character);
    [[nodiscard]] bool nameBegun() const { return !begun_.name.empty(); }
    /// The code page of the entry begun, as `codePage`.
    [[nodiscard]] int begunCodePage() const { return begun_.codePage; }
    void endFont();
    /// The name of a font; of the document's default font where the table does not hold the number.
    [[nodiscard]] std::wstring font(int number) const { return entry(number).name; }
    /// The code page of a font; 0: that of the document.
    [[nodiscard]] int codePage(int number) const { return entry(number).codePage; }

    /// A part of the colour being read: its bits begin at shift; part is cut to 0 to 255.
    void colorPart(unsigned shift, int part);
    void endColor();
    /// 0xRRGGBB; black where the table does not hold the number.
    [[nodiscard]] std::uint32_t color(int number) const;

private:
    struct Font {
        std::wstring name;
        int codePage = 0;
    };
    const Font& entry(int number) const;

    std::unordered_map<int, Font> fonts_;
    int defaultFont_ = 0;
    int begunNumber_ = 0;
    Font begun_;
    std::vector<std::uint32_t> colors_;
    std::uint32_t mixed_ = 0;
};

} // namespace klopfmeise
