#!/usr/bin/env python3
"""Measures the built program from outside, beside TIPP10 and an empty window, in one run on one display.

    aussen.py BUILD [--starts 9] [--runden 3] [--ohne-tipp10]     see README.md
"""

import argparse
import contextlib
import glob
import json
import os
import pathlib
import shutil
import signal
import statistics
import struct
import subprocess
import sys
import tempfile
import time

BREITE, HÖHE, ZOOM = 1280, 1024, 1.6
TASTEN, JE_SEKUNDE = 64, 20
LEERE_FARBE = "336699"


def mitte(x, y):
    """The screen pixel of a point in form coordinates (800 by 600)."""
    return str((BREITE - round(800 * ZOOM)) // 2 + round(x * ZOOM)), str((HÖHE - round(600 * ZOOM)) // 2 + round(y * ZOOM))


# What a process costs.

def baum(pid):
    """pid and all its descendants."""
    kinder = {}
    for stat in glob.glob("/proc/[0-9]*/stat"):
        with contextlib.suppress(OSError), open(stat) as f:
            kopf, rest = f.read().rsplit(")", 1)
            kinder.setdefault(int(rest.split()[1]), []).append(int(kopf.split()[0]))
    alle = [pid]
    for p in alle:
        alle += kinder.get(p, [])
    return alle


def cpu(pid):
    """CPU seconds used so far by the tree, ended children included."""
    summe = 0.0
    for p in baum(pid):
        with contextlib.suppress(OSError):
            summe += time.clock_gettime((~p << 3) | 2)  # the process's CPU clock, in steps of 1 ns
            with open(f"/proc/{p}/stat") as f:
                felder = f.read().rsplit(")", 1)[1].split()
            summe += (int(felder[13]) + int(felder[14])) / os.sysconf("SC_CLK_TCK")
    return summe


def speicher(pid):
    """MiB of the tree by kind: Pss as a whole, and its parts."""
    summen = dict.fromkeys(("Pss", "Pss_Anon", "Pss_File", "Pss_Shmem"), 0)
    for p in baum(pid):
        with contextlib.suppress(OSError), open(f"/proc/{p}/smaps_rollup") as f:
            for zeile in f:
                name = zeile.split()[0].rstrip(":")
                if name in summen:
                    summen[name] += int(zeile.split()[1]) / 1024
    return summen


# The display that all is measured on.

class Schirm:
    """Xvfb, window manager, German keys, an empty home; a context manager that ends all it started."""

    def __enter__(self):
        self.stapel = contextlib.ExitStack()
        try:
            self._aufbauen()
        except BaseException:
            self.stapel.close()
            raise
        return self

    def __exit__(self, *_):
        self.stapel.close()

    def _aufbauen(self):
        self.ordner = pathlib.Path(tempfile.mkdtemp(prefix="klopfmeise-messen-"))
        self.stapel.callback(shutil.rmtree, self.ordner, ignore_errors=True)
        for name in ("heim", "lauf", "bilder"):
            (self.ordner / name).mkdir(mode=0o700)
        self.umgebung = {k: v for k, v in os.environ.items()
                         if not k.startswith(("XDG_", "DBUS_", "WAYLAND", "QT_", "GTK_"))}
        self.umgebung.update(HOME=str(self.ordner / "heim"), XDG_RUNTIME_DIR=str(self.ordner / "lauf"),
                             LANG="de_DE.UTF-8", LANGUAGE="de")
        protokoll = self.stapel.enter_context(open(self.ordner / "ausgabe", "w"))
        self.still = {"stdout": protokoll, "stderr": protokoll}
        lesen, schreiben = os.pipe()
        self._starten(["Xvfb", "-displayfd", str(schreiben), "-screen", "0", f"{BREITE}x{HÖHE}x24", "-nolisten", "tcp",
                       "-noreset"], pass_fds=[schreiben], **self.still)
        os.close(schreiben)
        with os.fdopen(lesen) as rohr:
            self.umgebung["DISPLAY"] = ":" + rohr.readline().strip()
        self.befehl("setxkbmap", "de")
        self._starten(["openbox"], **self.still)
        bus = self._starten(["dbus-daemon", "--session", "--nofork", "--print-address=1"], text=True,
                            stdout=subprocess.PIPE, stderr=protokoll)
        self.umgebung["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
        time.sleep(1)
        self.weg_mit_dem_zeiger()

    def _starten(self, befehl, **weiteres):
        lauf = subprocess.Popen(befehl, env=self.umgebung, **weiteres)
        self.stapel.callback(beenden, lauf)
        return lauf

    def befehl(self, *worte):
        return subprocess.run(worte, env=self.umgebung, text=True, check=True, stdout=subprocess.PIPE).stdout

    def klick(self, x, y, pause=1.0):
        self.befehl("xdotool", "mousemove", x, y, "sleep", "0.05", "click", "1")
        time.sleep(pause)

    def weg_mit_dem_zeiger(self):
        self.befehl("xdotool", "mousemove", str(BREITE - 1), str(HÖHE - 1))
        time.sleep(0.5)

    def foto(self, ziel):
        self.befehl("import", "-window", "root", str(ziel))


def fremde_qt(lauf):
    """True while other programs on the machine share the toolkit's pages, which makes the PSS look small."""
    eigene = set(baum(lauf.pid))
    for maps in glob.glob("/proc/[0-9]*/maps"):
        with contextlib.suppress(OSError):
            if int(maps.split("/")[2]) not in eigene and "libQt6Core" in pathlib.Path(maps).read_text():
                return True
    return False


def beenden(lauf):
    for p in reversed(baum(lauf.pid)):
        with contextlib.suppress(OSError):
            os.kill(p, signal.SIGTERM)
    try:
        lauf.wait(5)
    except subprocess.TimeoutExpired:
        lauf.kill()
        lauf.wait()


# The programs.

class LeeresFenster:
    def __init__(self, build, name="leeres Fenster", **umgebung):
        self.name, self.befehl, self.umgebung = name, [str(build / "messen" / "leeres_fenster")], umgebung
        self.breite, self.farbe = BREITE, [LEERE_FARBE]


class Tipp10:
    """Its own lesson with a fixed text; German keys and lessons. Places are those of its window."""

    name, befehl, umgebung, breite, farbe = "TIPP10", ["tipp10"], {}, 1, []
    text = "Dies ist ein Beispiel für ein Satzdiktat.\nJede Zeile wird, wie e"
    einstellungen = ("[main]\ncheck_illustration=false\nlanguage_gui=de\nlanguage_layout=de_qwertz_win\n"
                     "language_lesson=de_de_qwertz\n")

    def vorbereiten(self, schirm):
        ordner = schirm.ordner / "heim" / ".config" / "TIPP10"
        ordner.mkdir(parents=True, exist_ok=True)
        (ordner / "TIPP10.conf").write_text(self.einstellungen)

    def zur_übung(self, schirm):
        """Returns the part of the screen to watch: text strip and keyboard, not the clock below."""
        fenster = schirm.befehl("xdotool", "getactivewindow").strip()
        for x, y, pause in (("214", "41", 1), ("696", "498", 2)):  # tab of own lessons; start
            schirm.befehl("xdotool", "mousemove", "--window", fenster, x, y, "click", "1")
            time.sleep(pause)
        schirm.weg_mit_dem_zeiger()
        schirm.befehl("xdotool", "key", "space")
        time.sleep(2)
        info = schirm.befehl("xwininfo", "-id", schirm.befehl("xdotool", "getactivewindow").strip())
        x, y = (int(z.split()[-1]) for z in info.splitlines() if "Absolute upper-left" in z)
        return f"{x + 75},{y + 65},605,290"

    def genauigkeit(self):
        return None


class Klopfmeise:
    """The course's first stage, a line. Places are in form coordinates."""

    name, umgebung, breite, farbe = "Klopfmeise", {}, BREITE, []
    wege = ((300, 224), (300, 243), (239, 289), (396, 462))  # class, child Mia, course, START

    def __init__(self, build):
        self.build = build
        self.befehl = [str(build / "messen" / "klopfmeise")]

    def vorbereiten(self, schirm):
        self.daten = schirm.ordner / "Klopfmeise"
        shutil.rmtree(self.daten, ignore_errors=True)
        shutil.copytree(self.build / "Klopfmeise", self.daten)
        skript = pathlib.Path(__file__).resolve().parent.parent / "scripts" / "maschinenwerte.sh"
        subprocess.run([str(skript), str(self.build / "messen" / "maschine.reg"), f"{self.daten}/"], check=True)
        zeilen = (self.daten / "Data/Tastatur/Lektion1.txt").read_bytes().decode("cp1252").splitlines()
        zeile = zeilen[zeilen.index("Unterstufe1") + 2] + "\n"
        self.text = (zeile * TASTEN)[:TASTEN]

    def zur_übung(self, schirm):
        """Returns the part of the screen to watch: all down to the lower row of cells."""
        for ort in self.wege:
            schirm.klick(*mitte(*ort))
        schirm.weg_mit_dem_zeiger()
        x, y = mitte(0, 0)
        return f"{x},{y},{BREITE},{round(478 * ZOOM)}"

    def genauigkeit(self):
        """What the account counted, in percent: 100 only if every key arrived, once and in order."""
        with open(self.daten / "Gruppen" / "Hasengruppe" / "Mia._", "rb") as f:
            f.seek(35 * 128)
            marke, wert = struct.unpack("<hd", f.read(10))
        return wert if marke == 5 else None


# What is measured.

class Messung:
    def __init__(self, schirm, build):
        self.schirm, self.probe = schirm, str(build / "messen" / "xprobe")

    def start(self, programm):
        """Starts the program; returns it and its figures once its window stands still."""
        umgebung = {**self.schirm.umgebung, **programm.umgebung}
        bild = str(self.schirm.ordner / "start.raw")
        wache = subprocess.Popen([self.probe, "paint", bild, str(programm.breite), *programm.farbe],
                                 env=self.schirm.umgebung, stdout=subprocess.PIPE, text=True)
        json.loads(wache.stdout.readline())
        beginn = time.monotonic()
        lauf = subprocess.Popen(programm.befehl, env=umgebung, cwd=self.schirm.ordner / "heim", **self.schirm.still)
        gemalt = json.loads(wache.stdout.readline())["painted"]
        verbraucht = cpu(lauf.pid)
        still = json.loads(wache.stdout.readline())["still"]
        wache.wait()
        return lauf, {"start_ms": (gemalt - beginn) * 1e3, "still_ms": (still - beginn) * 1e3,
                      "start_cpu_ms": verbraucht * 1e3}

    def ruhe(self, lauf, sekunden=10.0):
        time.sleep(2)
        beginn, vorher = time.monotonic(), cpu(lauf.pid)
        time.sleep(sekunden)
        prozent = 100 * (cpu(lauf.pid) - vorher) / (time.monotonic() - beginn)
        for _ in range(600):
            if not fremde_qt(lauf):
                break
            time.sleep(0.1)
        return {"ruhe_prozent": prozent, "geteilt": fremde_qt(lauf), **speicher(lauf.pid)}

    def tasten(self, programm, bereich, abstand):
        bilder = self.schirm.ordner / "bilder" / programm.name
        bilder.mkdir(exist_ok=True)
        return json.loads(self.schirm.befehl(self.probe, "keys", str(abstand), bereich, programm.text, str(bilder)))

    def runde(self, programm, langsam, fotos):
        """A fresh start up to the exercise, rest, then all keys: slowly, or at speed."""
        programm.vorbereiten(self.schirm)
        lauf, _ = self.start(programm)
        try:
            bereich = programm.zur_übung(self.schirm)
            werte = self.ruhe(lauf)
            self.schirm.foto(fotos / f"{programm.name}_übung.png")
            werte |= self.tasten(programm, bereich, 0 if langsam else 1000 / JE_SEKUNDE)
            self.schirm.foto(fotos / f"{programm.name}_{'langsam' if langsam else 'schnell'}.png")
            return werte | {"genauigkeit": programm.genauigkeit()}
        finally:
            beenden(lauf)


def spanne(werte, stellen=1):
    return f"{statistics.median(werte):.{stellen}f} ({min(werte):.{stellen}f}–{max(werte):.{stellen}f})"


def verloren(runde):
    """Keys short of the picture that a fast run ended on; "?" where no picture fits well."""
    if runde["match_diff"] >= runde["next_diff"] / 4:
        return "?"
    return str(runde["keys"] - runde["match"])


def p95(werte):
    return sorted(werte)[round(0.95 * (len(werte) - 1))]


def bericht(ergebnis):
    print("\n| | Start bis gemalt ms | CPU bis dahin ms | PSS MiB | davon eigen / Dateien / geteilt | Ruhe % eines Kerns "
          "| Taste ms: Median / p95 | verloren von 64 |\n" + "|---" * 8 + "|")
    for name, e in ergebnis.items():
        zeile = [name, spanne([s["start_ms"] for s in e["starts"]], 0),
                 spanne([s["start_cpu_ms"] for s in e["starts"]], 0)]
        runden = e["runden"]
        if runden:
            median = {k: statistics.median([r[k] for r in runden]) for k in ("Pss_Anon", "Pss_File", "Pss_Shmem")}
            langsam = [x for x in runden[0]["latency_ms"] if x >= 0]
            if not langsam:
                sys.exit(f"{name} nahm keine Taste an: siehe messen/bilder")
            zeile += [spanne([r["Pss"] for r in runden]), " / ".join(f"{v:.1f}" for v in median.values()),
                      spanne([r["ruhe_prozent"] for r in runden], 2),
                      f"{statistics.median(langsam):.1f} / {p95(langsam):.1f} (n={len(langsam)})",
                      " / ".join(verloren(r) for r in runden[1:])]
        else:
            zeile += [f"{e['pss']:.1f}", "–", "–", "–", "–"]
        print("| " + " | ".join(zeile) + " |")
    if any(r["geteilt"] for e in ergebnis.values() for r in e["runden"]):
        print("PSS: ein anderes Programm nutzte dieselben Bibliotheken; die Werte sind zu klein.")
    start = {n: statistics.median([s["start_ms"] for s in e["starts"]]) for n, e in ergebnis.items()}
    for name in start:
        if name != "Klopfmeise":
            print(f"Start: Klopfmeise / {name} = {start['Klopfmeise'] / start[name]:.2f}")
    if all(r.get("genauigkeit") is not None for r in ergebnis["Klopfmeise"]["runden"]):
        print("Genauigkeit im Konto nach jeder Runde:",
              ", ".join(f"{r['genauigkeit']:.2f}" for r in ergebnis["Klopfmeise"]["runden"]))


def main():
    p = argparse.ArgumentParser(usage=__doc__)
    p.add_argument("build", type=pathlib.Path)
    p.add_argument("--starts", type=int, default=9)
    p.add_argument("--runden", type=int, default=3, help="fast rounds")
    p.add_argument("--ohne-tipp10", action="store_true")
    a = p.parse_args()
    signal.signal(signal.SIGTERM, lambda *_: sys.exit("abgebrochen"))
    build = a.build.resolve()
    fotos = build / "messen" / "bilder"
    fotos.mkdir(exist_ok=True)
    # The second empty window goes without the libraries of OpenGL, as the program does.
    programme = [Klopfmeise(build), LeeresFenster(build),
                 LeeresFenster(build, "leeres Fenster ohne OpenGL", QT_XCB_GL_INTEGRATION="none")]
    if not a.ohne_tipp10 and shutil.which("tipp10"):
        programme.insert(1, Tipp10())
    übende = [x for x in programme if not isinstance(x, LeeresFenster)]
    ergebnis = {x.name: {"starts": [], "runden": []} for x in programme}
    with Schirm() as schirm:
        m = Messung(schirm, build)
        for x in programme:
            # The first start makes what the program keeps in its home, and warms the disk.
            if isinstance(x, Klopfmeise):
                x.vorbereiten(schirm)
            lauf, _ = m.start(x)
            if isinstance(x, Tipp10):
                beenden(lauf)
                x.vorbereiten(schirm)
                lauf, _ = m.start(x)
            time.sleep(2)
            ergebnis[x.name]["pss"] = speicher(lauf.pid)["Pss"]
            schirm.foto(fotos / f"{x.name}_start.png")
            beenden(lauf)
        for _ in range(a.starts):
            for x in programme:
                time.sleep(0.5)
                lauf, werte = m.start(x)
                beenden(lauf)
                ergebnis[x.name]["starts"].append(werte)
        print({n: [round(s["start_ms"]) for s in e["starts"]] for n, e in ergebnis.items()}, flush=True)
        for i in range(a.runden + 1):
            for x in übende:
                werte = m.runde(x, i == 0, fotos)
                ergebnis[x.name]["runden"].append(werte)
                print(x.name, {k: v for k, v in werte.items() if k != "latency_ms"}, flush=True)
    (build / "messen" / "aussen.json").write_text(json.dumps(ergebnis))
    bericht(ergebnis)


if __name__ == "__main__":
    main()
