"""The teacher's road through real windows, on a small and on a large screen: from the code pad through every screen and back;
then the child's side obeys. After that every message and question. A picture of each in <build>/bilder."""

import os
import re
import struct
import sys
import time

sys.dont_write_bytecode = True
from ablage import Ablage, ganz
from klopfmeise import ENDE, GRAU, KLASSE_1, LEHRKRAFT, NAME_2, Klopfmeise, gleich
from schirm import BUILD, Schirm, ausführen, prüfe, warte


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

    def foto(self, name, blinkt=True):
        self.schirm.ruhe(0, 80, 800, 520)
        # The class line blinks, but for the time of a message.
        ende = time.monotonic() + 0.7 * blinkt
        y = {800: 52, 1920: 72}[self.schirm.breite]
        while time.monotonic() < ende and not any(
                self.schirm.farbe_bei(x, y) == (0, 0, 0) for x in range(self.schirm.breite)):
            time.sleep(0.02)
        self.schirm.foto(name)

    def taste(self, name):
        self.schirm.taste(name)

    def eintrag(self, wo):
        return {800: {"Gruppen": (35, 28), "Hauptmenü": (99, 28), "Daten": (169, 28)},
                1920: {"Gruppen": (44, 32), "Hauptmenü": (140, 32), "Daten": (244, 32)}}[self.schirm.breite][wo]

    def menüpunkt(self, wo, *danach):
        """An entry of the menu bar by its place, and keys in the menu that opens."""
        self.schirm.klick_bei(*self.eintrag(wo))
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
        time.sleep(0.3)
        self.kindfenster()


    def vorn(self, titel, über=""):
        """Waits until a window of this title has the keys, not the one whose id is `über`; its id."""
        def da():
            fenster = self.schirm.befehl("xdotool", "getactivewindow").strip()
            titel_ = self.schirm.befehl("xdotool", "getwindowname", fenster or "0").strip()
            return titel_ == titel and fenster != über and fenster
        return warte(da, f"'{titel}' ist vorn")

    def meldung(self, titel, bild, *tasten, über=""):
        """A message or question: its picture, then the keys that answer it."""
        da = self.vorn(titel, über)
        self.foto(bild, False)
        for taste in tasten or ("Return",):
            self.taste(taste)
        warte(lambda: da not in self.schirm.befehl("xdotool", "search", "--onlyvisible", "--name", ".").split(),
              f"'{titel}' geht zu, für {bild}")

    def klick_in(self, fenster, x, y):
        """At a place of a window that is no child window (twips)."""
        text = self.schirm.befehl("xwininfo", "-id", fenster)
        links, oben = (int(re.search(f"Absolute upper-left {achse}: +(-?[0-9]+)", text)[1]) for achse in "XY")
        self.schirm.klick_bei(links + round(x / 15 * self.schirm.zoom), oben + round(y / 15 * self.schirm.zoom))

    def neu_tippen(self, text):
        """In the place of what stands in the box that has the keys."""
        self.taste("ctrl+a")
        self.schirm.tippe(text, 20)


class Nutzerschirm(Schirm):
    """A display on which the program runs without the rights of root, who may write everywhere."""

    nummer = 61001 if os.geteuid() == 0 else None

    def abgeben(self, *pfade):
        for pfad in pfade if self.nummer else ():
            for einzeln in (pfad, *pfad.rglob("*")):
                os.chown(einzeln, self.nummer, self.nummer)

    def start(self):
        weiteres = {}
        if self.nummer:
            self.ordner.chmod(0o755)
            self.abgeben(*(self.ordner / name for name in ("Daten", "heim", "lauf")))
            weiteres = {"user": self.nummer, "group": self.nummer, "extra_groups": []}
        return super().start(**weiteres)


JA, NEIN = ("Tab", "Return"), ("shift+Tab", "Return")


def klassen(l, gruppen):
    schirm = l.schirm
    hasen = gruppen / "Hasengruppe"
    l.klick(2700, 5400)
    time.sleep(0.3)
    for name, recht, titel, bild in (
            ("hasengruppe", 0o755, "klasse existiert bereits!", "41_klasse_vorhanden"),
            ("CON", 0o755, "klasse kann nicht angelegt werden!", "42_klasse_name"),
            ("Neu", 0o555, "klasse kann nicht angelegt werden!", "43_klasse_ordner")):
        gruppen.chmod(recht)
        l.neu_tippen(name + "\n")
        l.meldung(titel, bild)
    gruppen.chmod(0o755)
    (gruppen / "kme.ein").rename(gruppen.parent / "kme.ein")
    l.neu_tippen("Ohne Vorlage\n")
    l.meldung("Hinweis", "44_klasse_ohne_einstellungen")
    (gruppen.parent / "kme.ein").rename(gruppen / "kme.ein")

    def löschen(titel, bild):
        l.klick(2000, 2055, 3)
        l.meldung("klasse entfernen?", "45_klasse_loeschen", *JA)
        l.meldung(titel, bild)
    (hasen / "Mia").mkdir()
    löschen("Hinweis", "46_klasse_mit_ordner")
    (hasen / "Mia").rmdir()
    hasen.chmod(0o555)
    löschen("Hinweis", "47_klasse_rest")
    hasen.chmod(0o755)
    # Many classes, the wheel, and a line under the mouse.
    for i in range(20):
        (gruppen / f"Klasse {i:02}").mkdir()
    l.menü("Gruppen")
    l.klick(2000, 2055, 5)
    schirm.befehl("xdotool", "mousemove", *map(str, l.ort(2000, 2055 + 315)))
    l.foto("48_viele_klassen")
    for i in range(20):
        (gruppen / f"Klasse {i:02}").rmdir()
    l.menü("Gruppen")


