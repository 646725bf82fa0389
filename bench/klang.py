#!/usr/bin/env python3
"""How long after a key its sound is heard, and what sound costs: klang.py BUILD [--tasten 60]. See README.md."""

import argparse
import ctypes
import pathlib
import random
import re
import statistics
import subprocess
import sys
import time

sys.dont_write_bytecode = True
argumente = argparse.ArgumentParser()
argumente.add_argument("build", type=pathlib.Path)
argumente.add_argument("--tasten", type=int, default=60)
ARGUMENTE = argumente.parse_args()
BUILD = ARGUMENTE.build.resolve()
# What the modules of the window tests want to be told.
sys.argv[1:] = [str(BUILD / "fenster" / "klopfmeise"), str(BUILD)]
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tests" / "fenster"))
from ablage import DURCHGÄNGE, Ablage, ganz
from klopfmeise import KLASSE_1, ZURÜCK, Klopfmeise
from schirm import TASTATUR, Schirm
from ton import Tonserver

KNOPF = "knopf.wav"
STOPP, SCHLUSS = 5, 60  # s of rest after which the stream is stopped, closed
ZEILE = "das kind tippt hier ohne hast und hoert jede taste so"


class Tasten:
    """Presses keys and tells when."""

    def __init__(self, schirm):
        self.x, self.xtst = ctypes.CDLL("libX11.so.6"), ctypes.CDLL("libXtst.so.6")
        self.x.XOpenDisplay.restype = ctypes.c_void_p
        self.anzeige = ctypes.c_void_p(self.x.XOpenDisplay(schirm.umgebung["DISPLAY"].encode()))

    def drücke(self, zeichen):
        code = TASTATUR[zeichen][0]
        wann = time.monotonic()
        self.xtst.XTestFakeKeyEvent(self.anzeige, code, 1, 0)
        self.x.XFlush(self.anzeige)
        time.sleep(0.03)
        self.xtst.XTestFakeKeyEvent(self.anzeige, code, 0, 0)
        self.x.XFlush(self.anzeige)
        return wann


class Boden:
    def __init__(self, schirm):
        self.lauf = schirm.starten([str(BUILD / "bench" / "klang_boden"), str(BUILD / "wav" / KNOPF)],
                                    stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.lauf.stdout.read(1)

    def drücke(self, _):
        wann = time.monotonic()
        self.lauf.stdin.write(b"x")
        self.lauf.stdin.flush()
        return wann


def verzüge(server, auslöser, text, pause):
    """ms from each order to the first sample heard; None for one that was not."""
    server.ab_jetzt()
    aufträge = []
    for zeichen in text:
        aufträge.append(auslöser.drücke(zeichen))
        # Not in step with the server's blocks.
        time.sleep(pause + random.uniform(0, 0.05))
    klänge = [klang for klang in server.gehört(0.5) if klang.datei == KNOPF and klang.ganz]
    ergebnis = []
    for auftrag in aufträge:
        danach = [klang.beginn - auftrag for klang in klänge if 0 <= klang.beginn - auftrag < pause]
        ergebnis.append(1000 * danach[0] if danach else None)
    return ergebnis


def cpu(pid):
    """CPU seconds so far of all threads."""
    return time.clock_gettime((~pid << 3) | 2)


def anteile(dauer, **pids):
    """% of a core that each process takes meanwhile."""
    vorher = {name: cpu(pid) for name, pid in pids.items()}
    time.sleep(dauer)
    return {name: 100 * (cpu(pid) - vorher[name]) / dauer for name, pid in pids.items()}


def pss(pid):
    return int(re.search(r"^Pss:\s+(\d+)", pathlib.Path(f"/proc/{pid}/smaps_rollup").read_text(), re.M)[1]) / 1024


def bibliotheken(pid):
    return len(set(re.findall(r"\S+\.so\S*$", pathlib.Path(f"/proc/{pid}/maps").read_text(), re.M)))


def zeile(name, werte):
    da = sorted(w for w in werte if w is not None)
    if not da:
        print(f"{name:42} nichts gehört")
        return
    print(f"{name:42} gehört {len(da)}/{len(werte)}  Median {statistics.median(da):5.1f}  p95 "
          f"{da[int(0.95 * (len(da) - 1))]:5.1f}  größter {da[-1]:5.1f} ms", flush=True)


def ruhe(name, werte):
    print(f"{name:42} " + "  ".join(f"{k} {v:.2f} %" for k, v in werte.items()), flush=True)


def wiegen(k):
    return pss(k.lauf.pid), bibliotheken(k.lauf.pid)


def in_der_stufe(schirm):
    ablage = Ablage(schirm.ordner / "Daten")
    ablage.lektion([ZEILE, "zweite zeile"])
    ablage.satz_setzen(DURCHGÄNGE, ganz(1))
    k = Klopfmeise(schirm, ablage)
    schirm.ruhe()
    vorher = wiegen(k)
    k.geh(KLASSE_1, "Namensliste")
    k.geh(ZURÜCK, "Klassenliste")
    time.sleep(1)
    nachher = wiegen(k)
    print(f"{'PSS, Bibliotheken auf der Titelseite':42} {vorher[0]:.1f} MiB, {vorher[1]}; nach den ersten Klicks "
          f"{nachher[0]:.1f} MiB, {nachher[1]}")
    k.zur_stufe()
    return k


def ohne_server():
    with Schirm(800, 600) as schirm:
        k = in_der_stufe(schirm)
        tasten = Tasten(schirm)
        for zeichen in ZEILE[:5]:
            tasten.drücke(zeichen)
            time.sleep(0.3)
        time.sleep(STOPP + 2)
        ruhe("10 s Ruhe ohne Tonserver", anteile(10, Programm=k.lauf.pid))


def mit_server():
    with Schirm(800, 600) as schirm:
        server = Tonserver(schirm)
        boden = Boden(schirm)
        time.sleep(1)
        hälfte = ARGUMENTE.tasten // 2
        gemessen = verzüge(server, boden, "x" * hälfte, 0.35)
        k = in_der_stufe(schirm)
        tasten = Tasten(schirm)
        # Right or wrong, each key clicks.
        mit_tasten = verzüge(server, tasten, (ZEILE * 3)[:ARGUMENTE.tasten], 0.35)
        gemessen += verzüge(server, boden, "x" * (ARGUMENTE.tasten - hälfte), 0.35)
        boden.lauf.kill()
        zeile("nackter Spieler", gemessen)
        zeile("Taste", mit_tasten)
        gestoppt = []
        for _ in range(5):
            time.sleep(STOPP + 1)
            gestoppt += verzüge(server, tasten, "d", 0.4)
        zeile("Taste bei gestopptem Strom", gestoppt)
        # Without a recorder the sink is in nobody's hurry but the stream's.
        server.aufnahme.lauf.kill()
        tasten.drücke("d")
        time.sleep(1)
        ruhe("3,5 s Stille bei laufendem Strom", anteile(3.5, Programm=k.lauf.pid, Server=server.lauf.pid))
        time.sleep(3)
        ruhe("10 s Ruhe, Strom gestoppt", anteile(10, Programm=k.lauf.pid, Server=server.lauf.pid))
        time.sleep(SCHLUSS - 10)
        ruhe("10 s Ruhe, Strom geschlossen", anteile(10, Programm=k.lauf.pid, Server=server.lauf.pid))


if __name__ == "__main__":
    mit_server()
    ohne_server()
