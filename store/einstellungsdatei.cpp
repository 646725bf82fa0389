#include "store/einstellungsdatei.h"

#include "store/kontodatei.h"
#include "store/pfade.h"

namespace klopfmeise {

namespace {

constexpr int satzTextname = 106;

Kontodatei einstellungsdatei(Files& dateien, const Globale& global) {
    return Kontodatei(dateien, klassenordner(global) + L"KME.ein");
}

} // namespace

std::array<bool, Übungszahl> angebotLesen(Files& dateien, const Globale& global) {
    std::array<bool, Übungszahl> angebot{};
    Kontodatei datei = einstellungsdatei(dateien, global);
    for (std::size_t i = 0; i < angebot.size(); ++i)
        angebot[i] = gleich(datei.lesen(static_cast<int>(i) + 1), 1);
    return angebot;
}

std::wstring textnameLesen(Files& dateien, const Globale& global) {
    return einstellungsdatei(dateien, global).lesenText(satzTextname);
}

bool textnameSchreiben(Files& dateien, const Globale& global, std::wstring_view name) {
    Kontodatei datei = einstellungsdatei(dateien, global);
    return datei.schreibenText(satzTextname, name) && datei.schließen();
}

} // namespace klopfmeise
