"""A display of its own with window manager and German keyboard, to drive the program like a person: by clicks,
keys and looking at the pixels. What it needs is in scripts/pakete.sh."""

import contextlib
import ctypes
import functools
import mmap
import os
import pathlib
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import time

# Told on the command line; see ausführen().
PROGRAMM = pathlib.Path((sys.argv[1:] or ["."])[0]).resolve()
BUILD = pathlib.Path((sys.argv[2:] or ["."])[0])

FRIST = 20.0  # seconds until a state must have come; machines are noisy

UMSCHALT, ALTGR = 50, 108
# Character -> (keycode, keycode of the modifier or 0), from rows of keys that lie side by side.
TASTATUR = {zeichen: (erste + i, ebene) for erste, ebene, reihe in (
    (10, 0, "1234567890ß´"), (24, 0, "qwertzuiopü+"), (38, 0, "asdfghjklöä^"), (51, 0, "#yxcvbnm,.-"),
    (94, 0, "<"), (65, 0, " "), (36, 0, "\n"),
    (10, UMSCHALT, "!\"§$%&/()=?`"), (24, UMSCHALT, "QWERTZUIOPÜ*"), (38, UMSCHALT, "ASDFGHJKLÖÄ°"),
    (51, UMSCHALT, "'YXCVBNM;:_"), (94, UMSCHALT, ">"),
    (11, ALTGR, "²³"), (16, ALTGR, "{[]}\\"), (24, ALTGR, "@"), (26, ALTGR, "€"), (35, ALTGR, "~"), (94, ALTGR, "|"),
    (58, ALTGR, "µ")) for i, zeichen in enumerate(reihe)}
# What takes two strokes, as accents are dead keys.
DOPPELT = str.maketrans({"^": "^ ", "´": "´ ", "`": "` ", "ê": "^e", "é": "´e", "à": "`a", "Ô": "^O"})


class Fehlschlag(Exception):
    """A check that failed; its text is what the test prints."""


def warte(bedingung, was, frist=FRIST, takt=0.01):
    """Polls until `bedingung()` gives something true, and returns that."""
    ende = time.monotonic() + frist
    while not (wert := bedingung()):
        prüfe(time.monotonic() < ende, f"nach {frist:.0f} s nicht eingetreten: {was}")
        time.sleep(takt)
    return wert


def prüfe(bedingung, was):
    if not bedingung:
        raise Fehlschlag(was)


def _mit_eltern_enden():
    # Even a test that is killed leaves no display behind.
    ctypes.CDLL(None).prctl(1, signal.SIGKILL)


def eigene_umgebung(ordner):
    """An environment in which a program meets nothing of the user's who runs the test: neither display, running
    copies of the program (they tell each other by a file in XDG_RUNTIME_DIR), settings, message bus nor sound server."""
    for name in ("heim", "lauf"):
        (ordner / name).mkdir(mode=0o700)
    umgebung = {name: os.environ[name] for name in ("PATH", "TMPDIR", "LD_LIBRARY_PATH", "UBSAN_OPTIONS")
                if name in os.environ}
    # The named bus does not exist; without a name the client library would start one. What the toolkit's own libraries
    # keep to the end is not looked at.
    umgebung.update(HOME=str(ordner / "heim"), XDG_RUNTIME_DIR=str(ordner / "lauf"), LANG="de_DE.UTF-8",
                    LC_ALL="de_DE.UTF-8", DBUS_SESSION_BUS_ADDRESS=f"unix:path={ordner}/lauf/bus",
                    QT_LOGGING_RULES="*.debug=false", ASAN_OPTIONS=os.environ.get("ASAN_OPTIONS", "detect_leaks=0"))
    return umgebung


