#include "platform/richtext/rtf.h"
#include "platform/richtext/rtf_builder.h"
#include "platform/richtext/rtf_plain_text.h"
#include "platform/richtext/rtf_state.h"
#include "platform/richtext/rtf_tables.h"
#include "platform/richtext/rtf_words.h"
#include "platform/values/windows1252.h"

#include <algorithm>
#include <utility>

namespace klopfmeise {

namespace {

constexpr std::size_t höchsteTiefe = 1000;
constexpr int höchsteZahl = 1'000'000'000;
constexpr int höchsterErsatz = 1000;
constexpr wchar_t ersatzzeichen = 0xFFFD;
constexpr std::string_view anfang = "{\\rtf";
constexpr std::string_view bytemarke = "\xEF\xBB\xBF";

static_assert(sizeof(wchar_t) >= 4, "a surrogate pair becomes one character");

constexpr bool istBuchstabe(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

constexpr bool istZiffer(char c) { return c >= '0' && c <= '9'; }

constexpr int hexwert(char c) {
    if (istZiffer(c))
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

/// Line ends are control words; one given as a number is dropped with the other control characters.
constexpr wchar_t ohneZeilenende(wchar_t zeichen) { return zeichen == L'\n' ? L'\0' : zeichen; }

class Leser {
public:
    explicit Leser(std::string_view bytes)
        : bytes_(bytes) {}
    [[nodiscard]] RtfDocument lies();

private:
    void gruppeAuf();
    void gruppeZu();
    void rückstrich();
    void hexbyte();
    void steuerwort();
    void führeAus(const RtfSteuerwort& steuerwort, int zahl, bool mitZahl);
    void unicode(int zahl);
    void zeichen(wchar_t zeichen, bool roh);
    void ablegen(wchar_t zeichen, bool roh);
    void absatzende();
    void halbesAblegen();
    const RtfFormat& format();

    std::string_view bytes_;
    std::size_t stelle_ = 0;
    bool ende_ = false;

    RtfBuilder bauer_;
    RtfState zustand_;
    std::vector<RtfState> gruppen_;
    std::size_t überzählige_ = 0; ///< open groups beyond the greatest depth; they share the deepest state
    int überspringen_ = 0;        ///< characters that only stand for the last \u
    std::uint32_t hohes_ = 0;     ///< first half of a surrogate pair, 0: none

    RtfTabellen tabellen_;
    RtfFormat format_;
    bool formatVeraltet_ = true;
};

RtfDocument Leser::lies() {
    while (!ende_ && stelle_ < bytes_.size()) {
        const char c = bytes_[stelle_++];
        switch (c) {
        case '{':
            gruppeAuf();
            break;
        case '}':
            gruppeZu();
            break;
        case '\\':
            rückstrich();
            break;
        case '\r':
        case '\n':
            break;
        default:
            zeichen(fromWindows1252(static_cast<unsigned char>(c)), true);
        }
    }
    halbesAblegen();
    return bauer_.fertig(zustand_.alignment);
}

void Leser::gruppeAuf() {
    halbesAblegen();
    überspringen_ = 0;
    if (gruppen_.size() < höchsteTiefe)
        gruppen_.push_back(zustand_);
    else
        ++überzählige_;
}

// The state of the outermost group stays when it ends: the last paragraph takes its alignment from there.
void Leser::gruppeZu() {
    halbesAblegen();
    überspringen_ = 0;
    if (zustand_.ziel == RtfTarget::schriften && tabellen_.nameBegonnen())
        tabellen_.schriftFertig();
    if (überzählige_ > 0) {
        --überzählige_;
    } else if (gruppen_.size() <= 1) {
        ende_ = true;
    } else {
        zustand_ = gruppen_.back();
        gruppen_.pop_back();
        formatVeraltet_ = true;
    }
}

void Leser::rückstrich() {
    if (stelle_ >= bytes_.size())
        return;
    const char c = bytes_[stelle_];
    if (istBuchstabe(c)) {
        steuerwort();
        return;
    }
    ++stelle_;
    switch (c) {
    case '\\':
    case '{':
    case '}':
        zeichen(static_cast<wchar_t>(c), false);
        break;
    case '\'':
        hexbyte();
        break;
    case '~':
        zeichen(0xA0, false);
        break;
    // The code page has no non-breaking hyphen and no key types one.
    case '_':
        zeichen(L'-', false);
        break;
    case '\t':
        zeichen(L'\t', false);
        break;
    case '\r':
        if (stelle_ < bytes_.size() && bytes_[stelle_] == '\n')
            ++stelle_;
        absatzende();
        break;
    case '\n':
        absatzende();
        break;
    case '*':
        zustand_.ziel = RtfTarget::nirgends;
        break;
    // An optional hyphen (\-) is not seen unless a line breaks there, so it is no character of the text.
    default:
        break;
    }
}

void Leser::hexbyte() {
    if (bytes_.size() - stelle_ < 2)
        return;
    const int hoch = hexwert(bytes_[stelle_]);
    const int tief = hexwert(bytes_[stelle_ + 1]);
    if (hoch < 0 || tief < 0)
        return;
    stelle_ += 2;
    zeichen(ohneZeilenende(fromWindows1252(static_cast<unsigned char>(hoch * 16 + tief))), false);
}

void Leser::steuerwort() {
    const std::size_t beginn = stelle_;
    while (stelle_ < bytes_.size() && istBuchstabe(bytes_[stelle_]))
        ++stelle_;
    const std::string_view name = bytes_.substr(beginn, stelle_ - beginn);

    const auto zifferBei = [this](std::size_t stelle) {
        return stelle < bytes_.size() && istZiffer(bytes_[stelle]);
    };
    const bool minus = stelle_ < bytes_.size() && bytes_[stelle_] == '-' && zifferBei(stelle_ + 1);
    if (minus)
        ++stelle_;
    const bool mitZahl = zifferBei(stelle_);
    int zahl = 0;
    for (; zifferBei(stelle_); ++stelle_)
        zahl = zahl >= höchsteZahl / 10 ? höchsteZahl : zahl * 10 + (bytes_[stelle_] - '0');
    if (stelle_ < bytes_.size() && bytes_[stelle_] == ' ')
        ++stelle_;
    führeAus(rtfSteuerwort(name), minus ? -zahl : zahl, mitZahl);
}

void Leser::führeAus(const RtfSteuerwort& steuerwort, int zahl, bool mitZahl) {
    // Of control words only a character can stand for a \u. Where a writer left the substitute out, the words
    // that follow must not be lost for it.
    if (steuerwort.wort == RtfWord::zeichen) {
        zeichen(static_cast<wchar_t>(steuerwort.wert), false);
        return;
    }
    if (steuerwort.wort != RtfWord::bin)
        überspringen_ = 0;
    const bool an = !mitZahl || zahl != 0;

    switch (steuerwort.wort) {
    case RtfWord::absatz:
        absatzende();
        break;
    case RtfWord::abschnitt:
        if (!bauer_.absatzLeer())
            absatzende();
        break;
    case RtfWord::bin:
        stelle_ += std::min(static_cast<std::size_t>(std::max(zahl, 0)), bytes_.size() - stelle_);
        überspringen_ = std::max(überspringen_ - 1, 0);
        break;
    case RtfWord::unicode:
        unicode(zahl);
        break;
    case RtfWord::uc:
        zustand_.ersatz = std::clamp(zahl, 0, höchsterErsatz);
        break;
    case RtfWord::ueberspringen:
        zustand_.ziel = RtfTarget::nirgends;
        break;
    case RtfWord::schrifttabelle:
    case RtfWord::farbtabelle:
        if (zustand_.ziel == RtfTarget::text)
            zustand_.ziel =
                steuerwort.wort == RtfWord::farbtabelle ? RtfTarget::farben : RtfTarget::schriften;
        break;
    case RtfWord::schriftVorgabe:
        tabellen_.schriftVorgabe(zahl);
        formatVeraltet_ = true;
        break;
    case RtfWord::rot:
        tabellen_.farbanteil(16, zahl);
        break;
    case RtfWord::gruen:
        tabellen_.farbanteil(8, zahl);
        break;
    case RtfWord::blau:
        tabellen_.farbanteil(0, zahl);
        break;
    case RtfWord::pard:
        zustand_.alignment = RtfAlignment::left;
        break;
    case RtfWord::alignment:
        zustand_.alignment = static_cast<RtfAlignment>(steuerwort.wert);
        break;
    default:
        if (steuerwort.wort == RtfWord::schrift && zustand_.ziel == RtfTarget::schriften)
            tabellen_.schriftnummer(zahl);
        zustand_.zeichenformat(steuerwort.wort, zahl, an);
        formatVeraltet_ = true;
    }
}

// Numbers above 32767 are written negative, characters above FFFF as two halves; some writers do neither. The
// halves may stand apart, with other control words between them.
void Leser::unicode(int zahl) {
    auto wert = static_cast<std::uint32_t>(zahl < 0 && zahl >= -0x8000 ? zahl + 0x10000 : zahl);
    if (wert >= 0xDC00 && wert <= 0xDFFF && hohes_ != 0) {
        wert = 0x10000 + ((std::exchange(hohes_, 0) - 0xD800) << 10U) + (wert - 0xDC00);
        ablegen(static_cast<wchar_t>(wert), false);
    } else if (wert >= 0xD800 && wert <= 0xDBFF) {
        halbesAblegen();
        hohes_ = wert;
    } else {
        halbesAblegen();
        const bool gültig = wert <= 0x10FFFF && (wert < 0xDC00 || wert > 0xDFFF);
        ablegen(gültig ? ohneZeilenende(static_cast<wchar_t>(wert)) : ersatzzeichen, false);
    }
    überspringen_ = zustand_.ersatz;
}

void Leser::zeichen(wchar_t zeichen, bool roh) {
    if (überspringen_ > 0) {
        --überspringen_;
        return;
    }
    halbesAblegen();
    ablegen(zeichen, roh);
}

/// roh: the character stood in the document as it is, so that a semicolon divides the tables.
void Leser::ablegen(wchar_t zeichen, bool roh) {
    switch (zustand_.ziel) {
    case RtfTarget::nirgends:
        break;
    case RtfTarget::schriften:
        if (roh && zeichen == L';')
            tabellen_.schriftFertig();
        else
            tabellen_.namenszeichen(zeichen);
        formatVeraltet_ = true;
        break;
    case RtfTarget::farben:
        if (zeichen == L';')
            tabellen_.farbeFertig();
        formatVeraltet_ = true;
        break;
    case RtfTarget::text:
        if (!zustand_.versteckt && !zustand_.geloescht)
            bauer_.zeichen(zeichen, format());
        break;
    }
}

void Leser::absatzende() {
    überspringen_ = 0;
    halbesAblegen();
    if (zustand_.ziel == RtfTarget::text)
        bauer_.absatzende(zustand_.alignment, format());
}

void Leser::halbesAblegen() {
    if (std::exchange(hohes_, 0) != 0)
        ablegen(ersatzzeichen, false);
}

const RtfFormat& Leser::format() {
    if (!formatVeraltet_)
        return format_;
    formatVeraltet_ = false;
    format_.typeface = tabellen_.schrift(zustand_.schrift);
    format_.color = tabellen_.color(zustand_.color);
    format_.halfPoints = zustand_.groesse;
    format_.bold = zustand_.bold;
    format_.italic = zustand_.italic;
    format_.underlined = zustand_.underlined;
    return format_;
}

} // namespace

RtfDocument readRtf(std::string_view bytes) {
    bytes = bytes.substr(0, rtfMaxLength);
    const std::string_view ohneMarke = bytes.starts_with(bytemarke) ? bytes.substr(bytemarke.size()) : bytes;
    return ohneMarke.starts_with(anfang) ? Leser(ohneMarke).lies() : klartextLesen(bytes);
}

} // namespace klopfmeise
