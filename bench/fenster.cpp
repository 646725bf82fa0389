// What a key costs in real windows, repaint included, and what is painted anew by it. The toolkit draws into
// memory (platform "offscreen"); time is that of the process on the processor, and the tenth of a second for
// which a key stays lit is passed over, as it would hide the work. `bench_fenster spiele` measures the shaft
// of "Fallende Steine", on a screen of 1280 by 1024.

#include "bench/fliesstext.h"
#include "formen.h"
#include "games/figuren.h"
#include "games/steinespiel.h"
#include "platform/controls/button.h"
#include "platform/controls/drawn.h"
#include "platform/controls/lists.h"
#include "platform/controls/panels.h"
#include "platform/qt/container_widget.h"
#include "platform/qt/qt_backend.h"
#include "platform/qt/qt_form_view.h"
#include "platform/qt/qt_shell.h"
#include "tests/buehne.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QTemporaryFile>
#include <QWindow>

#include <dirent.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <map>
#include <set>
#include <string>
#include <vector>

using namespace klopfmeise;

namespace {

constexpr int Runden = 7;
constexpr int Tasten = 40;
/// The zoom of a screen of 1280 by 1024.
constexpr double Messzoom = 1.6;

/// Milliseconds of the process on the processor.
double cpuMs() {
    timespec zeit{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &zeit);
    return static_cast<double>(zeit.tv_sec) * 1e3 + static_cast<double>(zeit.tv_nsec) / 1e6;
}

double median(std::vector<double> werte) {
    std::ranges::sort(werte);
    return werte[werte.size() / 2];
}

/// The screen without the waits, all else as it is.
class OhneWarten final : public Backend {
public:
    explicit OhneWarten(Backend& echt)
        : echt_(echt) {}
    std::unique_ptr<FormView> makeView(Form& form) override { return echt_.makeView(form); }
    Answer showMessage(const Message& message) override { return echt_.showMessage(message); }
    void wait(int) override {}
    void work(const std::function<void()>& job) override { job(); }
    void timersChanged() override { echt_.timersChanged(); }
    Rect screen() const override { return echt_.screen(); }
    void quit() override { echt_.quit(); }

private:
    Backend& echt_;
};

/// Counts the pixels that are painted anew, by the name of what is painted.
class Malzähler final : public QObject {
public:
    bool eventFilter(QObject* wo, QEvent* event) override {
        if (event->type() != QEvent::Paint)
            return false;
        const auto* behälter = dynamic_cast<const ContainerWidget*>(wo);
        const Control* control = behälter ? behälter->container().asControl() : nullptr;
        const std::wstring name = control ? std::wstring(control->name()) : behälter ? L"Form" : L"anderes";
        for (const QRect& stück : static_cast<const QPaintEvent&>(*event).region())
            pixel[name] += stück.width() * stück.height();
        return false;
    }
    std::map<std::wstring, int> pixel;
};

class Probe {
public:
    explicit Probe(QtBackend& qt, Random* zufall = nullptr)
        : qt_(qt)
        , runtime(ohneWarten_, {uhr, zufall ? *zufall : bühne.random, bühne.sound, bühne.echteDateien,
                                bühne.registry, bühne.shell}) {
        qt_.setRuntime(runtime);
        formenEintragen({runtime, global});
        global.Programmpfad = L"\\nirgends\\";
        global.Datenpfad = logikpfad(bühne.daten()) + L"\\";
        global.AktuelleKlasse = L"Hasen\\";
        global.AktuellesKonto = L"Mia._";
        global.KlasseGewaehlt = 1;
    }

