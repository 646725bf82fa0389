"""A sound server of its own with a sink that nobody hears, and a recording of it in which the program's waves are
found again sample by sample."""

import array
import bisect
import os
import shutil
import subprocess
import sys
import threading
import time

from schirm import BUILD, Fehlschlag, warte

RATE = 44100
SENKE = "klopfmeise_test"
SPIEL = 2  # by how much a recorded sample may differ
LÄNGSTE_STILLE = 60  # samples within a wave that may be silent


def welle(datei):
    proben = array.array("h")
    proben.frombytes((BUILD / "wav" / datei).read_bytes()[44:])
    return proben


class Tonserver:
    """Runs in the environment of a display, `schirm`, and ends with it. What it plays is recorded from its start on:
    a sink that nobody listens to runs ahead by up to 2 s. `verzug`: the delay (ms) that the recorder asks for; None
    if it leaves the sink as it is."""

    def __init__(self, schirm, verzug=5):
        self.schirm, self.verzug = schirm, verzug
        self.starten()

    def starten(self):
        self.lauf = self.schirm._starten(
            ["pulseaudio", "--daemonize=no", "--system=no", "--exit-idle-time=-1", "-n",
             "-L", "module-native-protocol-unix",
             "-L", f"module-null-sink sink_name={SENKE} rate={RATE} channels=1 format=s16le"])
        warte(lambda: SENKE in self.pactl("list", "short", "sinks"), "der Tonserver läuft")
        self.aufnahme = Aufnahme(self.schirm, self.verzug)

    def pactl(self, *worte):
        return self.schirm.befehl("pactl", *worte)

    def ströme(self):
        """The running streams to the sink: those that keep a device awake."""
        return self.pactl("list", "sink-inputs").count("Corked: no")

    def töten(self):
        self.lauf.kill()
        self.lauf.wait()

    def ab_jetzt(self):
        self.aufnahme.ab_jetzt()

    def gehört(self, nachlauf=0.3):
        """The sounds since `ab_jetzt`, after so many more seconds."""
        time.sleep(nachlauf)
        return self.aufnahme.klänge()


class Aufnahme:
    def __init__(self, schirm, verzug):
        self.lauf = schirm._starten(
            ["parec", "-d", SENKE + ".monitor", "--raw", "--format=s16le", f"--rate={RATE}", "--channels=1"] +
            ([f"--latency-msec={verzug}"] if verzug else []), stdout=subprocess.PIPE)
        self.bytes = bytearray()
        self.stücke = []  # (first sample, time of arrival)
        self.anfang = 0
        threading.Thread(target=self._lesen, daemon=True).start()
        warte(lambda: len(self.stücke) > 5, "die Aufnahme läuft")

    def _lesen(self):
        rohr = self.lauf.stdout.fileno()
        while stück := os.read(rohr, 65536):
            self.stücke.append((len(self.bytes) // 2, time.monotonic()))
            self.bytes += stück

    def ab_jetzt(self):
        self.anfang = len(self.bytes) // 2

    def zeit(self, probe):
        """When a sample was heard (time.monotonic)."""
        anfang, ankunft = self.stücke[bisect.bisect_right(self.stücke, (probe, float("inf"))) - 1]
        return ankunft + (probe - anfang) / RATE

    def klänge(self):
        """The sounds in order. What is no wave of the program fails."""
        self.proben = array.array("h")
        self.proben.frombytes(bytes(self.bytes[:len(self.bytes) // 2 * 2]))
        wellen = {datei.name: welle(datei.name) for datei in (BUILD / "wav").glob("*.wav")}
        gefunden = []
        stelle = self.anfang
        while (stelle := self._laut_ab(stelle)) is not None:
            klang = self._klang_bei(stelle, wellen)
            if not klang:
                raise Fehlschlag(f"nach {(stelle - self.anfang) / RATE:.3f} s ist etwas anderes als einer der Klänge "
                                 f"zu hören; davor: {gefunden[-2:]}")
            gefunden.append(klang)
            stelle = klang.bis
        return gefunden

    def _laut_ab(self, stelle):
        while stelle < len(self.proben):
            # Whole stretches of silence at once, as most of it is.
            ende = min(stelle + 4096, len(self.proben))
            if not any(self.proben[stelle:ende]):
                stelle = ende
                continue
            while stelle < ende:
                if abs(self.proben[stelle]) > SPIEL:
                    return stelle
                stelle += 1
        return None

    def _klang_bei(self, stelle, wellen):
        bester = None
        for datei, proben in wellen.items():
            # A wave begins softly, and where it cuts another the first difference may come late.
            for vor in range(LÄNGSTE_STILLE):
                anfang = stelle - vor
                if anfang < 0:
                    break
                länge = self._gleich(anfang, proben)
                if länge > vor + 100 and (not bester or länge > bester.bis - bester.von):
                    bester = Klang(datei, anfang, anfang + länge, len(proben), self)
        return bester

    def _gleich(self, anfang, proben):
        """How many samples of a wave are heard from there on."""
        länge = 0
        ende = min(len(proben), len(self.proben) - anfang)
        while länge < ende and abs(self.proben[anfang + länge] - proben[länge]) <= SPIEL:
            länge += 1
        return länge


class Klang:
    def __init__(self, datei, von, bis, länge, aufnahme):
        self.datei, self.von, self.bis = datei, von, bis
        self.dauer = 1000 * (bis - von) / RATE  # ms
        self.ganz = 1000 * (von + länge - bis) / RATE <= 10
        self.beginn, self.ende = aufnahme.zeit(von), aufnahme.zeit(max(von, bis - 1))

    def __repr__(self):
        return f"{self.datei} {self.dauer:.0f} ms{'' if self.ganz else ' (abgeschnitten)'}"


def oder_überspringen():
    """Ends the process with 77 where there is no sound server to be started."""
    fehlt = [name for name in ("pulseaudio", "pactl", "parec") if not shutil.which(name)]
    if fehlt:
        print(f"übersprungen: {', '.join(fehlt)} fehlt (siehe scripts/pakete.sh)")
        sys.exit(77)
