#include "verwaltung/namensliste.h"

#include "platform/values/text.h"
#include "platform/values/utf8.h"
#include "platform/values/windows1252.h"

#include <algorithm>
#include <map>
#include <optional>

namespace klopfmeise {

namespace {

constexpr wchar_t geschütztesLeerzeichen = 0xA0;
constexpr std::wstring_view trennzeichen = L";,\t";

bool istUtf8(std::string_view bytes) {
    for (std::size_t i = 0; i < bytes.size();) {
        const std::size_t länge = utf8CharacterAt(bytes, i).length;
        if (länge == 0)
            return false;
        i += länge;
    }
    return true;
}

std::vector<std::wstring> zeilenAus(std::string_view bytes) {
    if (bytes.starts_with(utf8ByteOrderMark))
        bytes.remove_prefix(utf8ByteOrderMark.size());
    const std::wstring text = istUtf8(bytes) ? fromUtf8(bytes) : fromWindows1252(bytes);
    std::vector<std::wstring> zeilen(1);
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'\n' || text[i] == L'\r') {
            zeilen.emplace_back();
            if (text[i] == L'\r' && text.substr(i + 1, 1) == L"\n")
                ++i;
        } else {
            zeilen.back() += text[i];
        }
    }
    return zeilen;
}

std::wstring gesäubert(std::wstring_view text) {
    std::wstring aus;
    for (const wchar_t c : text) {
        const bool leer = c == L' ' || c == L'\t' || c == geschütztesLeerzeichen;
        if (!leer)
            aus += c;
        else if (!aus.empty() && aus.back() != L' ')
            aus += L' ';
    }
    if (aus.ends_with(L' '))
        aus.pop_back();
    return aus;
}

/// The fields of a line, which may stand in quotation marks with a mark doubled inside; none if a mark is not
/// closed.
std::optional<std::vector<std::wstring>> felderAus(std::wstring_view zeile, wchar_t trenner) {
    std::vector<std::wstring> felder(1);
    bool innen = false;
    for (std::size_t i = 0; i < zeile.size(); ++i) {
        const wchar_t c = zeile[i];
        if (c == L'"' && innen && zeile.substr(i + 1, 1) == L"\"") {
            felder.back() += c;
            ++i;
        } else if (c == L'"' && (innen || gesäubert(felder.back()).empty())) {
            innen = !innen;
        } else if (c == trenner && !innen) {
            felder.emplace_back();
        } else {
            felder.back() += c;
        }
    }
    if (innen)
        return std::nullopt;
    std::ranges::transform(felder, felder.begin(), gesäubert);
    return felder;
}

/// Which column of a heading holds what.
struct Spalten {
    wchar_t trenner = 0;
    std::optional<std::size_t> klasse;
    std::optional<std::size_t> vorname;
    std::optional<std::size_t> name;

    bool erkannt() const { return klasse || vorname || name; }
};

Spalten spaltenAus(std::wstring_view überschrift, wchar_t trenner) {
    Spalten spalten{trenner, {}, {}, {}};
    const auto felder = felderAus(überschrift, trenner);
    for (std::size_t i = 0; felder && i < felder->size(); ++i) {
        const std::wstring wort = upper((*felder)[i]);
        const auto merken = [&](std::optional<std::size_t>& spalte) {
            if (!spalte)
                spalte = i;
        };
        if (wort == L"KLASSE" || wort == L"GRUPPE")
            merken(spalten.klasse);
        if (wort == L"VORNAME" || wort == L"RUFNAME")
            merken(spalten.vorname);
        if (wort == L"NAME" || wort == L"NACHNAME" || wort == L"FAMILIENNAME")
            merken(spalten.name);
    }
    return spalten;
}

/// None where the line is no heading but the first name.
std::optional<Spalten> überschrift(std::wstring_view zeile) {
    for (const wchar_t trenner : trennzeichen)
        if (zeile.find(trenner) != zeile.npos)
            if (const Spalten spalten = spaltenAus(zeile, trenner); spalten.erkannt())
                return spalten;
    const Spalten einzige = spaltenAus(zeile, trennzeichen.front());
    return einzige.erkannt() ? std::optional(einzige) : std::nullopt;
}

class Leser {
public:
    Leser(std::wstring_view klasse, Namensart art)
        : klasse_(klasse)
        , art_(art) {}

