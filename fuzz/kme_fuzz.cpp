#include "fuzz/eine_datei.h"
#include "store/dateinamen.h"
#include "store/einstellungsdatei.h"
#include "store/kontodatei.h"
#include "store/texte.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace klopfmeise;

namespace {

void verlangt(bool was) {
    if (!was)
        std::abort();
}

} // namespace

// The settings of a class lie on the share too. The name of its text comes from there and becomes a path: it
// must not lead out of the folder of the texts.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    EineDatei datei(bytes);
    Globale global;
    global.Datenpfad = L"D\\";
    global.AktuelleKlasse = L"Hasen\\";

    const auto angebot = angebotLesen(datei, global);
    const auto schalter = schalterLesen(datei, global, global.AktuelleKlasse);
    verlangt(schalter && *schalter == angebot);
    const std::wstring name = textnameLesen(datei, global);
    verlangt(name.size() <= Kontodatei::Satzlänge - 2);
    if (const std::wstring pfad = klassentext(global, name); !pfad.empty()) {
        const std::wstring ordner = texteordner(global);
        const std::wstring rest = pfad.substr(ordner.size());
        verlangt(pfad.starts_with(ordner) && !rest.empty() && rest != L"." && rest != L"..");
        verlangt(rest.find_first_of(std::wstring_view(L"\\/\0", 3)) == std::wstring::npos);
    }
    verlangt(datei.inhalt == bytes);

    verlangt(schalterSchreiben(datei, global, global.AktuelleKlasse, angebot));
    verlangt(angebotLesen(datei, global) == angebot);
    verlangt(textnameLesen(datei, global) == name);
    verlangt(textnameSchreiben(datei, global, name));
    verlangt(textnameLesen(datei, global) == name && angebotLesen(datei, global) == angebot);
    return 0;
}