def konten(l, klasse):
    schirm = l.schirm
    l.auf_taste(2000, 2055)
    l.auf_taste(1080, 1600)
    l.klick(640, 6040)
    time.sleep(0.3)
    schirm.tippe("Mia\n", 20)
    l.foto("50_name_vorhanden")
    schirm.tippe("con\n", 20)
    l.meldung("Konto kann nicht angelegt werden!", "51_konto_name")
    klasse.chmod(0o555)
    l.neu_tippen("Neu\n")
    l.meldung("Konto kann nicht angelegt werden!", "52_konto_ordner")
    l.neu_tippen("")
    l.taste("BackSpace")
    l.taste("Return")
    # Mia, the second of the list.
    l.klick(1000, 440)
    l.klick(1700, 6040)
    l.meldung("Kinderkonto löschen?", "53_konto_loeschen", *JA)
    l.meldung("Hinweis", "54_konto_noch_da")
    klasse.chmod(0o755)
    l.klick(1000, 440)
    l.klick(2310 + 7380, 6225)
    l.vorn("Klopfmeise")
    l.foto("55_kontostand")
    l.taste("alt+F4")
    l.vorn("Einstellungsmodus")
    l.klick(2310 + 7450, 640)
    l.vorn("Lektion 1")
    l.foto("56_lektionsbild")
    l.taste("alt+F4")
    l.vorn("Einstellungsmodus")
    for recht, bild in ((0o444, "57_konto_ungespeichert"), (0, "58_konto_unlesbar")):
        (klasse / "Mia._").chmod(recht)
        # The stage's slider: a click beyond its handle is the large step.
        l.klick(2310 + 7000, 1690)
        l.foto(bild)
        l.klick(1000, 440)
    (klasse / "Mia._").chmod(0o644)
    (klasse / "Mia").mkdir()
    (klasse / "Mia" / "Zeichnung.txt").write_text("x")
    (klasse / "Mia").chmod(0o555)
    l.klick(1000, 440)
    l.klick(1700, 6040)
    l.meldung("Kinderkonto löschen?", "53_konto_loeschen", *JA)
    l.meldung("Hinweis", "59_konto_rest")
    (klasse / "Mia").chmod(0o755)
    l.menü("Hauptmenü")


def texte(l, ordner, klasse):
    schirm = l.schirm
    einziger = ordner / "Text_001.txt"
    for text in set(ordner.iterdir()) - {einziger}:
        text.unlink()
    l.auf_taste(5910, 1600)
    l.klick(1800, 4200)
    l.meldung("Klopfmeise", "60_letzter_text")
    l.klick(640, 4200)
    l.foto("61_neuer_text")
    l.taste("Return")
    (ordner / "Ungeliebt.txt").write_bytes(b"x")
    (ordner / "Ungeliebt.txt").chmod(0)
    (ordner / "Viel.txt").write_bytes(b"Auf der Wiese. " * 6666)
    (ordner / "Zu lang.txt").write_bytes(b"Auf der Wiese. " * 10000)
    (ordner / "Ellipse.txt").write_bytes("Und dann… kam „Mia“.".encode("cp1252"))
    schirm.abgeben(ordner)
    l.menü("Hauptmenü")
    l.auf_taste(5910, 1600)

    def wählen(zeile, text=""):
        l.klick(1000, 310 + 210 * zeile)
        warte(lambda: text.encode() in (klasse / "KME.ein").read_bytes(), f"{text} ist der Text der Klasse")
    wählen(0, "Ellipse.txt")
    l.foto("62_zeichen_ohne_taste")
    wählen(2)
    l.foto("63_text_unlesbar")
    wählen(4, "Zu lang.txt")
    l.foto("64_text_zu_lang")
    (klasse / "KME.ein").chmod(0o444)
    wählen(1)
    l.foto("65_nicht_gewaehlt")
    (klasse / "KME.ein").chmod(0o644)
    # What is pasted does not fit: the text once more behind itself.
    wählen(3, "Viel.txt")
    l.klick(6000, 2000)
    for taste in ("ctrl+a", "ctrl+c", "ctrl+End", "ctrl+v"):
        l.taste(taste)
    warte(lambda: (ordner / "Viel.txt").read_bytes().endswith(b"Wi\\par\r\n}\r\n"), "der eingefügte Text")
    l.foto("66_eingefuegtes_gekuerzt")
    for name in ("Ungeliebt", "Viel", "Zu lang"):
        (ordner / f"{name}.txt").unlink()
    l.menü("Hauptmenü")
    l.auf_taste(5910, 1600)
    wählen(1, "Text_001.txt")
    ordner.chmod(0o555)
    einziger.chmod(0o444)
    l.klick(6000, 2000)
    schirm.tippe(" Neu.", 20)
    l.foto("67_text_ungespeichert")
    wählen(0)
    l.meldung("Hinweis", "68_text_bleibt_offen")
    l.klick(1800, 4200)
    l.meldung("Hinweis", "69_text_nicht_geloescht")
    schirm.klick_bei(*l.eintrag("Hauptmenü"))
    l.meldung("Hinweis", "70_text_verlassen", *NEIN)
    l.kindfenster()
    ordner.chmod(0o755)
    einziger.chmod(0o644)


