#include "platform/richtext/rtf.h"
#include "platform/richtext/rtf_builder.h"
#include "platform/richtext/rtf_plain_text.h"
#include "platform/richtext/rtf_state.h"
#include "platform/richtext/rtf_tables.h"
#include "platform/richtext/rtf_words.h"
#include "platform/values/utf8.h"
#include "platform/values/windows1252.h"

#include <algorithm>
#include <utility>

namespace klopfmeise {

namespace {

constexpr std::size_t maxDepth = 1000;
constexpr int maxNumber = 1'000'000'000;
constexpr int maxSubstitutes = 1000;
constexpr std::string_view signature = "{\\rtf";

static_assert(sizeof(wchar_t) >= 4, "a surrogate pair becomes one character");

constexpr bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

constexpr int hexValue(char c) {
    if (isDigit(c))
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

/// Line ends are control words; one given as a number is dropped with the other control characters.
constexpr wchar_t withoutLineEnd(wchar_t character) { return character == L'\n' ? L'\0' : character; }

class Reader {
public:
    explicit Reader(std::string_view bytes)
        : bytes_(bytes) {}
    [[nodiscard]] RtfDocument read();

private:
    void openGroup();
    void closeGroup();
    void backslash();
    void hexByte();
    void controlWord();
    void execute(const RtfControlWord& controlWord, int number, bool hasNumber);
    void unicode(int number);
    void take(wchar_t character, bool raw);
    void put(wchar_t character, bool raw);
    void endParagraph();
    void putHalf();
    const RtfFormat& format();

    std::string_view bytes_;
    std::size_t at_ = 0;
    bool ended_ = false;

    RtfBuilder builder_;
    RtfState state_;
    std::vector<RtfState> groups_;
    std::size_t surplus_ = 0; ///< open groups beyond the greatest depth; they share the deepest state
    int skip_ = 0;            ///< characters that only stand for the last \u
    std::uint32_t high_ = 0;  ///< first half of a surrogate pair, 0: none

    RtfTables tables_;
    RtfFormat format_;
    bool formatStale_ = true;
};

RtfDocument Reader::read() {
    while (!ended_ && at_ < bytes_.size()) {
        const char c = bytes_[at_++];
        switch (c) {
        case '{':
            openGroup();
            break;
        case '}':
            closeGroup();
            break;
        case '\\':
            backslash();
            break;
        case '\r':
        case '\n':
            break;
        default:
            take(fromWindows1252(static_cast<unsigned char>(c)), true);
        }
    }
    putHalf();
    return builder_.finish(state_.alignment);
}

void Reader::openGroup() {
    putHalf();
    skip_ = 0;
    if (groups_.size() < maxDepth)
        groups_.push_back(state_);
    else
        ++surplus_;
}

// The state of the outermost group stays when it ends: the last paragraph takes its alignment from there.
void Reader::closeGroup() {
    putHalf();
    skip_ = 0;
    if (state_.target == RtfTarget::fonts && tables_.nameBegun())
        tables_.endFont();
    if (surplus_ > 0) {
        --surplus_;
    } else if (groups_.size() <= 1) {
        ended_ = true;
    } else {
        state_ = groups_.back();
        groups_.pop_back();
        formatStale_ = true;
    }
}

void Reader::backslash() {
    if (at_ >= bytes_.size())
        return;
    const char c = bytes_[at_];
    if (isLetter(c)) {
        controlWord();
        return;
    }
    ++at_;
    switch (c) {
    case '\\':
    case '{':
    case '}':
        take(static_cast<wchar_t>(c), false);
        break;
    case '\'':
        hexByte();
        break;
    case '~':
        take(0xA0, false);
        break;
    // The code page has no non-breaking hyphen and no key types one.
    case '_':
        take(L'-', false);
        break;
    case '\t':
        take(L'\t', false);
        break;
    case '\r':
        if (at_ < bytes_.size() && bytes_[at_] == '\n')
            ++at_;
        endParagraph();
        break;
    case '\n':
        endParagraph();
        break;
    case '*':
        state_.target = RtfTarget::nowhere;
        break;
    // An optional hyphen (\-) is not seen unless a line breaks there, so it is no character of the text.
    default:
        break;
    }
}

void Reader::hexByte() {
    if (bytes_.size() - at_ < 2)
        return;
    const int high = hexValue(bytes_[at_]);
    const int low = hexValue(bytes_[at_ + 1]);
    if (high < 0 || low < 0)
        return;
    at_ += 2;
    take(withoutLineEnd(fromWindows1252(static_cast<unsigned char>(high * 16 + low))), false);
}

void Reader::controlWord() {
    const std::size_t begin = at_;
    while (at_ < bytes_.size() && isLetter(bytes_[at_]))
        ++at_;
    const std::string_view name = bytes_.substr(begin, at_ - begin);

    const auto digitAt = [this](std::size_t at) { return at < bytes_.size() && isDigit(bytes_[at]); };
    const bool minus = at_ < bytes_.size() && bytes_[at_] == '-' && digitAt(at_ + 1);
    if (minus)
        ++at_;
    const bool hasNumber = digitAt(at_);
    int number = 0;
    for (; digitAt(at_); ++at_)
        number = number >= maxNumber / 10 ? maxNumber : number * 10 + (bytes_[at_] - '0');
    if (at_ < bytes_.size() && bytes_[at_] == ' ')
        ++at_;
    execute(rtfControlWord(name), minus ? -number : number, hasNumber);
}

void Reader::execute(const RtfControlWord& controlWord, int number, bool hasNumber) {
    // Of control words only a character can stand for a \u. Where a writer left the substitute out, the words
    // that follow must not be lost for it.
    if (controlWord.word == RtfWord::character) {
        take(static_cast<wchar_t>(controlWord.value), false);
        return;
    }
    if (controlWord.word != RtfWord::bin)
        skip_ = 0;
    const bool on = !hasNumber || number != 0;

    switch (controlWord.word) {
    case RtfWord::paragraph:
        endParagraph();
        break;
    case RtfWord::section:
        if (!builder_.paragraphEmpty())
            endParagraph();
        break;
    case RtfWord::bin:
        at_ += std::min(static_cast<std::size_t>(std::max(number, 0)), bytes_.size() - at_);
        skip_ = std::max(skip_ - 1, 0);
        break;
    case RtfWord::unicode:
        unicode(number);
        break;
    case RtfWord::uc:
        state_.substitutes = std::clamp(number, 0, maxSubstitutes);
        break;
    case RtfWord::skip:
        state_.target = RtfTarget::nowhere;
        break;
    case RtfWord::fontTable:
    case RtfWord::colorTable:
        if (state_.target == RtfTarget::text)
            state_.target = controlWord.word == RtfWord::colorTable ? RtfTarget::colors : RtfTarget::fonts;
        break;
    case RtfWord::defaultFont:
        tables_.setDefaultFont(number);
        formatStale_ = true;
        break;
    case RtfWord::red:
        tables_.colorPart(16, number);
        break;
    case RtfWord::green:
        tables_.colorPart(8, number);
        break;
    case RtfWord::blue:
        tables_.colorPart(0, number);
        break;
    case RtfWord::pard:
        state_.alignment = RtfAlignment::left;
        break;
    case RtfWord::alignment:
        state_.alignment = static_cast<RtfAlignment>(controlWord.value);
        break;
    default:
        if (controlWord.word == RtfWord::font && state_.target == RtfTarget::fonts)
            tables_.beginFont(number);
        state_.applyWord(controlWord.word, number, on);
        formatStale_ = true;
    }
}

// Numbers above 32767 are written negative, characters above FFFF as two halves; some writers do neither. The
// halves may stand apart, with other control words between them.
void Reader::unicode(int number) {
    auto value = static_cast<std::uint32_t>(number < 0 && number >= -0x8000 ? number + 0x10000 : number);
    if (value >= 0xDC00 && value <= 0xDFFF && high_ != 0) {
        value = 0x10000 + ((std::exchange(high_, 0) - 0xD800) << 10U) + (value - 0xDC00);
        put(static_cast<wchar_t>(value), false);
    } else if (value >= 0xD800 && value <= 0xDBFF) {
        putHalf();
        high_ = value;
    } else {
        putHalf();
        const bool valid = value <= 0x10FFFF && (value < 0xDC00 || value > 0xDFFF);
        put(valid ? withoutLineEnd(static_cast<wchar_t>(value)) : replacementCharacter, false);
    }
    skip_ = state_.substitutes;
}

void Reader::take(wchar_t character, bool raw) {
    if (skip_ > 0) {
        --skip_;
        return;
    }
    putHalf();
    put(character, raw);
}

/// raw: the character stood in the document as it is, so that a semicolon divides the tables.
void Reader::put(wchar_t character, bool raw) {
    switch (state_.target) {
    case RtfTarget::nowhere:
        break;
    case RtfTarget::fonts:
        if (raw && character == L';')
            tables_.endFont();
        else
            tables_.addToName(character);
        formatStale_ = true;
        break;
    case RtfTarget::colors:
        if (character == L';')
            tables_.endColor();
        formatStale_ = true;
        break;
    case RtfTarget::text:
        if (!state_.hidden && !state_.deleted)
            builder_.add(character, format());
        break;
    }
}

void Reader::endParagraph() {
    skip_ = 0;
    putHalf();
    if (state_.target == RtfTarget::text)
        builder_.endParagraph(state_.alignment, format());
}

void Reader::putHalf() {
    if (std::exchange(high_, 0) != 0)
        put(replacementCharacter, false);
}

const RtfFormat& Reader::format() {
    if (!formatStale_)
        return format_;
    formatStale_ = false;
    format_.typeface = tables_.font(state_.font);
    format_.color = tables_.color(state_.color);
    format_.halfPoints = state_.size;
    format_.bold = state_.bold;
    format_.italic = state_.italic;
    format_.underlined = state_.underlined;
    return format_;
}

} // namespace

RtfDocument readRtf(std::string_view bytes) {
    bytes = bytes.substr(0, rtfMaxLength);
    const std::string_view unmarked =
        bytes.starts_with(utf8ByteOrderMark) ? bytes.substr(utf8ByteOrderMark.size()) : bytes;
    return unmarked.starts_with(signature) ? Reader(unmarked).read() : readPlainText(bytes);
}

} // namespace klopfmeise
