#include "verwaltung/archiv.h"

#include <algorithm>
#include <numeric>
#include <optional>

namespace klopfmeise {

namespace {

constexpr std::size_t blocklänge = 512;
/// What `tar` writes at a time; some readers want whole ones.
constexpr std::size_t satzlänge = 20 * blocklänge;
constexpr std::size_t namenslänge = 100;
constexpr std::size_t vorsatzlänge = 155;

/// A field of the head by its place.
struct Feld {
    std::size_t anfang;
    std::size_t länge;
};
constexpr Feld feldName{0, namenslänge};
constexpr Feld feldModus{100, 8};
constexpr Feld feldBesitzer{108, 8};
constexpr Feld feldGruppe{116, 8};
constexpr Feld feldGröße{124, 12};
constexpr Feld feldZeit{136, 12};
constexpr Feld feldPrüfsumme{148, 8};
constexpr Feld feldArt{156, 1};
constexpr Feld feldMarke{257, 8};
constexpr Feld feldVorsatz{345, vorsatzlänge};

constexpr std::string_view marke{"ustar\00000", 8};
/// That of an older dialect, with the same fields but for the prefix.
constexpr std::string_view andereMarke{"ustar  \0", 8};

void setzen(std::string& kopf, Feld feld, std::string_view text) {
    kopf.replace(feld.anfang, std::min(text.size(), feld.länge), text.substr(0, feld.länge));
}

/// Octal, with a zero byte behind it; 0 where the field cannot hold the number.
void setzen(std::string& kopf, Feld feld, std::uint64_t zahl) {
    std::string ziffern(feld.länge - 1, '0');
    for (auto ziffer = ziffern.rbegin(); ziffer != ziffern.rend(); ++ziffer, zahl /= 8)
        *ziffer = static_cast<char>('0' + zahl % 8);
    setzen(kopf, feld, zahl == 0 ? ziffern : std::string(feld.länge - 1, '0'));
}

std::string_view textAus(std::string_view kopf, Feld feld) {
    const std::string_view text = kopf.substr(feld.anfang, feld.länge);
    return text.substr(0, text.find('\0'));
}

std::optional<std::uint64_t> zahlAus(std::string_view kopf, Feld feld) {
    std::string_view text = textAus(kopf, feld);
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    text = text.substr(0, text.find(' '));
    std::uint64_t zahl = 0;
    for (const char ziffer : text) {
        if (ziffer < '0' || ziffer > '7')
            return std::nullopt;
        zahl = zahl * 8 + static_cast<std::uint64_t>(ziffer - '0');
    }
    return zahl;
}

/// The sum of all bytes of the head, its own field counted as blanks.
std::uint64_t prüfsumme(std::string kopf) {
    std::fill_n(kopf.begin() + feldPrüfsumme.anfang, feldPrüfsumme.länge, ' ');
    return std::accumulate(kopf.begin(), kopf.end(), std::uint64_t{0}, [](std::uint64_t summe, char byte) {
        return summe + static_cast<unsigned char>(byte);
    });
}

/// Where the path divides into prefix and name; npos where it does not fit, 0 where the name holds it all.
std::size_t teilung(std::string_view pfad) {
    if (pfad.size() <= namenslänge)
        return 0;
    const auto schräg = pfad.find('/', pfad.size() - namenslänge - 1);
    return schräg == pfad.npos || schräg > vorsatzlänge || schräg + 1 == pfad.size() ? pfad.npos : schräg;
}

std::string pfadImArchiv(const Archiveintrag& eintrag) { return eintrag.pfad + (eintrag.ordner ? "/" : ""); }

std::string kopf(const Archiveintrag& eintrag) {
    std::string bytes(blocklänge, '\0');
    const std::string pfad = pfadImArchiv(eintrag);
    if (const std::size_t stelle = teilung(pfad); stelle == 0) {
        setzen(bytes, feldName, pfad);
    } else {
        setzen(bytes, feldVorsatz, pfad.substr(0, stelle));
        setzen(bytes, feldName, pfad.substr(stelle + 1));
    }
    const auto positiv = [](std::int64_t zahl) {
        return static_cast<std::uint64_t>(std::max<std::int64_t>(zahl, 0));
    };
    setzen(bytes, feldModus, eintrag.modus & 0777U);
    setzen(bytes, feldBesitzer, positiv(eintrag.besitzer));
    setzen(bytes, feldGruppe, positiv(eintrag.gruppe));
    setzen(bytes, feldGröße, eintrag.inhalt.size());
    setzen(bytes, feldZeit, positiv(eintrag.zeit));
    setzen(bytes, feldArt, eintrag.ordner ? "5" : "0");
    setzen(bytes, feldMarke, marke);
    // Six digits, a zero byte and a blank, as `tar` has it.
    setzen(bytes, {feldPrüfsumme.anfang, 7}, prüfsumme(bytes));
    bytes[feldPrüfsumme.anfang + 7] = ' ';
    return bytes;
}

std::size_t aufgerundet(std::size_t zahl, std::size_t auf) { return (zahl + auf - 1) / auf * auf; }

bool istLeer(std::string_view block) {
    return std::ranges::all_of(block, [](char byte) { return byte == '\0'; });
}

std::string pfadAus(std::string_view kopf) {
    std::string pfad(textAus(kopf, feldName));
    const std::string_view vorsatz = textAus(kopf, feldVorsatz);
    if (kopf.substr(feldMarke.anfang, feldMarke.länge) != andereMarke && !vorsatz.empty())
        pfad = std::string(vorsatz) + "/" + pfad;
    while (pfad.starts_with("./"))
        pfad.erase(0, 2);
    while (pfad.size() > 1 && pfad.ends_with('/'))
        pfad.pop_back();
    return pfad;
}

Archivinhalt unlesbar(const wchar_t* warum) { return {{}, {}, warum}; }

} // namespace

bool passtInsArchiv(const Archiveintrag& eintrag) {
    return teilung(pfadImArchiv(eintrag)) != std::string::npos;
}

std::string archivAus(const std::vector<Archiveintrag>& einträge) {
    std::string bytes;
    for (const Archiveintrag& eintrag : einträge) {
        bytes += kopf(eintrag) + eintrag.inhalt;
        bytes.resize(aufgerundet(bytes.size(), blocklänge), '\0');
    }
    bytes.resize(aufgerundet(bytes.size() + 2 * blocklänge, satzlänge), '\0');
    return bytes;
}

Archivinhalt archivLesen(std::string_view bytes) {
    constexpr const wchar_t* keinArchiv = L"Das ist kein Archiv im tar-Format.";
    constexpr const wchar_t* abgebrochen = L"Das Archiv ist unvollständig.";
    Archivinhalt inhalt;
    for (bool erster = true;; erster = false) {
        if (bytes.size() < blocklänge)
            return unlesbar(erster ? keinArchiv : abgebrochen);
        const std::string_view kopf = bytes.substr(0, blocklänge);
        if (istLeer(kopf))
            return erster ? unlesbar(L"Das Archiv ist leer.") : inhalt;
        const std::string_view gefunden = kopf.substr(feldMarke.anfang, feldMarke.länge);
        const auto größe = zahlAus(kopf, feldGröße);
        if ((gefunden != marke && gefunden != andereMarke) || !größe ||
            zahlAus(kopf, feldPrüfsumme) != prüfsumme(std::string(kopf)))
            return unlesbar(erster ? keinArchiv : L"Das Archiv ist beschädigt.");
        bytes.remove_prefix(blocklänge);
        const char art = kopf[feldArt.anfang];
        // Heads that say something about the next one, its long name above all.
        if (std::string_view("xgLK").find(art) != std::string_view::npos)
            return unlesbar(L"Das Archiv hat eine Form, die dieser Befehl nicht liest (lange Namen).");
        const bool datei = art == '0' || art == '\0';
        const bool ordner = art == '5';
        const std::uint64_t länge = ordner ? 0 : *größe;
        if (länge > bytes.size())
            return unlesbar(abgebrochen);
        const std::string pfad = pfadAus(kopf);
        if (datei || ordner)
            inhalt.einträge.push_back(
                {.pfad = pfad,
                 .ordner = ordner,
                 .inhalt = std::string(bytes.substr(0, länge)),
                 .zeit = static_cast<std::int64_t>(zahlAus(kopf, feldZeit).value_or(0))});
        else
            inhalt.fremd.push_back(pfad);
        bytes.remove_prefix(std::min(aufgerundet(länge, blocklänge), bytes.size()));
    }
}

} // namespace klopfmeise