def meldungen(breite, höhe):
    with Nutzerschirm(breite, höhe) as schirm:
        ablage = Ablage(schirm.ordner / "Daten", BUILD / "Klopfmeise" / "Data")
        gruppen, ordner = ablage.pfad / "Gruppen", ablage.pfad / "Data" / "Texte"
        klasse = gruppen / "Hasengruppe"
        l = Lehrkraft(schirm, ablage)
        klassen(l, gruppen)
        konten(l, klasse)
        texte(l, ordner, klasse)
        l.auf_taste(3495, 1600)
        (klasse / "KME.ein").chmod(0o444)
        l.klick(2865, 870)
        schirm.klick_bei(*l.eintrag("Gruppen"))
        l.meldung("Hinweis", "71_schalter_ungespeichert")
        l.kindfenster()
        (klasse / "KME.ein").chmod(0o644)
        # The data folder is gone, and comes back.
        l.auf_taste(2000, 2055)
        weg = schirm.ordner / "Weg"
        ablage.pfad.rename(weg)
        l.auf_taste(1080, 1600)
        l.foto("72_konten_ohne_ablage")
        l.menü("Hauptmenü")
        l.auf_taste(5910, 1600)
        l.foto("73_texte_ohne_ablage")
        l.menü("Gruppen")
        l.foto("74_klassen_ohne_ablage")
        l.taste("alt+F4")
        warte(lambda: not schirm.fenster("^Einstellungsmodus$"), "der Rahmen geht")
        schirm.foto_in_ruhe("75_titelseite_ohne_ablage")
        weg.rename(ablage.pfad)
        # A wrong code on the title page, then the folder screen.
        l.k.geh(LEHRKRAFT, "Codefeld")
        schirm.tippe("0000\n", 8)
        schirm.foto_in_ruhe("76_falscher_code")
        l.taste("ctrl+a")
        schirm.tippe("7294\n", 8)
        warte(lambda: schirm.fenster("^Einstellungsmodus$"), "der Rahmen")
        l.kindfenster()
        schirm.klick_bei(*l.eintrag("Daten"))
        l.foto("77_menue_daten")
        for taste in ("Down", "Down", "Return"):
            l.taste(taste)
        pfad = l.vorn("Datenablage")
        l.foto("78_datenablage")
        l.klick_in(pfad, 1400, 1710)
        l.meldung("Datenablage", "79_datenablage_warnung", über=pfad)
        l.klick_in(pfad, 1400, 3360)
        l.meldung("Datenablage", "79_datenablage_warnung", über=pfad)
        l.meldung("Browse for Folder", "80_ordnerwahl", "Escape")

        def übernehmen(ordner):
            l.klick_in(pfad, 4000, 6580)
            l.neu_tippen(ordner)
            l.klick_in(pfad, 9600, 6580)
        übernehmen("/nirgends")
        l.meldung("Kein zulässiger Ordner für die Datenablage", "81_ordner_abgelehnt")
        übernehmen(str(ablage.pfad))
        l.meldung("Hinweis", "82_ordner_ohne_rechte")
        l.k.endet()
        l = Lehrkraft(schirm, ablage)
        l.menü("Daten", "Down", "Return")
        l.klick(1845, 2800)
        schirm.tippe("123", 10)
        l.klick(1845, 3800)
        l.foto("83_code_zu_kurz")
        l.klick(1845, 2800)
        l.neu_tippen("1234")
        l.klick(1845, 3800)
        l.meldung("Hinweis", "84_code_ohne_rechte")
        l.k.endet()
        # Whoever may write the machine's values.
        schirm.ordner.chmod(0o777)
        l = Lehrkraft(schirm, ablage)
        schirm.abgeben(schirm.ordner / "maschine.reg")
        schirm.klick_bei(*l.eintrag("Daten"))
        for taste in ("Down", "Down", "Return"):
            l.taste(taste)
        pfad = l.vorn("Datenablage")
        übernehmen(str(ablage.pfad))
        l.meldung("Datenablage", "85_ordner_uebernommen", über=pfad)
        l.k.endet()


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
        l.taste("alt+h")
        l.meldung("Keine Gruppe ausgewählt...", "37_keine_gruppe")
        l.taste("alt+d")
        l.taste("Return")
        time.sleep(0.5)
        l.kindfenster()
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
    ausführen(lehrkraft, meldungen, größen=((800, 600), (1920, 1080)))
