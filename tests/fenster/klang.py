"""What is heard: the real window and a sound server of its own, recorded."""

import contextlib
import os
import signal
import subprocess
import sys
import time

sys.dont_write_bytecode = True
from ablage import Ablage
from klopfmeise import ENDE, INFO, INFO_OK, JA, KLASSE_1, KURS, NAME_2, START, STUFE_ZURÜCK, ZURÜCK, Klopfmeise
from schirm import BUILD, PROGRAMM, Schirm, ausführen, prüfe, warte
from ton import Tonserver

KNOPF, FALSCH, GLOCKE = "knopf.wav", "falsch.wav", "typewriterding.wav"
ZEILE = "das kind tippt hier ohne hast"
prüfe(len(ZEILE) == 29, "Die Zeile muss mit Enter 30 Zeichen haben")
RUHE = 5.0  # seconds until the stream is stopped


@contextlib.contextmanager
def in_der_stufe(verzug=5, zeile=ZEILE):
    """The program in front of `zeile`, and the sound server; the clicks on the way have died away."""
    with Schirm(800, 600) as schirm:
        server = Tonserver(schirm, verzug)
        ablage = Ablage(schirm.ordner / "Daten")
        ablage.lektion([zeile, "zweite zeile"])
        k = Klopfmeise(schirm, ablage)
        k.zur_stufe()
        time.sleep(0.3)
        server.ab_jetzt()
        yield schirm, server, k


def namen(klänge):
    return [k.datei for k in klänge]


def nur_ganze(klänge, soll):
    prüfe(namen(klänge) == soll and all(klang.ganz for klang in klänge), f"statt {soll} klang {klänge}")


def alle_ganz(klänge):
    """Every sound is whole unless the next one cuts it, which follows without a gap."""
    for klang, nächster in zip(klänge, klänge[1:] + [None]):
        prüfe(klang.ganz or (nächster and nächster.von <= klang.bis),
              f"{klang} bricht ab, ohne dass ihn ein anderer ablöst: {klänge}")


def sechzig_gehört(schirm, server, k):
    server.ab_jetzt()
    schirm.tippe((ZEILE + "\n") * 2, 8)
    k.warte_position(1)
    klänge = server.gehört(1.5)
    prüfe(namen(klänge) == ([KNOPF] * 30 + [GLOCKE]) * 2, f"60 Tasten in zwei Zeilen klangen als {klänge}")
    prüfe(all(klang.ganz for klang in klänge if klang.datei == KNOPF), f"nicht jeder der 60 Klicks ist ganz: {klänge}")
    alle_ganz(klänge)
    # No key waits for a sound: the clicks come at the pace of the keys.
    dauer = klänge[-2].beginn - klänge[0].beginn
    prüfe(7.0 <= dauer <= 9.5, f"60 Tasten bei 8 je Sekunde klangen {dauer:.1f} s lang")


def sechzig_tasten_und_falsche():
    with in_der_stufe() as (schirm, server, k):
        sechzig_gehört(schirm, server, k)
        schirm.tippe(ZEILE[:3], 8)
        k.warte_position(4)
        time.sleep(0.3)
        server.ab_jetzt()
        for _ in range(5):
            schirm.tippe("x", 8)
            time.sleep(0.5)
        # In quick order each cuts the tone of the one before.
        schirm.tippe("xxx" + ZEILE[3], 6)
        klänge = server.gehört(0.8)
        nur_ganze(klänge[:10], [KNOPF, FALSCH] * 5)
        prüfe(namen(klänge[10:]) == [KNOPF, FALSCH] * 3 + [KNOPF] and not any(klang.ganz for klang in klänge[11:16:2]),
              f"drei falsche Tasten schnell nacheinander und eine richtige klangen als {klänge[10:]}")
        alle_ganz(klänge)


def gerät_eilt_voraus_und_ruht():
    """The sink is idle and has run 2 s ahead when the first click comes: nothing can be heard before, and nothing is
    lost. After a rest, in which the device can sleep, it is no longer so."""
    with in_der_stufe(verzug=None) as (schirm, server, k):
        server.aufnahme.anfang = 0
        nur_ganze(server.gehört(3), [KNOPF] * 4)
        prüfe(server.ströme() == (1, 0), f"nach dem letzten Klick sind Ströme offen und gestoppt: {server.ströme()}")
        time.sleep(RUHE)
        prüfe(server.ströme() == (0, 1), f"nach der Ruhe sind Ströme offen und gestoppt: {server.ströme()}")
        sechzig_gehört(schirm, server, k)


def jeder_knopf():
    with Schirm(800, 600) as schirm:
        server = Tonserver(schirm)
        k = Klopfmeise(schirm, Ablage(schirm.ordner / "Daten"))
        server.ab_jetzt()
        weg = ((INFO, "Infoseite"), (INFO_OK, "Klassenliste"), (KLASSE_1, "Namensliste"), (ZURÜCK, "Klassenliste"),
               (KLASSE_1, "Namensliste"), (NAME_2, "Menü"), (KURS, "Startseite"), (START, "Stufe"),
               (STUFE_ZURÜCK, "Startseite"), (ENDE, "Menü"), (ENDE, "Endefrage"))
        for ort, seite in weg:
            k.geh(ort, seite)
            time.sleep(0.2)
        # The last one is heard although the program ends with it and the server has no time at first.
        server.lauf.send_signal(signal.SIGSTOP)
        schirm.klick(*JA)
        time.sleep(0.3)
        k.läuft()
        server.lauf.send_signal(signal.SIGCONT)
        k.endet()
        nur_ganze(server.gehört(0.5), [KNOPF] * (len(weg) + 1))


