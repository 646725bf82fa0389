#include "platform/richtext/rtf_plain_text.h"

#include "platform/richtext/rtf_builder.h"
#include "platform/values/windows1252.h"

namespace klopfmeise {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr wchar_t replacementCharacter = 0xFFFD;

// Broken, overlong and surrogate sequences give one replacement character for their first byte.
wchar_t nextUtf8(std::string_view bytes, std::size_t& at) {
    const auto lead = static_cast<unsigned char>(bytes[at++]);
    if (lead < 0x80)
        return static_cast<wchar_t>(lead);
    const std::size_t trailing = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
    if (lead < 0xC2 || lead > 0xF4 || bytes.size() - at < trailing)
        return replacementCharacter;
    std::uint32_t value = lead & (0x3FU >> trailing);
    for (std::size_t i = 0; i < trailing; ++i) {
        const auto next = static_cast<unsigned char>(bytes[at + i]);
        if ((next & 0xC0U) != 0x80U)
            return replacementCharacter;
        value = (value << 6U) | (next & 0x3FU);
    }
    const bool overlong = (trailing == 2 && value < 0x800) || (trailing == 3 && value < 0x10000);
    if (overlong || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF))
        return replacementCharacter;
    at += trailing;
    return static_cast<wchar_t>(value);
}

std::wstring fromMarkedUtf8(std::string_view bytes) {
    std::wstring text;
    text.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();)
        text += nextUtf8(bytes, at);
    return text;
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

RtfDocument documentFromPlainText(std::wstring_view text) {
    const RtfFormat format;
    RtfBuilder builder;
    bool afterCr = false;
    for (const wchar_t character : text) {
        if (character == L'\r' || (character == L'\n' && !afterCr))
            builder.endParagraph(RtfAlignment::left, format);
        else if (character != L'\n')
            builder.add(character, format);
        afterCr = character == L'\r';
    }
    return builder.finish(RtfAlignment::left);
}

RtfDocument readPlainText(std::string_view bytes) {
    if (bytes.starts_with(byteOrderMark))
        return documentFromPlainText(fromMarkedUtf8(bytes.substr(byteOrderMark.size())));
    return documentFromPlainText(fromWindows1252(bytes));
}

} // namespace klopfmeise
