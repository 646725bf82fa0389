#include "games/tastatur3.h"

#include "games/ziehung.h"
#include "screens/formnamen.h"

namespace klopfmeise {

Tastatur3::Tastatur3(const Umgebung& umgebung)
    : Form(umgebung.runtime, formname::Tastatur3, {.picture = L"hintergrund_wolken"})
    , umgebung_(umgebung) {}

void Tastatur3::Form_Load() {
    centre();
    rahmen_.kindZeigen();
    Startaufstellung();
}

void Tastatur3::Startaufstellung() {
    spiel_.Startaufstellung(rahmen_.kursplatzLesen(), umgebung_.dienste().random);
    rahmen_.freigeben(hatPaar(spiel_.Stufentext));
    schuss.hide();
    zeigen();
    rahmen_.rekordLesen();
}

void Tastatur3::zeigen() {
    lblLinks.setCaption(spiel_.lblLinks);
    lblRechts.setCaption(spiel_.lblRechts);
    Pushy.setLeft(spiel_.Pushy);
    for (int i = 1; i <= Wolkenspiel::Wolkenzahl; ++i) {
        const auto& [left, wertTop, wert] = spiel_.imgKiste(i);
        imgKiste(i).setLeft(left);
        lblKiste(i).setPlace({left, wertTop, Wolkenspiel::wertbreite, Wolkenspiel::werthöhe});
        lblKiste(i).setCaption(std::to_wstring(wert));
    }
    lblZeit.setCaption(std::to_wstring(spiel_.lblZeit));
    lblZeit.setFore(spiel_.zeitRot ? colors::red : colors::black);
    lblPunkte.setCaption(std::to_wstring(spiel_.Punkte));
    Timer1.setEnabled(spiel_.läuft);
    rahmen_.startZeigen(!spiel_.läuft);
    rahmen_.ansagen(spiel_.läuft ? spiel_.lblLinks + L" " + spiel_.lblRechts : L"", spiel_.Punkte);
}

void Tastatur3::cmdNeuesSpiel_Click() {
    umgebung_.klang(L"knopf.wav");
    spiel_.starten(umgebung_.uhr().seconds());
    zeigen();
}

void Tastatur3::Timer1_Timer() {
    const bool vorbei = spiel_.Timer1_Timer(umgebung_.uhr().seconds(), umgebung_.dienste().random);
    zeigen();
    if (!vorbei)
        return;
    lblZeit.setCaption(L"0");
    lblZeit.repaint();
    rahmen_.Rekordpruefung(spiel_.Punkte);
    spiel_.zeitRot = false;
    Startaufstellung();
}

void Tastatur3::Form_KeyPress(KeyPress& taste) {
    switch (spiel_.Form_KeyPress(taste.character)) {
    case Wolkenspiel::Zug::keiner:
        break;
    case Wolkenspiel::Zug::schritt:
        umgebung_.klang(L"knopf.wav");
        zeigen();
        repaint();
        break;
    case Wolkenspiel::Zug::schuss:
        umgebung_.klang(L"pb_Schieben.wav");
        schießen();
        break;
    }
}

void Tastatur3::schießen() {
    const auto [x, y1, Strahlende, Treffer] = spiel_.schießen();
    schuss.setEnds({x, y1, x, Strahlende});
    schuss.show();
    schuss.repaint();
    rahmen_.Kurzwarten(0.1);
    schuss.hide();
    schuss.repaint();
    if (Treffer == 0)
        return;
    for (Label* buchstabe : {&lblLinks, &lblRechts}) {
        buchstabe->setCaption(L"");
        buchstabe->repaint();
    }
    umgebung_.klang(L"pb_Zahlenklotz2.wav");
    bool sichtbar = true;
    while (sichtbar) {
        const double beginn = umgebung_.uhr().seconds();
        sichtbar = spiel_.fliegen(Treffer);
        lblKiste(Treffer).setTop(spiel_.imgKiste(Treffer).wertTop);
        lblKiste(Treffer).repaint();
        rahmen_.Kurzwarten(0.01);
        rahmen_.bildAbwarten(beginn);
    }
    spiel_.treffen(Treffer, umgebung_.dienste().random);
    zeigen();
}

} // namespace klopfmeise
