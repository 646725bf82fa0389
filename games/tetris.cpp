#include "games/tetris.h"

#include "games/ziehung.h"
#include "screens/formnamen.h"

namespace klopfmeise {

Tetris::Tetris(const Umgebung& umgebung)
    : Form(umgebung.runtime, formname::Tetris, {.back = colors::blush, .picture = L"hintergrund_steine"})
    , umgebung_(umgebung) {}

void Tetris::Form_Load() {
    centre();
    rahmen_.kindZeigen();
    Startaufstellung();
}

void Tetris::Startaufstellung() {
    spiel_.Startaufstellung(rahmen_.kursplatzLesen(), umgebung_.dienste().random);
    rahmen_.freigeben(hatPaar(spiel_.Stufentext));
    rahmen_.rekordLesen();
    zeigen();
}

void Tetris::zeigen() {
    for (int i = 0; i < Steinespiel::Zellen; ++i)
        Shape1(i).setFill(spiel_.Shape1.at(static_cast<std::size_t>(i)));
    for (int i = 0; i < Steinespiel::Vorschauzellen; ++i)
        Shape3(i).setFill(spiel_.Shape3.at(static_cast<std::size_t>(i)));
    lblLinks.setCaption(spiel_.lblLinks);
    lblRechts.setCaption(spiel_.lblRechts);
    lblScore.setCaption(std::to_wstring(spiel_.lblScore));
    Timer1.setInterval(spiel_.Intervall);
    Timer1.setEnabled(spiel_.läuft);
    rahmen_.startZeigen(!spiel_.läuft);
    rahmen_.ansagen(spiel_.läuft && !spiel_.lblLinks.empty() ? spiel_.lblLinks + L" " + spiel_.lblRechts
                                                             : L"",
                    spiel_.lblScore);
}

void Tetris::cmdNeuesSpiel_Click() {
    umgebung_.klang(L"knopf.wav");
    spiel_.starten();
    zeigen();
}

void Tetris::Timer1_Timer() {
    const bool vorbei = spiel_.Timer1_Timer(umgebung_.dienste().random);
    zeigen();
    if (vorbei)
        Gameover();
}

void Tetris::Gameover() {
    rahmen_.Rekordpruefung(spiel_.Punkte);
    Startaufstellung();
}

void Tetris::Form_KeyPress(KeyPress& taste) {
    if (!spiel_.Form_KeyPress(taste.character))
        return;
    umgebung_.klang(L"knopf.wav");
    zeigen();
    repaint();
}

} // namespace klopfmeise
