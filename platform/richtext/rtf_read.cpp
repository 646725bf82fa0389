#include "platform/richtext/rtf.h"
#include "platform/richtext/rtf_builder.h"
#include "platform/richtext/rtf_bytes.h"
#include "platform/richtext/rtf_code_pages.h"
#include "platform/richtext/rtf_plain_text.h"
#include "platform/richtext/rtf_state.h"
#include "platform/richtext/rtf_tables.h"
#include "platform/richtext/rtf_words.h"
#include "platform/values/utf8.h"

#include <algorithm>
#include <string>
#include <utility>

namespace klopfmeise {

namespace {

constexpr std::size_t maxDepth = 1000;
constexpr int maxNumber = 1'000'000'000;
constexpr int maxSubstitutes = 1000;
constexpr std::size_t maxWordLength = 32;
constexpr std::string_view signature = "{\\rtf";

static_assert(sizeof(wchar_t) >= 4, "a surrogate pair becomes one character");

constexpr bool isLetter(int c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

constexpr bool isDigit(int c) { return c >= '0' && c <= '9'; }

constexpr int hexValue(int c) {
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
    explicit Reader(RtfBytes& bytes)
        : bytes_(bytes) {}
    [[nodiscard]] RtfReading read();

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
    wchar_t character(int byte);
    void refresh();

    RtfBytes& bytes_;
    bool ended_ = false;

    RtfBuilder builder_;
    RtfState state_;
    std::vector<RtfState> groups_;
    std::size_t surplus_ = 0; ///< open groups beyond the greatest depth; they share the deepest state
    int skip_ = 0;            ///< characters that only stand for the last \u
    std::uint32_t high_ = 0;  ///< first half of a surrogate pair, 0: none

    RtfTables tables_;
    int documentCodePage_ = codePageAnsi;
    // What follows from tables and state; anew by refresh().
    RtfFormat format_;
    int codePage_ = codePageAnsi;
    bool stale_ = true;
};

RtfReading Reader::read() {
    while (!ended_ && !builder_.full() && bytes_.peek() >= 0) {
        // Pictures are long, and as text in hexadecimal figures they have no length to leap over.
        if (state_.target == RtfTarget::nowhere && skip_ == 0 && high_ == 0) {
            bytes_.goTo("{}\\");
            if (bytes_.peek() < 0)
                break;
        }
        const char c = bytes_.next();
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
            take(character(static_cast<unsigned char>(c)), true);
        }
    }
    putHalf();
    RtfReading reading{.document = builder_.finish(state_.alignment)};
    if (builder_.full() || bytes_.cut())
        reading.outcome = RtfOutcome::cut;
    return reading;
}

void Reader::openGroup() {
    putHalf();
    skip_ = 0;
    if (groups_.size() < maxDepth)
        groups_.push_back(state_);
    else
        ++surplus_;
    state_.starred = RtfTarget::nowhere;
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
        stale_ = true;
    }
}

void Reader::backslash() {
    const int c = bytes_.peek();
    if (c < 0)
        return;
    if (isLetter(c)) {
        controlWord();
        return;
    }
    bytes_.next();
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
    case '_':
        take(0x2011, false);
        break;
    case '\t':
        take(L'\t', false);
        break;
    case '\r':
        if (bytes_.peek() == '\n')
            bytes_.next();
        endParagraph();
        break;
    case '\n':
        endParagraph();
        break;
    case '*':
        state_.starred = std::exchange(state_.target, RtfTarget::nowhere);
        break;
    // An optional hyphen (\-) is not seen unless a line breaks there, so it is no character of the text.
    default:
        break;
    }
}

void Reader::hexByte() {
    const int high = hexValue(bytes_.peek(0));
    const int low = hexValue(bytes_.peek(1));
    if (high < 0 || low < 0)
        return;
    bytes_.leap(2);
    take(withoutLineEnd(character(high * 16 + low)), false);
}

