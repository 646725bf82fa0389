"""What the tries share: a data folder with classes, and the programs that were built for them."""

import argparse
import pathlib
import shutil
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tests" / "fenster"))
from ablage import DURCHGÄNGE, SATZ, Ablage, ganz


class Schule(Ablage):
    """A data folder with the children of `klassen` ({class: names}); with the course of the build if told."""

    def __init__(self, ordner, klassen, vorlage=None):
        (self.klasse, self.kinder), *weitere = klassen.items()
        super().__init__(ordner, vorlage)
        erste = self.pfad / "Gruppen" / self.klasse
        for klasse, kinder in weitere:
            (self.pfad / "Gruppen" / klasse).mkdir()
            shutil.copy(erste / "KME.ein", self.pfad / "Gruppen" / klasse)
            for kind in kinder:
                shutil.copy(erste / f"{self.kinder[0]}._", self.pfad / "Gruppen" / klasse / f"{kind}._")


def maschinenwerte(datei, ordner):
    datei.write_bytes("\r\n".join(["Windows Registry Editor Version 5.00", "", "[HKEY_LOCAL_MACHINE\\Software\\Klopfmeise]",
                                   f'"Datenablage"="{ordner}/"', '"Pin"="7294"', ""]).encode("cp1252"))
    return datei


class Probe:
    """The command line of a try, and a folder of its own that stays if something is found."""

    def __init__(self, beschreibung, **zahlen):
        parser = argparse.ArgumentParser(description=beschreibung)
        parser.add_argument("build", type=pathlib.Path)
        parser.add_argument("--kurz", action="store_true", help="as the tests run it")
        parser.add_argument("--ort", type=pathlib.Path, help="where the data folder lies")
        for name, zahl in zahlen.items():
            parser.add_argument(f"--{name}", type=type(zahl), default=zahl)
        self.wahl = parser.parse_args()
        self.programme = self.wahl.build.resolve() / "proben"
        self.kurs = self.wahl.build.resolve() / "Klopfmeise" / "Data"
        self.ordner = pathlib.Path(tempfile.mkdtemp(prefix="klopfmeise-proben-"))
        self.fehler = 0

    def spieler(self, daten, name, *weiteres, **lage):
        """Starts a machine; its diary is `name`."""
        werte = self.ordner / f"{name}.reg"
        if not werte.exists():
            maschinenwerte(werte, daten)
        befehl = [self.programme / "spieler", "--daten", daten, "--werte", werte, "--tagebuch", self.ordner / name]
        return subprocess.Popen([*map(str, [*befehl, *weiteres])], **lage)

    def prüfen(self, vorher, jetzt, *tagebücher):
        """What the checker says, and whether it found nothing."""
        lauf = subprocess.run([*map(str, [self.programme / "pruefer", vorher, jetzt, *tagebücher])],
                              capture_output=True, text=True)
        return lauf.returncode == 0, lauf.stdout + lauf.stderr

    def melden(self, gut, text):
        if not gut:
            self.fehler += 1
        print(text, end="" if text.endswith("\n") else "\n", flush=True)

    def ende(self):
        if self.fehler:
            sys.exit(f"{self.fehler} Fehler; alles liegt in {self.ordner}")
        shutil.rmtree(self.ordner)
