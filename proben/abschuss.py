"""abschuss.py BUILD: kills the program at random moments in the middle of what it does, and looks at what it left."""

import collections
import random
import re
import shutil
import subprocess
import sys
import time

sys.dont_write_bytecode = True
from schule import DURCHGÄNGE, SATZ, Probe, Schule, ganz, maschinenwerte

KINDER = {"Klasse 1": ("Jonas", "Mia", "Ole")}
HIGH_BAND = 39
BEIM = ("tippen", "stufe", "spiel", "fertig", "text", "umbenennen", "konten", "ablage")


class Opfer:
    """The folder in which the next one dies, and the book of those that did."""

    def __init__(self, probe, ordner, stufen):
        self.probe, self.ordner, self.stufen = probe, ordner, stufen
        self.daten, self.andere = ordner / "Daten", ordner / "Andere"
        self.tote, self.mitten, self.verändert = collections.Counter(), collections.Counter(), collections.Counter()
        self.tipper = None
        self.frisch()

    def frisch(self):
        for ordner in (self.andere, self.daten):
            shutil.rmtree(ordner, ignore_errors=True)
            self.schule = schule = Schule(ordner, KINDER)
            # Short stages, each passed by one good run: places and lessons change often.
            schule.lektion(self.stufen)
            for lektion in range(2, 31):
                shutil.copy(ordner / "Data/Tastatur/Lektion1.txt", ordner / f"Data/Tastatur/Lektion{lektion}.txt")
            for kind in schule.kinder:
                schule.satz_setzen(DURCHGÄNGE, ganz(1), kind)

    def vorher(self):
        # Whatever the class is called by now: each game of the window ends with a high score.
        for konto in self.daten.glob("Gruppen/*/*._"):
            with open(konto, "r+b") as datei:
                datei.seek((HIGH_BAND - 1) * SATZ)
                datei.write(ganz(0))
        self.bild = self.ordner / "vorher"
        shutil.rmtree(self.bild, ignore_errors=True)
        shutil.copytree(self.daten, self.bild)
        for name in ("tagebuch", "tagebuch.reg"):
            (self.ordner / name).unlink(missing_ok=True)

    def untersuchen(self, beim, werte):
        self.tote[beim] += 1
        gut, text = self.probe.prüfen(self.bild, self.daten, "--abschuss", self.ordner / "tagebuch")
        unfertig, neu = re.search(r"unfertig=(\w*) neu=(\d+)", text).groups() if "unfertig=" in text else ("?", "0")
        if unfertig:
            self.mitten[unfertig + (" zum Teil" if 0 < int(neu) < len(unfertig) else "")] += 1
        neue_ablage = werte.exists() and b"hex(1)" in werte.read_bytes()
        self.verändert[beim] += neue_ablage or subprocess.run(["diff", "-rq", "-x", "lzf75.tst", "-x", ".klopf*", self.bild, self.daten],
                                                             stdout=subprocess.DEVNULL).returncode != 0
        if not self.maschinenwerte_heil(werte.read_bytes()):
            gut, text = False, f"{text}Maschinenwerte: {werte.read_bytes()!r}"
        if not gut:
            self.probe.melden(False, f"{beim}, {sum(self.tote.values())}. Abschuss: {text}")

    def maschinenwerte_heil(self, bytes_):
        """One of the two folders, as laid or as the program writes it, and all that stands around it."""
        heil = set()
        for ordner in (self.daten, self.andere):
            ganz = maschinenwerte(self.ordner / "soll.reg", ordner).read_bytes()
            geschrieben = ",".join(f"{b:02x}" for b in f"{ordner}/".replace("/", "\\").encode())
            heil |= {ganz, ganz.replace(f'"{ordner}/"'.encode(), f"hex(1):{geschrieben}".encode())}
        return bytes_ in heil

    def bericht(self, wer):
        mitten = ", ".join(f"{was} {wie}" for was, wie in sorted(self.mitten.items())) or "keiner"
        beim = ", ".join(f"{was} {zahl} ({self.verändert[was]} mit Spuren)" for was, zahl in self.tote.items())
        self.probe.melden(True, f"{wer}: {sum(self.tote.values())} Abschüsse: {beim}; mitten in einem Schreiben: "
                                f"{sum(self.mitten.values())} ({mitten})")


def spieler_abschießen(probe, zahl, zufall):
    opfer = Opfer(probe, probe.ordner, ["fj fj", "jf jf jf"])
    for i in range(zahl):
        if i % 40 == 39:
            opfer.frisch()
        beim = BEIM[i % len(BEIM)]
        opfer.vorher()
        kinder = [wort for kind in KINDER["Klasse 1"] for wort in ("--kind", f"Klasse 1/{kind}")]
        lauf = probe.spieler(opfer.daten, "tagebuch", "--nur", beim, "--saat", zufall.randrange(10**6), "--sekunden", 60, "--klasse",
                             "Klasse 1", "--eigene", f"E{i}-", "--andere", f"{opfer.andere}/", *kinder)
        buch = opfer.ordner / "tagebuch"
        while not buch.exists() or b"\n>" not in buch.read_bytes():
            time.sleep(0.001)
        time.sleep(zufall.uniform(0, 0.15))
        lauf.kill()
        if lauf.wait() != -9:
            probe.melden(False, f"{beim}: der Spieler endete schon mit {lauf.returncode}")
        opfer.untersuchen(beim, opfer.ordner / "tagebuch.reg")
    opfer.bericht("Spieler")