class Schirm(contextlib.ExitStack):
    """One Xvfb with everything around it; ends all it started."""

    def __init__(self, breite, höhe):
        super().__init__()
        self.breite, self.höhe = breite, höhe
        self.zoom = max(1.0, min(breite / 800, höhe / 600))
        self.links = max(0, (breite - round(800 * self.zoom)) // 2)
        self.oben = max(0, (höhe - round(600 * self.zoom)) // 2)

    def __enter__(self):
        try:
            self._aufbauen()
        except BaseException:
            self.close()
            raise
        return self

    def __exit__(self, art, *weiteres):
        if art:
            with contextlib.suppress(Exception):
                self.foto(f"fehler_{time.strftime('%H%M%S')}_{os.getpid()}")
        return super().__exit__(art, *weiteres)

    def _aufbauen(self):
        self.ordner = pathlib.Path(tempfile.mkdtemp(prefix="klopfmeise-fenster-"))
        self.callback(shutil.rmtree, self.ordner, ignore_errors=True)
        self.umgebung = eigene_umgebung(self.ordner)
        lesen, schreiben = os.pipe()
        self.starten(["Xvfb", "-displayfd", str(schreiben), "-screen", "0", f"{self.breite}x{self.höhe}x24", "-fbdir",
                      str(self.ordner), "-nolisten", "tcp", "-noreset", "-ardelay", "200", "-arinterval", "30"],
                     pass_fds=[schreiben])
        os.close(schreiben)
        with os.fdopen(lesen) as rohr:
            self.umgebung["DISPLAY"] = ":" + rohr.readline().strip()
        # Xvfb keeps its pixels in a file in the format of xwd, which costs nothing to look at.
        datei = self.enter_context(open(self.ordner / "Xvfb_screen0", "rb"))
        self._pixel = self.enter_context(mmap.mmap(datei.fileno(), 0, access=mmap.ACCESS_READ))
        kopf = struct.unpack(">25I", self._pixel[:100])
        self._anfang, self._zeile = kopf[0] + kopf[19] * 12, kopf[12]
        self.befehl("setxkbmap", "de")
        self.starten(["openbox", "--sm-disable"])
        # It says that it is there before it is: a window that comes meanwhile is left lying until the next event. It serves
        # once it has taken an order, to have one desktop instead of four.
        warte(lambda: self.befehl("xdotool", "set_num_desktops", "1", "get_num_desktops").strip() == "1", "openbox läuft")

    def starten(self, befehl, **weiteres):
        weiteres = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL, **weiteres}
        lauf = subprocess.Popen(befehl, env=self.umgebung, cwd=self.ordner, preexec_fn=_mit_eltern_enden, **weiteres)
        self.callback(self.töten, lauf)
        return lauf

    @staticmethod
    def töten(lauf):
        lauf.kill()
        lauf.wait()

    def befehl(self, *worte, eingabe=None):
        """Runs a small X program to its end; returns what it printed."""
        fertig = subprocess.run(worte, env=self.umgebung, input=eingabe, text=True, capture_output=True, timeout=60)
        prüfe(fertig.returncode == 0 or not eingabe, f"{worte[0]} ist misslungen: {fertig.stderr.strip()[:300]}")
        return fertig.stdout

    # What is on the screen. Places are in form coordinates (800 by 600).

    def stelle(self, x, y):
        """The pixel of the screen."""
        return self.links + round(x * self.zoom), self.oben + round(y * self.zoom)

    def _ort(self, x, y):
        return self._anfang + y * self._zeile + x * 4

    def farbe_bei(self, x, y):
        """Colour of a pixel as (red, green, blue)."""
        ort = self._ort(x, y)
        return tuple(self._pixel[ort:ort + 3][::-1])

    def farbe(self, x, y):
        return self.farbe_bei(*self.stelle(x, y))

    def abdruck(self, x, y, breite, höhe):
        """The pixels of an area, to tell whether it changed."""
        (links, oben), (rechts, unten) = self.stelle(x, y), self.stelle(x + breite, y + höhe)
        return b"".join(self._pixel[self._ort(links, z):self._ort(rechts, z)] for z in range(oben, unten))

    def ruhe(self, x=0, y=0, breite=800, höhe=600, dauer=0.15):
        """Waits until an area has not changed for `dauer` seconds."""
        zuletzt, seit = None, 0

        def still():
            nonlocal zuletzt, seit
            jetzt = self.abdruck(x, y, breite, höhe)
            if jetzt != zuletzt:
                zuletzt, seit = jetzt, time.monotonic()
            return time.monotonic() - seit >= dauer
        warte(still, "das Bild kommt zur Ruhe", takt=0.03)

    def foto(self, name):
        """The whole screen as <build>/bilder/<size>_<name>.png."""
        ziel = BUILD / "bilder" / f"{self.breite}x{self.höhe}_{name}.png"
        ziel.parent.mkdir(parents=True, exist_ok=True)
        # A test that runs at the same time may write the same picture.
        entwurf = ziel.with_name(f".{os.getpid()}_{ziel.name}")
        self.befehl("import", "-window", "root", str(entwurf))
        entwurf.replace(ziel)

    def foto_in_ruhe(self, name, *bereich, **maße):
        self.ruhe(*bereich, **maße)
        self.foto(name)

    def fenster(self, name):
        """Ids of the shown windows whose title matches."""
        return self.befehl("xdotool", "search", "--onlyvisible", "--name", name).split()

    def warte_tastatur(self, fenster, was):
        """Until one of these windows has the keys."""
        warte(lambda: self.befehl("xdotool", "getactivewindow").strip() in fenster, f"die Tastatur hat {was}")

    # What a person does.

    def klick(self, x, y):
        self.klick_bei(*self.stelle(x, y))

    def klick_bei(self, x, y, knopf=1):
        """At a pixel."""
        # The pointer comes first, as programs may change what lies under it.
        self.befehl("xdotool", "-",
                    eingabe=f"mousemove {x} {y}\nsleep 0.02\nmousedown {knopf}\nsleep 0.02\nmouseup {knopf}\n")

    @staticmethod
    def anschläge(text, je_sekunde):
        """The lines for xdotool that type `text`."""
        def tue(was, *tasten):
            return "".join(f"{was} --delay 0 {code}\n" for code in tasten if code)
        pause = f"sleep {0.5 / je_sekunde:.4f}\n"
        return "".join(tue("keydown", ebene, code) + pause + tue("keyup", code, ebene) + pause
                       for code, ebene in map(TASTATUR.get, text.translate(DOPPELT)))

    def tippe(self, text, je_sekunde=8):
        self.befehl("xdotool", "-", eingabe=self.anschläge(text, je_sekunde))

    def tippe_nebenher(self, text, je_sekunde):
        lauf = self.starten(["xdotool", "-"], stdin=subprocess.PIPE, text=True)
        lauf.stdin.write(self.anschläge(text, je_sekunde))
        lauf.stdin.close()
        return lauf

    def hände_weg(self, tipper):
        """Ends a typing on the side; a key that it held would repeat for ever."""
        self.töten(tipper)
        self.befehl("xdotool", "-", eingabe="".join(f"keyup --delay 0 {c}\n" for t in TASTATUR.values() for c in t if c))

    def taste(self, name):
        self.befehl("xdotool", "key", name)

    # The program.

    def start(self, **weiteres):
        prüfe(PROGRAMM.parent.name == "fenster",
              f"{PROGRAMM} liegt nicht in einem Ordner 'fenster': es läse nicht die maschine.reg des Tests")
        return self.start_mit([str(PROGRAMM)], **weiteres)

    def start_mit(self, befehl, **weiteres):
        with open(self.ordner / "ausgabe.txt", "ab") as ausgabe:
            return self.starten(befehl, stdout=ausgabe, stderr=ausgabe, **weiteres)

    def ausgabe(self):
        return (self.ordner / "ausgabe.txt").read_text(errors="replace")


def ausführen(*fälle, größen=()):
    """Runs the cases told on the command line behind program and build folder, all if none is told, until one fails. With
    "--liste" alone it prints their names. `größen`: the screens that each case runs on."""
    fälle = ({f"{fall.__name__}_{b}x{h}": functools.partial(fall, b, h) for b, h in größen for fall in fälle} or
             {fall.__name__: fall for fall in fälle})
    if sys.argv[1:] == ["--liste"]:
        print("\n".join(fälle))
        return
    # So that what a case started ends with it.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit("abgebrochen"))
    for name in sys.argv[3:] or fälle:
        fälle[name]()
        print("gut", name, flush=True)
