#pragma once

#include "course/textfenster.h"
#include "platform/forms/form.h"
#include "platform/forms/timer.h"
#include "screens/anzeigen.h"
#include "screens/bildknopf.h"
#include "screens/fusszeile.h"
#include "screens/uebungen.h"
#include "store/kursplatz.h"

namespace klopfmeise {

/// A flowing-text stage: a paragraph in a window of four lines that scrolls along. A wrong character locks
/// the keys until it is taken back, so that a finished run has every cell right; where time counts, a
/// countdown can stop it.
class Tastatur2 final : public Form {
public:
    explicit Tastatur2(const Umgebung& umgebung);

    void Form_Load() override;
    std::wstring spokenTarget() const override { return bild_.ziel(); }

private:
    void Nullen() { Durchgang = 1; }
    /// False if there is no text to type: the start page has taken over.
    bool Startaufstellung();
    void Anzeige();
    void stufeAbschließen();
    /// Carries `Genauigkeit` on by the key just typed.
    void tasteWerten();
    void zurStartseite();
    void Picture1_KeyPress(const KeyPress& taste);
    void richtigeTaste();
    void falscheTaste();
    void cmdNeu_Click();
    void imgNeu_Click();
    void Timer1_Timer();
    void Timer2_Timer();
    double verstrichen() const { return umgebung_.uhr().seconds() - Startzeit; }
    /// Seconds left by the whole seconds gone.
    int Restzeit() const;

    Umgebung umgebung_;
    int Fehlerzahl = 0;
    int Durchgang = 1;
    /// Seconds allowed for a run.
    int Zeitlimit = 0;
    /// Clock reading at the first right key of the run.
    double Startzeit = 0;
    std::wstring LetzteAnzeige;
    int Stufenzahl = 0;
    /// The account's records, read anew at each Startaufstellung.
    Kurskonto konto_;
    Tastensperre sperre_;

    Tastaturbild bild_{*this, umgebung_, 6495};
    Textfenster text_{*this, bild_, sperre_, 660,
                      [this](const KeyPress& taste) { Picture1_KeyPress(taste); }};

    Picture imgUhr{*this, L"imgUhr", {5670, 4410, 720, 720}, {.picture = L"uhr", .spoken = L"Uhr"}};
    Label lblZeit{
        *this, L"lblZeit", {5670, 4620, 705, 330}, {.font = {courier, 9.75, true}, .align = Align::center}};
    Picture cmdNeu{*this,
                   L"cmdNeu",
                   {5670, 4410, 720, 720},
                   bildknopf(umgebung_, L"knopf_uhr_neu", L"Noch einmal", [this] { cmdNeu_Click(); })};

    Label LblLektion{*this,
                     L"LblLektion",
                     {105, 0, 3465, 330},
                     {.font = {courier, 14.25, true}, .fore = colors::coral, .wrap = false}};
    Label Label1_1{*this, L"Label1", {7290, 0, 1080, 240}, {.caption = L"Durchgang", .wrap = false}, 1};
    Label lblDurchgang{*this, L"lblDurchgang", {7710, 210, 135, 240}, zähler()};
    Label Label1_0{*this, L"Label1", {8880, 0, 735, 240}, {.caption = L"Fehler", .wrap = false}, 0};
    Label lblFehler{*this, L"lblFehler", {9240, 210, 135, 240}, zähler()};
    Label Label1_2{
        *this, L"Label1", {10065, 0, 1935, 240}, {.caption = L"Tipp-Genauigkeit", .wrap = false}, 2};
    Label lblGenau{*this, L"lblGenau", {10605, 210, 855, 240}, zähler()};

    Übungsfuß fuß_{*this,
                   umgebung_,
                   {.übung = ÜbungKurs,
                    .neu = bildknopf(umgebung_, L"knopf_zurueck", L"Zurück zur Startseite",
                                     [this] { imgNeu_Click(); })}};

    Timer Timer1{*this, L"Timer1", {.interval = 50, .enabled = false, .tick = [this] { Timer1_Timer(); }}};
    Timer Timer2{*this, L"Timer2", {.interval = 200, .tick = [this] { Timer2_Timer(); }}};
};

} // namespace klopfmeise
