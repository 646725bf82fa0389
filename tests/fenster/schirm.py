"""A display of its own with window manager and German keyboard, to drive the program like a person: by clicks,
keys and looking at the pixels. Nothing else than the standard library, Xvfb, openbox, setxkbmap, xdotool and
ImageMagick is needed."""

import contextlib
import ctypes
import mmap
import os
import pathlib
import random
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import time

# Told on the command line; see ausführen().
PROGRAMM = pathlib.Path(os.environ.get("KLOPFMEISE_PROGRAMM") or (sys.argv[1:] or ["."])[0]).resolve()
BUILD = pathlib.Path((sys.argv[2:] or ["."])[0])

FRIST = 20.0  # seconds until a state must have come; machines are noisy


class Fehlschlag(Exception):
    """A check that failed; its text is what the test prints."""


def warte(bedingung, was, frist=FRIST, takt=0.01):
    """Polls until `bedingung()` gives something true, and returns that."""
    ende = time.monotonic() + frist
    while True:
        wert = bedingung()
        if wert:
            return wert
        if time.monotonic() > ende:
            raise Fehlschlag(f"nach {frist:.0f} s nicht eingetreten: {was}")
        time.sleep(takt)


def prüfe(bedingung, was):
    if not bedingung:
        raise Fehlschlag(was)


def _mit_eltern_enden():
    # Even a test that is killed leaves no display behind.
    ctypes.CDLL(None).prctl(1, signal.SIGKILL)


def _deutsche_tastatur():
    """Character -> (keycode, modifier keycode or None, dead key)."""
    tasten = {}
    reihen = {
        None: {10: "1234567890ß", 24: "qwertzuiopü+", 38: "asdfghjklöä", 51: "#", 94: "<", 52: "yxcvbnm,.-", 65: " "},
        "umschalt": {49: "°", 10: "!\"§$%&/()=?", 24: "QWERTZUIOPÜ*", 38: "ASDFGHJKLÖÄ", 51: "'", 94: ">",
                     52: "YXCVBNM;:_"},
        "altgr": {11: "²³", 16: "{[]}\\", 24: "@", 26: "€", 35: "~", 94: "|", 58: "µ"},
    }
    for ebene, abschnitte in reihen.items():
        for erste, zeichen in abschnitte.items():
            for i, z in enumerate(zeichen):
                tasten[z] = (erste + i, ebene, False)
    tasten["\n"] = (36, None, False)
    tasten["^"] = (49, None, True)
    tasten["´"] = (21, None, True)
    tasten["`"] = (21, "umschalt", True)
    return tasten


TASTATUR = _deutsche_tastatur()
EBENEN = {"umschalt": 50, "altgr": 108}
ZUSAMMENGESETZT = {"ê": "^e", "é": "´e", "à": "`a", "Ô": "^O"}


def eigene_umgebung(ordner):
    """An environment in which a program meets nothing of the user's who runs the test: neither display, running
    copies of the program (they tell each other by a file in XDG_RUNTIME_DIR), settings, message bus nor sound server."""
    for name in ("heim", "lauf"):
        (ordner / name).mkdir(mode=0o700)
    umgebung = {name: os.environ[name] for name in ("PATH", "TMPDIR", "LD_LIBRARY_PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS")
                if name in os.environ}
    # The named bus does not exist; without a name the client library would start one.
    umgebung.update(HOME=str(ordner / "heim"), XDG_RUNTIME_DIR=str(ordner / "lauf"), LANG="de_DE.UTF-8",
                    LC_ALL="de_DE.UTF-8", DBUS_SESSION_BUS_ADDRESS=f"unix:path={ordner}/lauf/bus",
                    QT_LOGGING_RULES="*.debug=false")
    # What the toolkit's own libraries keep to the end is not looked at.
    umgebung.setdefault("ASAN_OPTIONS", "detect_leaks=0")
    return umgebung


