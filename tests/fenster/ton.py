"""A sound server of its own with a sink that nobody hears, and a recording of it in which the program's waves are
found again sample by sample."""

import array
import bisect
import os
import subprocess
import threading
import time

from schirm import BUILD, prüfe, warte

RATE = 44100
SENKE = "klopfmeise_test"
SPIEL = 2  # by how much a recorded sample may differ
LÄNGSTE_STILLE = 60  # samples within a wave that may be silent


def proben(bytes_):
    return array.array("h", bytes(bytes_[:len(bytes_) // 2 * 2]))


class Tonserver:
    """Runs in the environment of a display, `schirm`, and ends with it. What it plays is recorded from its start on:
    a sink that nobody listens to runs ahead by up to 2 s. `verzug`: the delay (ms) that the recorder asks for; None
    if it leaves the sink as it is."""

    def __init__(self, schirm, verzug=5):
        self.schirm, self.verzug = schirm, verzug
        self.starten()

    def starten(self):
        self.lauf = self.schirm.starten(
            ["pulseaudio", "--daemonize=no", "--system=no", "--exit-idle-time=-1", "-n",
             "-L", "module-native-protocol-unix",
             "-L", f"module-null-sink sink_name={SENKE} rate={RATE} channels=1 format=s16le"])
        warte(lambda: SENKE in self.pactl("list", "short", "sinks"), "der Tonserver läuft")
        self.aufnahme = Aufnahme(self.schirm, self.verzug)

    def pactl(self, *worte):
        return self.schirm.befehl("pactl", *worte)

    def ströme(self):
        """How many streams to the sink run, which keeps a device awake, and how many are stopped."""
        liste = self.pactl("list", "sink-inputs")
        return liste.count("Corked: no"), liste.count("Corked: yes")

    def ab_jetzt(self):
        self.aufnahme.ab_jetzt()

    def gehört(self, nachlauf=0.3):
        """The sounds since `ab_jetzt`, after so many more seconds."""
        time.sleep(nachlauf)
        return self.aufnahme.klänge()


class Aufnahme:
    def __init__(self, schirm, verzug):
        self.lauf = schirm.starten(
            ["parec", "-d", SENKE + ".monitor", "--raw", "--format=s16le", f"--rate={RATE}", "--channels=1"] +
            ([f"--latency-msec={verzug}"] if verzug else []), stdout=subprocess.PIPE)
        self.bytes = bytearray()
        self.stücke = []  # (first sample, time of arrival)
        self.anfang = 0
        threading.Thread(target=self._lesen, daemon=True).start()
        warte(lambda: len(self.stücke) > 5, "die Aufnahme läuft")

    def _lesen(self):
        while stück := os.read(self.lauf.stdout.fileno(), 65536):
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
        self.proben = proben(self.bytes)
        wellen = {datei.name: proben(datei.read_bytes()[44:]) for datei in (BUILD / "wav").glob("*.wav")}
        gefunden = []
        stelle = self.anfang
        while (stelle := self._erste(stelle, len(self.proben), lambda i: abs(self.proben[i]) > SPIEL)) < len(self.proben):
            # A wave begins softly, and where it cuts another the first difference may come late.
            passende = [Klang(datei, stelle - vor, länge, len(welle), self) for datei, welle in wellen.items()
                        for vor in range(min(LÄNGSTE_STILLE, stelle))
                        if (länge := self._gleich(stelle - vor, welle)) > vor + 100]
            prüfe(passende, f"nach {(stelle - self.anfang) / RATE:.3f} s ist etwas anderes als einer der Klänge zu hören; "
                            f"davor: {gefunden[-2:]}")
            gefunden.append(max(passende, key=lambda klang: klang.bis - klang.von))
            stelle = gefunden[-1].bis
        return gefunden

    @staticmethod
    def _erste(von, bis, bedingung):
        return next(filter(bedingung, range(von, bis)), bis)

    def _gleich(self, anfang, welle):
        """How many samples of a wave are heard from there on."""
        return self._erste(0, min(len(welle), len(self.proben) - anfang),
                           lambda i: abs(self.proben[anfang + i] - welle[i]) > SPIEL)


class Klang:
    def __init__(self, datei, von, länge, ganze_länge, aufnahme):
        self.datei, self.von, self.bis = datei, von, von + länge
        self.dauer = 1000 * länge / RATE  # ms
        self.ganz = 1000 * (ganze_länge - länge) / RATE <= 10
        self.beginn, self.ende = aufnahme.zeit(von), aufnahme.zeit(self.bis - 1)

    def __repr__(self):
        return f"{self.datei} {self.dauer:.0f} ms{'' if self.ganz else ' (abgeschnitten)'}"
