#pragma once

#include "course/textfenster.h"
#include "platform/forms/form.h"
#include "platform/forms/timer.h"
#include "screens/anzeigen.h"
#include "screens/bildknopf.h"
#include "screens/formnamen.h"
#include "screens/fusszeile.h"
#include "screens/uebungen.h"
#include "store/wert.h"

namespace klopfmeise {

/// "Text tippen": a whole text chosen by the teacher, with line ends, at the child's own speed; a report
/// tells time, keystrokes and errors. `Genauigkeit` is not touched.
class Textübung0 final : public Form {
public:
    explicit Textübung0(const Umgebung& umgebung);

    void Form_Load() override;
    void Form_Activate() override { text_.Picture1.setFocus(); }
    std::wstring spokenTarget() const override { return bild_.ziel(); }

private:
    void Nullen() { Fehlerzahl = 0; }
    void Startaufstellung();
    void Anzeige();
    void kontowerteZeigen();
    void Picture1_KeyPress(const KeyPress& taste);
    void richtigeTaste();
    void falscheTaste();
    void textFertig();
    std::wstring wertText(const Wert& wert) const;
    void imgNeu_Click();
    void Timer1_Timer();
    void Timer2_Timer() { text_.blinken(); }

    static LabelLook angabe(const wchar_t* text) { return {.caption = text, .wrap = false}; }

    Umgebung umgebung_;
    int Fehlerzahl = 0;
    /// Clock reading at the first right key of the text.
    double Startzeit = 0;
    /// File name of the chosen text, with its ending.
    std::wstring Textname;
    /// Opens with the first key-up: the key that opened the screen may still be down.
    Tastensperre sperre_{.TasteFrei = false};

    Tastaturbild bild_{*this, umgebung_};
    Textfenster text_{*this, bild_, sperre_, 555,
                      [this](const KeyPress& taste) { Picture1_KeyPress(taste); }};

    Label LblBib{*this,
                 L"LblBib",
                 {105, 0, 1650, 330},
                 {.font = {courier, 14.25, true}, .mostWidth = 3045, .wrap = false},
                 2};
    Label Label1_1{*this, L"Label1", {3255, 0, 2880, 240}, angabe(L"Getippte Texte insgesamt"), 1};
    Label lblRichtig{*this, L"lblRichtig", {4725, 210, 135, 240}, zähler()};
    Label Label1_3{*this,
                   L"Label1",
                   {6615, 0, 3135, 240},
                   {.caption = L"Anschläge pro Minute", .align = Align::center, .wrap = false},
                   3};
    Label Label1_4{*this,
                   L"Label1",
                   {6780, 210, 750, 210},
                   {.caption = L"aktuell", .font = {courier, 8.25}, .wrap = false},
                   4};
    Label lblAnschläge{*this, L"lblAnschläge", {7560, 210, 375, 240}, zähler(435)};
    Label Label1_5{*this,
                   L"Label1",
                   {8085, 210, 1065, 210},
                   {.caption = L"durchschn.", .font = {courier, 8.25}, .wrap = false},
                   5};
    Label lblAnschlägeDurchschnitt{*this, L"lblAnschlägeDurchschnitt", {9135, 210, 375, 240}, zähler(375)};
    Label Label1_2{*this, L"Label1", {10125, 0, 495, 240}, angabe(L"Zeit"), 2};
    Label lblZeit{*this, L"lblZeit", {10290, 210, 135, 240}, zähler()};
    Label Label1_0{*this, L"Label1", {11160, 0, 720, 240}, angabe(L"Fehler"), 0};
    Label lblFehler{*this, L"lblFehler", {11445, 210, 135, 240}, zähler()};

    Übungsfuß fuß_{
        *this,
        umgebung_,
        {.übung = ÜbungText,
         .neu = bildknopf(umgebung_, L"knopf_neu", L"Noch einmal von vorn", [this] { imgNeu_Click(); }),
         .gegangen = [this] { runtime().unload(formname::HilfeFehlerbericht); }}};

    Timer Timer1{*this, L"Timer1", {.interval = 50, .enabled = false, .tick = [this] { Timer1_Timer(); }}};
    Timer Timer2{*this, L"Timer2", {.interval = 300, .tick = [this] { Timer2_Timer(); }}};
};

} // namespace klopfmeise