class Schirm:
    """One Xvfb with everything around it; a context manager that ends all it started."""

    def __init__(self, breite, höhe):
        self.breite, self.höhe = breite, höhe
        prüfe(PROGRAMM.parent.name == "fenster",
              f"{PROGRAMM} liegt nicht in einem Ordner 'fenster': es läse nicht die maschine.reg des Tests")
        self.zoom = max(1.0, min(breite / 800, höhe / 600))
        self.links = max(0, (breite - round(800 * self.zoom)) // 2)
        self.oben = max(0, (höhe - round(600 * self.zoom)) // 2)
        self.läufe = []
        self._stapel = contextlib.ExitStack()

    def __enter__(self):
        try:
            self._aufbauen()
        except BaseException:
            self._stapel.close()
            raise
        return self

    def __exit__(self, art, *_):
        with contextlib.suppress(Exception):
            if art:
                self.foto(f"fehler_{time.strftime('%H%M%S')}_{os.getpid()}")
        self._stapel.close()

    def _aufbauen(self):
        self.ordner = pathlib.Path(tempfile.mkdtemp(prefix="klopfmeise-fenster-"))
        self._stapel.callback(shutil.rmtree, self.ordner, ignore_errors=True)
        (self.ordner / "bild").mkdir(mode=0o700)
        self.umgebung = eigene_umgebung(self.ordner)
        lesen, schreiben = os.pipe()
        self.xvfb = self._starten(
            ["Xvfb", "-displayfd", str(schreiben), "-screen", "0", f"{self.breite}x{self.höhe}x24", "-fbdir",
             str(self.ordner / "bild"), "-nolisten", "tcp", "-noreset", "-ardelay", "200", "-arinterval", "30"],
            pass_fds=[schreiben])
        os.close(schreiben)
        with os.fdopen(lesen) as rohr:
            nummer = rohr.readline().strip()
        prüfe(nummer, "Xvfb hat keinen Bildschirm geöffnet")
        self.umgebung["DISPLAY"] = ":" + nummer
        self._bildspeicher()
        self.befehl("setxkbmap", "de")
        self._starten(["openbox", "--sm-disable"])
        # It says that it is there before it is: a window that comes meanwhile is left lying until the next event. It serves
        # once it has taken an order, to have one desktop instead of four.
        warte(lambda: self.befehl("xdotool", "set_num_desktops", "1", "get_num_desktops").strip() == "1", "openbox läuft")

    def _starten(self, befehl, **weiteres):
        weiteres.setdefault("stdout", subprocess.DEVNULL)
        weiteres.setdefault("stderr", subprocess.DEVNULL)
        try:
            lauf = subprocess.Popen(befehl, env=self.umgebung, cwd=self.ordner, preexec_fn=_mit_eltern_enden, **weiteres)
        except FileNotFoundError as fehler:
            raise Fehlschlag(f"{befehl[0]} fehlt (siehe scripts/pakete.sh)") from fehler
        self._stapel.callback(self._beenden, lauf)
        return lauf

    @staticmethod
    def _beenden(lauf):
        if lauf.poll() is None:
            lauf.kill()
        lauf.wait()

    def befehl(self, *worte, eingabe=None):
        """Runs a small X program to its end; returns what it printed."""
        try:
            fertig = subprocess.run(worte, env=self.umgebung, input=eingabe, text=True, capture_output=True, timeout=60)
        except FileNotFoundError as fehler:
            raise Fehlschlag(f"{worte[0]} fehlt (siehe scripts/pakete.sh)") from fehler
        prüfe(fertig.returncode == 0 or not eingabe, f"{worte[0]} ist misslungen: {fertig.stderr.strip()[:300]}")
        return fertig.stdout

    # What is on the screen. Xvfb keeps its pixels in a file in the format of xwd, which costs nothing to look at.

    def _bildspeicher(self):
        pfad = self.ordner / "bild" / "Xvfb_screen0"
        datei = self._stapel.enter_context(open(pfad, "rb"))
        self._pixel = self._stapel.enter_context(mmap.mmap(datei.fileno(), 0, access=mmap.ACCESS_READ))
        kopf = struct.unpack(">25I", self._pixel[:100])
        prüfe(kopf[11] == 32 and kopf[7] == 0, "unerwartetes Format des Bildspeichers")
        self._anfang = kopf[0] + kopf[19] * 12
        self._zeile = kopf[12]

    def farbe_bei(self, x, y):
        """Colour of a screen pixel as (red, green, blue)."""
        x, y = min(max(int(x), 0), self.breite - 1), min(max(int(y), 0), self.höhe - 1)
        stelle = self._anfang + y * self._zeile + x * 4
        blau, grün, rot = self._pixel[stelle:stelle + 3]
        return rot, grün, blau

    def stelle(self, x, y):
        """Screen pixel of a point in form coordinates (800 by 600)."""
        return self.links + round(x * self.zoom), self.oben + round(y * self.zoom)

    def farbe(self, x, y):
        return self.farbe_bei(*self.stelle(x, y))

    def abdruck(self, x, y, breite, höhe):
        """The pixels of an area in form coordinates, to tell whether it changed."""
        links, oben = self.stelle(x, y)
        rechts, unten = self.stelle(x + breite, y + höhe)
        return b"".join(self._pixel[self._anfang + z * self._zeile + 4 * links:
                                    self._anfang + z * self._zeile + 4 * rechts] for z in range(oben, unten))

    def ruhe(self, x=0, y=0, breite=800, höhe=600, dauer=0.15):
        """Waits until an area has not changed for `dauer` seconds."""
        zuletzt, seit = None, time.monotonic()

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
        prüfe(entwurf.is_file(), f"kein Bild {ziel}")
        entwurf.replace(ziel)

    # What a person does.

    def klick(self, x, y):
        self.klick_bei(*self.stelle(x, y))

    def klick_bei(self, x, y):
        # The pointer comes first, as programs may change what lies under it.
        self.befehl("xdotool", "-", eingabe=f"mousemove {x} {y}\nsleep 0.02\nmousedown 1\nsleep 0.02\nmouseup 1\n")

    def zeiger(self, x, y):
        x, y = self.stelle(x, y)
        self.befehl("xdotool", "mousemove", str(x), str(y))

    @staticmethod
    def anschläge(text, je_sekunde):
        """The lines for xdotool that type `text`, characters made with dead keys included."""
        pause = 0.5 / je_sekunde
        zeilen = []
        for zeichen in "".join(ZUSAMMENGESETZT.get(z, z + " " if TASTATUR.get(z, (0, 0, False))[2] else z) for z in text):
            code, ebene, _ = TASTATUR[zeichen]
            davor = [f"keydown --delay 0 {EBENEN[ebene]}"] if ebene else []
            danach = [f"keyup --delay 0 {EBENEN[ebene]}"] if ebene else []
            zeilen += davor + [f"keydown --delay 0 {code}", f"sleep {pause:.4f}", f"keyup --delay 0 {code}"] + danach
            zeilen += [f"sleep {pause:.4f}"]
        return "\n".join(zeilen) + "\n"

    def tippe(self, text, je_sekunde=8):
        self.befehl("xdotool", "-", eingabe=self.anschläge(text, je_sekunde))

    def tippe_nebenher(self, text, je_sekunde):
        lauf = self._starten(["xdotool", "-"], stdin=subprocess.PIPE, text=True)
        lauf.stdin.write(self.anschläge(text, je_sekunde))
        lauf.stdin.close()
        return lauf

    def hände_weg(self, tipper):
        """Ends a typing on the side; a key that it held would repeat for ever."""
        self._beenden(tipper)
        codes = sorted({code for code, _, _ in TASTATUR.values()} | set(EBENEN.values()))
        self.befehl("xdotool", "-", eingabe="".join(f"keyup --delay 0 {code}\n" for code in codes))

    # The program.

    def start(self, **weiteres):
        ausgabe = open(self.ordner / "ausgabe.txt", "ab")
        with ausgabe:
            lauf = self._starten([str(PROGRAMM)], stdout=ausgabe, stderr=ausgabe, **weiteres)
        self.läufe.append(lauf)
        return lauf

    def ausgabe(self):
        pfad = self.ordner / "ausgabe.txt"
        return pfad.read_text(errors="replace") if pfad.exists() else ""

    def fremdes_fenster(self):
        return self._starten(["xmessage", "-name", "fremd", "-geometry", "160x60+0+0", "Ein anderes Programm"])

    def fenster(self, name):
        """Ids of the shown windows whose title matches."""
        return self.befehl("xdotool", "search", "--onlyvisible", "--name", name).split()


def ausführen(fälle):
    """Runs the cases told on the command line behind program and build folder, all if none is told; ends the process
    with 1 if one failed. `fälle`: name -> function. With "--liste" alone it prints the names."""
    if sys.argv[1:] == ["--liste"]:
        print("\n".join(fälle))
        return
    gewählt = sys.argv[3:] or list(fälle)
    unbekannt = [name for name in gewählt if name not in fälle]
    if unbekannt:
        sys.exit(f"{', '.join(unbekannt)} gibt es nicht; Fälle: {', '.join(fälle)}")
    signal.signal(signal.SIGTERM, lambda *_: sys.exit("abgebrochen"))
    fehler = 0
    for name in gewählt:
        beginn = time.monotonic()
        try:
            fälle[name]()
            print(f"gut     {name} ({time.monotonic() - beginn:.1f} s)", flush=True)
        except Fehlschlag as grund:
            fehler += 1
            print(f"FEHLER  {name}: {grund}", flush=True)
    sys.exit(1 if fehler else 0)
