#pragma once

#include "platform/controls/button.h"
#include "platform/controls/control_array.h"
#include "platform/controls/lists.h"
#include "platform/controls/panels.h"
#include "platform/controls/text_box.h"
#include "platform/forms/form.h"
#include "screens/bildknopf.h"
#include "screens/fusszeile.h"
#include "screens/klassenliste.h"
#include "screens/umgebung.h"
#include "store/einstellungsdatei.h"

#include <array>

namespace klopfmeise {

/// The title page: class list, name list, exercise menu, code pad, end question and info page are six frames
/// at one place, of which at most one is visible. Everything is reached from here, and everything returns
/// here.
class Lern1 final : public Form {
public:
    explicit Lern1(const Umgebung& umgebung);

    void Form_Load() override { centre(); }
    void Form_Activate() override;
    void Form_MouseMove() override { klassen_.keineHervorheben(); }

private:
    void Zurück();
    void ZugangsTest();
    void FußknöpfeZeigen(bool zeigen);
    /// Lists the children of the chosen class. A folder that is a link may lie anywhere: it has none, and
    /// nothing is on offer in it.
    void kontenZeigen();
    std::array<bool, Übungszahl> angebotDerKlasse();

    void LblGruppe_MouseDown(const std::wstring& klasse);
    void File1_MouseDown();
    void cmdAllesZurück_Click();
    void cmdLehrkraft_Click();
    void cmdInfo_Click();
    void cmdInfoOk_Click();
    void imgEnde_Click();
    void cmdJa_Click();
    void cmdNein_Click();
    void cmdPinZahl_Click(int index);
    void cmdPiZurück_Click();
    void cmdPinOk_Click();
    void command1_Click();
    void Text1_KeyPress(KeyPress& taste);
    void cmdÜbung_Click(int index);
    void cmdKonto_Click();
    void Label4_Click();

    void knopfklang() const { umgebung_.klang(L"knopf.wav"); }
    static LabelLook überschrift(const wchar_t* text);
    static LabelLook angabe(const wchar_t* text);

    Umgebung umgebung_;

    Fußzeile fuß_{*this};

    static constexpr Rect Rahmenplatz{2205, 2520, 7470, 4530};
    static constexpr Rect Kopfplatz{105, 0, 7260, 435};

    Picture cmdLehrkraft{
        *this,
        L"cmdLehrkraft",
        {8820, 7980, 900, 900},
        bildknopf(umgebung_, L"knopf_lehrkraft", L"Einstellungsmodus", [this] { cmdLehrkraft_Click(); })};
    Picture cmdInfo{*this,
                    L"cmdInfo",
                    {9870, 7980, 900, 900},
                    bildknopf(umgebung_, L"knopf_info", L"über Klopfmeise...", [this] { cmdInfo_Click(); })};
    Picture imgEnde{*this,
                    L"imgEnde",
                    {10920, 7980, 900, 900},
                    bildknopf(umgebung_, L"knopf_ende", L"Klopfmeise beenden", [this] { imgEnde_Click(); })};
    Picture cmdAllesZurück{
        *this,
        L"cmdAllesZurück",
        {9975, 2310, 900, 900},
        bildknopf(umgebung_, L"knopf_zurueck", L"Zurück", [this] { cmdAllesZurück_Click(); })};

    Frame frmKlasse{*this, L"frmKlasse", Rahmenplatz, {.visible = false, .mouseMove = [this] {
                                                           klassen_.keineHervorheben();
                                                       }}};
    Label Label1_0{frmKlasse, L"Label1", Kopfplatz, überschrift(L"Wähle deine Gruppe!"), 0};
    Shape Shape2{frmKlasse, L"Shape2", {1260, 570, 4935, 3915}, {.outline = colors::white}};
    Klassenliste klassen_{
        *this,
        frmKlasse,
        umgebung_,
        {.ersteZeile = {1365, 630, 4320, 435},
         .abstand = 420,
         .schrift = {courier, 18, true},
         .bildlauf = {5790, 630, 330, 3795},
         .großerSchritt = 9,
         .gedrückt = [this](const std::wstring& klasse, MouseButton) { LblGruppe_MouseDown(klasse); }}};

    Frame frmNamen{*this, L"frmNamen", Rahmenplatz, {.visible = false}};
    Label Label1_1{frmNamen, L"Label1", Kopfplatz, überschrift(L"Wähle deinen Namen!"), 1};
    FileList File1{frmNamen,
                   L"File1",
                   {1050, 525, 5370, 3675},
                   {.pattern = L"*._",
                    .font = {courier, 18, true},
                    .spoken = L"Namen",
                    .mouseDown = [this](MouseButton) { File1_MouseDown(); }}};
    TextBox txtKeineKonten{frmNamen,
                           L"txtKeineKonten",
                           {1050, 525, 5370, 3690},
                           {.back = colors::panel,
                            .align = Align::center,
                            .multiLine = true,
                            .readOnly = true,
                            .visible = false,
                            .spoken = L"Hinweis"}};