    /// Shows a form as the menu would.
    Form& zeigen(std::wstring_view name) {
        runtime.show(L"frmTemp");
        runtime.show(name);
        ruhe();
        return *runtime.active();
    }
    void ruhe() {
        // Some reactions are put off to the next round of the event loop.
        for (int i = 0; i < 4; ++i)
            QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents();
    }
    void taste(char zeichen) {
        const Form* form = runtime.active();
        QWindow* fenster = static_cast<QtFormView*>(form->view())->widget().window()->windowHandle();
        for (const auto art : {QEvent::KeyPress, QEvent::KeyRelease}) {
            const int taste = zeichen == ' '    ? Qt::Key_Space
                              : zeichen == '\r' ? Qt::Key_Return
                                                : Qt::Key_A + (zeichen - 'a');
            QKeyEvent event(art, taste, Qt::NoModifier, QString(QLatin1Char(zeichen)));
            QCoreApplication::sendEvent(fenster, &event);
        }
        ruhe();
    }
    std::wstring fehler() { return runtime.active()->find<Label>(L"lblFehler")->caption(); }

    Bühne bühne;
    ManualClock uhr;
    Globale global;

private:
    QtBackend& qt_;
    OhneWarten ohneWarten_{qt_};

public:
    FormRuntime runtime;
};

struct Tastenkosten {
    double seite = 0;
    double taste = 0;
    double zeile = 0;
};

/// Opens a flowing text of so many characters, types its beginning, and scrolls by one line.
Tastenkosten fliesstextKosten(QtBackend& qt, std::size_t zeichen, bool malen) {
    Probe probe(qt);
    const std::string text = fliesstext(zeichen);
    probe.bühne.lektion(1, "Mehrzeiler", {text});
    double vorher = cpuMs();
    Form& form = probe.zeigen(L"Tastatur2");
    Tastenkosten kosten{.seite = cpuMs() - vorher};
    std::size_t pos = 0;
    for (int i = 0; i < 5; ++i)
        probe.taste(text[pos++]);
    vorher = cpuMs();
    for (int i = 0; i < Tasten; ++i)
        probe.taste(text[pos++]);
    kosten.taste = (cpuMs() - vorher) / Tasten;
    // The window holds four lines: on until the cursor stands below.
    const auto* fenster = form.find<PictureBox>(L"Picture1");
    const auto zelle = [&] { return form.find<Label>(L"lbl", static_cast<int>(pos) + 1); };
    while (pos + 1 < zeichen && zelle()->bottom() <= fenster->height())
        probe.taste(text[pos++]);
    Malzähler zähler;
    if (malen)
        qApp->installEventFilter(&zähler);
    const int oben = zelle()->top();
    vorher = cpuMs();
    probe.uhr.advance(0.06);
    probe.runtime.serveTimers();
    probe.ruhe();
    kosten.zeile = cpuMs() - vorher;
    if (malen) {
        std::printf("Eine Zeile weiter (Zelle um %d Twips), neu gemalte Pixel:", zelle()->top() - oben);
        for (const auto& [name, pixel] : zähler.pixel)
            std::printf(" %ls %d", name.c_str(), pixel);
        const auto& widget = static_cast<QtFormView*>(form.view())->widget();
        std::printf("; ganze Seite %d\n", widget.width() * widget.height());
    }
    if (probe.fehler() != L"0")
        std::printf("Falsch gemessen: %ls Fehler beim Tippen\n", probe.fehler().c_str());
    return kosten;
}

void fliesstextMessen(QtBackend& qt) {
    fliesstextKosten(qt, 2000, true);
    std::map<std::size_t, std::vector<Tastenkosten>> gemessen;
    for (int i = 0; i < Runden; ++i)
        for (const std::size_t zeichen : {200, 2000, 20000})
            gemessen[zeichen].push_back(fliesstextKosten(qt, zeichen, false));
    const auto wert = [&](std::size_t zeichen, double Tastenkosten::*was) {
        std::vector<double> werte;
        for (const Tastenkosten& k : gemessen[zeichen])
            werte.push_back(k.*was);
        return median(werte);
    };
    std::printf("\nFließtext, CPU-Zeit je Vorgang in ms (Median aus %d)\n", Runden);
    std::printf("%-22s %10s %10s %10s %14s\n", "", "200", "2000", "20000", "20000 / 200");
    for (const auto& [name, was] :
         {std::pair{"Seite zeigen", &Tastenkosten::seite}, {"eine Taste", &Tastenkosten::taste}})
        std::printf("%-22s %10.3f %10.3f %10.3f %14.2f\n", name, wert(200, was), wert(2000, was),
                    wert(20000, was), wert(20000, was) / wert(200, was));
    // The short text fits the window and never scrolls.
    std::printf("%-22s %10s %10.3f %10.3f\n", "eine Zeile weiter", "–", wert(2000, &Tastenkosten::zeile),
                wert(20000, &Tastenkosten::zeile));
}

int zählenMitReaddir(const std::filesystem::path& ordner) {
    DIR* offen = ::opendir(ordner.c_str());
    int gefunden = 0;
    while (::readdir(offen))
        ++gefunden;
    ::closedir(offen);
    return gefunden;
}

/// The title page becomes active in a school with this many classes and accounts, and its list of names is
/// opened; both are painted whole.
void titelseiteMessen(QtBackend& qt) {
    constexpr int viele = 1000;
    /// The first paintings of a page fill the caches.
    constexpr int warmlauf = 4;
    std::map<int, std::vector<double>> seite;
    std::map<int, std::vector<double>> namen;
    std::vector<double> klassenLesen;
    std::vector<double> kontenLesen;
    const auto messen = [&](int anzahl) {
        Probe probe(qt);
        const std::filesystem::path gruppen = probe.bühne.daten() / "Gruppen";
        for (int i = 1; i < anzahl; ++i) {
            const std::string nummer = std::to_string(i);
            std::filesystem::create_directory(gruppen / ("Klasse " + nummer));
            std::filesystem::copy_file(probe.bühne.konto(), gruppen / "Hasen" / ("Kind " + nummer + "._"));
        }
        Form& form = probe.zeigen(L"Lern1");
        const auto gemalt = [&](const std::function<void()>& handler) {
            const double vorher = cpuMs();
            probe.runtime.dispatch(form, handler);
            static_cast<QtFormView*>(form.view())->widget().update();
            probe.ruhe();
            return cpuMs() - vorher;
        };
        for (int i = 0; i < warmlauf + Runden; ++i) {
            const double seiteKostet = gemalt([&] { form.Form_Activate(); });
            gemalt(form.find<Picture>(L"cmdAllesZurück")->click());
            const double namenKosten =
                gemalt([&] { form.find<Label>(L"LblGruppe", 0)->mouseDown()(MouseButton::left); });
            if (form.find<FileList>(L"File1")->itemCount() != anzahl)
                std::printf("Falsch gemessen: die Liste der Namen ist nicht da\n");
            if (i < warmlauf)
                continue;
            seite[anzahl].push_back(seiteKostet);
            namen[anzahl].push_back(namenKosten);
            if (anzahl < viele)
                continue;
            double vorher = cpuMs();
            zählenMitReaddir(gruppen);
            klassenLesen.push_back(cpuMs() - vorher);
            vorher = cpuMs();
            zählenMitReaddir(gruppen / "Hasen");
            kontenLesen.push_back(cpuMs() - vorher);
        }
    };
    // In turns, so that a slow moment of the machine meets both.
    for (int i = 0; i < Runden; ++i) {
        messen(1);
        messen(viele);
    }
    const double klassen = median(klassenLesen);
    const double konten = median(kontenLesen);
    std::printf("\nAuflisten und Malen, CPU-Zeit in ms: %-10s %10s %10s %24s\n", "je 1000", "je 1", "readdir",
                "1000 / (1 + readdir)");
    const auto zeile = [&](const char* name, std::map<int, std::vector<double>>& werte, double lesen) {
        const double einer = median(werte[1]);
        std::printf("%-36s %10.2f %10.2f %10.2f %24.2f\n", name, median(werte[viele]), einer, lesen,
                    median(werte[viele]) / (einer + lesen));
    };
    zeile("Titelseite (Klassen und Konten)", seite, klassen + konten);
    zeile("Liste der Namen (Konten)", namen, konten);
}

/// What the pictures of a page take at the zoom of the screen that is measured from outside, by their places.
void bilderZählen(QtBackend& qt) {
    Probe probe(qt);
    Form& form = probe.zeigen(L"Tastatur1");
    Scale maß;
    maß.zoom = Messzoom;
    std::set<std::tuple<std::wstring, int, int>> gezählt;
    double mib = 0;
    const auto zähle = [&](const std::wstring& name, const Rect& platz) {
        const QRect fläche = maß.device(platz);
        if (!name.empty() && gezählt.insert({name, fläche.width(), fläche.height()}).second)
            mib += fläche.width() * fläche.height() * 4.0 / (1024 * 1024);
    };
    zähle(form.look().picture, {0, 0, form.width(), form.height()});
    const double grund = mib;
    form.forEachIn({0, 0, form.width(), form.height()}, [&](Control& control) {
        if (const auto* bild = dynamic_cast<const Picture*>(&control))
            zähle(bild->picture().name, bild->place());
    });
    std::printf("\nBilder der einzeiligen Stufe bei Zoom %.1f: %zu, zusammen %.1f MiB, davon der Hintergrund "
                "%.1f MiB\n",
                Messzoom, gezählt.size(), mib, grund);
}

// A tick of "Fallende Steine" with a full shaft in which rows vanish.

/// Brings figures by their kinds; the left key is the first letter of the stage, the right one the second.
class Figurenfolge final : public Random {
public:
    explicit Figurenfolge(std::vector<int> arten)
        : arten_(std::move(arten)) {}
    void randomize() override {}
    double next() override {
        // A figure is drawn before the game, then with each landing two letters and a figure.
        const int was = gezogen_++ % 3;
        if (was > 0)
            return was == 1 ? 0.0 : 0.75;
        const int art = figur_ < arten_.size() ? arten_[figur_++] : 1;
        return (art - 0.5) / Figurenzahl;
    }

private:
    std::vector<int> arten_;
    std::size_t figur_ = 0;
    int gezogen_ = 0;
};

struct Taktkosten {
    double cpu = 0;
    double uhr = 0;
    std::map<std::wstring, int> pixel;
};

class Schachtprobe {
public:
    explicit Schachtprobe(QtBackend& qt)
        : probe_(qt, &zufall_) {
        probe_.bühne.lektion(1, "Einzeiler", {"fj"});
        form_ = &probe_.zeigen(L"Tetris");
        probe_.runtime.dispatch(*form_, form_->find<Button>(L"cmdNeuesSpiel")->click());
        takt();
    }
    /// Eight columns full, in squares and bars by turns, so that every cell gets another colour when two rows
    /// vanish below. The last square stands over the other two.
    void füllen() {
        for (std::size_t i = 0; i + 1 < arten().size(); ++i) {
            const bool quadrat = arten()[i] == 1;
            werfen(quadrat ? static_cast<int>(i % 4) * 2 - 4 : static_cast<int>(i % 2) * 4 - 3);
            takt();
        }
    }
    void letzterWurf() { werfen(4); }
    Taktkosten takt() {
        Malzähler zähler;
        const auto* widget = &static_cast<QtFormView*>(form_->view())->widget();
        qApp->installEventFilter(&zähler);
        const auto beginn = std::chrono::steady_clock::now();
        const double vorher = cpuMs();
        probe_.uhr.advance(1);
        probe_.runtime.serveTimers();
        probe_.ruhe();
        Taktkosten kosten{
            cpuMs() - vorher,
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - beginn).count(),
            std::move(zähler.pixel)};
        seite = widget->width() * widget->height();
        return kosten;
    }
    /// Cells of the shaft with another colour than white.
    int gefärbt() {
        int zahl = 0;
        for (int i = 0; i < Steinespiel::Zellen; ++i)
            zahl += form_->find<Shape>(L"Shape1", i)->fill() != colors::white;
        return zahl;
    }
    int punkte() { return std::stoi(form_->find<Label>(L"lblScore")->caption()); }
    int seite = 0;

private:
    /// By so many columns to the right, and down.
    void werfen(int um) {
        for (; um != 0; um += um < 0 ? 1 : -1)
            probe_.taste(um < 0 ? 'f' : 'j');
        probe_.taste('\r');
    }
    static const std::vector<int>& arten() {
        static const std::vector<int> folge = [] {
            std::vector<int> f;
            for (int i = 0; i < 40; ++i)
                f.push_back(i / 4 % 2 == 0 ? 1 : 2);
            f.push_back(1);
            return f;
        }();
        return folge;
    }

