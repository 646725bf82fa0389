"""Wild users: wilde.py PROGRAM BUILD [SECONDS [SEED...]] lets a person without sense loose on the real program, for so long
with each seed: clicks, keys, dead keys, held keys, pastes, closed windows, screens that change their size. Then no sanitizer has
complained, the program still ends as it should, and every record lies in its range. Without a seed one is drawn.

The program is locked into its own folders meanwhile, as its folder dialog could do harm."""

import contextlib
import importlib.util
import os
import pathlib
import random
import re
import shutil
import subprocess
import sys
import time

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tests" / "fenster"))
import eingesperrt
import saetze
import schirm as werkzeug
from ablage import Ablage
from schirm import BUILD, TASTATUR, Fehlschlag, Schirm, prüfe, warte

NICHT_MÖGLICH = 77
GRÖSSEN = ((800, 600), (1024, 768), (1280, 1024), (1366, 768), (1600, 900))
GRÖSSTE = (1600, 1024)
STUFE = "fff jjj fj"
# Places of the 800 by 600 form that lead from screen to screen.
ORTE = [(300, 224), (300, 216), (300, 243), (239, 289), (316, 289), (393, 289), (470, 289), (547, 289), (396, 462), (618, 562),
        (688, 562), (758, 562), (695, 184), (331, 317), (464, 317), (590, 429), (604, 429), (400, 170), (393, 401), (230, 320),
        (230, 195), (230, 150)]
TASTEN = ["Return", "Escape", "Tab", "shift+Tab", "BackSpace", "Delete", "Home", "End", "Prior", "Next", "Left", "Right", "Up",
          "Down", "space", "F1", "F5", "F10", "Menu", "alt+F4", "alt+d", "alt+g", "alt+h", "alt+Tab", "ctrl+a", "ctrl+c", "ctrl+x",
          "ctrl+v", "ctrl+z", "ctrl+b", "ctrl+Return", "shift+Return", "shift+Insert", "shift+Left", "shift+End", "ctrl+Home",
          "KP_Enter", "KP_5", "Num_Lock", "Caps_Lock", "Insert", "Print", "Pause", "ISO_Level3_Shift"]
EINFÜGEN = ["7294", "x" * 5000, "Ä€ß\n\tä", "\u202eabc\u200b😀", "..\\..\\x", "{\\rtf1 a}", "", "a\0b", "\r\n" * 300]
# Sixteen names are enough: a folder of thousands is tried elsewhere.
NAMEN = ["Mia", "Zoë", "..", "con", "a/b", "x" * 60, "Öl & Co", " ", "4b", "Tom", "Ben", "Ida", "Anna", "1", "-", "'"]
KLAGEN = re.compile(r".*(?:Sanitizer|runtime error|QWidget::|QObject::|QPainter::|ASSERT|terminate called).*")