void Reader::controlWord() {
    std::string name;
    while (isLetter(bytes_.peek())) {
        const char letter = bytes_.next();
        if (name.size() < maxWordLength)
            name += letter;
    }
    const bool minus = bytes_.peek() == '-' && isDigit(bytes_.peek(1));
    if (minus)
        bytes_.next();
    const bool hasNumber = isDigit(bytes_.peek());
    int number = 0;
    while (isDigit(bytes_.peek())) {
        const int digit = bytes_.next() - '0';
        number = number >= maxNumber / 10 ? maxNumber : number * 10 + digit;
    }
    if (bytes_.peek() == ' ')
        bytes_.next();
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
    case RtfWord::nestedRow:
        // The row's end stands behind its cells, among properties that are starred like anything newer.
        if (state_.target == RtfTarget::rowProperties)
            builder_.endParagraph(state_.alignment);
        else
            endParagraph();
        break;
    case RtfWord::rowProperties:
        state_.target = state_.target == RtfTarget::text || state_.starred == RtfTarget::text
                            ? RtfTarget::rowProperties
                            : RtfTarget::nowhere;
        break;
    case RtfWord::section:
        if (!builder_.paragraphEmpty())
            endParagraph();
        break;
    case RtfWord::bin:
        bytes_.leap(static_cast<std::size_t>(std::max(number, 0)));
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
        stale_ = true;
        break;
    case RtfWord::charset:
    case RtfWord::codePage:
        if (state_.target == RtfTarget::fonts)
            tables_.setCodePage(controlWord.word == RtfWord::codePage ? number : codePageOfCharset(number));
        break;
    case RtfWord::documentCodePage:
        documentCodePage_ = controlWord.value != 0 ? controlWord.value : number;
        stale_ = true;
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
        stale_ = true;
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
    case RtfTarget::rowProperties:
        break;
    case RtfTarget::fonts:
        if (raw && character == L';')
            tables_.endFont();
        else
            tables_.addToName(character);
        stale_ = true;
        break;
    case RtfTarget::colors:
        if (character == L';')
            tables_.endColor();
        stale_ = true;
        break;
    case RtfTarget::text:
        if (!state_.hidden && !state_.deleted) {
            refresh();
            builder_.add(character, format_);
        }
        break;
    }
}

void Reader::endParagraph() {
    skip_ = 0;
    putHalf();
    if (state_.target == RtfTarget::text)
        builder_.endParagraph(state_.alignment);
}

void Reader::putHalf() {
    if (std::exchange(high_, 0) != 0)
        put(replacementCharacter, false);
}

wchar_t Reader::character(int byte) {
    if (byte < 0x80)
        return static_cast<wchar_t>(byte);
    refresh();
    const int named = state_.target == RtfTarget::fonts ? tables_.begunCodePage() : codePage_;
    return fromCodePage(named != 0 ? named : documentCodePage_, static_cast<unsigned char>(byte));
}

void Reader::refresh() {
    if (!stale_)
        return;
    stale_ = false;
    codePage_ = tables_.codePage(state_.font);
    format_.typeface = tables_.font(state_.font);
    format_.color = tables_.color(state_.color);
    format_.halfPoints = state_.size;
    format_.bold = state_.bold;
    format_.italic = state_.italic;
    format_.underlined = state_.underlined;
}

} // namespace

RtfReading readRtf(const RtfSource& source) {
    RtfBytes bytes(source);
    const std::size_t mark = bytes.startsWith(utf8ByteOrderMark) ? utf8ByteOrderMark.size() : 0;
    RtfReading reading;
    if (bytes.startsWith(std::string(utf8ByteOrderMark.substr(0, mark)) + std::string(signature))) {
        bytes.leap(mark);
        reading = Reader(bytes).read();
    } else {
        reading = readPlainText(bytes.rest(plainTextMaxLength));
        if (bytes.peek() >= 0)
            reading.outcome = RtfOutcome::cut;
    }
    if (bytes.failed())
        return {documentFromPlainText({}).document, RtfOutcome::failed};
    return reading;
}

RtfReading readRtf(std::string_view bytes) {
    return readRtf([bytes](std::int64_t offset, std::size_t size) {
        const std::size_t at = std::min(static_cast<std::size_t>(offset), bytes.size());
        return std::optional(std::string(bytes.substr(at, size)));
    });
}

} // namespace klopfmeise