    Figurenfolge zufall_{arten()};
    Probe probe_;
    Form* form_ = nullptr;
};

void schachtMessen(QtBackend& qt) {
    std::map<std::string, std::vector<Taktkosten>> gemessen;
    int seite = 0;
    for (int i = 0; i < Runden; ++i) {
        Schachtprobe probe(qt);
        // Below the two rows that are not seen.
        probe.takt();
        probe.takt();
        gemessen["eine Figur fällt, Schacht leer"].push_back(probe.takt());
        probe.füllen();
        gemessen["eine Figur fällt, Schacht voll"].push_back(probe.takt());
        probe.letzterWurf();
        const int vorher = probe.gefärbt();
        const int punkte = probe.punkte();
        gemessen["zwei Reihen weg, Schacht voll"].push_back(probe.takt());
        // Two rows went, and the next figure, a square, shows whole.
        if (probe.gefärbt() != vorher - 2 * Steinespiel::Spalten + 4 || probe.punkte() <= punkte + 300)
            std::printf("Falsch gemessen: %d statt %d Zellen, %d nach %d Punkten\n", probe.gefärbt(), vorher,
                        probe.punkte(), punkte);
        seite = probe.seite;
    }
    std::printf(
        "\nEin Takt von \"Fallende Steine\" mit dem Malen, ms (Median aus %d, größter); Seite %d Pixel\n",
        Runden, seite);
    for (const auto& [name, kosten] : gemessen) {
        std::vector<double> cpu;
        std::vector<double> uhr;
        for (const Taktkosten& k : kosten) {
            cpu.push_back(k.cpu);
            uhr.push_back(k.uhr);
        }
        std::printf("%-32s CPU %.2f (%.2f), Uhr %.2f (%.2f); neu gemalte Pixel:", name.c_str(), median(cpu),
                    std::ranges::max(cpu), median(uhr), std::ranges::max(uhr));
        for (const auto& [wo, pixel] : kosten.back().pixel)
            std::printf(" %ls %d", wo.c_str(), pixel);
        std::printf("\n");
    }
}

} // namespace

int main(int argc, char* argv[]) {
    std::setlocale(LC_CTYPE, "C.UTF-8");
    const bool spiele = argc > 1 && std::strcmp(argv[1], "spiele") == 0;
    QTemporaryFile schirm;
    if (spiele) {
        schirm.open();
        schirm.write(R"({"screens": [{"name": "Schirm", "x": 0, "y": 0, "width": 1280, "height": 1024,
                         "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
        schirm.flush();
    }
    qputenv("QT_QPA_PLATFORM", spiele ? "offscreen:configfile=" + schirm.fileName().toUtf8() : "offscreen");
    QtBackend qt(argc, argv);
    if (spiele) {
        schachtMessen(qt);
        return 0;
    }
    fliesstextMessen(qt);
    titelseiteMessen(qt);
    bilderZählen(qt);
}
