"""langer_tag.py BUILD: a school day at one machine, on a clock that need not be waited for; with --echt half an hour of typing in
the real window instead."""

import pathlib
import statistics
import subprocess
import sys
import time

sys.dont_write_bytecode = True
from schule import Probe, Schule, maschinenwerte

ANFANG = 300  # seconds until all is in memory that will be
ZEILE = "fff jjj fff jjj fj fj fj jf jf jf f j"
TAKT = 200  # milliseconds from one change of the mark to the next


def tag(probe):
    daten = probe.ordner / "daten"
    Schule(daten, {"Tag": [f"Kind {i}" for i in range(1, 31)]}, None if probe.wahl.kurz else probe.kurs)
    befehl = [probe.programme / "langer_tag", daten, maschinenwerte(probe.ordner / "maschine.reg", daten), probe.wahl.stunden]
    lauf = subprocess.run([*map(str, befehl)], capture_output=True, text=True)
    probe.melden(lauf.returncode == 0, lauf.stdout + lauf.stderr)


def echt(probe):
    """Lines with an error in each, so that the stage goes on for ever; each minute a look at the process and at the blinking."""
    import schirm as anzeige
    from klopfmeise import Klopfmeise, _zellenmitte
    anzeige.PROGRAMM, anzeige.BUILD = probe.programme / "fenster" / "klopfmeise", probe.wahl.build
    with anzeige.Schirm(800, 600) as schirm:
        schule = Schule(schirm.ordner / "Daten", {"Tag": ("Jonas", "Mia")})
        schule.lektion([ZEILE, "ff"])
        k = Klopfmeise(schirm, schule)
        k.zur_stufe()
        prozess = pathlib.Path(f"/proc/{k.lauf.pid}")

        def stand():
            rss = int(next(z for z in (prozess / "status").read_text().splitlines() if z.startswith("VmRSS")).split()[1])
            return rss, len(list((prozess / "fd").iterdir()))

        def takte(sekunden):
            """Milliseconds between the changes of the mark of the first column."""
            ende, zuletzt, farbe, gesehen = time.monotonic() + sekunden, None, None, []
            while time.monotonic() < ende:
                jetzt = schirm.farbe(_zellenmitte(1), 481)
                if farbe is not None and jetzt != farbe:
                    if zuletzt:
                        gesehen.append((time.monotonic() - zuletzt) * 1000)
                    zuletzt = time.monotonic()
                farbe = jetzt
                time.sleep(0.001)
            return gesehen

        beginn, nächste, anfangs, anschläge, abstände = time.monotonic(), 0, None, 0, []
        while time.monotonic() - beginn < probe.wahl.minuten * 60:
            schirm.tippe(ZEILE[:9] + "x" + ZEILE[9:] + "\n", 7)
            anschläge += len(ZEILE) + 2
            k.warte_position(1)
            vergangen = time.monotonic() - beginn
            if vergangen >= nächste:
                nächste += 60
                abstände += takte(4)
                if anfangs is None and vergangen >= min(ANFANG, probe.wahl.minuten * 30):
                    anfangs = stand()
        ende = stand()
        last = pathlib.Path("/proc/loadavg").read_text().split()[1]
        probe.melden(ende[0] - anfangs[0] < 1024 and ende[1] == anfangs[1] and min(abstände) > TAKT * 0.9,
                     f"{probe.wahl.minuten:g} Minuten im Fenster, {anschläge} Anschläge: {anfangs[0]} KiB nach fünf Minuten, am Ende "
                     f"{ende[0] - anfangs[0]:+} KiB, offene Dateien {anfangs[1]} und {ende[1]}; Takt {TAKT} ms: {len(abstände)} gemessen, "
                     f"Median {statistics.median(abstände):.1f}, größter {max(abstände):.1f} ms bei einer Last von {last}")


def main():
    probe = Probe(__doc__, stunden=8.0, minuten=30.0, echt=0)
    (echt if probe.wahl.echt else tag)(probe)
    probe.ende()


if __name__ == "__main__":
    main()
