#include "games/bandspiel.h"
#include "games/figuren.h"
#include "games/steinespiel.h"
#include "games/wolkenspiel.h"
#include "platform/headless/headless_services.h"
#include "screens/uebungen.h"
#include "tests/probe.h"

#include <set>

// Players who do anything at all: what must always hold is looked at after each of their moves.

namespace klopfmeise {
namespace {

constexpr const wchar_t* text = L"asdf jklö ASDF";

class Spieler : public SeededRandom {
public:
    using SeededRandom::SeededRandom;
    int bis(int zahl) { return static_cast<int>(next() * zahl); }
    wchar_t eineVon(std::wstring_view tasten) {
        return tasten[static_cast<std::size_t>(bis(static_cast<int>(tasten.size())))];
    }
};

void steinePrüfen(const Steinespiel& spiel, bool überdeckt) {
    int gefärbt = 0;
    int gelandet = 0;
    for (int x = 1; x <= Steinespiel::Spalten; ++x)
        for (int y = 1; y <= Steinespiel::Reihen; ++y) {
            gefärbt += spiel.farbe(x, y) != colors::white;
            gelandet += spiel.gelandet(x, y);
            if (!überdeckt && spiel.gelandet(x, y)) {
                ASSERT_NE(spiel.farbe(x, y), colors::white) << x << ", " << y;
            }
        }
    int eigene = 0;
    for (int x = 0; x <= 5; ++x)
        for (int y = 0; y <= 4; ++y)
            if (spiel.Stein[static_cast<std::size_t>(x)][static_cast<std::size_t>(y)]) {
                ASSERT_TRUE(x >= 1 && x <= 4 && y >= 1) << "the margin";
                ASSERT_TRUE(spiel.spalte(x) >= 1 && spiel.spalte(x) <= Steinespiel::Spalten);
                ASSERT_TRUE(spiel.reihe(y) >= 1 && spiel.reihe(y) <= Steinespiel::Reihen);
                ASSERT_EQ(spiel.farbe(spiel.spalte(x), spiel.reihe(y)), spiel.SteinFarbe);
                eigene += !spiel.gelandet(spiel.spalte(x), spiel.reihe(y));
            }
    if (!überdeckt) {
        ASSERT_EQ(gefärbt, gelandet + eigene) << "no colour without a cell";
    }
    ASSERT_GE(spiel.Taktzeit, Steinespiel::kürzesteTaktzeit);
    ASSERT_GE(spiel.Fallbonus, 0);
}

/// Something in the shaft already: full rows but for two columns, so that some get full.
void vorbelegen(Steinespiel& spiel, Spieler& spieler) {
    const int lücke = spieler.bis(Steinespiel::Spalten - 1) + 1;
    for (int y = 1; y <= spieler.bis(10); ++y)
        for (int x = 1; x <= Steinespiel::Spalten; ++x)
            if (x != lücke && x != lücke + 1) {
                spiel.gelandet(x, y) = true;
                spiel.farbe(x, y) = RGB(1, 1, 1);
            }
}

TEST(Zufallsspieler, FindNoWayOutOfTheShaft) {
    int gelöscht = 0;
    int geprüft = 0;
    int züge = 0;
    for (unsigned saat = 1; saat <= 300; ++saat) {
        SCOPED_TRACE(saat);
        Spieler spieler(saat);
        Steinespiel spiel;
        spiel.Startaufstellung(text, spieler);
        spiel.starten();
        bool vorbei = spiel.Timer1_Timer(spieler);
        vorbelegen(spiel, spieler);
        bool überdeckt = false;
        int ziel = 1;
        for (int zug = 0; zug < 2000 && !vorbei; ++zug) {
            const int punkte = spiel.Punkte;
            if (spieler.bis(4) == 0) {
                const bool neu = spiel.SteinArt == 0;
                vorbei = spiel.Timer1_Timer(spieler);
                gelöscht += spiel.Punkte > punkte + 20;
                ziel = neu ? spieler.bis(Steinespiel::Spalten) : ziel;
            } else {
                // Mostly towards a column, and down once there.
                const wchar_t hin = ziel < spiel.SteinX ? spiel.TasteLinks : spiel.TasteRechts;
                const std::wstring tasten{L' ', ziel == spiel.SteinX ? L'\r' : hin, hin, L'?',
                                          spiel.TasteLinks};
                const int spalte = spiel.SteinX;
                spiel.Form_KeyUp();
                spiel.Form_KeyPress(spieler.eineVon(tasten));
                // Whoever pushes a figure that lies already leaves its cells behind, without their colour.
                überdeckt = überdeckt || (spiel.SteinArt == 0 && spiel.SteinX != spalte);
            }
            ASSERT_GE(spiel.Punkte, punkte);
            // A figure that comes into play over cells of its own colour may wipe them out.
            for (int x = 4; x <= 7; ++x)
                for (int y = Steinespiel::sichtbareReihen; y <= Steinespiel::Reihen; ++y)
                    überdeckt = überdeckt || spiel.gelandet(x, y);
            ++züge;
            geprüft += !überdeckt;
            if (!vorbei) {
                ASSERT_NO_FATAL_FAILURE(steinePrüfen(spiel, überdeckt));
            }
        }
    }
    EXPECT_GT(gelöscht, 20) << "rows got full";
    EXPECT_GT(geprüft, züge / 2);
}

TEST(Zufallsspieler, KeepCloudsAndPushyBetweenTheTrees) {
    for (unsigned saat = 1; saat <= 100; ++saat) {
        SCOPED_TRACE(saat);
        Spieler spieler(saat);
        Wolkenspiel spiel;
        spiel.Startaufstellung(text, spieler);
        spiel.starten(0);
        for (double uhr = 0.05; !spiel.Timer1_Timer(uhr, spieler); uhr += 0.05) {
            ASSERT_LT(uhr, 59.6);
            const int punkte = spiel.Punkte;
            if (spieler.bis(3) == 0)
                spiel.Form_KeyUp();
            if (spiel.Form_KeyPress(spieler.eineVon(spiel.lblLinks + spiel.lblRechts + L" x")) ==
                Wolkenspiel::Zug::schuss)
                if (const int wolke = spiel.schießen().Treffer)
                    spiel.treffen(wolke, spieler);
            ASSERT_TRUE(spiel.Punkte >= punkte && spiel.Punkte <= punkte + 5);
            ASSERT_TRUE(spiel.Pushy > Wolkenspiel::linkerBaum.right());
            ASSERT_TRUE(spiel.Pushy + Wolkenspiel::pushyAmAnfang.width < Wolkenspiel::rechterBaum.left);
            ASSERT_NE(spiel.lblLinks, spiel.lblRechts);
            for (const auto& wolke : spiel.wolken) {
                ASSERT_GT(wolke.left, Wolkenspiel::linkerBaum.right());
                ASSERT_LT(wolke.left, Wolkenspiel::rechterBaum.left - Wolkenspiel::wertbreite);
                ASSERT_TRUE(wolke.wert >= 1 && wolke.wert <= 5);
            }
        }
    }
}

TEST(Zufallsspieler, KeepTheStonesInTheirRow) {
    for (unsigned saat = 1; saat <= 1000; ++saat) {
        SCOPED_TRACE(saat);
        Spieler spieler(saat);
        Bandspiel spiel;
        spiel.Startaufstellung(text);
        spiel.starten(spieler);
        for (int zug = 0; zug < 2000; ++zug) {
            if (spieler.bis(3) == 0 && spiel.Timer1_Timer())
                break;
            if (spieler.bis(12) == 0)
                spiel.danebentippen();
            else if (spiel.tippen()) {
                spiel.gutschreiben();
                spiel.Beschleunigen();
                spiel.NeueTasten(spieler);
            }
            ASSERT_TRUE(spiel.Position >= 1 && spiel.Position <= Bandspiel::Steinzahl);
            ASSERT_GE(spiel.Intervall, 1);
            for (int i = 2; i <= Bandspiel::Steinzahl; ++i)
                ASSERT_EQ(spiel.imgStein(i).left - spiel.imgStein(i - 1).left, Bandspiel::steinbreite);
        }
    }
}

/// Plays a game on its form for two minutes; gives the account as it is then. The high score never falls, and
/// is one that was shown.
std::string kontoNach(int nummer, unsigned saat) {
    Bühne b;
    b.random = SeededRandom(saat);
    b.lektion(1, "Einzeiler", {"asdf jk"});
    b.zurÜbung(nummer);
    const auto satz = static_cast<Kontosatz>(static_cast<int>(Kontosatz::HighWolken) + nummer - ÜbungWolken);
    const auto rekord = [&] { return zahlAus(b.satz(satz)).value_or(0); };
    const std::wstring punkte = nummer == ÜbungSteine ? L"lblScore" : L"lblPunkte";
    std::set<std::wstring> gezeigt{L"0"};
    b.backend.duringWait = [&](int) { gezeigt.insert(b.caption(punkte)); };
    Spieler spieler(saat);
    for (int i = 0; i < 400; ++i) {
        const double vorher = rekord();
        if (b.control<Button>(L"cmdNeuesSpiel").visible())
            b.user.click(L"cmdNeuesSpiel");
        b.user.type(spieler.eineVon(L"asdfjk  \r"));
        b.user.pass(spieler.bis(600));
        EXPECT_GE(rekord(), vorher);
        EXPECT_TRUE(gezeigt.contains(std::to_wstring(static_cast<int>(rekord()))));
    }
    return dateiinhalt(b.konto());
}

TEST(Zufallsspieler, LeaveTheSameBytesBehindTheSameMoves) {
    for (const int nummer : {3, 4, 5})
        for (unsigned saat = 1; saat <= 3; ++saat)
            EXPECT_EQ(kontoNach(nummer, saat), kontoNach(nummer, saat));
    EXPECT_NE(kontoNach(4, 1), kontoNach(4, 2));
}

} // namespace
} // namespace klopfmeise