def fenster_abschießen(probe, zahl, zufall):
    """The real window, with real keys. It is started again behind each death, on what the one before left."""
    import schirm as anzeige
    from klopfmeise import KLASSE_1, NAME_2, WEISS, Klopfmeise
    from lehrkraft import Lehrkraft
    from spiele import BAND, START_BAND
    anzeige.PROGRAMM, anzeige.BUILD = probe.programme / "fenster" / "klopfmeise", probe.wahl.build

    def stufe(schirm, opfer, schule, text):
        k = Klopfmeise(schirm, schule)
        k.zur_stufe()
        opfer.tipper = schirm.tippe_nebenher(text, 10)
        return k.lauf

    def spiel(schirm, opfer, schule):
        k = Klopfmeise(schirm, schule)
        k.geh(KLASSE_1, "Namensliste")
        k.geh(NAME_2, "Menü")
        schirm.klick(*BAND)
        schirm.ruhe()
        schirm.klick(*START_BAND)
        # All stones are the same: groups are right, and then each wrong key throws them on, until the game is over.
        opfer.tipper = schirm.tippe_nebenher("f" * 25 + "x" * 14, 12)
        return k.lauf

    def einstellen(knopf):
        def tun(schirm, opfer, schule):
            l = Lehrkraft(schirm, schule)
            l.auf_taste(2000, 2050)
            l.auf_taste(*knopf)
            if knopf == TEXTE:
                l.klick(4200, 1200)
                opfer.tipper = schirm.tippe_nebenher("Der Igel schnauft im Laub. " * 9, 15)
            else:
                l.klick(2400, 2580)
                schirm.tippe(f"K{sum(opfer.tote.values())}", 20)
                opfer.tipper = schirm.tippe_nebenher("\n", 20)
            return l.k.lauf
        return tun

    def ablage(schirm, opfer, schule):
        l = Lehrkraft(schirm, schule)
        # The second entry of the third menu.
        schirm.klick_bei(169, 28)
        time.sleep(0.3)
        for taste in ("Down", "Down", "Return"):
            schirm.taste(taste)

        def eingabezeile():
            for fenster in schirm.fenster("^Datenablage$"):
                ort = dict(z.split("=") for z in schirm.befehl("xdotool", "getwindowgeometry", "--shell", fenster).split())
                # It counts the window manager's border twice.
                links, oben = int(ort["X"]) - 1, int(ort["Y"]) - 20
                if schirm.farbe_bei(links + 157, oben + 438) == WEISS:
                    return links, oben
            return None
        links, oben = anzeige.warte(eingabezeile, "die Eingabezeile der Datenablage")
        schirm.klick_bei(links + 157, oben + 438)
        schirm.tippe(f"{opfer.andere}/", 30)
        opfer.tipper = schirm.starten(["xdotool", "mousemove", str(links + 644), str(oben + 438), "click", "1"])
        return l.k.lauf

    TEXTE, ALLGEMEIN = (5910, 1600), (3495, 1600)
    # What is begun, and until how many seconds later it may be interrupted.
    beim = {"tippen": (lambda *w: stufe(*w, "fx" * 40), 3.0), "stufe": (lambda *w: stufe(*w, "fff\nff\n"), 2.0),
            "spiel": (spiel, 9.0), "text": (einstellen(TEXTE), 3.0), "umbenennen": (einstellen(ALLGEMEIN), 0.08),
            "ablage": (ablage, 0.12)}
    with anzeige.Schirm(800, 600) as schirm:
        opfer = Opfer(probe, schirm.ordner, ["fff", "ff"])
        for i in range(zahl):
            was = [*beim][i % len(beim)]
            tun, dauer = beim[was]
            if i % 30 == 29:
                opfer.frisch()
            opfer.vorher()
            lauf = tun(schirm, opfer, opfer.schule)
            time.sleep(zufall.uniform(0, dauer))
            lauf.kill()
            if lauf.wait() not in (-9, 0):
                probe.melden(False, f"{was}: das Programm endete mit {lauf.returncode}: {schirm.ausgabe()[-500:]}")
            opfer.untersuchen(was, schirm.ordner / "maschine.reg")
            if opfer.tipper:
                schirm.hände_weg(opfer.tipper)
                opfer.tipper = None
        opfer.bericht("Fenster")


def main():
    probe = Probe(__doc__, spieler=900, fenster=100, saat=1)
    zufall = random.Random(probe.wahl.saat)
    if probe.wahl.kurz:
        probe.wahl.spieler, probe.wahl.fenster = 24, 0
    spieler_abschießen(probe, probe.wahl.spieler, zufall)
    if probe.wahl.fenster:
        fenster_abschießen(probe, probe.wahl.fenster, zufall)
    probe.ende()


if __name__ == "__main__":
    main()
