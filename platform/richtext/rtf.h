#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace klopfmeise {

/// A document holds at most as many characters, counted as in RtfDocument::plainText.
inline constexpr std::size_t rtfMaxCharacters = 100'000;
/// At most as many bytes of a document are looked at. Binary data of known length is leapt over and does not
/// count.
inline constexpr std::size_t rtfMaxLength = std::size_t{256} << 20U;

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
/// characters, and none that rtfCharacter makes another one.
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
    /// paragraph.
    [[nodiscard]] std::wstring plainText() const;
    bool operator==(const RtfDocument&) const = default;
};

/// What a document takes a character for, since a text must consist of what keys type: a blank of any width
/// is a blank, a hyphen of any kind a hyphen, a line or paragraph separator a line break. 0 stands for
/// nothing: marks without a width, and control characters but tab and line break.
[[nodiscard]] wchar_t rtfCharacter(wchar_t character);

enum class RtfOutcome {
    whole,
    cut,   ///< the beginning of a document that is beyond the bounds
    failed ///< the bytes could not be read
};

struct RtfReading {
    RtfDocument document; ///< at least one paragraph, no empty runs, no neighbouring runs of the same format
    RtfOutcome outcome = RtfOutcome::whole;
};

/// Gives up to `size` bytes from `offset` on, none only at the end; no value if reading failed.
using RtfSource = std::function<std::optional<std::string>(std::int64_t offset, std::size_t size)>;

/// What gets into a document of a typed or pasted text.
struct RtfAdmission {
    std::wstring text; ///< line ends, CR LF or LF or CR before, are L'\n'
    bool whole = true; ///< false: there was no room for the rest
};
/// `room`: places that are free, counted as in RtfDocument::plainText.
[[nodiscard]] RtfAdmission rtfAdmitted(std::wstring_view text, std::size_t room);

/// Reads RTF, or plain text where the bytes do not begin with "{\rtf": UTF-16 behind its byte order mark,
/// UTF-8 if all of it is, else Windows-1252; lines end with CR LF, LF or CR. A broken document gives what
/// could be read of it. A \par ends a paragraph: "a" and "a\par" at the end of a document are the same.
/// Hidden and deleted text, pictures, headers, footers, notes and list numbers are left out; a table's cells
/// end with a tab.
[[nodiscard]] RtfReading readRtf(const RtfSource& source);
[[nodiscard]] RtfReading readRtf(std::string_view bytes);

/// A paragraph for each line, in the default format. CR LF, LF and CR divide lines.
[[nodiscard]] RtfReading documentFromPlainText(std::wstring_view text);

/// ASCII bytes, from which reading gives the same document again. Each paragraph ends with \par, the last one
/// too. What is typed where no character stands yet, in an empty document, will have the format `standing`.
[[nodiscard]] std::string writeRtf(const RtfDocument& document, const RtfFormat& standing = {});

} // namespace klopfmeise
