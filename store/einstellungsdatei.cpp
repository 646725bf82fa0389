#include "store/einstellungsdatei.h"

#include "store/klassen.h"
#include "store/kontodatei.h"
#include "store/pfade.h"

#include <algorithm>

namespace klopfmeise {

namespace {

constexpr int satzTextname = 106;
constexpr int schaltersätze = 100;
constexpr const wchar_t* dateiname = L"KME.ein";

std::wstring ordnerVon(const Globale& global, const std::wstring& klasse) {
    return global.Datenpfad + L"Gruppen\\" + klasse;
}

Kontodatei einstellungsdatei(Files& dateien, const Globale& global) {
    return Kontodatei(dateien, klassenordner(global) + dateiname);
}

} // namespace

std::array<bool, Übungszahl> angebotLesen(Files& dateien, const Globale& global) {
    std::array<bool, Übungszahl> angebot{};
    Kontodatei datei = einstellungsdatei(dateien, global);
    for (std::size_t i = 0; i < angebot.size(); ++i)
        angebot[i] = gleich(datei.lesen(static_cast<int>(i) + 1), 1);
    return angebot;
}

std::optional<std::array<bool, Übungszahl>> schalterLesen(Files& dateien, const Globale& global,
                                                          const std::wstring& klasse) {
    if (!klasseZugänglich(dateien, global, klasse) || !dateien.folderExists(ordnerVon(global, klasse)))
        return std::nullopt;
    Kontodatei datei(dateien, ordnerVon(global, klasse) + dateiname);
    std::array<bool, Übungszahl> schalter{};
    for (int i = 1; i <= Übungszahl; ++i)
        schalter[static_cast<std::size_t>(i) - 1] = gleich(datei.lesen(i), 1);
    return datei.gut() ? std::optional(schalter) : std::nullopt;
}

bool schalterSchreiben(Files& dateien, const Globale& global, const std::wstring& klasse,
                       const std::array<bool, Übungszahl>& schalter) {
    if (klasse.empty() || !dateien.folderExists(ordnerVon(global, klasse)))
        return true;
    if (!klasseZugänglich(dateien, global, klasse))
        return false;
    std::array<Wert, schaltersätze> werte;
    for (std::size_t i = 0; i < werte.size(); ++i)
        werte[i] = std::int16_t{schalter[std::min(i, schalter.size() - 1)]};
    Kontodatei datei(dateien, ordnerVon(global, klasse) + dateiname);
    datei.schreiben(1, werte);
    return datei.schließen();
}

std::wstring textnameLesen(Files& dateien, const Globale& global) {
    return einstellungsdatei(dateien, global).lesenText(satzTextname);
}

bool textnameSchreiben(Files& dateien, const Globale& global, std::wstring_view name) {
    Kontodatei datei = einstellungsdatei(dateien, global);
    return datei.schreibenText(satzTextname, name) && datei.schließen();
}

} // namespace klopfmeise
