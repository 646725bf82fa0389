"""A data folder for the tests, and the account file byte by byte."""

import pathlib
import shutil
import struct

SATZ = 128
LEKTION, STUFE, DURCHGÄNGE, GENAUIGKEIT = 32, 33, 34, 36


def ganz(zahl):
    return struct.pack("<hh", 2, zahl)


def doppelt(zahl):
    return struct.pack("<hd", 5, zahl)


class Ablage:
    """The data folder in `ordner` with one class and its children."""

    klasse = "Hasengruppe"
    kinder = ("Jonas", "Mia")

    def __init__(self, ordner, vorlage=None):
        """`vorlage`: the folder of lessons that the build made; without it the lessons are a few short ones."""
        self.pfad = pathlib.Path(ordner)
        if vorlage:
            shutil.copytree(vorlage, self.pfad / "Data")
        else:
            (self.pfad / "Data" / "Tastatur").mkdir(parents=True)
            (self.pfad / "Data" / "Texte").mkdir()
            # A small bitmap of 24 bits, grey.
            (self.pfad / "Data" / "Tastatur" / "Lektion1.bmp").write_bytes(
                b"BM" + struct.pack("<IHHIIiiHH24x", 54 + 6144, 0, 0, 54, 40, 64, 32, 1, 24) + b"\xc0" * 6144)
            self.lektion(["fff jjj fff jjj fj fj fj jf jf jf f j", "jjj fff jf"])
            self.text(b"Hallo\r\n")
        gruppe = self.pfad / "Gruppen" / self.klasse
        gruppe.mkdir(parents=True)
        textname = b"Text_001.txt"
        eingeschaltet = ganz(1).ljust(SATZ, b"\0") * 100
        einstellungen = eingeschaltet.ljust(105 * SATZ, b"\0") + struct.pack("<H", len(textname)) + textname
        (self.pfad / "Gruppen" / "kme.ein").write_bytes(einstellungen)
        (gruppe / "KME.ein").write_bytes(einstellungen)
        for kind in self.kinder:
            self.konto(kind).write_bytes(ganz(0).ljust(SATZ, b"\0") * 100)
            self.satz_setzen(DURCHGÄNGE, ganz(3), kind)

    def konto(self, kind="Mia"):
        return self.pfad / "Gruppen" / self.klasse / (kind + "._")

    def satz(self, nummer, bytes_, kind="Mia"):
        """The first bytes of a record as they stand in the file."""
        with open(self.konto(kind), "rb") as datei:
            datei.seek((nummer - 1) * SATZ)
            return datei.read(bytes_)

    def satz_setzen(self, nummer, wert, kind="Mia"):
        with open(self.konto(kind), "r+b") as datei:
            datei.seek((nummer - 1) * SATZ)
            datei.write(wert)

    def genauigkeit(self):
        """Record 36 as a number; none while nothing was typed."""
        marke, wert = struct.unpack("<hd", self.satz(GENAUIGKEIT, 10).ljust(10, b"\0"))
        return wert if marke == 5 else None

    def lektion(self, stufen, art="Einzeiler"):
        """`stufen`: the texts to type, one a stage."""
        zeilen = [str(len(stufen)), art, "Probelektion"]
        for nummer, text in enumerate(stufen, 1):
            zeilen += [f"Unterstufe{nummer}", f"Titel der Stufe {nummer}", text, f"Hinweis zur Stufe {nummer}"]
        (self.pfad / "Data" / "Tastatur" / "Lektion1.txt").write_text("".join(z + "\r\n" for z in zeilen), "cp1252",
                                                                      newline="")

    def text(self, bytes_):
        (self.pfad / "Data" / "Texte" / "Text_001.txt").write_bytes(bytes_)

    def stufentext(self, stufe):
        """What is to be typed at a stage of lesson 1."""
        zeilen = (self.pfad / "Data" / "Tastatur" / "Lektion1.txt").read_text("cp1252").splitlines()
        return zeilen[zeilen.index(f"Unterstufe{stufe}") + 2]

    def als_datenablage(self, schirm):
        """Points the program that is started there at this folder."""
        (schirm.ordner / "maschine.reg").write_bytes(
            "\r\n".join(["Windows Registry Editor Version 5.00", "", "[HKEY_LOCAL_MACHINE\\Software\\Klopfmeise]",
                         f'"Datenablage"="{self.pfad}/"', '"Pin"="7294"', ""]).encode("cp1252"))
