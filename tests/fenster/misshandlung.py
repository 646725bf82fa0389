"""What children, school networks and power switches do to the program: very fast typing, special characters, held
keys, sudden death, a data folder that goes and comes, a second start."""

import contextlib
import os
import random
import struct
import sys
import time

sys.dont_write_bytecode = True
from ablage import DURCHGÄNGE, GENAUIGKEIT, LEKTION, SATZ, STUFE, Ablage, ganz
from klopfmeise import ENDE, INFO, INFO_OK, START, STUFE_ZURÜCK, Klopfmeise
from schirm import FRIST, Schirm, ausführen, prüfe, warte

VOLLE_ZEILE = "das schnelle kind tippt jede zeile ohne einen fehler ab"
prüfe(len(VOLLE_ZEILE) == 55, "Die Zeile muss 55 Zeichen haben")


@contextlib.contextmanager
def in_der_stufe(*zeilen):
    """The program on a display, with a child in front of the first of `zeilen`, each passed by one faultless run."""
    with Schirm(800, 600) as schirm:
        ablage = Ablage(schirm.ordner / "Daten")
        ablage.lektion([*zeilen, "die letzte"])
        ablage.satz_setzen(DURCHGÄNGE, ganz(1))
        k = Klopfmeise(schirm, ablage)
        k.zur_stufe()
        yield schirm, ablage, k
        k.geh(ENDE, "Menü")
        k.beenden()


def bestanden(k, ablage, stufe=1):
    k.warte_auf("Startseite")
    prüfe(ablage.genauigkeit() == 100.0, f"Genauigkeit {ablage.genauigkeit()}: eine Taste ging verloren, kam doppelt "
                                         "oder in falscher Reihenfolge an")
    prüfe(ablage.satz(STUFE, 4) == ganz(stufe + 1), "der fehlerlose Durchgang zählt nicht")


def schnelle_und_seltene_tasten():
    selten = ("äöüßÄÖÜ Ja! §$%&/()=? Über °C: 5;3_-.,+*#'<>", "a@b €5 {x} [y] \\ | ~ ² ³ µ ´ ` ^ ê é à Ô \" x")
    with in_der_stufe(VOLLE_ZEILE, *selten) as (schirm, ablage, k):
        beginn = time.monotonic()
        schirm.tippe(VOLLE_ZEILE + "\n", 20)
        bestanden(k, ablage)
        dauer = time.monotonic() - beginn
        # Each of the 56 keys keeps its frame for a tenth of a second.
        prüfe(dauer >= 5.6, f"die Zeile war schon nach {dauer:.1f} s durch: Tasten leuchten nicht auf")
        for stufe, zeile in enumerate(selten, 2):
            k.geh(START, "Stufe")
            for nummer, zeichen in enumerate(zeile, 1):
                schirm.tippe(zeichen, 30)
                k.warte_position(nummer + 1)
            schirm.tippe("\n", 30)
            bestanden(k, ablage, stufe)


def gehaltene_taste():
    zeile = "f" * 50 + "jkjk"
    with in_der_stufe(zeile) as (schirm, ablage, k):
        # More than once, as it depends on the moment whether the toolkit knows a repeat for what it is.
        for mal in range(3):
            vorher = k.position()
            # The display repeats after 0.2 s, 33 times a second; the program takes at most 10 of them.
            beginn = time.monotonic()
            schirm.befehl("xdotool", "-", eingabe="keydown --delay 0 41\nsleep 1\nkeyup --delay 0 41\n")
            dauer = time.monotonic() - beginn
            # Of the marks alone, as their blinking does not let the page rest; 0 while they are being painted.
            zuletzt = jetzt = 0
            while not jetzt or jetzt != zuletzt:
                zuletzt = jetzt
                time.sleep(0.5)
                jetzt = k.position()
                prüfe(time.monotonic() - beginn < FRIST, "die Marke kommt nicht zur Ruhe")
            prüfe(3 <= zuletzt - vorher <= 10 * dauer + 2,
                  f"{mal + 1}. Halten: nach {dauer:.1f} s lief die Marke um {zuletzt - vorher} Plätze, "
                  "Wiederholungen stauen sich")
        schirm.tippe(zeile[zuletzt - 1:] + "\n", 15)
        bestanden(k, ablage)


