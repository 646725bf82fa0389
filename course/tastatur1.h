#pragma once

#include "course/tastaturbild.h"
#include "platform/controls/control_array.h"
#include "platform/controls/drawn.h"
#include "platform/controls/panels.h"
#include "platform/forms/form.h"
#include "platform/forms/timer.h"
#include "screens/anzeigen.h"
#include "screens/bildknopf.h"
#include "screens/fusszeile.h"
#include "screens/uebungen.h"
#include "store/kursplatz.h"

namespace klopfmeise {

/// A one-line stage: one line of up to 55 characters, typed again and again in runs, with the next key and
/// finger lit. A run without errors counts, in time where time counts; enough of them pass the stage.
class Tastatur1 final : public Form {
public:
    explicit Tastatur1(const Umgebung& umgebung);

    void Form_Load() override;
    void Form_KeyDown(const KeyDown& taste) override;
    void Form_KeyUp() override { sperre_.loslassen(); }
    void Form_KeyPress(KeyPress& taste) override;
    std::wstring spokenTarget() const override { return bild_.ziel(); }

private:
    /// Cells of a row: 55 characters and the place of the Enter key.
    static constexpr int Zellen = 56;
    static constexpr int Zeichenplätze = Zellen - 1;

    void Nullen();
    /// False if there is no text to type.
    bool Startaufstellung();
    /// Startaufstellung, or the start page where there is nothing to type.
    void neuerLauf();
    void zurStartseite();
    void PositionsAnzeiger();
    void Anzeige();
    void FingerLeuchten();
    void stufeAbschließen();
    /// Carries `Genauigkeit` on by the key just typed.
    void tasteWerten();
    void Timer1_Timer();
    void Timer2_Timer();
    void imgNeu_Click();
    void richtigeTaste(wchar_t zeichen, bool zeilenende);
    void falscheTaste(wchar_t zeichen);
    double verstrichen() const { return umgebung_.uhr().seconds() - Startzeit; }

    static constexpr Font zeilenschrift{courier, 14.25, true};

    Umgebung umgebung_;
    int Pos = 1;
    int Zeilenlaenge = 0;
    int Fehlerzahl = 0;
    int Durchgang = 1;
    int ErfolgDurchgaenge = 0;
    /// Seconds allowed for a run.
    double Zeitlimit = 0;
    /// Clock reading at the first right key of the run.
    double Startzeit = 0;
    std::wstring LetzteAnzeige;
    int Stufenzahl = 0;
    /// The account's records, read anew at each Startaufstellung.
    Kurskonto konto_;
    Tastensperre sperre_;

    Tastaturbild bild_{*this, umgebung_};

    ControlArray<Label> lblPosU{*this,
                                L"lblPosU",
                                1,
                                Zellen,
                                [](int i) {
                                    return Rect{105 + 210 * (i - 1), 6300, 225, 960};
                                },
                                LabelLook{.caption = L"-",
                                          .font = {courier, 4.5, true},
                                          .fore = colors::panel,
                                          .back = colors::white,
                                          .align = Align::center}};
    Label Endemarke{*this,
                    L"lblPosV",
                    {0, 6405, 225, 345},
                    {.caption = L"l", .font = {wingdings, 14.25, true}, .visible = false},
                    0};
    ControlArray<Label> lblPosV{*this,
                                L"lblPosV",
                                1,
                                Zellen,
                                [](int i) {
                                    return Rect{105 + 210 * (i - 1), 6405, 225, 345};
                                },
                                LabelLook{.font = zeilenschrift,
                                          .back = colors::paleGrey,
                                          .align = Align::center,
                                          .border = true,
                                          .wrap = false}};
    ControlArray<Label> lblPosO{*this,
                                L"lblPosO",
                                1,
                                Zellen,
                                [](int i) {
                                    return Rect{105 + 210 * (i - 1), 6825, 225, 345};
                                },
                                LabelLook{.font = zeilenschrift,
                                          .back = colors::white,
                                          .align = Align::center,
                                          .border = true,
                                          .wrap = false}};
    Label lblZeit{*this,
                  L"lblZeit",
                  {105, 7350, 0, 330},
                  {.font = zeilenschrift, .back = colors::right, .align = Align::right, .wrap = false}};

    Label LblLektion{*this,
                     L"LblLektion",
                     {105, 0, 3465, 330},
                     {.font = zeilenschrift, .fore = RGB(204, 102, 102), .wrap = false}};
    Label Label1_1{*this, L"Label1", {4290, 0, 1095, 240}, {.caption = L"Durchgang"}, 1};
    Label lblDurchgang{*this, L"lblDurchgang", {4770, 210, 135, 240}, zähler()};
    Label DurchgangFehlerfrei{
        *this, L"DurchgangFehlerfrei", {5760, 0, 2775, 240}, {.caption = L"Erfolgreiche Durchgänge"}};
    Label lblErfolg{*this, L"lblErfolg", {6720, 210, 855, 240}, zähler()};
    Label Label1_0{*this, L"Label1", {8985, 0, 735, 240}, {.caption = L"Fehler"}, 0};
    Label lblFehler{*this, L"lblFehler", {9285, 210, 135, 240}, zähler()};
    Label Label1_2{*this,
                   L"Label1",
                   {10050, 0, 2055, 240},
                   {.caption = L"Tipp-Genauigkeit:", .font = {courier, 9}, .wrap = false},
                   2};
    Label lblGenau{*this, L"lblGenau", {10650, 210, 855, 240}, zähler()};

    Frame frmVorlage{
        *this, L"frmVorlage", {105, 645, 11775, 6105}, {.back = colors::white, .visible = false}};
    Picture Image1{
        frmVorlage, L"Image1", {3780, 0, 4050, 5325}, {.picture = L"uebungsheft", .spoken = L"Übungsheft"}};
    Label Label2{frmVorlage,
                 L"Label2",
                 {2415, 5355, 6675, 750},
                 {.caption = L"Schlage das Klopfmeise-Übungsheft auf und tippe den Text von dort ab!",
                  .font = {courier, 12, true},
                  .align = Align::center}};

    Übungsfuß fuß_{*this,
                   umgebung_,
                   {.übung = ÜbungKurs,
                    .neu = bildknopf(umgebung_, L"knopf_zurueck", L"Zurück zur Startseite",
                                     [this] { imgNeu_Click(); })}};

    Timer Timer1{*this, L"Timer1", {.interval = 50, .enabled = false, .tick = [this] { Timer1_Timer(); }}};
    Timer Timer2{*this, L"Timer2", {.interval = 200, .tick = [this] { Timer2_Timer(); }}};
};

} // namespace klopfmeise
