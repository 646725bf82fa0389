"""The teacher's road through real windows, on a small and on a large screen: from the code pad through every screen and back;
then the child's side obeys. A picture of each in <build>/bilder."""

import struct
import sys
import time

sys.dont_write_bytecode = True
from ablage import Ablage, ganz
from klopfmeise import ENDE, GRAU, KLASSE_1, LEHRKRAFT, NAME_2, Klopfmeise, gleich
from schirm import Schirm, ausführen, prüfe, warte


TEXT_TIPPEN, WOLKEN = (316, 289), (393, 289)


def lang(zahl):
    return struct.pack("<hi", 3, zahl)


def satz(konto, nummer):
    """The value of a record, as long as its type says."""
    bytes_ = konto.read_bytes()[(nummer - 1) * 128:]
    return bytes_[:6 if bytes_[0] == 3 else 4]


class Lehrkraft:
    """The teacher mode of a started program. Places are in twips of the child window that is open."""

    def __init__(self, schirm, ablage):
        self.schirm, self.ablage = schirm, ablage
        self.k = Klopfmeise(schirm, ablage)
        self.betreten()

    def betreten(self):
        self.k.geh(LEHRKRAFT, "Codefeld")
        self.schirm.tippe("7294\n", 8)
        warte(lambda: self.schirm.fenster("^Einstellungsmodus$"), "der Rahmen")
        self.kindfenster()

    def kindfenster(self):
        """Where the ground of the open child window begins (pixels of the screen): grey below a title bar."""
        def grau(x, y):
            return gleich(self.schirm.farbe_bei(x, y), GRAU, 1)
        weite = range(4, int(40 * self.schirm.zoom))

        def anfang():
            for y in range(60, int(150 * self.schirm.zoom)):
                for x in weite:
                    if grau(x, y) and all(grau(x + i, y) and grau(x, y + i) for i in (3, 6, 9)):
                        return x, y
            return None
        # It stands once it is at the same place twice.
        zuletzt = None

        def steht():
            nonlocal zuletzt
            jetzt = anfang()
            steht, zuletzt = jetzt is not None and jetzt == zuletzt, jetzt
            return steht
        warte(steht, "das Kindfenster", takt=0.1)
        self.anfang = zuletzt

    def ort(self, x, y):
        return (round(self.anfang[0] + x / 15 * self.schirm.zoom), round(self.anfang[1] + y / 15 * self.schirm.zoom))

    def klick(self, x, y, knopf=1):
        self.schirm.klick_bei(*self.ort(x, y), knopf)

    def foto(self, name):
        # The class line blinks.
        time.sleep(0.4)
        self.schirm.foto(name)

    def taste(self, name):
        self.schirm.taste(name)

    def menüpunkt(self, wo, *danach):
        """An entry of the menu bar by its place, and keys in the menu that opens."""
        x, y = {800: {"Gruppen": (35, 28), "Hauptmenü": (99, 28), "Daten": (169, 28)},
                1920: {"Gruppen": (44, 32), "Hauptmenü": (140, 32), "Daten": (244, 32)}}[self.schirm.breite][wo]
        self.schirm.klick_bei(x, y)
        time.sleep(0.3)
        for taste in danach:
            self.schirm.taste(taste)

    def menü(self, wo, *danach):
        """As `menüpunkt` where a child window opens."""
        self.menüpunkt(wo, *danach)
        time.sleep(0.5)
        self.kindfenster()

    def auf_taste(self, x, y):
        """A click that opens another child window."""
        self.klick(x, y)
        time.sleep(0.5)
        self.kindfenster()


def lehrkraft(breite, höhe):
    with Schirm(breite, höhe) as schirm:
        ablage = Ablage(schirm.ordner / "Daten")
        gruppen = ablage.pfad / "Gruppen"
        l = Lehrkraft(schirm, ablage)
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
        l.menü("Hauptmenü")
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
        l.menü("Hauptmenü")
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
        l.menü("Hauptmenü")
        warte(lambda: schirm.fenster("^Keine Gruppe"), "die Meldung ohne Gruppe")
        l.foto("37_keine_gruppe")
        l.taste("Return")
        warte(lambda: not schirm.fenster("^Keine Gruppe"), "die Meldung geht")
        l.menü("Daten", "Down", "Return")
        l.klick(1845, 2800)
        schirm.tippe("1234", 10)
        l.klick(1845, 3800)
        warte(lambda: "1234" in (schirm.ordner / "maschine.reg").read_text("cp1252") or
              "31,32,33,34" in (schirm.ordner / "maschine.reg").read_text("cp1252"), "der Code ist geschrieben")
        l.foto("38_code")
        l.menüpunkt("Daten", "Down", "Down", "Return")
        ablagefenster = warte(lambda: schirm.fenster("^Datenablage$"), "das Fenster der Datenablage")
        schirm.warte_tastatur(ablagefenster, "die Datenablage")
        l.foto("40_datenablage")
        l.taste("alt+F4")
        warte(lambda: not schirm.fenster("^Datenablage$"), "die Datenablage geht zu")
        schirm.warte_tastatur(schirm.fenster("^Einstellungsmodus$"), "der Rahmen")
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