def wellen_und_ihre_ruhe():
    """Whoever waits as long as a sound promises has heard it to its end: with a stream that is yet to be opened, with
    an open one, and with one stopped or closed meanwhile. Broken waves are silent, at once and without taking memory."""
    with Schirm(800, 600) as schirm:
        server = Tonserver(schirm)
        klick, glocke, ordner = BUILD / "wav" / KNOPF, BUILD / "wav" / GLOCKE, schirm.ordner
        (ordner / "riesig.wav").write_bytes(klick.read_bytes()[:40] + b"\xf0\xff\xff\xff")
        os.truncate(ordner / "riesig.wav", 3 << 30)
        (ordner / "kopf.wav").write_bytes(klick.read_bytes()[:44])
        (ordner / "ordner.wav").mkdir()
        os.mkfifo(ordner / "rohr.wav")
        schlechte = [ordner / f"{name}.wav" for name in ("riesig", "kopf", "ordner", "rohr", "fehlt")]
        gute = [klick, klick, glocke, klick, klick, glocke]
        server.ab_jetzt()
        lauf = schirm.starten(map(str, (PROGRAMM.with_name("klang_probe"), *schlechte, klick, 300, klick, glocke, 1600,
                                        klick, 3000, klick, 200, glocke)), stdout=subprocess.PIPE, text=True)
        for ströme in ((1, 0), (0, 1), (0, 0), (1, 0)):
            warte(lambda: server.ströme() == ströme, f"{ströme} Ströme sind offen und gestoppt", takt=0.03)
        zeilen = [list(map(float, zeile.split())) for zeile in lauf.communicate()[0].splitlines()]
        klänge = server.gehört()
        nur_ganze(klänge, [pfad.name for pfad in gute])
        prüfe(len(zeilen) == len(schlechte + gute), f"klang_probe sagt nur {zeilen}")
        stumm, gesagt = zeilen[:len(schlechte)], zeilen[len(schlechte):]
        prüfe(not any(länge for länge, _, _ in stumm), f"kaputte Wellen versprechen {stumm}")
        prüfe(zeilen[-1][2] < 100, f"sie nehmen {zeilen[-1][2]} MiB")
        # Where the stream is open already the promise is a short one.
        for klang, (länge, ende, _), dazu in zip(klänge, gesagt, (400, 150, 150, 400, 400, 150)):
            prüfe(klang.ende < ende, f"{klang} klingt noch {1000 * (klang.ende - ende):.0f} ms nach dem Warten")
            prüfe(länge < klang.dauer + dazu, f"auf {klang} wird {länge} ms gewartet")


def server_antwortet_nicht_oder_verschwindet():
    """The window keeps up all the while, and the keys are heard again, at the latest from the sixth on."""
    zeile = "das kind tippt hier ohne hast was es auf der seite sieht"[:55]
    with in_der_stufe(zeile=zeile) as (schirm, server, k):
        # Where there is none the end of the program is no matter of luck.
        subprocess.run([PROGRAMM.parent / "klang_probe", "--ende", BUILD / "wav" / KNOPF], check=True, timeout=30,
                       env=schirm.umgebung | {"PULSE_SERVER": f"unix:{schirm.ordner}/keiner"})
        stelle = 0

        def im_takt(anzahl, pause):
            nonlocal stelle
            for zeichen in zeile[stelle:stelle + anzahl]:
                schirm.tippe(zeichen, 8)
                beginn = time.monotonic()
                stelle += 1
                k.warte_position(stelle + 1)
                rückstand = time.monotonic() - beginn
                prüfe(rückstand < 0.6, f"die Marke kommt {rückstand:.1f} s nach der Taste an")
                time.sleep(pause)

        def wieder_gehört():
            server.ab_jetzt()
            im_takt(10, 0.4)
            klänge = server.gehört()
            prüfe(len(klänge) in range(5, 11), f"auf zehn Tasten nach der Rückkehr kamen {klänge}")
            nur_ganze(klänge, [KNOPF] * len(klänge))

        im_takt(5, 0)
        server.lauf.send_signal(signal.SIGSTOP)
        # Longer than the program waits for an answer, and than a try to connect anew takes.
        im_takt(13, 0.25)
        server.lauf.send_signal(signal.SIGCONT)
        warte(lambda: server.pactl("info"), "der Tonserver antwortet wieder")
        # What it still held when it was stopped.
        time.sleep(0.5)
        wieder_gehört()
        tipper = schirm.tippe_nebenher(zeile[stelle:stelle + 7], 8)
        time.sleep(0.3)
        schirm.töten(server.lauf)
        tipper.wait()
        stelle += 7
        im_takt(5, 0)
        server.starten()
        wieder_gehört()
        # The end of the program does not wait for it either.
        server.lauf.send_signal(signal.SIGSTOP)
        k.geh(STUFE_ZURÜCK, "Startseite")
        k.geh(ENDE, "Menü")
        k.geh(ENDE, "Endefrage")
        beginn = time.monotonic()
        schirm.klick(*JA)
        k.endet()
        prüfe(time.monotonic() - beginn < 1.5, f"das Ende dauert {time.monotonic() - beginn:.1f} s")


if __name__ == "__main__":
    ausführen(sechzig_tasten_und_falsche, gerät_eilt_voraus_und_ruht, jeder_knopf, wellen_und_ihre_ruhe,
              server_antwortet_nicht_oder_verschwindet)
