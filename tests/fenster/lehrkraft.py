"""The teacher's road through real windows, on a small and on a large screen: from the code pad through every screen and back;
then the child's side obeys. A picture of each in <build>/bilder."""

import struct
import sys
import time

sys.dont_write_bytecode = True
from ablage import Ablage, ganz
from einstellungsmodus import Lehrkraft
from klopfmeise import ENDE, KLASSE_1, NAME_2
from schirm import Schirm, ausführen, prüfe, warte

TEXT_TIPPEN, WOLKEN = (316, 289), (393, 289)


def lang(zahl):
    return struct.pack("<hi", 3, zahl)


def satz(konto, nummer):
    """The value of a record, as long as its type says."""
    bytes_ = konto.read_bytes()[(nummer - 1) * 128:]
    return bytes_[:6 if bytes_[0] == 3 else 4]


def lehrkraft(breite, höhe):
    with Schirm(breite, höhe) as schirm:
        ablage = Ablage(schirm.ordner / "Daten")
        gruppen = ablage.pfad / "Gruppen"
        l = Lehrkraft(schirm, ablage)
        # Behind the backdrop nobody would find it again.
        rahmen = l.vorn("Einstellungsmodus")
        schirm.befehl("xdotool", "windowminimize", rahmen)
        time.sleep(0.5)
        l.vorn("Einstellungsmodus")
        zustand = schirm.befehl("xprop", "-id", rahmen, "_NET_WM_STATE")
        prüfe("MAXIMIZED_VERT" in zustand and "HIDDEN" not in zustand, f"der Rahmen ist {zustand}")
        l.foto("30_gruppenliste")
        # Neue Gruppe anlegen
        l.klick(2700, 5400)
        time.sleep(0.3)
        schirm.tippe("4b Füchse", 10)
        l.foto("31_neue_gruppe")
        schirm.tippe("\n", 10)
        warte((gruppen / "4b Füchse" / "KME.ein").is_file, "die neue Klasse")
        prüfe((gruppen / "4b Füchse" / "KME.ein").read_bytes() == (gruppen / "kme.ein").read_bytes(),
              "die Einstellungen sind nicht die der Vorlage")
        l.auf_taste(2000, 2050)
        l.foto("32_hauptmenue")
        l.auf_taste(1080, 1600)
        # Neues Konto, and three names one after the other.
        l.klick(640, 6040)
        schirm.tippe("Anna\nÖzlem\nBen\n", 10)
        konten = {name: gruppen / "4b Füchse" / f"{name}._" for name in ("Anna", "Özlem", "Ben")}
        warte(lambda: all(k.is_file() for k in konten.values()), "die drei Konten")
        l.foto("33_konten")
        schirm.tippe("\n", 10)
        # The slider of the lesson takes the keys once it is clicked: the small step to the right, twice.
        l.klick(2310 + 160, 640)
        for _ in range(2):
            l.taste("Right")
        # "mit Zeit üben"
        l.klick(2310 + 105 + 4100, 4305 + 320)
        warte(lambda: satz(konten["Ben"], 32) == lang(3) and satz(konten["Ben"], 31) == ganz(1), "Lektion 3 mit Zeit")
        prüfe([satz(konten["Ben"], n) for n in (29, 30, 33, 34, 35)] == [ganz(0), ganz(0), lang(1), lang(3), lang(10)],
              "die übrigen Werte sind nicht die des neuen Kontos")
        prüfe(satz(konten["Anna"], 32) == ganz(0)[:4], "ein anderes Konto ist beschrieben")
        l.foto("34_kurswerte")
        l.menü("h")
        l.auf_taste(5910, 1600)
        # Neuer Text
        l.klick(640, 4200)
        schirm.tippe("Ausflug\n", 10)
        text = ablage.pfad / "Data" / "Texte" / "Ausflug.txt"
        warte(text.is_file, "der neue Text")
        schirm.tippe("Am Dienstag fahren wir los.", 10)
        warte(lambda: b"Dienstag fahren wir los." in text.read_bytes(), "der Text ist gespeichert")
        einstellungen = (gruppen / "4b Füchse" / "KME.ein").read_bytes()
        prüfe(einstellungen[13440:13440 + 13] == b"\x0b\x00Ausflug.txt", "die Klasse hat den Text nicht")
        l.foto("35_texte")
        l.menü("h")
        l.auf_taste(3495, 1600)
        l.klick(2865, 870)
        l.foto("36_allgemein")
        l.klick(2400, 2580)
        schirm.tippe("5c\n", 10)
        warte((gruppen / "5c" / "KME.ein").is_file, "die Klasse hat einen anderen Namen")
        schalter = (gruppen / "5c" / "KME.ein").read_bytes()
        prüfe([schalter[128 * i:128 * i + 4] for i in (0, 1, 2, 3, 99)] == [ganz(n) for n in (1, 1, 0, 1, 1)],
              "die Schalter sind nicht die gesetzten")
        l.kindfenster()
        l.taste("alt+h")
        l.meldung("Keine Gruppe ausgewählt...", "37_keine_gruppe")
        l.menü("d", "Return")
        l.klick(1845, 2800)
        schirm.tippe("1234", 10)
        l.klick(1845, 3800)
        warte(lambda: "1234" in (schirm.ordner / "maschine.reg").read_text("cp1252") or
              "31,32,33,34" in (schirm.ordner / "maschine.reg").read_text("cp1252"), "der Code ist geschrieben")
        l.foto("38_code")
        for taste in ("alt+d", "Down", "Return"):
            l.taste(taste)
        l.vorn("Datenablage")
        l.foto("40_datenablage")
        l.taste("alt+F4")
        l.vorn("Einstellungsmodus")
        l.taste("alt+F4")
        l.k.warte_auf("Klassenliste")
        # The child's side obeys: the class by its new name, Ben behind Anna, the game closed, the new text.
        l.k.geh(KLASSE_1, "Namensliste")
        l.k.geh(NAME_2, "Menü")
        schirm.klick(*WOLKEN)
        schirm.foto_in_ruhe("39_spiel_geschlossen")
        prüfe(l.k.zeigt("Menü"), "das geschlossene Spiel geht auf")
        schirm.klick(*TEXT_TIPPEN)
        warte(lambda: not l.k.zeigt("Menü"), "Text tippen")
        schirm.ruhe()
        schirm.tippe("Am Dienstag fahren wir los.", 10)
        warte(lambda: satz(gruppen / "5c" / "Ben._", 40) == ganz(1), "der Text ist gezählt")
        schirm.klick(*ENDE)
        l.k.warte_auf("Menü")
        l.k.beenden()


if __name__ == "__main__":
    ausführen(lehrkraft, größen=((800, 600), (1920, 1080)))
