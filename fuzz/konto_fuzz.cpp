#include "fuzz/eine_datei.h"
#include "store/genauigkeit.h"
#include "store/konten.h"
#include "store/kontodatei.h"
#include "store/kontostand.h"
#include "store/kursplatz.h"
#include "store/rekord.h"
#include "store/textkonto.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <initializer_list>
#include <string>
#include <string_view>

using namespace klopfmeise;

namespace {

void verlangt(bool was) {
    if (!was)
        std::abort();
}

std::string_view satzIn(std::string_view datei, std::size_t satz) {
    return datei.substr((satz - 1) * Kontodatei::Satzlänge, Kontodatei::Satzlänge);
}

/// Nothing but these records is another one, and the file only grows.
void verlangtSonstGleich(const std::string& vorher, const std::string& nachher,
                         std::initializer_list<Kontosatz> eigene) {
    verlangt(nachher.size() >= vorher.size());
    for (std::size_t satz = 1; (satz - 1) * Kontodatei::Satzlänge < vorher.size(); ++satz) {
        const bool eigen = std::ranges::find(eigene, static_cast<Kontosatz>(satz)) != eigene.end();
        verlangt(eigen || satzIn(nachher, satz).starts_with(satzIn(vorher, satz)));
    }
}

} // namespace

// An account lies on a share that others can write: whatever stands in it, figures are in their range and a
// write touches its own record alone.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    EineDatei datei(bytes);
    Globale global;
    global.Datenpfad = L"D\\";
    global.AktuelleKlasse = L"Hasen\\";
    global.AktuellesKonto = L"Mia._";

    Kursplatz platz = kursplatzLesen(datei, global);
    verlangt(platz.hindernis != Hindernis::kontoUnlesbar);
    verlangt(platz.konto.Durchgangszahl >= 1 && platz.konto.Tempowert >= 1);
    verlangt(std::isfinite(platz.konto.Genauigkeit) && platz.konto.Genauigkeit != 0);
    const auto stand = kontostandLesen(datei, global);
    verlangt(stand && std::isfinite(stand->Genauigkeit));
    for (const Wert& wert : {stand->Lektionsnummer, stand->Stufennummer, stand->HighWolken, stand->HighSteine,
                             stand->HighBand, stand->texte.TexteGesamt, stand->texte.AnschlaegeSchnitt})
        verlangt(textAus(wert, L',').size() <= Kontodatei::Satzlänge * 4);
    verlangt(datei.inhalt == bytes);

    for (const Kontosatz spiel : {Kontosatz::HighWolken, Kontosatz::HighSteine, Kontosatz::HighBand}) {
        datei.inhalt = bytes;
        const auto rekord = rekordLesen(datei, global, spiel);
        const double punkte = zahlAus(*rekord).value_or(0) / 2 + 1;
        const Spielausgang ausgang = rekordFortschreiben(datei, global, spiel, punkte, rekord);
        verlangt(ausgang.Rekord && !ausgang.verloren);
        verlangt(zahlAus(*ausgang.Rekord).value_or(0) >= zahlAus(*rekord).value_or(0));
        verlangtSonstGleich(bytes, datei.inhalt, {spiel});
    }

    datei.inhalt = bytes;
    const Tippstand tippstand{platz.konto.Lektionsnummer, 1 + static_cast<int>(size % 55), 1};
    const auto genau = genauigkeitFortschreiben(datei, global, tippstand);
    verlangt(genau && std::isfinite(*genau));
    verlangtSonstGleich(bytes, datei.inhalt, {Kontosatz::Genauigkeit});

    datei.inhalt = bytes;
    const auto zahl = textZählen(datei, global);
    verlangt(zahl && zahlAus(*zahl).value_or(0) >= 1);
    const auto schnitt = schnittFortschreiben(datei, global, L"120");
    verlangt(schnitt && std::isfinite(zahlAus(*schnitt).value_or(NAN)));
    verlangtSonstGleich(bytes, datei.inhalt, {Kontosatz::TexteGesamt, Kontosatz::AnschlaegeSchnitt});

    datei.inhalt = bytes;
    if (platz.bereit()) {
        stufeBestanden(datei, global, platz.konto, *platz.lektion.Stufenzahl);
        const Kursplatz danach = kursplatzLesen(datei, global);
        verlangt(danach.konto.Stufennummer == platz.konto.Stufennummer);
        verlangt(danach.konto.Lektionsnummer == platz.konto.Lektionsnummer);
        verlangtSonstGleich(bytes, datei.inhalt, {Kontosatz::Lektionsnummer, Kontosatz::Stufennummer});
    }

    datei.inhalt = bytes;
    const auto parameter = kursparameterLesen(datei, global);
    verlangt(parameter && kursparameterSchreiben(datei, global, *parameter));
    const auto danach = kursparameterLesen(datei, global);
    verlangt(danach && danach->Lektionsnummer == parameter->Lektionsnummer &&
             danach->Durchgangszahl == parameter->Durchgangszahl &&
             danach->Tempowert == parameter->Tempowert);
    verlangtSonstGleich(bytes, datei.inhalt,
                        {Kontosatz::Vorlagemodus, Kontosatz::Fehlerstopp, Kontosatz::Zeitmodus,
                         Kontosatz::Lektionsnummer, Kontosatz::Stufennummer, Kontosatz::Durchgangszahl,
                         Kontosatz::Tempowert});
    return 0;
}
