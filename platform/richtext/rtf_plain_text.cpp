#include "platform/richtext/rtf_plain_text.h"

#include "platform/richtext/rtf_builder.h"
#include "platform/values/utf8.h"
#include "platform/values/windows1252.h"

#include <algorithm>

namespace klopfmeise {

namespace {

// One replacement character for each byte that is no UTF-8.
std::wstring fromMarkedUtf8(std::string_view bytes) {
    std::wstring text;
    text.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();) {
        const auto [character, length] = utf8CharacterAt(bytes, at);
        text += length > 0 ? character : replacementCharacter;
        at += std::max<std::size_t>(length, 1);
    }
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
    if (bytes.starts_with(utf8ByteOrderMark))
        return documentFromPlainText(fromMarkedUtf8(bytes.substr(utf8ByteOrderMark.size())));
    return documentFromPlainText(fromWindows1252(bytes));
}

} // namespace klopfmeise
