// What the program costs without a screen: each measurement beside the least that the machine needs for it,
// so that the ratio of the two says something on any machine.

#include "bench/fliesstext.h"
#include "course/textfenster.h"
#include "games/steinespiel.h"
#include "platform/controls/rich_text_box.h"
#include "platform/machine/posix_files.h"
#include "store/genauigkeit.h"
#include "store/konten.h"
#include "tests/buehne.h"

#include <benchmark/benchmark.h>

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <string>

using namespace klopfmeise;

namespace {

constexpr int Klassenzahl = 1000;

/// A folder with many classes, the first of which has as many children.
struct VolleSchule {
    VolleSchule() {
        const std::filesystem::path vorbild = bühne.konto();
        for (int i = 0; i < Klassenzahl; ++i) {
            const std::string nummer = std::to_string(i);
            std::filesystem::create_directory(gruppen() / ("Klasse " + nummer));
            std::filesystem::copy_file(vorbild, kinder() / ("Kind " + nummer + "._"));
        }
    }
    std::filesystem::path gruppen() const { return bühne.daten() / "Gruppen"; }
    std::filesystem::path kinder() const { return gruppen() / "Hasen"; }

    Bühne bühne;
};

VolleSchule& volleSchule() {
    static VolleSchule schule;
    return schule;
}

// One key writes the child's accuracy.

void konto(benchmark::State& state) {
    Bühne bühne;
    PosixFiles dateien;
    bühne.kindWählen();
    int pos = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(genauigkeitFortschreiben(dateien, bühne.global, {3, ++pos % 50 + 1, 1}));
}
BENCHMARK(konto);

void kontoNurSystemaufrufe(benchmark::State& state) {
    const Bühne bühne;
    const std::string pfad = bühne.konto().string();
    constexpr off_t satz = 35 * Kontodatei::Satzlänge;
    constexpr std::size_t double_mit_marke = 10;
    for (auto _ : state) {
        std::array<char, Kontodatei::Satzlänge> bytes{};
        const int datei = ::open(pfad.c_str(), O_RDWR | O_CLOEXEC);
        if (datei < 0 || ::pread(datei, bytes.data(), bytes.size(), satz) < 0 ||
            ::pwrite(datei, bytes.data(), double_mit_marke, satz) < 0)
            state.SkipWithError("the account cannot be reached");
        ::close(datei);
    }
}
BENCHMARK(kontoNurSystemaufrufe);

// A teacher moves a slider: seven records.

void kurswerte(benchmark::State& state) {
    Bühne bühne;
    PosixFiles dateien;
    bühne.kindWählen();
    int lektion = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(
            kursparameterSchreiben(dateien, bühne.global, {.Lektionsnummer = ++lektion % 30 + 1}));
}
BENCHMARK(kurswerte);

void kurswerteNurSystemaufrufe(benchmark::State& state) {
    const Bühne bühne;
    const std::string pfad = bühne.konto().string();
    constexpr int sätze = 7;
    const std::array<char, 6> long_mit_marke{3};
    for (auto _ : state) {
        const int datei = ::open(pfad.c_str(), O_RDWR | O_CLOEXEC);
        for (int i = 0; i < sätze; ++i)
            if (::pwrite(datei, long_mit_marke.data(), long_mit_marke.size(),
                         (28 + i) * off_t{Kontodatei::Satzlänge}) < 0)
                state.SkipWithError("the account cannot be reached");
        ::close(datei);
    }
}
BENCHMARK(kurswerteNurSystemaufrufe);

/// The class of a thousand children opens in the teacher mode.
void kontenseite(benchmark::State& state) {
    Bühne& bühne = volleSchule().bühne;
    bühne.öffnen(L"einst0");
    bühne.global.AktuelleKlasse = L"Hasen\\";
    for (auto _ : state) {
        bühne.runtime.show(L"einstTastatur");
        bühne.runtime.unload(L"einstTastatur");
    }
}
BENCHMARK(kontenseite);

// A key in an own text of so many characters, its save included; and a replacement of the same file alone.

void texttaste(benchmark::State& state) {
    Bühne bühne;
    bühne.öffnen(L"einst0");
    bühne.global.AktuelleKlasse = L"Hasen\\";
    dateiSchreiben(bühne.daten() / "Data" / "Texte" / "Text_001.txt",
                   fliesstext(static_cast<std::size_t>(state.range(0))));
    bühne.runtime.show(L"einstTexte");
    bühne.control<RichTextBox>(L"Text1").setFocus();
    for (auto _ : state)
        bühne.user.type(L'x');
}
BENCHMARK(texttaste)->Arg(200)->Arg(20000)->Unit(benchmark::kMillisecond);

void textNurErsetzen(benchmark::State& state) {
    const Wegwerfordner ordner;
    PosixFiles dateien;
    const std::wstring pfad = logikpfad(ordner.pfad() / "Text.txt");
    const std::string bytes(static_cast<std::size_t>(state.range(0)), 'x');
    for (auto _ : state)
        if (!dateien.writeAll(pfad, bytes))
            state.SkipWithError("the text cannot be written");
}
BENCHMARK(textNurErsetzen)->Arg(200)->Arg(20000)->Unit(benchmark::kMillisecond);

// A school with a thousand classes and a thousand children in one of them.

void klassenListen(benchmark::State& state) {
    const std::wstring ordner = logikpfad(volleSchule().gruppen());
    PosixFiles dateien;
    for (auto _ : state)
        benchmark::DoNotOptimize(dateien.listFolders(ordner));
}
BENCHMARK(klassenListen);

void klassenNurReaddir(benchmark::State& state) {
    const std::string ordner = volleSchule().gruppen().string();
    for (auto _ : state) {
        DIR* offen = ::opendir(ordner.c_str());
        int gefunden = 0;
        while (::readdir(offen))
            ++gefunden;
        ::closedir(offen);
        benchmark::DoNotOptimize(gefunden);
    }
}
BENCHMARK(klassenNurReaddir);

void kontenListen(benchmark::State& state) {
    const std::wstring ordner = logikpfad(volleSchule().kinder());
    PosixFiles dateien;
    for (auto _ : state)
        benchmark::DoNotOptimize(dateien.listFiles(ordner, L"*._"));
}
BENCHMARK(kontenListen);

/// The title page becomes active with a class and a child chosen: both lists are filled.
void titelseite(benchmark::State& state) {
    Bühne& bühne = volleSchule().bühne;
    bühne.öffnen(L"Lern1");
    Form& seite = *bühne.runtime.active();
    for (auto _ : state)
        bühne.runtime.dispatch(seite, [&] { seite.Form_Activate(); });
}
BENCHMARK(titelseite);

// Laying out a flowing text; the whole page, as START opens it, and the text alone.

void fliesstextseite(benchmark::State& state) {
    Bühne bühne;
    bühne.lektion(1, "Mehrzeiler", {fliesstext(static_cast<std::size_t>(state.range(0)))});
    bühne.öffnen(L"Tastatur0");
    for (auto _ : state) {
        bühne.runtime.show(L"Tastatur2");
        state.PauseTiming();
        bühne.runtime.unload(L"Tastatur2");
        state.ResumeTiming();
    }
}
BENCHMARK(fliesstextseite)->Arg(200)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);

