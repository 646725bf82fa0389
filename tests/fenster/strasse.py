"""The road of a child through real windows: from the class list through a passed stage to the end question, on a
small and on a large screen, with a picture of every page in <build>/bilder."""

import sys

sys.dont_write_bytecode = True
from ablage import LEKTION, STUFE, Ablage, doppelt, ganz, GENAUIGKEIT
from klopfmeise import (BILD, CODE_ZURÜCK, ENDE, INFO, INFO_OK, KLASSE_1, KURS, LEHRKRAFT, NAME_2, NEIN, START,
                        STUFE_ZURÜCK, ZURÜCK, Klopfmeise)
from schirm import BUILD, Schirm, ausführen, prüfe, warte


def straße(breite, höhe):
    with Schirm(breite, höhe) as schirm:
        def foto(name):
            schirm.ruhe()
            schirm.foto(name)

        ablage = Ablage(schirm.ordner / "Daten", BUILD / "Klopfmeise" / "Data")
        k = Klopfmeise(schirm, ablage)
        foto("01_klassen")
        prüfe(not k.geladen("klopfmeise_sound"), "das Klangmodul wird schon für die Titelseite geladen")
        k.geh(INFO, "Infoseite")
        warte(lambda: k.geladen("klopfmeise_sound"), "das Klangmodul kommt mit dem ersten Klang")
        foto("02_info")
        k.geh(INFO_OK, "Klassenliste")
        k.geh(LEHRKRAFT, "Codefeld")
        schirm.tippe("12", 10)
        # The caret blinks, so the page never rests as a whole.
        schirm.foto("03_code")
        k.geh(CODE_ZURÜCK, "Klassenliste")
        k.geh(KLASSE_1, "Namensliste")
        foto("04_namen")
        k.geh(ZURÜCK, "Klassenliste")
        k.geh(KLASSE_1, "Namensliste")
        k.geh(NAME_2, "Menü")
        foto("05_menue")
        k.geh(KURS, "Startseite")
        foto("06_startseite")

        schirm.klick(*BILD)
        warte(lambda: k.fenster_da("^Lektion 1$"), "das Fenster mit dem Lektionsbild")
        foto("07_lektionsbild")
        schirm.klick(60, 530)
        warte(lambda: not k.fenster_da("^Lektion 1$"), "das Lektionsbild geht zu")

        k.geh(START, "Stufe")
        text = ablage.stufentext(1)
        for lauf in range(3):
            prüfe(k.position() == 1, f"Durchgang {lauf + 1} beginnt nicht bei 1")
            schirm.tippe(text + "\n", 8)
            if lauf < 2:
                k.warte_position(1)
                prüfe(ablage.satz(STUFE, 4) in (ganz(0), ganz(1)), "die Stufe ist vor dem dritten Durchgang bestanden")
        k.warte_auf("Startseite")
        for satz, soll in ((LEKTION, ganz(1)), (STUFE, ganz(2)), (GENAUIGKEIT, doppelt(100.0))):
            ist = ablage.satz(satz, len(soll))
            prüfe(ist == soll, f"Satz {satz} ist {ist.hex(' ')} statt {soll.hex(' ')}")
        foto("08_naechste_stufe")

        k.geh(START, "Stufe")
        zweiter = ablage.stufentext(2)
        falsch = next(z for z in "xyq" if z != zweiter[8])
        schirm.tippe(zweiter[:8], 8)
        k.warte_position(9)
        schirm.tippe(falsch, 8)
        warte(lambda: k.rot(9), "der Fehler ist rot")
        prüfe(k.position() == 9, "ein Fehler bewegt die Marke")
        warte(lambda: (ablage.genauigkeit() or 100) < 100, "der Fehler kostet Genauigkeit")
        schirm.foto("09_stufe_fehler")
        k.geh(STUFE_ZURÜCK, "Startseite")
        prüfe(ablage.satz(STUFE, 4) == ganz(2), "das Verlassen der Stufe ändert den Stand")
        k.geh(ENDE, "Menü")
        k.geh(ENDE, "Endefrage")
        foto("10_ende")
        k.geh(NEIN, "Klassenliste")
        k.beenden()


def verweigerter_ordner(breite, höhe):
    with Schirm(breite, höhe) as schirm:
        ablage = Ablage(schirm.ordner / "Daten")
        ablage.als_datenablage(schirm)
        (ablage.pfad / "Gruppen" / "kme.ein").unlink()
        lauf = schirm.start()
        warte(lambda: schirm.fenster("^Kein zul"), "die Meldung über den Ordner")
        schirm.ruhe()
        schirm.foto("11_ordner_meldung")
        schirm.befehl("xdotool", "key", "Return")
        fenster = warte(lambda: schirm.fenster("^Datenablage$"), "das Fenster für den Ordner")
        warte(lambda: schirm.befehl("xdotool", "getactivewindow").strip() in fenster, "es hat die Tastatur")
        schirm.ruhe()
        schirm.foto("12_ordner")
        schirm.befehl("xdotool", "key", "alt+F4")
        warte(lambda: lauf.poll() is not None, "das Programm endet, wenn sein letztes Fenster zugeht")
        prüfe(lauf.poll() == 0, f"Rückgabewert {lauf.poll()} statt 0; Ausgabe: {schirm.ausgabe()[-1500:]}")


if __name__ == "__main__":
    ausführen({f"{art.__name__}_{b}x{h}": lambda a=art, b=b, h=h: a(b, h)
               for b, h in ((800, 600), (1920, 1080)) for art in (straße, verweigerter_ordner)})
