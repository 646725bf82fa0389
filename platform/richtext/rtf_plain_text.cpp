#include "platform/richtext/rtf_plain_text.h"

#include "platform/richtext/rtf_builder.h"
#include "platform/values/windows1252.h"

namespace klopfmeise {

namespace {

constexpr std::string_view bytemarke = "\xEF\xBB\xBF";
constexpr wchar_t ersatzzeichen = 0xFFFD;

// Broken, overlong and surrogate sequences give one replacement character for their first byte.
wchar_t nächstesUtf8(std::string_view bytes, std::size_t& stelle) {
    const auto erstes = static_cast<unsigned char>(bytes[stelle++]);
    if (erstes < 0x80)
        return static_cast<wchar_t>(erstes);
    const std::size_t folgen = erstes >= 0xF0 ? 3 : erstes >= 0xE0 ? 2 : 1;
    if (erstes < 0xC2 || erstes > 0xF4 || bytes.size() - stelle < folgen)
        return ersatzzeichen;
    std::uint32_t wert = erstes & (0x3FU >> folgen);
    for (std::size_t i = 0; i < folgen; ++i) {
        const auto folge = static_cast<unsigned char>(bytes[stelle + i]);
        if ((folge & 0xC0U) != 0x80U)
            return ersatzzeichen;
        wert = (wert << 6U) | (folge & 0x3FU);
    }
    const bool zuLang = (folgen == 2 && wert < 0x800) || (folgen == 3 && wert < 0x10000);
    if (zuLang || wert > 0x10FFFF || (wert >= 0xD800 && wert <= 0xDFFF))
        return ersatzzeichen;
    stelle += folgen;
    return static_cast<wchar_t>(wert);
}

std::wstring ausUtf8(std::string_view bytes) {
    std::wstring text;
    text.reserve(bytes.size());
    for (std::size_t stelle = 0; stelle < bytes.size();)
        text += nächstesUtf8(bytes, stelle);
    return text;
}

} // namespace

std::wstring RtfDocument::plainText() const {
    std::wstring text;
    bool erster = true;
    for (const RtfParagraph& absatz : paragraphs) {
        if (!erster)
            text += L"\r\n";
        erster = false;
        for (const RtfRun& lauf : absatz.runs)
            for (const wchar_t zeichen : lauf.text) {
                if (zeichen == L'\n')
                    text += L'\r';
                text += zeichen;
            }
    }
    return text;
}

RtfDocument documentFromPlainText(std::wstring_view text) {
    const RtfFormat format;
    RtfBuilder bauer;
    bool nachCr = false;
    for (const wchar_t zeichen : text) {
        if (zeichen == L'\r' || (zeichen == L'\n' && !nachCr))
            bauer.absatzende(RtfAlignment::left, format);
        else if (zeichen != L'\n')
            bauer.zeichen(zeichen, format);
        nachCr = zeichen == L'\r';
    }
    return bauer.fertig(RtfAlignment::left);
}

RtfDocument klartextLesen(std::string_view bytes) {
    if (bytes.starts_with(bytemarke))
        return documentFromPlainText(ausUtf8(bytes.substr(bytemarke.size())));
    return documentFromPlainText(fromWindows1252(bytes));
}

} // namespace klopfmeise
