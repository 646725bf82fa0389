#include "platform/richtext/rtf_plain_text.h"

#include "platform/richtext/rtf_builder.h"
#include "platform/values/utf8.h"
#include "platform/values/windows1252.h"

#include <algorithm>
#include <cstdint>

namespace klopfmeise {

namespace {

constexpr std::string_view utf16LittleEndian = "\xFF\xFE";
constexpr std::string_view utf16BigEndian = "\xFE\xFF";

/// One replacement character for each byte that is no UTF-8.
std::wstring fromBrokenUtf8(std::string_view bytes) {
    std::wstring text;
    text.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();) {
        const auto [character, length] = utf8CharacterAt(bytes, at);
        text += length > 0 ? character : replacementCharacter;
        at += std::max<std::size_t>(length, 1);
    }
    return text;
}

/// True if the bytes are UTF-8 throughout, but for a last character that may be cut.
bool isUtf8(std::string_view bytes) {
    constexpr std::size_t longest = 4;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t length = utf8CharacterAt(bytes, at).length;
        if (length == 0)
            return at > 0 && bytes.size() - at < longest && bytes.size() >= plainTextMaxLength;
        at += length;
    }
    return true;
}

std::wstring fromUtf16(std::string_view bytes, bool bigEndian) {
    std::wstring text;
    text.reserve(bytes.size() / 2);
    std::uint32_t high = 0;
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        const auto first = static_cast<unsigned char>(bytes[at]);
        const auto second = static_cast<unsigned char>(bytes[at + 1]);
        const auto unit = static_cast<std::uint32_t>(bigEndian ? first << 8U | second : second << 8U | first);
        const bool low = unit >= 0xDC00 && unit <= 0xDFFF;
        if (high != 0 && low) {
            text += static_cast<wchar_t>(0x10000 + ((high - 0xD800) << 10U) + (unit - 0xDC00));
            high = 0;
            continue;
        }
        if (high != 0)
            text += replacementCharacter;
        high = unit >= 0xD800 && unit <= 0xDBFF ? unit : 0;
        if (high == 0)
            text += low ? replacementCharacter : static_cast<wchar_t>(unit);
    }
    if (high != 0)
        text += replacementCharacter;
    return text;
}

std::wstring decoded(std::string_view bytes) {
    if (bytes.starts_with(utf16LittleEndian) || bytes.starts_with(utf16BigEndian))
        return fromUtf16(bytes.substr(2), bytes.starts_with(utf16BigEndian));
    if (bytes.starts_with(utf8ByteOrderMark) || isUtf8(bytes))
        return fromBrokenUtf8(bytes);
    return fromWindows1252(bytes);
}

} // namespace

std::wstring RtfDocument::plainText() const {
    std::wstring text;
    bool first = true;
    for (const RtfParagraph& paragraph : paragraphs) {
        if (!first)
            text += L"\r\n";
        first = false;
        for (const RtfRun& run : paragraph.runs)
            for (const wchar_t character : run.text) {
                if (character == L'\n')
                    text += L'\r';
                text += character;
            }
    }
    return text;
}

RtfReading documentFromPlainText(std::wstring_view text) {
    const RtfFormat format;
    RtfBuilder builder;
    bool afterCr = false;
    for (const wchar_t character : text) {
        if (character == L'\r' || (character == L'\n' && !afterCr))
            builder.endParagraph(RtfAlignment::left);
        else if (character != L'\n')
            builder.add(character, format);
        afterCr = character == L'\r';
    }
    RtfReading reading{.document = builder.finishLines()};
    reading.outcome = builder.full() ? RtfOutcome::cut : RtfOutcome::whole;
    return reading;
}

RtfReading readPlainText(std::string_view bytes) { return documentFromPlainText(decoded(bytes)); }

} // namespace klopfmeise
