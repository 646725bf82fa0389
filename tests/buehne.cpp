#include "tests/buehne.h"

#include "formen.h"
#include "platform/controls/drawn.h"
#include "platform/controls/lists.h"
#include "platform/values/text.h"
#include "platform/values/windows1252.h"

#include <fstream>
#include <iterator>
#include <unistd.h>

namespace klopfmeise {

namespace fs = std::filesystem;

Wegwerfordner::Wegwerfordner() {
    std::string muster = (fs::temp_directory_path() / "klopfmeise-XXXXXX").string();
    if (!::mkdtemp(muster.data()))
        throw std::runtime_error("no temporary folder");
    pfad_ = muster;
}

Wegwerfordner::~Wegwerfordner() {
    std::error_code egal;
    fs::remove_all(pfad_, egal);
}

std::wstring logikpfad(const fs::path& pfad) { return PosixFiles().entered(fromUtf8(pfad.string())); }

std::string dateiinhalt(const fs::path& pfad) {
    std::ifstream in(pfad, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void dateiSchreiben(const fs::path& pfad, std::string_view bytes) {
    fs::create_directories(pfad.parent_path());
    std::ofstream(pfad, std::ios::binary) << bytes;
}

std::string lektionstext(std::string_view art, const std::vector<std::string>& texte) {
    std::string inhalt = std::to_string(texte.size()) + "\r\n" + std::string(art) + "\r\nProbelektion\r\n";
    for (std::size_t i = 0; i < texte.size(); ++i) {
        const std::string nummer = std::to_string(i + 1);
        inhalt += "Unterstufe" + nummer + "\r\nTitel " + nummer + "\r\n" + texte[i] + "\r\nHinweis " +
                  nummer + "\r\n";
    }
    return inhalt;
}

Bühne::Bühne(Files* dateien, Backend* anderes)
    : runtime(anderes ? *anderes : backend,
              {clock, random, sound, dateien ? *dateien : echteDateien, registry, shell}) {
    const fs::path d = daten();
    dateiSchreiben(d / "Data" / "Tastatur" / "Lektion1.bmp", "BM");
    dateiSchreiben(d / "Data" / "Texte" / "Text_001.txt", "Hallo");
    fs::create_directories(d / "Gruppen" / "Hasen");
    for (const fs::path& einstellungen : {d / "Gruppen" / "kme.ein", d / "Gruppen" / "Hasen" / "KME.ein"}) {
        Kontodatei datei(echteDateien, logikpfad(einstellungen));
        for (int i = 1; i <= 100; ++i)
            datei.schreiben(i, std::int16_t{1});
        datei.schreibenText(106, L"Text_001.txt");
    }
    Kontodatei(echteDateien, logikpfad(konto())).WerteSchreiben();
    lektion(1, "Einzeiler", {"fj f", "ff jj"});
    registry.values["Datenablage"] = {Registry::Type::string, toWindows1252(logikpfad(d)) + "\\"};
    registry.values["Pin"] = {Registry::Type::string, "7294"};
    formenEintragen(umgebung);
}

void Bühne::start() { runtime.show(L"frmStart"); }

void Bühne::anmelden() {
    user.click(L"LblGruppe", 0);
    user.pressRow(control<FileList>(L"File1"), 0);
}

void Bühne::zurÜbung(int nummer) {
    if (aktiv().empty())
        start();
    anmelden();
    user.click(L"cmdÜbung", nummer);
}

void Bühne::kindWählen() {
    global.Programmpfad = L"\\opt\\klopfmeise\\";
    global.Datenpfad = logikpfad(daten()) + L"\\";
    global.AktuelleKlasse = L"Hasen\\";
    global.AktuellesKonto = L"Mia._";
    global.KlasseGewaehlt = 1;
}

void Bühne::öffnen(std::wstring_view form) {
    kindWählen();
    runtime.show(L"frmTemp");
    runtime.show(form);
}

void Bühne::lektion(int nummer, std::string_view art, const std::vector<std::string>& texte) {
    dateiSchreiben(daten() / "Data" / "Tastatur" / ("Lektion" + std::to_string(nummer) + ".txt"),
                   lektionstext(art, texte));
}

void Bühne::satz(Kontosatz satz, const Wert& wert) {
    Kontodatei(echteDateien, logikpfad(konto())).schreiben(satz, wert);
}

Wert Bühne::satz(Kontosatz satz) { return Kontodatei(echteDateien, logikpfad(konto())).lesen(satz); }

std::string Bühne::slot(int nummer, std::size_t bytes) {
    const std::string inhalt = dateiinhalt(konto());
    const auto anfang = static_cast<std::size_t>(nummer - 1) * Kontodatei::Satzlänge;
    return anfang < inhalt.size() ? inhalt.substr(anfang, bytes) : std::string();
}

std::wstring Bühne::aktiv() const { return runtime.active() ? std::wstring(runtime.active()->name()) : L""; }

std::wstring Bühne::caption(std::wstring_view name, int index) {
    return control<Label>(name, index).caption();
}

std::wstring Bühne::captions(std::initializer_list<std::wstring_view> namen) {
    std::wstring alle;
    for (const std::wstring_view name : namen)
        alle += L"|" + caption(name);
    return alle.substr(1);
}

} // namespace klopfmeise
