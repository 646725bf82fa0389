#include "platform/machine/whole_file.h"
#include "platform/values/text.h"
#include "store/klassen.h"
#include "store/konten.h"
#include "store/pfade.h"
#include "verwaltung/archiv.h"
#include "verwaltung/befehle.h"
#include "verwaltung/kontobild.h"
#include "verwaltung/rechte.h"

#include <algorithm>
#include <fcntl.h>
#include <set>

namespace klopfmeise {

namespace {

constexpr std::size_t größtesArchiv = std::size_t{2} << 30;

/// The path of an entry taken apart; empty where it leads out of the folder or names what no backup holds.
std::vector<std::wstring> teileAus(const std::string& pfad) {
    std::vector<std::wstring> teile(1);
    for (const wchar_t c : fromUtf8(pfad)) {
        if (c == L'/')
            teile.emplace_back();
        else
            teile.back() += c;
    }
    if (!std::ranges::all_of(teile, bleibtImOrdner))
        return {};
    const bool gruppen = sameName(teile[0], L"Gruppen");
    const bool texte = teile.size() > 1 && sameName(teile[0], L"Data") && sameName(teile[1], L"Texte");
    return gruppen || texte ? teile : std::vector<std::wstring>();
}

struct Auswahl {
    std::wstring klasse;
    std::wstring konto;

    bool trifft(const std::vector<std::wstring>& teile) const {
        if (klasse.empty())
            return true;
        if (teile.size() < 2 || !sameName(teile[0], L"Gruppen") || !sameName(teile[1], klasse))
            return false;
        return konto.empty() || teile.size() == 2 ||
               sameName(teile[2], teile.size() == 3 ? konto + std::wstring(Kontoendung) : konto);
    }
};

class Rückspiel {
public:
    Rückspiel(Ablage& ablage, Auswahl auswahl)
        : ablage_(ablage)
        , auswahl_(std::move(auswahl))
        , beiseite_(ablage) {}

    void eintrag(const Archiveintrag& eintrag) {
        const auto teile = teileAus(eintrag.pfad);
        // The folder itself, as some write it, and the one above the texts.
        if (eintrag.ordner && (eintrag.pfad.empty() || eintrag.pfad == "." || eintrag.pfad == "Data"))
            return;
        if (teile.empty() || (!eintrag.ordner && teile.size() == 1)) {
            abgelehnt(fromUtf8(eintrag.pfad), L"Der Pfad gehört zu keiner Sicherung oder führt hinaus.");
            return;
        }
        if (!auswahl_.trifft(teile))
            return;
        getroffen_ = getroffen_ || !eintrag.ordner;
        const std::size_t oberste = sameName(teile[0], L"Gruppen") ? 1 : 2;
        std::wstring ordner = ablage_.global.Datenpfad;
        for (std::size_t i = 0; i < teile.size(); ++i) {
            const bool letzter = i + 1 == teile.size();
            // An administrator may have put all classes or texts somewhere else.
            if (i >= oberste && dateien().isLink(ordner + teile[i])) {
                abgelehnt(fromUtf8(eintrag.pfad), L"In der Datenablage liegt dort eine Verknüpfung.");
                return;
            }
            if (letzter && !eintrag.ordner)
                break;
            if (!ordnerMachen(ordner, teile[i])) {
                misslungen(fromUtf8(eintrag.pfad));
                return;
            }
            ordner += teile[i] + L"\\";
        }
        if (!eintrag.ordner)
            datei(ordner, teile.back(), eintrag);
    }

    void abgelehnt(const std::wstring& pfad, const wchar_t* warum) {
        konsole().fehler(L"Abgelehnt: " + pfad + L". " + warum);
        ausgang_ = schwererer(ausgang_, Ausgang::beanstandet);
    }

    Ausgang abschließen() {
        konsole().zeile(std::to_wstring(neu_) + L" neu, " + std::to_wstring(ersetzt_) + L" ersetzt, " +
                        std::to_wstring(gleich_) + L" unverändert, " + std::to_wstring(behalten_) +
                        L" nicht ersetzt.");
        if (!beiseite_.ordner().empty())
            konsole().zeile(L"Der bisherige Stand liegt in " + ablage_.gezeigt(beiseite_.ordner()));
        if (!getroffen_) {
            konsole().fehler(L"Im Archiv steht nichts davon.");
            ausgang_ = schwererer(ausgang_, Ausgang::beanstandet);
        }
        return ausgang_;
    }

private:
    Files& dateien() const { return ablage_.dateien(); }
    Konsole& konsole() const { return ablage_.umfeld.konsole; }