def plötzliches_ende():
    saat = int.from_bytes(os.urandom(4), "little")
    zufall = random.Random(saat)
    eigene = {LEKTION, STUFE, GENAUIGKEIT}
    gelesen = {29, 30, 31, DURCHGÄNGE, 35}
    with Schirm(800, 600) as schirm:
        ablage = Ablage(schirm.ordner / "Daten")
        ablage.lektion([VOLLE_ZEILE, "zweite zeile"])
        for satz in sorted(set(range(1, 101)) - eigene - gelesen):
            ablage.satz_setzen(satz, struct.pack("<hd", 5, zufall.random()) + zufall.randbytes(SATZ - 10))
        vorher = ablage.konto().read_bytes()
        for mal in range(8):
            k = Klopfmeise(schirm, ablage)
            k.zur_stufe()
            tipper = schirm.tippe_nebenher(VOLLE_ZEILE, 20)
            # Wrong keys at the start do not count, so the first right key is the earliest that writes.
            warte(lambda: k.position() > 1, "die erste Taste kommt an")
            time.sleep(zufall.uniform(0, 2.2))
            k.läuft()
            schirm.töten(k.lauf)
            schirm.hände_weg(tipper)
            nachher = ablage.konto().read_bytes()
            anders = {i // SATZ + 1 for i, (a, b) in enumerate(zip(vorher, nachher)) if a != b}
            wo = f"nach dem {mal + 1}. plötzlichen Ende (Saat {saat})"
            prüfe(len(nachher) == len(vorher), f"{wo} ist die Datei {len(nachher)} statt {len(vorher)} Bytes lang")
            prüfe(anders <= eigene, f"{wo} sind die Sätze {anders} verändert")
            prüfe(ablage.genauigkeit() == 100.0, f"{wo} ist die Genauigkeit {ablage.genauigkeit()}")
            prüfe(ablage.satz(STUFE, 4) in (ganz(0), ganz(1)), f"{wo} steht eine andere Stufe in der Datei")
        k = Klopfmeise(schirm, ablage)
        k.zur_stufe()
        k.geh(STUFE_ZURÜCK, "Startseite")
        k.geh(ENDE, "Menü")
        k.beenden()


def ordner_geht_und_kommt():
    zeile = "der ordner ist weg"
    with in_der_stufe(zeile) as (schirm, ablage, k):
        weg = ablage.pfad.with_name("Woanders")
        schirm.tippe(zeile[:4])
        k.warte_position(5)
        ablage.pfad.rename(weg)
        schirm.tippe(zeile[4:9])
        k.warte_position(10)
        prüfe(not ablage.pfad.exists(), "das Programm legt den fehlenden Ordner neu an")
        weg.rename(ablage.pfad)
        schirm.tippe(zeile[9:] + "\n")
        bestanden(k, ablage)
        # This time it is still away when the run ends.
        k.geh(START, "Stufe")
        schirm.tippe("di")
        k.warte_position(3)
        ablage.pfad.rename(weg)
        schirm.tippe("e letzte\n")
        k.warte_auf("Startseite")
        schirm.klick(*START)
        schirm.ruhe()
        prüfe(k.läuft() and k.zeigt("Startseite"), "START führt ohne Datenordner von der Startseite weg")
        weg.rename(ablage.pfad)
        prüfe(ablage.satz(STUFE, 4) == ganz(2), "ohne Datenordner wurde eine Stufe bestanden")


def zweiter_start():
    with Schirm(800, 600) as schirm:
        k = Klopfmeise(schirm, Ablage(schirm.ordner / "Daten"))
        vorher = set(schirm.fenster("^Klopfmeise$"))
        zweiter = schirm.start()
        schirm.warte_tastatur(warte(lambda: set(schirm.fenster("^Klopfmeise$")) - vorher, "die Meldung des zweiten Starts"),
                              "die Meldung")
        prüfe(zweiter.poll() is None, "der zweite Start wartet nicht auf eine Antwort")
        schirm.taste("Return")
        k.endet(zweiter)
        k.geh(INFO, "Infoseite")
        k.geh(INFO_OK, "Klassenliste")
        k.zur_startseite()
        k.geh(ENDE, "Menü")
        k.beenden()


if __name__ == "__main__":
    ausführen(schnelle_und_seltene_tasten, gehaltene_taste, plötzliches_ende, ordner_geht_und_kommt,
              zweiter_start)