class Wilder:
    """One person with a seed, and what it has done."""

    def __init__(self, saat, schirm, ablage):
        self.zufall, self.schirm, self.ablage = random.Random(saat), schirm, ablage
        self.größe = GRÖSSTE
        self.getan, self.starts = [], 0
        self.zahl = dict.fromkeys(("Klicks", "Tasten", "Texte", "Gehalten", "Eingefügt", "Fenster", "Größen", "Wege"), 0)
        self.lauf = None

    def starten(self):
        self.starts += 1
        ordner = self.schirm.ordner

        def vorher():
            werkzeug._mit_eltern_enden()
            eingesperrt.einsperren(ordner, "/dev")
        with open(ordner / "ausgabe.txt", "ab") as ausgabe:
            self.lauf = subprocess.Popen([str(werkzeug.PROGRAMM)], env=self.schirm.umgebung, cwd=ordner, preexec_fn=vorher,
                                         stdout=ausgabe, stderr=ausgabe)
        self.schirm.callback(self.schirm.töten, self.lauf)

    # Each of these gives lines for xdotool.

    def punkt(self, x, y):
        """The pixel of a place of the 800 by 600 form."""
        breite, höhe = self.größe
        zoom = max(1.0, min(breite / 800, höhe / 600))
        return int((breite - 800 * zoom) / 2 + x * zoom), int((höhe - 600 * zoom) / 2 + y * zoom)

    def ort(self):
        if self.zufall.random() < 0.6:
            return self.punkt(*self.zufall.choice(ORTE))
        return self.zufall.randrange(self.größe[0]), self.zufall.randrange(self.größe[1])

    def klick(self):
        self.zahl["Klicks"] += 1
        (x, y), (u, v) = self.ort(), self.ort()
        knopf = self.zufall.choice([1] * 12 + [2, 3, 3, 4, 5, 8])
        ziehen = f"mousemove {u} {v}\n" if self.zufall.random() < 0.15 else ""
        doppelt = "--repeat 2 --delay 40 " if self.zufall.random() < 0.1 else ""
        if ziehen:
            return f"mousemove {x} {y}\nmousedown {knopf}\nsleep 0.02\n{ziehen}sleep 0.02\nmouseup {knopf}\n"
        return f"mousemove {x} {y}\nclick {doppelt}{knopf}\n"

    def taste(self):
        self.zahl["Tasten"] += 1
        return f"key --delay 5 {self.zufall.choice(TASTEN)}\n"

    def text(self):
        self.zahl["Texte"] += 1
        zeichen = list(TASTATUR)
        text = self.zufall.choice([STUFE + "\n", "7294\n", "".join(self.zufall.choices(zeichen, k=self.zufall.randrange(1, 14))),
                                   "´e`a^o´x^^´\n", self.zufall.choice(NAMEN) + "\n", "fj" * 8 + " "])
        return Schirm.anschläge("".join(z for z in text if z in TASTATUR), self.zufall.choice([12, 30, 60]))

    def gehalten(self):
        self.zahl["Gehalten"] += 1
        code = self.zufall.choice(list(TASTATUR.values()))[0]
        ebene = self.zufall.choice([0, 0, 50, 108, 37])
        tasten = [code, ebene] if ebene else [code]
        return ("".join(f"keydown --delay 0 {t}\n" for t in reversed(tasten)) + f"sleep {self.zufall.uniform(0.1, 0.6):.2f}\n" +
                "".join(f"keyup --delay 0 {t}\n" for t in tasten))

    def weg(self):
        """Into the teacher mode and to one of its screens, as chance would seldom have it."""
        self.zahl["Wege"] += 1

        def klick(x, y):
            return "mousemove {} {}\nclick 1\nsleep 0.15\n".format(*self.punkt(x, y))
        if self.zufall.random() < 0.5:
            # A child: class, name, an exercise, START, and the right keys.
            übung = self.zufall.choice([(239, 289), (316, 289), (393, 289), (470, 289), (547, 289)])
            start = {(239, 289): (396, 462), (393, 289): (230, 320), (470, 289): (230, 195), (547, 289): (230, 150)}
            return (klick(300, 224) + klick(300, self.zufall.choice([216, 243])) + klick(*übung) +
                    klick(*start.get(übung, (400, 300))) +
                    Schirm.anschläge(STUFE + "\n" if übung == (239, 289) else "fj fj \n", 25))
        unten = "".join(f"key --delay 5 Down\n" for _ in range(self.zufall.randrange(4)))
        return (klick(618, 562) + Schirm.anschläge("7294\n", 25) + "sleep 0.4\n" +
                f"mousemove {self.zufall.choice([35, 99, 169])} {self.zufall.choice([28, 32])}\nclick 1\nsleep 0.1\n" + unten +
                "key --delay 5 Return\n")

    # And these act by themselves.

    def einfügen(self):
        self.zahl["Eingefügt"] += 1
        self.zwischenablage.text = self.zufall.choice(EINFÜGEN).replace("\0", "\u2400")
        time.sleep(0.05)
        self.schirm.befehl("xdotool", "key", self.zufall.choice(["ctrl+v", "shift+Insert"]))

    def fenster(self):
        """Closes, moves, resizes or hides one of the program's windows as the desktop can."""
        alle = self.schirm.befehl("xdotool", "search", "--onlyvisible", "--pid", str(self.lauf.pid)).split()
        if not alle:
            return
        self.zahl["Fenster"] += 1
        w = self.zufall.choice(alle)
        z = self.zufall.randrange
        # The window manager closes the active one with Alt+F4.
        befehl = self.zufall.choice([("key", "alt+F4")] * 2 + [("windowmove", w, str(z(-200, 900)), str(z(-100, 700))),
                                     ("windowsize", w, str(z(1, 1400)), str(z(1, 900))), ("windowminimize", w),
                                     ("windowactivate", w)])
        if befehl[0] == "key":
            self.schirm.befehl("xdotool", "windowactivate", w)
        self.schirm.befehl("xdotool", *befehl)
        if befehl[0] == "windowminimize":
            self.schirm.befehl("xdotool", "windowactivate", w)
        self.getan.append(" ".join(befehl))

    def bildschirm(self):
        self.größe = self.zufall.choice(GRÖSSEN)
        self.zahl["Größen"] += 1
        self.schirm.befehl("xrandr", "--output", "screen", "--mode", "{}x{}".format(*self.größe))
        self.getan.append("Bildschirm {}x{}".format(*self.größe))

    def einmal(self):
        was = self.zufall.random()
        if was < 0.03:
            self.bildschirm()
        elif was < 0.10:
            self.fenster()
        elif was < 0.15:
            self.einfügen()
        else:
            arten = [self.klick, self.taste, self.text, self.gehalten, self.weg]
            zeilen = "".join(art() for art in self.zufall.choices(arten, [40, 20, 14, 6, 12], k=self.zufall.randrange(1, 7)))
            self.getan.append(zeilen)
            self.schirm.befehl("xdotool", "-", eingabe=zeilen)
        del self.getan[:-8]

    def noch_da(self):
        """Starts the program anew when it was quit; a crash is a finding."""
        code = self.lauf.poll()
        if code is None:
            return
        prüfe(code == 0, f"das Programm endete mit {code}")
        self.starten()
        time.sleep(0.5)


