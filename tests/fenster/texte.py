"""Running text through real windows: a flowing-text stage and a free text typed to their ends, with umlauts, capitals,
Alt Gr signs and Enter, an error and its correction; help and account view; a picture of each in <build>/bilder."""

import struct
import sys

sys.dont_write_bytecode = True
from ablage import DURCHGÄNGE, STUFE, Ablage, ganz
from klopfmeise import ENDE, KLASSE_1, KURS, NAME_2, SCHWARZ, START, WEISS, Klopfmeise, gleich
from schirm import Schirm, ausführen, prüfe, warte

TEXTE_GESAMT, ANSCHLÄGE = 40, 41
TEXT_TIPPEN, KONTO, HILFE = (316, 289), (393, 401), (688, 562)
# Right edge of the black frame around the text window, on the stage and in text typing.
RAHMEN_STUFE, RAHMEN_TEXT = (767, 450), (760, 450)

STUFENTEXT = ("Über Öl, Äpfel und Süßes: 5 € & 3 % {sagt} jan@schule.example [so] - und dann geht der Text noch "
              "weiter, damit er mehr als vier Zeilen hat und das Fenster rollt. Der Igel schnauft, die Amsel singt, "
              "und am Ende des Gartens steht ein alter Baum mit roten Kirschen.")
FREITEXT = ["Der Bär übt Ähren.", "Größe: 12 m² ~ fein!", "Ende"]


def fließend(texte):
    zeilen = [str(len(texte)), "Fließtext", "Probe"]
    for nummer, text in enumerate(texte, 1):
        zeilen += [f"Unterstufe{nummer}", "Titel", text, "Hinweis"]
    return "".join(z + "\r\n" for z in zeilen).encode("cp1252")


def rtf(zeilen):
    def byte(b):
        return f"\\'{b:02x}" if b > 126 or chr(b) in "\\{}" else chr(b)
    return ("{\\rtf1\\ansi " + "\\par ".join("".join(byte(b) for b in z.encode("cp1252")) for z in zeilen) + "}").encode()


def textseite(schirm, rahmen):
    """The text window is there: its black frame, white inside of it."""
    x, y = rahmen
    return gleich(schirm.farbe(x, y), SCHWARZ, 30) and gleich(schirm.farbe(x - 8, y + 60), WEISS)


def tippen(breite, höhe):
    with Schirm(breite, höhe) as schirm:
        ablage = Ablage(schirm.ordner / "Daten")
        (ablage.pfad / "Data" / "Tastatur" / "Lektion1.txt").write_bytes(fließend([STUFENTEXT, "Ende"]))
        (ablage.pfad / "Data" / "Texte" / "Text_001.txt").write_bytes(rtf(FREITEXT))
        ablage.satz_setzen(DURCHGÄNGE, ganz(1))
        k = Klopfmeise(schirm, ablage)

        k.zur_startseite()
        schirm.klick(*START)
        warte(lambda: textseite(schirm, RAHMEN_STUFE), "die Seite mit dem Fließtext")
        schirm.tippe(STUFENTEXT[:3] + "x", 8)
        warte(lambda: (ablage.genauigkeit() or 0) > 0, "die Genauigkeit ist im Konto")
        schirm.ruhe()
        schirm.foto("13_fliesstext_fehler")
        schirm.befehl("xdotool", "key", "BackSpace")
        schirm.tippe(STUFENTEXT[3:150], 8)
        schirm.ruhe()
        schirm.foto("14_fliesstext")
        schirm.tippe(STUFENTEXT[150:], 8)
        k.warte_auf("Startseite")
        prüfe(ablage.satz(STUFE, 4) == ganz(2), f"Stufe ist {ablage.satz(STUFE, 4).hex(' ')} statt 2")
        schirm.klick(*HILFE)
        warte(lambda: k.fenster_da("^Hilfe$"), "die Hilfe")
        schirm.ruhe()
        schirm.foto("15_hilfe")
        schirm.klick(20, 300)
        warte(lambda: not k.fenster_da("^Hilfe$"), "die Hilfe geht zu")
        k.geh(ENDE, "Menü")

        schirm.klick(*TEXT_TIPPEN)
        warte(lambda: textseite(schirm, RAHMEN_TEXT), "die Seite zum Text tippen")
        text = "\n".join(FREITEXT)
        schirm.tippe(text[:25], 8)
        schirm.ruhe(0, 0, 800, 405)
        schirm.foto("16_text_tippen")
        schirm.tippe(text[25:], 8)
        warte(lambda: ablage.satz(TEXTE_GESAMT, 4) == ganz(1), "der Text ist gezählt")
        marke, länge = struct.unpack("<hh", ablage.satz(ANSCHLÄGE, 4))
        prüfe(marke == 8 and ablage.satz(ANSCHLÄGE, 4 + länge)[4:].isdigit(), "der erste Schnitt ist kein Text aus Ziffern")
        bericht = warte(lambda: schirm.fenster("^Klopfmeise$"), "das Auswertungsblatt")
        prüfe(bericht, "kein Auswertungsblatt")
        schirm.ruhe(250, 150, 300, 250)
        schirm.foto("17_auswertung")
        schirm.klick(*ENDE)
        k.warte_auf("Menü")
        schirm.klick(*KONTO)
        # The account view covers the middle of the menu with white.
        warte(lambda: gleich(schirm.farbe(560, 300), WEISS), "der Kontostand")
        schirm.ruhe()
        schirm.foto("18_kontostand")
        schirm.klick(20, 300)
        k.warte_auf("Menü")
        k.beenden()


if __name__ == "__main__":
    ausführen({f"tippen_{b}x{h}": lambda b=b, h=h: tippen(b, h) for b, h in ((800, 600), (1920, 1080))})