    Namensliste lesen(const std::vector<std::wstring>& zeilen) {
        const auto erste =
            std::ranges::find_if(zeilen, [](const auto& zeile) { return !gesäubert(zeile).empty(); });
        if (erste != zeilen.end())
            spalten_ = überschrift(*erste);
        if (spalten_ && !spalten_->name && !spalten_->vorname)
            liste_.fehler = L"In der Überschrift fehlt eine Spalte Name oder Vorname.";
        else if (art_ != Namensart::voll && !(spalten_ && spalten_->vorname && spalten_->name))
            liste_.fehler =
                L"Für --namen braucht die Liste eine Überschrift mit den Spalten Vorname und Name.";
        if (!liste_.fehler.empty())
            return liste_;
        auto zeile = spalten_ ? erste + 1 : erste;
        for (; zeile != zeilen.end(); ++zeile)
            aufnehmen(*zeile, static_cast<std::size_t>(zeile - zeilen.begin()) + 1);
        return std::move(liste_);
    }

private:
    void aufnehmen(const std::wstring& zeile, std::size_t nummer) {
        Listenzeile neu{nummer, {}, {}};
        if (!spalten_) {
            neu.name = gesäubert(zeile);
            if (neu.name.empty())
                return;
            // One at the edge is left over from a table; one inside parts two things.
            const auto anfang = zeile.find_first_not_of(L" \t");
            const auto ende = zeile.find_last_not_of(L" \t");
            if (zeile.substr(anfang, ende + 1 - anfang).find_first_of(trennzeichen) != zeile.npos)
                neu.fehler = L"Die Zeile enthält ein Trennzeichen. Eine Liste mit Feldern braucht eine "
                             L"Überschrift wie Klasse;Name.";
        } else if (!felderAufnehmen(zeile, neu)) {
            return;
        }
        if (neu.fehler.empty() && neu.name.empty())
            neu.fehler = L"Der Name fehlt.";
        if (neu.fehler.empty())
            if (const auto [frühere, frisch] = nummern_.emplace(upper(neu.name), nummer); !frisch)
                neu.fehler = L"Der Name steht schon in Zeile " + std::to_wstring(frühere->second) +
                             L". Kinder gleichen Namens brauchen verschiedene Konten.";
        liste_.zeilen.push_back(std::move(neu));
    }

    /// False for a line that is no child of this class.
    bool felderAufnehmen(const std::wstring& zeile, Listenzeile& neu) {
        const auto felder = felderAus(zeile, spalten_->trenner);
        if (!felder) {
            neu.name = gesäubert(zeile);
            neu.fehler = L"Ein Anführungszeichen ist nicht geschlossen.";
            return true;
        }
        if (std::ranges::all_of(*felder, &std::wstring::empty))
            return false;
        const auto feld = [&](const std::optional<std::size_t>& spalte) {
            return spalte && *spalte < felder->size() ? (*felder)[*spalte] : std::wstring();
        };
        const std::wstring vorname = feld(spalten_->vorname);
        const std::wstring name = feld(spalten_->name);
        neu.name = art_ == Namensart::vorname ? vorname
                   : art_ == Namensart::kurz  ? gesäubert(vorname + L" " + name.substr(0, 1))
                                              : gesäubert(vorname + L" " + name);
        if (const std::wstring eigene = feld(spalten_->klasse); spalten_->klasse && eigene.empty()) {
            neu.fehler = L"Die Klasse fehlt.";
        } else if (spalten_->klasse && !sameName(eigene, klasse_)) {
            ++liste_.übergangen;
            if (std::ranges::find(liste_.andereKlassen, eigene) == liste_.andereKlassen.end())
                liste_.andereKlassen.push_back(eigene);
            return false;
        }
        return true;
    }

    std::wstring_view klasse_;
    Namensart art_;
    std::optional<Spalten> spalten_;
    /// Lines by the names in upper case.
    std::map<std::wstring, std::size_t> nummern_;
    Namensliste liste_;
};

} // namespace

Namensliste namenslisteAus(std::string_view bytes, std::wstring_view klasse, Namensart art) {
    // UTF-16 has a zero byte in every Latin letter.
    if (bytes.find('\0') != bytes.npos) {
        Namensliste liste;
        liste.fehler =
            L"Das ist keine Textdatei in UTF-8 oder Windows-1252. Bitte als \"CSV UTF-8\" speichern.";
        return liste;
    }
    return Leser(klasse, art).lesen(zeilenAus(bytes));
}

} // namespace klopfmeise
