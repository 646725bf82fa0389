#include "platform/richtext/rtf.h"
#include "platform/values/windows1252.h"

#include <algorithm>
#include <map>
#include <unordered_map>

namespace klopfmeise {

namespace {

constexpr std::string_view alignmentWord(RtfAlignment alignment) {
    switch (alignment) {
    case RtfAlignment::right:
        return "\\qr";
    case RtfAlignment::center:
        return "\\qc";
    case RtfAlignment::justified:
        return "\\qj";
    case RtfAlignment::left:
        break;
    }
    return "\\ql";
}

class Writer {
public:
    [[nodiscard]] std::string write(const RtfDocument& document, const RtfFormat& standing);

private:
    void writeTables(const RtfDocument& document, const RtfFormat& standing);
    void writeTableEntries(const RtfFormat& format, std::string& fonts, std::string& colors);
    void writeParagraph(const RtfParagraph& paragraph);
    void writeFormat(const RtfFormat& format);
    void writeToggle(std::string_view on, std::string_view off, bool fresh, bool before);
    void writeWord(std::string_view name, long long number);
    void writeText(std::wstring_view text);
    void writeCharacter(wchar_t character);
    void writeUnicode(std::uint32_t value);

    std::string out_;
    std::map<std::wstring, int, std::less<>> fonts_;
    std::unordered_map<std::uint32_t, int> colors_{{0, 0}};
    RtfFormat last_;
};

std::string Writer::write(const RtfDocument& document, const RtfFormat& standing) {
    writeTables(document, standing);
    for (const RtfParagraph& each : document.paragraphs) {
        writeParagraph(each);
        out_ += "\\par\r\n";
    }
    out_ += "}\r\n";
    return std::move(out_);
}

void Writer::writeTables(const RtfDocument& document, const RtfFormat& standing) {
    std::string fonts;
    std::string colors;
    writeTableEntries(standing, fonts, colors);
    for (const RtfParagraph& each : document.paragraphs)
        for (const RtfRun& run : each.runs)
            writeTableEntries(run.format, fonts, colors);
    out_ = "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl" + fonts + "}\r\n{\\colortbl ;" + colors +
           "}\r\n\\uc1\\plain\\f0";
    writeWord("\\fs", standing.halfPoints);
    last_ = {.typeface = standing.typeface, .halfPoints = standing.halfPoints};
    writeFormat(standing);
    out_ += "\r\n";
}

void Writer::writeTableEntries(const RtfFormat& format, std::string& fonts, std::string& colors) {
    const auto [font, fontIsNew] = fonts_.try_emplace(format.typeface, static_cast<int>(fonts_.size()));
    if (fontIsNew) {
        std::swap(out_, fonts);
        writeWord("{\\f", font->second);
        out_ += "\\fnil\\fcharset0 ";
        writeText(format.typeface);
        out_ += ";}";
        std::swap(out_, fonts);
    }
    const std::uint32_t color = format.color & 0xFFFFFFU;
    if (colors_.try_emplace(color, static_cast<int>(colors_.size())).second) {
        std::swap(out_, colors);
        writeWord("\\red", color >> 16U);
        writeWord("\\green", (color >> 8U) & 0xFFU);
        writeWord("\\blue", color & 0xFFU);
        out_ += ';';
        std::swap(out_, colors);
    }
}

void Writer::writeParagraph(const RtfParagraph& paragraph) {
    out_ += "\\pard";
    out_ += alignmentWord(paragraph.alignment);
    bool first = true;
    for (const RtfRun& run : paragraph.runs) {
        const std::size_t sizeBefore = out_.size();
        writeFormat(run.format);
        if (first || out_.size() != sizeBefore)
            out_ += ' ';
        first = false;
        writeText(run.text);
    }
}

void Writer::writeFormat(const RtfFormat& format) {
    if (format.typeface != last_.typeface)
        writeWord("\\f", fonts_.find(format.typeface)->second);
    if (format.halfPoints != last_.halfPoints)
        writeWord("\\fs", std::clamp(format.halfPoints, 2, 3276));
    writeToggle("\\b", "\\b0", format.bold, last_.bold);
    writeToggle("\\i", "\\i0", format.italic, last_.italic);
    writeToggle("\\ul", "\\ulnone", format.underlined, last_.underlined);
    if (format.color != last_.color)
        writeWord("\\cf", colors_.find(format.color & 0xFFFFFFU)->second);
    last_ = format;
}

void Writer::writeToggle(std::string_view on, std::string_view off, bool fresh, bool before) {
    if (fresh != before)
        out_ += fresh ? on : off;
}

void Writer::writeWord(std::string_view name, long long number) {
    out_ += name;
    out_ += std::to_string(number);
}

void Writer::writeText(std::wstring_view text) {
    for (const wchar_t character : text)
        writeCharacter(character);
}

void Writer::writeCharacter(wchar_t character) {
    constexpr std::string_view hex = "0123456789abcdef";
    const auto value = static_cast<std::uint32_t>(character);
    if (character == L'\t') {
        out_ += "\\tab ";
    } else if (character == L'\n') {
        out_ += "\\line ";
    } else if (value < 0x20) {
        return;
    } else if (const int byte = toWindows1252(character); byte < 0) {
        writeUnicode(value);
    } else if (byte >= 0x7F || byte == ';') {
        // The semicolon ends a name in the font table, unless it is written as a number.
        out_ += "\\'";
        out_ += hex[static_cast<std::size_t>(byte) >> 4U];
        out_ += hex[static_cast<std::size_t>(byte) & 15U];
    } else {
        if (byte == '\\' || byte == '{' || byte == '}')
            out_ += '\\';
        out_ += static_cast<char>(byte);
    }
}

// The numbers of \u are 16-bit and signed; larger characters go out as a surrogate pair.
void Writer::writeUnicode(std::uint32_t value) {
    const auto unit = [this](std::uint32_t number) {
        writeWord("\\u", static_cast<std::int16_t>(number));
        out_ += '?';
    };
    if (value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF)) {
        out_ += '?';
    } else if (value > 0xFFFF) {
        unit(0xD800 + ((value - 0x10000) >> 10U));
        unit(0xDC00 + ((value - 0x10000) & 0x3FFU));
    } else {
        unit(value);
    }
}

} // namespace

std::string writeRtf(const RtfDocument& document, const RtfFormat& standing) {
    return Writer{}.write(document, standing);
}

} // namespace klopfmeise
