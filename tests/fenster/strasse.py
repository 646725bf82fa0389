"""The road of a child through real windows, on a small and on a large screen, with a picture of every page in
<build>/bilder: from the class list through a passed stage to the end question; running text, as a stage and free."""

import sys

sys.dont_write_bytecode = True
from ablage import DURCHGÄNGE, GENAUIGKEIT, LEKTION, STUFE, Ablage, doppelt, ganz
from klopfmeise import (BILD, CODE_ZURÜCK, ENDE, HILFE, INFO, INFO_OK, KLASSE_1, KONTO, LEHRKRAFT, NEIN, SCHWARZ, START,
                        STUFE_ZURÜCK, WEISS, ZURÜCK, Klopfmeise, gleich)
from schirm import BUILD, Schirm, ausführen, prüfe, warte

TEXTE_GESAMT = 40
TEXT_TIPPEN, NEBEN_DEM_KONTO = (316, 289), (60, 530)
# Right edge of the black frame around the text window, on the stage and in text typing.
RAHMEN_STUFE, RAHMEN_TEXT = (767, 450), (760, 450)

STUFENTEXT = ("Über Öl, Äpfel und Süßes: 5 € & 3 % {sagt} jan@schule.example [so] - und dann geht der Text noch "
              "weiter, damit er mehr als vier Zeilen hat und das Fenster rollt. Der Igel schnauft, die Amsel singt, "
              "und am Ende des Gartens steht ein alter Baum mit roten Kirschen.")
FREITEXT = "Der Bär übt Ähren.\nGröße: 12 m² ~ fein!\nEnde"


def straße(breite, höhe):
    with Schirm(breite, höhe) as schirm:
        ablage = Ablage(schirm.ordner / "Daten", BUILD / "Klopfmeise" / "Data")
        k = Klopfmeise(schirm, ablage)
        schirm.foto_in_ruhe("01_klassen")
        k.geh(INFO, "Infoseite")
        schirm.foto_in_ruhe("02_info")
        k.geh(INFO_OK, "Klassenliste")
        k.geh(LEHRKRAFT, "Codefeld")
        schirm.tippe("12", 10)
        # The caret blinks, so the page never rests as a whole.
        schirm.foto("03_code")
        k.geh(CODE_ZURÜCK, "Klassenliste")
        k.geh(KLASSE_1, "Namensliste")
        schirm.foto_in_ruhe("04_namen")
        k.geh(ZURÜCK, "Klassenliste")
        k.zur_startseite()
        schirm.foto_in_ruhe("06_startseite")
        k.öffnet(BILD, "Lektion 1")
        schirm.foto_in_ruhe("07_lektionsbild")
        k.schließt("Lektion 1")
        k.öffnet(HILFE, "Hilfe")
        schirm.foto_in_ruhe("18_hilfe")
        k.schließt("Hilfe")

        k.geh(START, "Stufe")
        text = ablage.stufentext(1)
        for lauf in range(3):
            k.warte_position(1)
            prüfe(ablage.satz(STUFE, 4) in (ganz(0), ganz(1)), f"die Stufe ist nach {lauf} Durchgängen bestanden")
            schirm.tippe(text + "\n", 8)
        k.warte_auf("Startseite")
        for satz, soll in ((LEKTION, ganz(1)), (STUFE, ganz(2)), (GENAUIGKEIT, doppelt(100.0))):
            ist = ablage.satz(satz, len(soll))
            prüfe(ist == soll, f"Satz {satz} ist {ist.hex(' ')} statt {soll.hex(' ')}")
        schirm.foto_in_ruhe("08_naechste_stufe")

        k.geh(START, "Stufe")
        text = ablage.stufentext(2)
        schirm.tippe(text[:8], 8)
        k.warte_position(9)
        schirm.tippe("x" if text[8] != "x" else "y", 8)
        warte(lambda: k.rot(9), "der Fehler ist rot")
        prüfe(k.position() == 9, "ein Fehler bewegt die Marke")
        warte(lambda: (ablage.genauigkeit() or 100) < 100, "der Fehler kostet Genauigkeit")
        schirm.foto("09_stufe_fehler")
        k.geh(STUFE_ZURÜCK, "Startseite")
        prüfe(ablage.satz(STUFE, 4) == ganz(2), "das Verlassen der Stufe ändert den Stand")
        k.geh(ENDE, "Menü")
        schirm.foto_in_ruhe("05_menue")
        # The account view has the title of the page behind it.
        vorher = set(schirm.fenster("^Klopfmeise$"))
        schirm.klick(*KONTO)
        konto = warte(lambda: set(schirm.fenster("^Klopfmeise$")) - vorher, "der Kontostand")
        schirm.foto_in_ruhe("19_konto")
        schirm.klick(*NEBEN_DEM_KONTO)
        warte(lambda: not konto & set(schirm.fenster("^Klopfmeise$")), "der Kontostand geht zu")
        k.warte_auf("Menü")
        k.geh(ENDE, "Endefrage")
        schirm.foto_in_ruhe("10_ende")
        k.geh(NEIN, "Klassenliste")
        k.beenden()


def laufender_text(breite, höhe):
    """With umlauts, capitals, Alt Gr signs and Enter, an error and its correction."""
    with Schirm(breite, höhe) as schirm:
        def textseite(ort, rahmen):
            x, y = rahmen
            schirm.klick(*ort)
            warte(lambda: gleich(schirm.farbe(x, y), SCHWARZ, 30) and gleich(schirm.farbe(x - 8, y + 60), WEISS),
                  "das Textfenster: sein schwarzer Rahmen, innen weiß")

        ablage = Ablage(schirm.ordner / "Daten")
        ablage.lektion([STUFENTEXT, "Ende"], "Fließtext")
        ablage.text(b"{\\rtf1\\ansi " + FREITEXT.encode("cp1252").replace(b"\n", b"\\par ") + b"}")
        ablage.satz_setzen(DURCHGÄNGE, ganz(1))
        k = Klopfmeise(schirm, ablage)
        k.zur_startseite()
        textseite(START, RAHMEN_STUFE)
        schirm.tippe(STUFENTEXT[:3] + "x", 8)
        warte(lambda: (ablage.genauigkeit() or 0) > 0, "die Genauigkeit ist im Konto")
        schirm.foto_in_ruhe("13_fliesstext_fehler")
        schirm.taste("BackSpace")
        schirm.tippe(STUFENTEXT[3:150], 12)
        schirm.foto_in_ruhe("14_fliesstext")
        schirm.tippe(STUFENTEXT[150:], 12)
        k.warte_auf("Startseite")
        prüfe(ablage.satz(STUFE, 4) == ganz(2), f"Stufe ist {ablage.satz(STUFE, 4).hex(' ')} statt 2")
        k.geh(ENDE, "Menü")

        textseite(TEXT_TIPPEN, RAHMEN_TEXT)
        schirm.tippe(FREITEXT[:25], 8)
        schirm.foto_in_ruhe("16_text_tippen", höhe=405)
        schirm.tippe(FREITEXT[25:], 8)
        warte(lambda: ablage.satz(TEXTE_GESAMT, 4) == ganz(1), "der Text ist gezählt")
        warte(lambda: schirm.fenster("^Klopfmeise$"), "das Auswertungsblatt")
        schirm.foto_in_ruhe("17_auswertung", 250, 150, 300, 250)
        k.geh(ENDE, "Menü")
        k.beenden()


if __name__ == "__main__":
    ausführen(straße, laufender_text, größen=((800, 600), (1920, 1080)))