class Zwischenablage:
    """Holds the clipboard of a display, in a process of its own that takes a text a line."""

    PROGRAMM = ("import sys, tkinter\nfenster = tkinter.Tk()\nfenster.withdraw()\n"
                "def lesen(*_):\n"
                "    zeile = sys.stdin.readline()\n"
                "    if not zeile: fenster.destroy(); return\n"
                "    fenster.clipboard_clear(); fenster.clipboard_append(eval(zeile))\n"
                "fenster.createfilehandler(sys.stdin, tkinter.READABLE, lesen)\nfenster.mainloop()\n")

    def __init__(self, schirm):
        self.lauf = schirm.starten([sys.executable, "-c", self.PROGRAMM], stdin=subprocess.PIPE, text=True)

    def _setzen(self, text):
        with contextlib.suppress(BrokenPipeError):
            self.lauf.stdin.write(ascii(text) + "\n")
            self.lauf.stdin.flush()

    text = property(fset=_setzen)


def modi(schirm):
    for breite, höhe in GRÖSSEN:
        name = f"{breite}x{höhe}"
        zeiten = [breite, breite + 8, breite + 16, breite + 24, höhe, höhe + 2, höhe + 4, höhe + 6]
        schirm.befehl("xrandr", "--newmode", name, "60", *map(str, zeiten))
        schirm.befehl("xrandr", "--addmode", "screen", name)
    prüfe("1366x768" in schirm.befehl("xrandr"), "der Bildschirm nimmt keine andere Größe an")


def wild(saat, sekunden):
    with Schirm(*GRÖSSTE) as schirm:
        ablage = Ablage(schirm.ordner / "Daten")
        ablage.lektion([STUFE, "jf jf", STUFE])
        (ablage.pfad / "Gruppen" / "4b").mkdir()
        for name in ("KME.ein", "Mia._"):
            shutil.copy(ablage.pfad / "Gruppen" / ablage.klasse / name, ablage.pfad / "Gruppen" / "4b")
        ablage.als_datenablage(schirm)
        modi(schirm)
        w = Wilder(saat, schirm, ablage)
        w.zwischenablage = Zwischenablage(schirm)
        w.starten()
        ende = time.monotonic() + sekunden
        try:
            while time.monotonic() < ende:
                w.einmal()
                w.noch_da()
            # Still served: closing its windows ends it, through whatever it asks.
            beenden(w)
            fehler, gesehen = saetze.ablage(ablage.pfad)
            prüfe(not fehler, "außerhalb des Bereichs: " + "; ".join(fehler[:5]))
            klagen = KLAGEN.findall(schirm.ausgabe())
            prüfe(not klagen, f"Klagen in der Ausgabe: {klagen[:3]}")
            halb = [str(p) for p in schirm.ordner.rglob(".klopfmeise-*")]
            prüfe(not halb, f"halbe Dateien: {halb}")
        except Fehlschlag as fehlschlag:
            ziel = BUILD / f"wilde_{saat}.txt"
            ziel.write_text(schirm.ausgabe() + "\n== zuletzt getan\n" + "\n--\n".join(w.getan))
            shutil.rmtree(BUILD / f"wilde_{saat}", ignore_errors=True)
            shutil.copytree(ablage.pfad, BUILD / f"wilde_{saat}", symlinks=True)
            raise Fehlschlag(f"Saat {saat}: {fehlschlag}. Ausgabe und Daten: {ziel.with_suffix('')}*") from None
        print(f"Saat {saat}: {sekunden} s, {w.starts} Starts, {w.zahl}, {gesehen} Dateien in Gruppen/", flush=True)


def beenden(w):
    """The program answers: it can be brought to its end question from wherever it stands, or ends on the way."""
    w.schirm.befehl("xdotool", "keyup", "37", "keyup", "50", "keyup", "108")

    def geendet():
        if w.lauf.poll() is not None:
            return True
        # One of them may lie hidden, or at the edge.
        for fenster in w.schirm.befehl("xdotool", "search", "--all", "--pid", str(w.lauf.pid), "--name", ".").split():
            w.schirm.befehl("xdotool", "windowactivate", fenster, "key", "Escape", "key", "alt+F4")
        time.sleep(0.3)
        for x, y in ((758, 562), (604, 429), (590, 429), (758, 562), (331, 317)):
            w.schirm.klick_bei(*w.punkt(x, y))
            time.sleep(0.1)
        return w.lauf.poll() is not None
    warte(geendet, "das Programm läßt sich beenden", frist=120, takt=0.2)
    prüfe(w.lauf.poll() == 0, f"das Programm endete mit {w.lauf.poll()}")


if __name__ == "__main__":
    if not (eingesperrt.möglich() and shutil.which("xrandr") and importlib.util.find_spec("tkinter")):
        print("Auf dieser Maschine nicht möglich: es fehlt die Sperre (Landlock), xrandr oder tkinter.")
        sys.exit(NICHT_MÖGLICH)
    sekunden = float((sys.argv[3:] or ["20"])[0])
    for saat in sys.argv[4:] or [str(int.from_bytes(os.urandom(4), "little"))]:
        wild(saat, sekunden)