    bool ordnerMachen(const std::wstring& ordner, const std::wstring& name) {
        if (dateien().folderExists(ordner + name))
            return true;
        if (!dateien().makeFolder(ordner + name))
            return false;
        demOrdnerÜbereignen(dateien(), ordner, ordner + name);
        return true;
    }

    void datei(const std::wstring& ordner, const std::wstring& name, const Archiveintrag& eintrag) {
        const std::wstring pfad = ordner + name;
        const std::wstring gezeigt = ablage_.gezeigt(pfad);
        // Of two names that differ by case the second would replace the first.
        if (!gesehen_.insert(upper(pfad)).second) {
            abgelehnt(gezeigt, L"Der Name steht schon im Archiv, vielleicht in anderer Schreibweise.");
            return;
        }
        if (dateien().folderExists(pfad)) {
            abgelehnt(gezeigt, L"In der Datenablage ist das ein Ordner.");
            return;
        }
        const std::size_t genug = std::max(eintrag.inhalt.size() + 1, Kontobild::länge);
        const auto bisher = dateien().readAll(pfad, genug);
        const bool da = bisher || !dateien().search(pfad).empty();
        if (bisher == eintrag.inhalt) {
            ++gleich_;
            return;
        }
        if (da && !konsole().frage(gezeigt + unterschied(name, bisher, eintrag.inhalt) + L" Ersetzen?")) {
            ++behalten_;
            ausgang_ = schwererer(ausgang_, Ausgang::beanstandet);
            return;
        }
        if ((da && !beiseite_.legen(pfad)) || !dateien().writeAll(pfad, eintrag.inhalt)) {
            misslungen(gezeigt);
            return;
        }
        demOrdnerÜbereignen(dateien(), ordner, pfad);
        ++(da ? ersetzt_ : neu_);
    }

    /// Where the child stands in both accounts.
    static std::wstring unterschied(const std::wstring& name, const std::optional<std::string>& bisher,
                                    const std::string& neu) {
        if (!name.ends_with(Kontoendung) || !bisher)
            return L" ist anders.";
        return L": jetzt " + Kontobild(*bisher).platz() + L", im Archiv " + Kontobild(neu).platz() + L".";
    }

    void misslungen(const std::wstring& pfad) {
        konsole().fehler(L"Nicht zurückgespielt: " + pfad + L" kann nicht geschrieben werden.");
        ausgang_ = Ausgang::unzugänglich;
    }

    Ablage& ablage_;
    Auswahl auswahl_;
    Beiseite beiseite_;
    std::set<std::wstring> gesehen_;
    bool getroffen_ = false;
    std::size_t neu_ = 0;
    std::size_t ersetzt_ = 0;
    std::size_t gleich_ = 0;
    std::size_t behalten_ = 0;
    Ausgang ausgang_ = Ausgang::gut;
};

} // namespace

Ausgang zurueckspielen(Umfeld& umfeld, const Aufruf& aufruf) {
    Konsole& konsole = umfeld.konsole;
    if (aufruf.hat("konto") && !aufruf.hat("klasse")) {
        konsole.fehler(L"--konto verlangt --klasse.");
        return Ausgang::falscherAufruf;
    }
    auto ablage = ablageÖffnen(umfeld, aufruf.orte[1]);
    if (!ablage) {
        konsole.fehler(L"Eine neue Datenablage legt an: klopfmeise-verwaltung anlegen ORDNER");
        return Ausgang::unzugänglich;
    }
    const std::string ort = aufruf.orte[0];
    const Descriptor offen(::open(ort.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    const auto bytes = offen ? readWhole(offen, größtesArchiv) : std::nullopt;
    if (!bytes) {
        konsole.fehler(L"Das Archiv " + fromUtf8(ort) + L" kann nicht gelesen werden.");
        return Ausgang::unzugänglich;
    }
    const Archivinhalt archiv = archivLesen(*bytes);
    if (!archiv.fehler.empty()) {
        konsole.fehler(fromUtf8(ort) + L": " + archiv.fehler + L" Nichts wurde geändert.");
        return Ausgang::unzugänglich;
    }
    Rückspiel rückspiel(*ablage, {fromUtf8(aufruf.wert("klasse")), fromUtf8(aufruf.wert("konto"))});
    for (const std::string& pfad : archiv.fremd)
        rückspiel.abgelehnt(fromUtf8(pfad), L"Das ist weder eine Datei noch ein Ordner.");
    for (const Archiveintrag& eintrag : archiv.einträge)
        rückspiel.eintrag(eintrag);
    return rückspiel.abschließen();
}

} // namespace klopfmeise
