"""The teacher mode of a started program, as a teacher sees it."""

import os
import re
import time

from klopfmeise import GRAU, LEHRKRAFT, Klopfmeise, gleich
from schirm import Schirm, warte


class Lehrkraft:
    """The teacher mode of a started program. Places are in twips of the child window that is open."""

    def __init__(self, schirm, ablage):
        self.schirm, self.ablage = schirm, ablage
        self.k = Klopfmeise(schirm, ablage)
        self.betreten()

    def betreten(self):
        self.k.geh(LEHRKRAFT, "Codefeld")
        self.schirm.tippe("7294\n", 8)
        warte(lambda: self.schirm.fenster("^Einstellungsmodus$"), "der Rahmen")
        self.kindfenster()

    def kindfenster(self):
        """Where the ground of the open child window begins (pixels of the screen): grey below a title bar."""
        def grau(x, y):
            return gleich(self.schirm.farbe_bei(x, y), GRAU, 1)
        weite = range(4, int(40 * self.schirm.zoom))

        def anfang():
            for y in range(60, int(150 * self.schirm.zoom)):
                for x in weite:
                    if grau(x, y) and all(grau(x + i, y) and grau(x, y + i) for i in (3, 6, 9)):
                        return x, y
            return None
        # It stands once it is at the same place twice.
        zuletzt = None

        def steht():
            nonlocal zuletzt
            jetzt = anfang()
            steht, zuletzt = jetzt is not None and jetzt == zuletzt, jetzt
            return steht
        warte(steht, "das Kindfenster", takt=0.1)
        self.anfang = zuletzt

    def ort(self, x, y):
        return (round(self.anfang[0] + x / 15 * self.schirm.zoom), round(self.anfang[1] + y / 15 * self.schirm.zoom))

    def klick(self, x, y, knopf=1):
        self.schirm.klick_bei(*self.ort(x, y), knopf)

    def foto(self, name, blinkt=True):
        self.schirm.ruhe(0, 80, 800, 520)
        # The class line blinks, but for the time of a message.
        ende = time.monotonic() + 0.7 * blinkt
        y = {800: 52, 1920: 72}[self.schirm.breite]
        while time.monotonic() < ende and not any(
                self.schirm.farbe_bei(x, y) == (0, 0, 0) for x in range(self.schirm.breite)):
            time.sleep(0.02)
        self.schirm.foto(name)

    def taste(self, name):
        self.schirm.taste(name)

    def menü(self, *tasten):
        """An entry of the menu bar by its letter, and keys in the menu that opens."""
        for taste in (f"alt+{tasten[0]}", *tasten[1:]):
            self.taste(taste)
        time.sleep(0.3)
        self.kindfenster()

    def auf_taste(self, x, y):
        """A click that opens another child window."""
        self.klick(x, y)
        time.sleep(0.3)
        self.kindfenster()

    def vorn(self, titel, über=""):
        """Waits until a window of this title has the keys, not the one whose id is `über`; its id."""
        def da():
            fenster = self.schirm.befehl("xdotool", "getactivewindow").strip()
            titel_ = self.schirm.befehl("xdotool", "getwindowname", fenster or "0").strip()
            return titel_ == titel and fenster != über and fenster
        return warte(da, f"'{titel}' ist vorn")

    def meldung(self, titel, bild, *tasten, über=""):
        """A message or question: its picture, then the keys that answer it."""
        da = self.vorn(titel, über)
        self.foto(bild, False)
        for taste in tasten or ("Return",):
            self.taste(taste)
        warte(lambda: da not in self.schirm.befehl("xdotool", "search", "--onlyvisible", "--name", ".").split(),
              f"'{titel}' geht zu, für {bild}")

    def klick_in(self, fenster, x, y):
        """At a place of a window that is no child window (twips)."""
        text = self.schirm.befehl("xwininfo", "-id", fenster)
        links, oben = (int(re.search(f"Absolute upper-left {achse}: +(-?[0-9]+)", text)[1]) for achse in "XY")
        self.schirm.klick_bei(links + round(x / 15 * self.schirm.zoom), oben + round(y / 15 * self.schirm.zoom))

    def neu_tippen(self, text):
        """In the place of what stands in the box that has the keys."""
        self.taste("ctrl+a")
        self.schirm.tippe(text, 20)


class Nutzerschirm(Schirm):
    """A display on which the program runs without the rights of root, who may write everywhere."""

    nummer = 61001 if os.geteuid() == 0 else None

    def abgeben(self, *pfade):
        for pfad in pfade if self.nummer else ():
            for einzeln in (pfad, *pfad.rglob("*")):
                os.chown(einzeln, self.nummer, self.nummer)

    def start(self):
        weiteres = {}
        if self.nummer:
            self.ordner.chmod(0o755)
            self.abgeben(*(self.ordner / name for name in ("Daten", "heim", "lauf")))
            weiteres = {"user": self.nummer, "group": self.nummer, "extra_groups": []}
        return super().start(**weiteres)
