"""The three games in real windows: each played by real keys to its own end and to a stored high score, with pictures of it
ready, running and over in <build>/bilder."""

import struct
import sys
import time

sys.dont_write_bytecode = True
from ablage import Ablage
from klopfmeise import BLASSROT, ENDE, KLASSE_1, NAME_2, Klopfmeise, gleich
from schirm import Schirm, ausführen, prüfe, warte

HIGH_WOLKEN, HIGH_STEINE, HIGH_BAND = 37, 38, 39
WOLKEN, STEINE, BAND = (393, 289), (470, 289), (547, 289)
# A corner of START, beside its letters.
START_WOLKEN, START_STEINE, START_BAND = (230, 320), (230, 195), (230, 150)


class Spiel:
    """A game's page, from the class list to the page before START."""

    def __init__(self, schirm, knopf, start, stufentext, name):
        self.schirm, self.start, self.name = schirm, start, name
        self.ablage = Ablage(schirm.ordner / "Daten")
        self.ablage.lektion([stufentext])
        self.k = Klopfmeise(schirm, self.ablage)
        self.k.geh(KLASSE_1, "Namensliste")
        self.k.geh(NAME_2, "Menü")
        schirm.klick(*knopf)
        warte(self.bereit, "START")
        self.foto("bereit")

    def bereit(self):
        return gleich(self.schirm.farbe(*self.start), BLASSROT, 6)

    def foto(self, wann):
        self.schirm.foto(f"{self.name}_{wann}")

    def beginnen(self):
        self.schirm.klick(*self.start)
        # Under the pointer START has another shade.
        x, y = self.schirm.stelle(500, 590)
        self.schirm.befehl("xdotool", "mousemove", str(x), str(y))
        warte(lambda: not self.bereit(), "das Spiel beginnt")

    def verlassen(self):
        self.schirm.klick(*ENDE)
        self.k.warte_auf("Menü")
        self.k.beenden()


def wolken(breite, höhe):
    with Schirm(breite, höhe) as schirm:
        spiel = Spiel(schirm, WOLKEN, START_WOLKEN, "fj fj", "20_wolken")
        schirm.tippe("fj ", 8)
        spiel.beginnen()
        beginn = time.monotonic()
        # Between the clouds and Pushy only the beam ever shows.
        ohne_strahl = schirm.abdruck(110, 310, 570, 145)
        tipper = schirm.tippe_nebenher(" ", 8)
        warte(lambda: schirm.abdruck(110, 310, 570, 145) != ohne_strahl, "der Schuss", takt=0.005)
        tipper.wait()
        while time.monotonic() - beginn < 48:
            schirm.tippe("f " * 10 + "j " * 10, 12)
        spiel.foto("letzte_sekunden")
        warte(spiel.bereit, "das Spiel ist zu Ende")
        dauer = time.monotonic() - beginn
        prüfe(59 < dauer < 70, f"das Spiel dauerte {dauer:.1f} s")
        rekord = struct.unpack("<hd", spiel.ablage.satz(HIGH_WOLKEN, 10))
        prüfe(rekord[0] == 5 and rekord[1] >= 1, f"der Rekord ist {rekord}")
        spiel.foto("vorbei")
        spiel.verlassen()


def farbige_spalten(schirm):
    """Columns of the shaft, from 1, in which a figure shows."""
    def farbig(spalte, reihe):
        farbe = schirm.farbe(305 + 21 * (spalte - 1), 487 - 21 * (reihe - 1))
        return max(farbe) - min(farbe) > 40 or max(farbe) < 120
    return [spalte for spalte in range(1, 11) if any(farbig(spalte, reihe) for reihe in range(1, 24))]


def steine(breite, höhe):
    with Schirm(breite, höhe) as schirm:
        spiel = Spiel(schirm, STEINE, START_STEINE, "fj fj", "21_steine")
        spiel.beginnen()
        time.sleep(3.2)
        vorher = farbige_spalten(schirm)
        # The display repeats a held key after 0.2 s, 33 times a second.
        schirm.befehl("xdotool", "-", eingabe="keydown --delay 0 41\nsleep 1.5\nkeyup --delay 0 41\n")
        nachher = farbige_spalten(schirm)
        prüfe(nachher in ([s - 1 for s in vorher], [s + 1 for s in vorher]),
              f"eine gehaltene Taste schob die Figur von den Spalten {vorher} auf {nachher}")
        fotos = {6: "laufend", 9: "hoch"}
        for wurf in range(1, 60):
            if spiel.bereit():
                break
            schirm.tippe("f \n", 10)
            time.sleep(0.7)
            if wurf in fotos:
                spiel.foto(fotos[wurf])
        warte(spiel.bereit, "der Schacht ist voll")
        marke, rekord = struct.unpack("<hh", spiel.ablage.satz(HIGH_STEINE, 4))
        prüfe(marke == 2 and rekord >= 19, f"der Rekord ist {marke}, {rekord}")
        spiel.foto("vorbei")
        spiel.verlassen()


def band(breite, höhe):
    with Schirm(breite, höhe) as schirm:
        spiel = Spiel(schirm, BAND, START_BAND, "fff", "22_band")
        spiel.beginnen()
        for gruppe in range(1, 6):
            schirm.tippe("fff", 10)
            spiel.foto("laufend")
            schirm.tippe("ff", 20)
            # The belt runs back; what is typed meanwhile would wait.
            gesehen, letzte = set(), time.monotonic()
            while time.monotonic() - letzte < 0.12:
                bild = schirm.abdruck(200, 260, 530, 60)
                if hash(bild) not in gesehen:
                    gesehen.add(hash(bild))
                    letzte = time.monotonic()
                time.sleep(0.002)
            prüfe(gruppe == 1 or len(gesehen) > 10, f"vom Rücklauf der Gruppe {gruppe} waren {len(gesehen)} Bilder zu sehen")
        schirm.tippe("jjj", 10)
        spiel.foto("daneben")
        schirm.tippe("jjjjjjjjj", 10)
        warte(lambda: spiel.ablage.satz(HIGH_BAND, 2) == struct.pack("<h", 4), "der Rekord ist gespeichert")
        spiel.foto("am_ende")
        warte(spiel.bereit, "das Spiel ist zu Ende")
        _, rekord = struct.unpack("<hf", spiel.ablage.satz(HIGH_BAND, 6))
        prüfe(0 < rekord < 40, f"der Rekord ist {rekord}")
        spiel.foto("vorbei")
        spiel.verlassen()


if __name__ == "__main__":
    ausführen(wolken, steine, band, größen=((800, 600), (1920, 1080)))
