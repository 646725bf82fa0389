#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace klopfmeise {

/// Longer input is cut there before it is read.
inline constexpr std::size_t rtfMaxLength = 16U * 1024U * 1024U;

struct RtfFormat {
    std::wstring typeface; ///< empty: the font of the box that shows the text
    int halfPoints = 24;   ///< 2 to 3276; 24 (12 pt) is what a document without \fs means
    bool bold = false;
    bool italic = false;
    bool underlined = false;
    std::uint32_t color = 0; ///< 0xRRGGBB; black is also the automatic text colour
    bool operator==(const RtfFormat&) const = default;
};

enum class RtfAlignment { left, right, center, justified };

/// Characters of one format. L'\n' is a line break inside the paragraph, L'\t' a tab; no other control
/// characters.
struct RtfRun {
    std::wstring text;
    RtfFormat format;
    bool operator==(const RtfRun&) const = default;
};

/// A paragraph without its end. An empty paragraph has no runs.
struct RtfParagraph {
    std::vector<RtfRun> runs;
    RtfAlignment alignment = RtfAlignment::left;
    bool operator==(const RtfParagraph&) const = default;
};

struct RtfDocument {
    std::vector<RtfParagraph> paragraphs;

    /// The characters alone: CR LF between paragraphs and for each line break, nothing after the last
    /// paragraph. A \par always opens a further paragraph, as in a rich-text box, so "a" alone reads as "a",
    /// and "a\par" at the end of a document as "a" CR LF.
    [[nodiscard]] std::wstring plainText() const;
    bool operator==(const RtfDocument&) const = default;
};

/// Reads RTF, or plain text where the bytes do not begin with "{\rtf" (Windows-1252, or UTF-8 after a byte
/// order mark; lines end with CR LF, LF or CR). Never fails: a broken document gives what could be read of
/// it. The result has at least one paragraph, no empty runs, and no neighbouring runs of the same format.
/// Hidden and deleted text, pictures, headers, footers, notes and list numbers are left out; a table's cells
/// end with a tab.
[[nodiscard]] RtfDocument readRtf(std::string_view bytes);

/// A paragraph for each line, in the default format. CR LF, LF and CR end a line; other control characters
/// than the tab are dropped.
[[nodiscard]] RtfDocument documentFromPlainText(std::wstring_view text);

/// ASCII bytes. \par stands between the paragraphs only, so that reading gives the same document again.
[[nodiscard]] std::string writeRtf(const RtfDocument& document);

} // namespace klopfmeise
