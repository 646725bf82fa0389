#!/usr/bin/env python3
"""What the three games cost, beside a stage in the same run: spiele.py BUILD [--ruhe 3] [--tasten 5]. See README.md."""

import argparse
import json
import os
import pathlib
import statistics
import sys
import time

sys.dont_write_bytecode = True
from aussen import ZOOM, Klopfmeise, Messung, Schirm, beenden, cpu, mitte, p95, spanne

RUHE, MALEN = 10, 5  # s


def bereich(links, oben, breite, höhe):
    """A part of the form as xprobe wants it."""
    x, y = mitte(links, oben)
    return f"{x},{y},{round(breite * ZOOM)},{round(höhe * ZOOM)}"


class Stufe(Klopfmeise):
    """The course's first stage; no game, but what the games are measured by."""

    name, tempo, vorlauf = "Stufe", None, 0
    wege = (*Klopfmeise.wege[:3], (396, 462))

    def vorbereiten(self, schirm):
        super().vorbereiten(schirm)
        if not self.tempo:
            self.tasten, self.sicht = self.text[:24], bereich(0, 0, 800, 478)
            return
        zeilen = ["1", "Einzeiler", "Probe", "Unterstufe1", "Titel", self.tempo, "Hinweis"]
        (self.daten / "Data/Tastatur/Lektion1.txt").write_bytes("".join(z + "\r\n" for z in zeilen).encode("cp1252"))

    def beginnen(self, schirm):
        for ort in self.wege:
            schirm.klick(*mitte(*ort))
        schirm.weg_mit_dem_zeiger()
        time.sleep(self.vorlauf)


class Spiel(Stufe):
    """`text` is all that the stage has; `tasten` are typed once the first figure is to be seen, in `sicht`."""

    def __init__(self, build, name, knopf, start, text, tasten, sicht, vorlauf=0):
        super().__init__(build)
        self.name, self.tempo, self.tasten, self.vorlauf = name, text, tasten, vorlauf
        self.wege = (*Klopfmeise.wege[:2], knopf, start)
        self.sicht = bereich(*sicht)


def programme(build):
    """Letters to and fro, so that no game comes to its end. On the belt four right ones and then wrong ones,
    each of which throws the group on by a stone; the fifth right one would let it run back."""
    return [
        Stufe(build),
        Spiel(build, "Tastatur3", (393, 289), (400, 348), "fj fj", "fj" * 12, (0, 455, 800, 70)),
        Spiel(build, "Tetris", (470, 289), (400, 222), "fj fj", "fj" * 12, (295, 15, 212, 485), vorlauf=2),
        Spiel(build, "Fließband", (547, 289), (400, 180), "fff", "ffff" + "j" * 8, (0, 20, 800, 295)),
    ]


class Spielmessung(Messung):
    def auf_der_seite(self, programm, was, messen):
        """Starts the program, goes to the page and into the game, and measures there."""
        programm.vorbereiten(self.schirm)
        lauf, _ = self.start(programm)
        try:
            programm.beginnen(self.schirm)
            werte = messen(lauf, programm)
            self.schirm.foto(self.fotos / f"{programm.name}_{was}.png")
            return werte
        finally:
            beenden(lauf)

    def unberührt(self, lauf, _):
        beginn, vorher = time.monotonic(), cpu(lauf.pid)
        time.sleep(RUHE)
        prozent = 100 * (cpu(lauf.pid) - vorher) / (time.monotonic() - beginn)
        return {"prozent": prozent, "gemalt": json.loads(self.schirm.befehl(self.probe, "drawn", str(MALEN)))}

    def getippt(self, _, programm):
        return json.loads(self.schirm.befehl(self.probe, "brisk", programm.sicht, programm.tasten))


def bericht(ergebnis):
    print(f"\n| | % eines Kerns, {RUHE} s unberührt | Taste ms: Median / p95 | zur Stufe | beantwortet "
          f"| Anlässe in {MALEN} s | je Anlass gemalte Pixel: Median, größte | davon anders | größter Anlass, % der Seite |\n"
          + "|---" * 9 + "|")
    seite = round(800 * ZOOM) * round(600 * ZOOM)
    stufe = None
    for name, e in ergebnis.items():
        alle = [x for r in e["tasten"] for x in r["latency_ms"]]
        tasten = [x for x in alle if x >= 0]
        if not tasten:
            sys.exit(f"{name} nahm keine Taste an: siehe messen/bilder")
        taste = statistics.median(tasten)
        stufe = stufe or taste
        gemalt = [b for r in e["ruhe"] for b in r["gemalt"]]
        pixel = [b[1] for b in gemalt]
        print(f"| {name} | {spanne([r['prozent'] for r in e['ruhe']], 2)} | {taste:.2f} / {p95(tasten):.2f} "
              f"| {taste / stufe:.2f} | {len(tasten)} von {len(alle)} | {len(gemalt) / len(e['ruhe']):.0f} "
              f"| {statistics.median(pixel):.0f}, {max(pixel)} | {sum(b[2] for b in gemalt) / sum(pixel):.0%} "
              f"| {100 * max(pixel) / seite:.1f} |")


def main():
    p = argparse.ArgumentParser(usage=__doc__)
    p.add_argument("build", type=pathlib.Path)
    p.add_argument("--ruhe", type=int, default=3, help="rounds untouched")
    p.add_argument("--tasten", type=int, default=5, help="rounds of keys")
    a = p.parse_args()
    build = a.build.resolve()
    fotos = build / "messen" / "bilder"
    fotos.mkdir(exist_ok=True)
    ergebnis = {x.name: {"ruhe": [], "tasten": []} for x in programme(build)}
    last = [os.getloadavg()[0]]
    with Schirm() as schirm:
        m = Spielmessung(schirm, build)
        m.fotos = fotos
        for was, runden, messen in (("ruhe", a.ruhe, m.unberührt), ("tasten", a.tasten, m.getippt)):
            # In turns, so that a busy moment meets every one of them.
            for _ in range(runden):
                for x in programme(build):
                    ergebnis[x.name][was].append(m.auf_der_seite(x, was, messen))
                last.append(os.getloadavg()[0])
                print(was, *(f"{wert:.2f}" for wert in last), flush=True)
    (build / "messen" / "spiele.json").write_text(json.dumps(ergebnis))
    bericht(ergebnis)


if __name__ == "__main__":
    main()
