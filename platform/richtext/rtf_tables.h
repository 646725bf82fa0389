#pragma once

#include "platform/richtext/rtf.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace klopfmeise {

/// The font table and the colour table of a document, gathered while they are read.
class RtfTabellen {
public:
    void schriftVorgabe(int nummer) { schriftVorgabe_ = nummer; }
    /// Begins an entry of the font table; its name follows character by character.
    void schriftnummer(int nummer);
    void namenszeichen(wchar_t zeichen);
    [[nodiscard]] bool nameBegonnen() const { return !schriftname_.empty(); }
    void schriftFertig();
    /// The name of a font; of the document's default font where the table does not hold the number.
    [[nodiscard]] std::wstring schrift(int nummer) const;

    /// A part of the colour being read: its bits begin at versatz; anteil is cut to 0 to 255.
    void farbanteil(unsigned versatz, int anteil);
    void farbeFertig();
    /// 0xRRGGBB; black where the table does not hold the number.
    [[nodiscard]] std::uint32_t color(int nummer) const;

private:
    std::unordered_map<int, std::wstring> schriften_;
    int schriftVorgabe_ = 0;
    int schriftnummer_ = 0;
    std::wstring schriftname_;
    std::vector<std::uint32_t> farben_;
    std::uint32_t mischung_ = 0;
};

} // namespace klopfmeise
