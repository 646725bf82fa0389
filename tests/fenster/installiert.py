"""The tree that an installation makes: the program runs from it alone, with the sounds and the module that lie there."""

import shutil
import subprocess
import sys

sys.dont_write_bytecode = True
from ablage import Ablage
from klopfmeise import INFO, INFO_OK, Klopfmeise
from schirm import BUILD, PROGRAMM, Schirm, ausführen, prüfe
from ton import Tonserver

WELLEN = {"knopf.wav", "falsch.wav", "typewriterding.wav", "Fließbandfalsch.wav", "pb_Schieben.wav", "pb_Zahlenklotz2.wav"}


class Installation(Schirm):
    """Starts the program by the link in the path of an installation below this display's folder."""

    def __enter__(self):
        super().__enter__()
        self.ziel = self.ordner / "Ziel"
        subprocess.run(["cmake", "--install", str(BUILD), "--prefix", str(self.ziel)], check=True, stdout=subprocess.DEVNULL)
        return self

    def start(self):
        return self.start_mit([str(self.ziel / "bin" / "klopfmeise")])


def läuft_und_klingt():
    with Installation(800, 600) as schirm:
        ordner, anteil = schirm.ziel / "lib" / "klopfmeise", schirm.ziel / "share"
        prüfe((schirm.ziel / "bin" / "klopfmeise").resolve() == ordner / "klopfmeise", "der Aufruf führt nicht zum Programm")
        prüfe({welle.name for welle in (ordner / "wav").iterdir()} == WELLEN, "die Klänge sind nicht die sechs")
        vorlage = anteil / "klopfmeise" / "Klopfmeise"
        prüfe([eintrag.name for eintrag in (vorlage / "Gruppen").iterdir()] == ["kme.ein"], "die Vorlage hat eine Klasse")
        for datei in ("applications/klopfmeise.desktop", "metainfo/klopfmeise.metainfo.xml", "man/man1/klopfmeise.1.gz",
                      "icons/hicolor/16x16/apps/klopfmeise.png", "icons/hicolor/scalable/apps/klopfmeise.svg",
                      "doc/klopfmeise/examples/maschine.reg", "doc/klopfmeise/Kursheft.html"):
            prüfe((anteil / datei).is_file(), f"{datei} fehlt")
        # The same program, but with the machine-wide values of the test.
        shutil.copy(PROGRAMM, ordner / "klopfmeise")
        server = Tonserver(schirm)
        k = Klopfmeise(schirm, Ablage(schirm.ordner / "Daten", vorlage=vorlage / "Data"))
        server.ab_jetzt()
        k.geh(INFO, "Infoseite")
        k.geh(INFO_OK, "Klassenliste")
        klänge = server.gehört(0.5)
        prüfe([klang.datei for klang in klänge] == ["knopf.wav"] * 2, f"zwei Knöpfe klangen als {klänge}")
        with open(f"/proc/{k.lauf.pid}/maps", encoding="utf-8") as karte:
            module = {zeile.split()[-1] for zeile in karte if "klopfmeise_sound" in zeile}
        prüfe(module == {str(ordner / "klopfmeise_sound.so")}, f"das Klangmodul kommt von {module}")


if __name__ == "__main__":
    ausführen(läuft_und_klingt)
