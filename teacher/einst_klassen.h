#pragma once

#include "platform/controls/button.h"
#include "platform/controls/drawn.h"
#include "platform/controls/panels.h"
#include "platform/controls/text_box.h"
#include "platform/forms/form.h"
#include "screens/klassenliste.h"
#include "store/dateinamen.h"

namespace klopfmeise {

/// "Gruppenliste": the door of the teacher mode. A class is chosen by a press on its line, deleted by one
/// with the right mouse button, and made on a second face of the form.
class einstKlassen final : public Form {
public:
    explicit einstKlassen(const Umgebung& umgebung);

    void Form_Load() override;
    void Form_Activate() override;

private:
    void LblGruppe_MouseDown(const std::wstring& klasse, MouseButton knopf);
    void wählen(const std::wstring& klasse);
    void entfernen(const std::wstring& klasse);
    void cmdNeueGruppe_Click();
    void cmdNeueGruppeOk_Click();
    void txtNeueGruppe_KeyPress(KeyPress& taste);
    void listeZeigen(bool liste);
    void stopp(const wchar_t* titel, const std::wstring& text);

    static constexpr Rect Rahmenplatz{105, 105, 5475, 5895};

    Umgebung umgebung_;

    Frame frmHaupt{*this, L"frmHaupt", Rahmenplatz, {.mouseMove = [this] { klassen_.keineHervorheben(); }}};
    Label Label23{frmHaupt,
                  L"Label23",
                  {420, 210, 4590, 1350},
                  {.caption =
                       L"In der Liste können Sie eine bestehende Gruppe auswählen, um für diese Gruppe "
                       L"Einstellungen vornehmen zu können. Wenn Sie eine neue Gruppe anlegen "
                       L"möchten, klicken Sie auf den Schalter 'Neue Gruppe anlegen'. Wenn Sie eine "
                       L"bestehende Gruppe entfernen möchten, klicken Sie sie mit der rechten "
                       L"Maustaste an!",
                   .font = {courier, 7.5},
                   .mouseMove = [this] { klassen_.keineHervorheben(); }},
                  1};
    Shape Shape4{frmHaupt, L"Shape4", {420, 1680, 4605, 3090}, {.fill = colors::white}};
    Klassenliste klassen_{*this,
                          frmHaupt,
                          umgebung_,
                          {.ersteZeile = {525, 1785, 4005, 330},
                           .abstand = 315,
                           .schrift = {courier, 12, true},
                           .bildlauf = {4620, 1785, 345, 2850},
                           .großerSchritt = 9,
                           .gedrückt = [this](const std::wstring& klasse, MouseButton knopf) {
                               LblGruppe_MouseDown(klasse, knopf);
                           }}};
    Button cmdNeueGruppe{frmHaupt,
                         L"cmdNeueGruppe",
                         {420, 4935, 4590, 750},
                         {.caption = L"Neue Gruppe anlegen", .click = [this] { cmdNeueGruppe_Click(); }}};

    Frame frmNeueGruppe{*this, L"frmNeueGruppe", Rahmenplatz, {.visible = false}};
    TextBox txtNeueGruppe{frmNeueGruppe,
                          L"txtNeueGruppe",
                          {945, 2520, 3480, 315},
                          {.maxLength = längsterKlassenname,
                           .spoken = L"Name der neuen Gruppe",
                           .keys = {.press = [this](KeyPress& taste) { txtNeueGruppe_KeyPress(taste); }}}};
    Button cmdNeueGruppeOk{frmNeueGruppe,
                           L"cmdNeueGruppeOk",
                           {945, 2940, 3480, 540},
                           {.caption = L"Gruppe anlegen", .click = [this] { cmdNeueGruppeOk_Click(); }}};
};

} // namespace klopfmeise
