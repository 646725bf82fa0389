#include "games/steinespiel.h"

#include "games/figuren.h"
#include "games/ziehung.h"
#include "platform/values/text.h"

#include <algorithm>
#include <utility>

namespace klopfmeise {

namespace {

/// The landing with which a game begins has no figure; what it scores comes to 0.
constexpr int punkteAmAnfang = -19;
constexpr int höchsterFallbonus = 20;
constexpr int taktkürzung = 10;

bool& zelle(Steinespiel::Gitter& gitter, int x, int y) {
    return gitter.at(static_cast<std::size_t>(x)).at(static_cast<std::size_t>(y));
}
bool zelle(const Steinespiel::Gitter& gitter, int x, int y) {
    return gitter.at(static_cast<std::size_t>(x)).at(static_cast<std::size_t>(y));
}

Steinespiel::Gitter gitterAus(int art, int drehung) {
    Steinespiel::Gitter gitter{};
    for (int x = 1; x <= 4; ++x)
        for (int y = 1; y <= 4; ++y)
            zelle(gitter, x, y) = figurHat(art, drehung, x, y);
    return gitter;
}

} // namespace

template <class Tun>
void Steinespiel::jedeZelle(Tun tun) const {
    for (int x = 1; x <= 4; ++x)
        for (int y = 1; y <= 4; ++y)
            if (zelle(Stein, x, y))
                tun(x, y);
}

/// True where nothing can move to: outside the shaft at the sides and below, or where something has landed.
bool Steinespiel::belegt(int x, int y) const {
    return x < 1 || x > Spalten || y < 1 || (y <= Reihen && gelandet(x, y));
}

void Steinespiel::Startaufstellung(std::wstring text, Random& zufall) {
    Stufentext = std::move(text);
    NaechsterStein = {};
    Schacht = {};
    Punkte = punkteAmAnfang;
    lblScore = 0;
    Shape3.fill(colors::white);
    Shape1.fill(colors::white);
    läuft = false;
    Taktzeit = 1000;
    TasteGedrueckt = 0;
    NaechsteArt = 0;
    Nyfig(zufall);
}

void Steinespiel::NeueTasten(Random& zufall) {
    if (!hatPaar(Stufentext))
        return;
    const Zeichenpaar paar = paarZiehen(Stufentext, zufall);
    TasteLinks = paar.erstes;
    lblLinks = paar.erstes;
    TasteRechts = paar.zweites;
    lblRechts = paar.zweites;
    TasteDrehen = L' ';
    TasteFallen = L'\r';
}

void Steinespiel::starten() {
    läuft = true;
    lblLinks.clear();
    lblRechts.clear();
}

bool Steinespiel::Timer1_Timer(Random& zufall) {
    Fallbonus = std::max(0, Fallbonus - 1);
    return Fallen(zufall);
}

/// The figure has come to rest if one of its cells stands on the ground or on what has landed.
void Steinespiel::ruhetest() {
    bool ruht = false;
    jedeZelle([&](int x, int y) { ruht = ruht || belegt(spalte(x), reihe(y) - 1); });
    if (ruht)
        SteinArt = 0;
}

bool Steinespiel::Fallen(Random& zufall) {
    ruhetest();
    if (SteinArt != 0)
        // The top cells of its columns; those below are painted over.
        jedeZelle([&](int x, int y) {
            if (!zelle(Stein, x, y - 1))
                malen(x, y, colors::white);
        });
    else {
        jedeZelle([&](int x, int y) { gelandet(spalte(x), reihe(y)) = true; });
        Ner(zufall);
        Nyfig(zufall);
    }
    --SteinY;
    bool vorbei = false;
    // Its own cells of before pass, since they have its colour, and so does what landed in the same colour.
    jedeZelle([&](int x, int y) {
        const Color da = farbe(spalte(x), reihe(y));
        vorbei = vorbei || (da != colors::white && da != SteinFarbe);
        if (!vorbei)
            malen(x, y, SteinFarbe);
    });
    return vorbei;
}

void Steinespiel::Ner(Random& zufall) {
    Punkte += Fallbonus;
    Taktzeit = std::max(kürzesteTaktzeit, Taktzeit - taktkürzung);
    NeueTasten(zufall);
    for (int y = Reihen; y >= 1; --y) {
        bool voll = true;
        for (int x = 1; x <= Spalten; ++x)
            voll = voll && gelandet(x, y);
        if (!voll)
            continue;
        Punkte += 10 * Fallbonus;
        reiheLöschen(y);
    }
    lblScore = Punkte;
}

/// What is above comes down by a row; the topmost keeps its content.
void Steinespiel::reiheLöschen(int y) {
    for (int x = 1; x <= Spalten; ++x)
        for (int r = y; r < Reihen; ++r) {
            gelandet(x, r) = gelandet(x, r + 1);
            farbe(x, r) = farbe(x, r + 1);
        }
}

void Steinespiel::Nyfig(Random& zufall) {
    Intervall = Taktzeit;
    Fallbonus = höchsterFallbonus;
    SteinArt = NaechsteArt;
    SteinFarbe = NaechsteFarbe;
    NaechsteArt = static_cast<int>(Int(Figurenzahl * zufall.next())) + 1;
    SteinX = 4;
    SteinY = Reihen + 1;
    Drehung = 1;
    Stein = std::exchange(NaechsterStein, gitterAus(NaechsteArt, 1));
    NaechsteFarbe = figurMit(NaechsteArt).farbe;
    vorschauMalen();
}

void Steinespiel::vorschauMalen() {
    for (int x = 1; x <= Vorschauspalten; ++x)
        for (int y = 1; y <= Vorschauzellen / Vorschauspalten; ++y)
            Shape3.at(static_cast<std::size_t>((y - 1) * Vorschauspalten + x - 1)) =
                zelle(NaechsterStein, x, y) ? NaechsteFarbe : colors::white;
}

bool Steinespiel::Form_KeyPress(wchar_t zeichen) {
    if (TasteGedrueckt == 1)
        return false;
    if (zeichen == TasteDrehen && SteinArt > 1)
        Rotera();
    else if (zeichen == TasteLinks)
        schieben(-1);
    else if (zeichen == TasteRechts)
        schieben(1);
    else if (zeichen == TasteFallen && SteinArt > 0)
        fallenLassen();
    else
        return false;
    TasteGedrueckt = 1;
    return true;
}

void Steinespiel::schieben(int um) {
    bool frei = true;
    jedeZelle([&](int x, int y) { frei = frei && !belegt(spalte(x) + um, reihe(y)); });
    if (!frei)
        return;
    SteinX += um;
    jedeZelle([&](int x, int y) {
        if (!zelle(Stein, x - um, y))
            farbe(spalte(x) - um, reihe(y)) = colors::white;
        malen(x, y, SteinFarbe);
    });
}

void Steinespiel::fallenLassen() {
    jedeZelle([&](int x, int y) { malen(x, y, colors::white); });
    for (ruhetest(); SteinArt != 0; ruhetest())
        --SteinY;
    jedeZelle([&](int x, int y) {
        malen(x, y, SteinFarbe);
        gelandet(spalte(x), reihe(y)) = true;
    });
}

void Steinespiel::Rotera() {
    const int NeueDrehung = Drehung % figurMit(SteinArt).zustände + 1;
    const Gitter GedrehterStein = gitterAus(SteinArt, NeueDrehung);
    for (int x = 1; x <= 4; ++x)
        for (int y = 1; y <= 4; ++y)
            if (zelle(GedrehterStein, x, y) && belegt(spalte(x), reihe(y)))
                return;
    Drehung = NeueDrehung;
    for (int x = 1; x <= 4; ++x)
        for (int y = 1; y <= 4; ++y)
            if (zelle(Stein, x, y) != zelle(GedrehterStein, x, y))
                malen(x, y, zelle(GedrehterStein, x, y) ? SteinFarbe : colors::white);
    Stein = GedrehterStein;
}

} // namespace klopfmeise