class Textprobe final : public Form {
public:
    explicit Textprobe(const Umgebung& umgebung)
        : Form(umgebung.runtime, L"Textprobe", {})
        , bild_(*this, umgebung)
        , text(*this, bild_, sperre_, 660, [](const KeyPress&) {}) {}

private:
    Tastaturbild bild_;
    Tastensperre sperre_;

public:
    Textfenster text;
};

void umbruch(benchmark::State& state) {
    Bühne bühne;
    bühne.öffnen(L"Tastatur0");
    Textprobe probe(bühne.umgebung);
    const std::string text = fliesstext(static_cast<std::size_t>(state.range(0)));
    probe.text.Text1.setText(std::wstring(text.begin(), text.end()));
    for (auto _ : state)
        probe.text.Übernehmen();
}
BENCHMARK(umbruch)->Arg(200)->Arg(2000)->Arg(20000)->Arg(100000)->Unit(benchmark::kMillisecond);

// A landing in "Fallende Steine" that clears a row below a full shaft, beside the copy of the game it begins
// with.

Steinespiel vollerSchacht() {
    Steinespiel spiel;
    SeededRandom zufall;
    spiel.Startaufstellung(L"fj", zufall);
    spiel.starten();
    // The first tick brings the first figure.
    benchmark::DoNotOptimize(spiel.Timer1_Timer(zufall));
    for (int x = 1; x <= Steinespiel::Spalten; ++x)
        for (int y = 1; y <= 20; ++y) {
            spiel.gelandet(x, y) = y == 1 || (x + y) % 7 != 0;
            spiel.farbe(x, y) = spiel.gelandet(x, y) ? RGB(x * 20, y * 10, 0) : colors::white;
        }
    // What has landed is laid into the shaft at the next tick.
    spiel.Form_KeyPress(L'\r');
    spiel.Form_KeyUp();
    return spiel;
}

void fallen(benchmark::State& state) {
    const Steinespiel vorher = vollerSchacht();
    SeededRandom zufall;
    int punkte = 0;
    for (auto _ : state) {
        Steinespiel spiel = vorher;
        benchmark::DoNotOptimize(spiel.Fallen(zufall));
        punkte = spiel.Punkte - vorher.Punkte;
    }
    // 20 or less for the landing, 200 or less for the row.
    if (punkte <= 20)
        state.SkipWithError("no row was cleared");
}
BENCHMARK(fallen);

void fallenNurKopie(benchmark::State& state) {
    const Steinespiel vorher = vollerSchacht();
    for (auto _ : state) {
        Steinespiel spiel = vorher;
        benchmark::DoNotOptimize(spiel);
    }
}
BENCHMARK(fallenNurKopie);

} // namespace