    Frame frmSprache{*this, L"frmSprache", Rahmenplatz, {.visible = false}};
    Label Label1_2{frmSprache, L"Label1", Kopfplatz, überschrift(L"Wähle eine Übung!"), 2};
    ControlArray<Picture> cmdÜbungVorlage;
    ControlArray<Picture> cmdÜbung;
    Line Line1_0{frmSprache, L"Line1", {930, 2595, 6450, 2595}, {.color = colors::midGrey}, 0};
    Line Line1_1{frmSprache, L"Line1", {930, 2610, 6450, 2610}, {.color = colors::white}, 1};
    Picture cmdKonto{
        frmSprache,
        L"cmdKonto",
        {3240, 3045, 900, 900},
        {.picture = L"knopf_konto", .pointer = Pointer::hand, .spoken = L"Mein Kontostand", .click = [this] {
             cmdKonto_Click();
         }}};

    Frame frmPin{*this, L"frmPin", Rahmenplatz, {.visible = false}};
    Label Label1_3{frmPin, L"Label1", Kopfplatz, überschrift(L"Einstellungsmodus"), 3};
    Label Label5_0{frmPin,
                   L"Label5",
                   {210, 570, 7050, 750},
                   angabe(L"Geben Sie den Code für den Einstellungsodus ein und bestätigen Sie anschließend "
                          L"Ihre Eingabe mit der Eingabe- bzw. Entertaste auf Ihrer Tastatur!"),
                   0};
    Label Label5_1{frmPin,
                   L"Label5",
                   {210, 1425, 7050, 240},
                   angabe(L"(Im Auslieferungszustand lautet der Code \"7294\".)"),
                   1};
    Frame Frame1{frmPin, L"Frame1", {2415, 1920, 2745, 2535}, {}};
    TextBox Text1{Frame1,
                  L"Text1",
                  {105, 210, 2535, 405},
                  {.font = {courier, 18, true},
                   .align = Align::center,
                   .maxLength = 4,
                   .passwordSign = L'*',
                   .spoken = L"Zugangscode",
                   .keys = {.press = [this](KeyPress& taste) { Text1_KeyPress(taste); }}}};
    ControlArray<Button> cmdPinZahl;
    Button cmdPiZurück{Frame1, L"cmdPiZurück", {105, 1995, 855, 435}, {.caption = L"Entf", .click = [this] {
                                                                           cmdPiZurück_Click();
                                                                       }}};
    Button cmdPinOk{Frame1, L"cmdPinOk", {1785, 1995, 855, 435}, {.caption = L"OK", .click = [this] {
                                                                      cmdPinOk_Click();
                                                                  }}};
    Picture command1{frmPin,
                     L"command1",
                     {6405, 3465, 900, 900},
                     bildknopf(umgebung_, L"knopf_zurueck", L"Zurück", [this] { command1_Click(); })};

    Frame frmEnde{*this, L"frmEnde", Rahmenplatz, {.visible = false}};
    Label Label1_4{frmEnde, L"Label1", Kopfplatz, überschrift(L"Willst du wirklich beenden?"), 4};
    Picture cmdJa{frmEnde, L"cmdJa", {2310, 1785, 900, 900}, bildknopf(umgebung_, L"knopf_ja", L"Ja", [this] {
                      cmdJa_Click();
                  })};
    Picture cmdNein{frmEnde,
                    L"cmdNein",
                    {4305, 1785, 900, 900},
                    bildknopf(umgebung_, L"knopf_nein", L"Nein", [this] { cmdNein_Click(); })};

    Frame frmInfo{*this, L"frmInfo", Rahmenplatz, {.visible = false}};
    Label Label1_5{frmInfo, L"Label1", Kopfplatz, überschrift(L"Über das Programm..."), 5};
    Picture Image4{frmInfo, L"Image4", {420, 840, 1800, 1800}, {.picture = L"logo", .spoken = L"Klopfmeise"}};
    Label Label4_8{frmInfo, L"Label4", {2520, 900, 4800, 240}, angabe(L"Programm-Name: Klopfmeise"), 8};
    Label Label4_2{frmInfo, L"Label4", {2520, 1260, 4800, 240}, angabe(L"Versionsnummer: 1.1.1"), 2};
    Label Label4_4{frmInfo, L"Label4", {2520, 1620, 4800, 240}, angabe(L"Datum: 28. Oktober 2007"), 4};
    Label Label4_1{frmInfo,
                   L"Label4",
                   {420, 2940, 6840, 240},
                   angabe(L"Ein Tipp-Kurs für Schulen, gemacht vom Klopfmeise-Team."),
                   1};
    Label Label4_0{frmInfo,
                   L"Label4",
                   {420, 3300, 3600, 240},
                   {.caption = L"www.klopfmeise.example",
                    .fore = RGB(0, 64, 160),
                    .pointer = Pointer::hand,
                    .click = [this] { Label4_Click(); }},
                   0};
    Picture cmdInfoOk{frmInfo,
                      L"cmdInfoOk",
                      {6195, 3465, 900, 900},
                      bildknopf(umgebung_, L"knopf_ok", L"Schließen", [this] { cmdInfoOk_Click(); })};
};

} // namespace klopfmeise
