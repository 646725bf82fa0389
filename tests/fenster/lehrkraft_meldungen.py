"""Every message and question of the teacher mode, and what stands in place of what cannot be read, on a small and on a large
screen. A picture of each in <build>/bilder, to look at; the test itself holds that each comes and can be answered."""

import sys
import time

sys.dont_write_bytecode = True
from ablage import Ablage
from einstellungsmodus import Lehrkraft, Nutzerschirm
from klopfmeise import LEHRKRAFT
from schirm import BUILD, ausführen, warte

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
    l.menü("g")
    l.klick(2000, 2055, 5)
    schirm.befehl("xdotool", "mousemove", *map(str, l.ort(2000, 2055 + 315)))
    l.foto("48_viele_klassen")
    for i in range(20):
        (gruppen / f"Klasse {i:02}").rmdir()
    l.menü("g")


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
    l.menü("h")


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
    l.menü("h")
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
    l.menü("h")
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
    l.taste("alt+h")
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
        l.taste("alt+g")
        l.meldung("Hinweis", "71_schalter_ungespeichert")
        l.kindfenster()
        (klasse / "KME.ein").chmod(0o644)
        # The data folder is gone, and comes back.
        l.auf_taste(2000, 2055)
        weg = schirm.ordner / "Weg"
        ablage.pfad.rename(weg)
        l.auf_taste(1080, 1600)
        l.foto("72_konten_ohne_ablage")
        l.menü("h")
        l.auf_taste(5910, 1600)
        l.foto("73_texte_ohne_ablage")
        l.menü("g")
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
        l.taste("alt+d")
        l.foto("77_menue_daten")
        for taste in ("Down", "Return"):
            l.taste(taste)
        pfad = l.vorn("Datenablage")
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
        l.menü("d", "Return")
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
        l.taste("alt+d")
        for taste in ("Down", "Return"):
            l.taste(taste)
        pfad = l.vorn("Datenablage")
        übernehmen(str(ablage.pfad))
        l.meldung("Datenablage", "85_ordner_uebernommen", über=pfad)
        l.k.endet()


if __name__ == "__main__":
    ausführen(meldungen, größen=((800, 600), (1920, 1080)))
