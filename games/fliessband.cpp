#include "games/fliessband.h"

#include "games/ziehung.h"
#include "screens/formnamen.h"

namespace klopfmeise {

namespace {

constexpr const wchar_t* offenerStein = L"stein_offen";
constexpr const wchar_t* getippterStein = L"stein_getippt";

/// The character stands a pixel lower on the fourth stone.
constexpr Rect zeichenplatz(int i) { return inPixeln(0, i == 4 ? 5 : 4, 36, 29); }

} // namespace

Fließband::Steinbild::Steinbild(Form& form, int i)
    : imgStein(form, L"imgStein", {0, pixel(274), Bandspiel::steinbreite, pixel(38)},
               {.back = wand, .picture = offenerStein, .visible = false}, i)
    , lblStein(imgStein, L"lblStein", zeichenplatz(i), anzeige(L"", 18), i) {}

Fließband::Fließband(const Umgebung& umgebung)
    : Form(umgebung.runtime, formname::Fließband, {.picture = L"hintergrund_band"})
    , umgebung_(umgebung) {}

void Fließband::Form_Load() {
    centre();
    rahmen_.kindZeigen();
    Startaufstellung();
}

void Fließband::Startaufstellung() {
    spiel_.Startaufstellung(rahmen_.kursplatzLesen());
    rahmen_.freigeben(hatZeichen(spiel_.Stufentext));
    rahmen_.rekordLesen();
    zeigen();
}

void Fließband::zeigen() {
    for (int i = 1; i <= Bandspiel::Steinzahl; ++i)
        steinZeigen(i);
    // Until they turn for the first time the wheels stand as they are.
    if (spiel_.Radbild > 0)
        for (Picture* rad : {&imgRad_1, &imgRad_2})
            rad->setPicture({L"rad_" + std::to_wstring(spiel_.Radbild)});
    lblPunkte.setCaption(std::to_wstring(spiel_.Punkte));
    Timer1.setInterval(spiel_.Intervall);
    Timer1.setEnabled(spiel_.läuft);
    Timer2.setEnabled(spiel_.läuft);
    rahmen_.startZeigen(!spiel_.läuft);
    const bool offen = spiel_.läuft && spiel_.Position <= Bandspiel::Steinzahl;
    // With its place, so that the second of two like stones is told as well.
    rahmen_.ansagen(offen ? spiel_.lblStein().zeichen + (L" " + std::to_wstring(spiel_.Position)) : L"",
                    spiel_.Punkte);
}

void Fließband::steinZeigen(int i) {
    const Bandspiel::Stein& stein = spiel_.imgStein(i);
    auto& [imgStein, lblStein] = steine_.at(static_cast<std::size_t>(i) - 1);
    imgStein.setLeft(stein.left);
    imgStein.setPicture(stein.getippt ? getippterStein : offenerStein);
    lblStein.setCaption(std::wstring(1, stein.zeichen));
    lblStein.setVisible(!stein.getippt);
    imgStein.setVisible(stein.sichtbar);
}

void Fließband::steinMalen(int i) {
    steinZeigen(i);
    steine_.at(static_cast<std::size_t>(i) - 1).imgStein.repaint();
}

// Stone by stone: the first one is seen before the others are painted.
void Fließband::steineMalen() {
    for (int i = 1; i <= Bandspiel::Steinzahl; ++i)
        steinMalen(i);
}

void Fließband::cmdNeuesSpiel_Click() {
    umgebung_.klang(L"knopf.wav");
    spiel_.starten(umgebung_.dienste().random);
    zeigen();
}

void Fließband::imgNeu_MouseDown() {
    umgebung_.klang(L"knopf.wav");
    Startaufstellung();
}

void Fließband::Timer1_Timer() {
    const bool vorbei = spiel_.Timer1_Timer();
    zeigen();
    if (!vorbei)
        return;
    rahmen_.Rekordpruefung(spiel_.Punkte);
    Startaufstellung();
}

void Fließband::Timer2_Timer() {
    spiel_.Timer2_Timer();
    zeigen();
}

void Fließband::Form_KeyPress(KeyPress& taste) {
    if (!spiel_.läuft)
        return;
    if (!spiel_.stimmt(taste.character)) {
        danebentippen();
        return;
    }
    runtime().wait(umgebung_.klang(L"knopf.wav"));
    const int getippt = spiel_.Position;
    const bool fertig = spiel_.tippen();
    steinMalen(getippt);
    if (fertig)
        gruppeFertig();
    zeigen();
}

void Fließband::danebentippen() {
    umgebung_.klang(L"Fließbandfalsch.wav");
    spiel_.danebentippen();
    lblPunkte.setCaption(std::to_wstring(spiel_.Punkte));
    lblPunkte.repaint();
    steineMalen();
    zeigen();
}

void Fließband::gruppeFertig() {
    spiel_.gutschreiben();
    lblPunkte.setCaption(std::to_wstring(spiel_.Punkte));
    lblPunkte.repaint();
    umgebung_.klang(L"typewriterding.wav");
    spiel_.Beschleunigen();
    bool unterwegs = true;
    while (unterwegs) {
        const double beginn = umgebung_.uhr().seconds();
        unterwegs = spiel_.zurücklaufen();
        steineMalen();
        rahmen_.bildAbwarten(beginn);
    }
    spiel_.NeueTasten(umgebung_.dienste().random);
}

} // namespace klopfmeise
