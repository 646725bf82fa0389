"""The installed package on a bare system, as its users meet it. Run by scripts/paket_proben.sh, which names the root folder of
that system in place of the program."""

import struct
import sys
import time

sys.dont_write_bytecode = True
from ablage import GENAUIGKEIT, Ablage
from klopfmeise import KLASSE_1, KURS, NAME_1, START, Klopfmeise
from lehrkraft import Lehrkraft
from schirm import PROGRAMM as WURZEL
from schirm import Schirm, ausführen, prüfe, warte


class Sitzung(Schirm):
    """A display at which a user of the bare system sits, with the strictest of umasks."""

    def __init__(self, benutzer):
        super().__init__(800, 600)
        self.benutzer = benutzer

    def start(self):
        return self.start_mit(["chroot", f"--userspec={self.benutzer}:{self.benutzer}", str(WURZEL), "env", "-i", "LANG=C.UTF-8",
                               "PATH=/usr/bin:/bin", f"HOME=/home/{self.benutzer}", f"DISPLAY={self.umgebung['DISPLAY']}",
                               "sh", "-c", "umask 077; exec klopfmeise"])


class Installierte(Ablage):
    """The data folder that the package has laid."""

    klasse = "4b Füchse"

    def __init__(self):
        self.pfad = WURZEL / "var/lib/klopfmeise/Klopfmeise"

    def als_datenablage(self, schirm):
        pass


def lehrkraft_legt_an():
    with Sitzung("lehrer") as schirm:
        ablage = Installierte()
        k = Klopfmeise(schirm, ablage)
        schirm.foto_in_ruhe("paket_erster_start")
        prüfe(schirm.fenster("^Klopfmeise$"), "kein Fenster heißt Klopfmeise")
        prüfe('"Klopfmeise"' in schirm.befehl("xprop", "-id", schirm.fenster("^Klopfmeise$")[0], "WM_CLASS"),
              "das Fenster gehört nicht zum Eintrag im Menü")
        k.beenden()
        l = Lehrkraft(schirm, ablage)
        l.klick(2700, 5400)
        time.sleep(0.3)
        schirm.tippe("4b Füchse\n", 10)
        warte((ablage.pfad / "Gruppen" / "4b Füchse" / "KME.ein").is_file, "die neue Klasse")
        l.auf_taste(2000, 2050)
        l.auf_taste(1080, 1600)
        l.klick(640, 6040)
        schirm.tippe("Anna\n", 10)
        warte(ablage.konto("Anna").is_file, "das neue Konto")
        schirm.foto("paket_konten")


def kind_tippt():
    """In the account that the teacher made, and in spite of the test file that the teacher's start left."""
    with Sitzung("kind") as schirm:
        ablage = Installierte()
        k = Klopfmeise(schirm, ablage)
        schirm.foto_in_ruhe("paket_klassenliste")
        k.geh(KLASSE_1, "Namensliste")
        k.geh(NAME_1, "Menü")
        k.geh(KURS, "Startseite")
        schirm.foto_in_ruhe("paket_startseite")
        k.geh(START, "Stufe")
        text = ablage.stufentext(1)[:8]
        schirm.tippe(text, 8)
        k.warte_position(len(text) + 1)
        schirm.foto("paket_stufe")
        stand = ablage.satz(GENAUIGKEIT, 10, "Anna")
        prüfe(stand == struct.pack("<hd", 5, 100.0), f"nach {text!r} steht in Annas Konto {stand}")


if __name__ == "__main__":
    ausführen(lehrkraft_legt_an, kind_tippt)
