"""The program as a person sees it: its pages told by their pixels, and the way from one to the next. Places are
in form coordinates, 800 by 600."""

import re

from schirm import prüfe, warte

GRAU, WEISS, SCHWARZ, BLASSROT, ROT = (192,) * 3, (255,) * 3, (0,) * 3, (236, 207, 200), (255, 0, 0)

KLASSE_1, NAME_1, NAME_2 = (300, 224), (300, 216), (300, 243)
KURS, START, LEHRKRAFT, INFO, ENDE = (239, 289), (396, 462), (618, 562), (688, 562), (758, 562)
ZURÜCK, JA, NEIN, INFO_OK, CODE_ZURÜCK, BILD = (695, 184), (331, 317), (464, 317), (590, 429), (604, 429), (400, 170)
STUFE_ZURÜCK, HILFE, KONTO = (618, 562), (688, 562), (393, 401)
ZELLEN = 56


def _zellenmitte(nummer):
    return (105 + 210 * (nummer - 1) + 112) / 15


def gleich(farbe, soll, spiel=4):
    return all(abs(a - b) <= spiel for a, b in zip(farbe, soll))


class Klopfmeise:
    """One started program on a display."""

    # Where a page shows a colour (the second is False: where it shows any other).
    zeichen = {
        "Klassenliste": [((544, 380), GRAU, False), ((300, 440), GRAU, True)],
        "Namensliste": [((300, 440), WEISS, True), ((544, 400), WEISS, True)],
        "Menü": [(KURS, GRAU, False), (KONTO, GRAU, False), ((300, 440), GRAU, True)],
        "Codefeld": [((330, 327), WEISS, True), (CODE_ZURÜCK, GRAU, False), ((200, 400), GRAU, True)],
        "Endefrage": [(JA, GRAU, False), (NEIN, GRAU, False), (KONTO, GRAU, True), ((200, 300), GRAU, True)],
        "Infoseite": [(INFO_OK, GRAU, False), ((235, 284), GRAU, False), ((330, 327), GRAU, True),
                      ((464, 317), GRAU, True)],
    }

    def __init__(self, schirm, ablage):
        self.schirm, self.ablage = schirm, ablage
        ablage.als_datenablage(schirm)
        self.lauf = schirm.start()
        self.warte_auf("Klassenliste")

    def zeigt(self, seite):
        farbe = self.schirm.farbe
        if seite == "Startseite":
            return gleich(farbe(140, 440), BLASSROT, 12) and gleich(farbe(640, 490), BLASSROT, 12)
        if seite == "Stufe":
            return self.position() > 0
        # All other pages lie in the grey frame in the middle of the title page.
        return gleich(farbe(152, 466), GRAU) and all(
            gleich(farbe(*stelle), soll) == so for stelle, soll, so in self.zeichen[seite])

    def läuft(self):
        prüfe(self.lauf.poll() is None, f"das Programm endete mit {self.lauf.poll()}; Ausgabe: {self.schirm.ausgabe()[-1500:]}")
        return True

    def warte_auf(self, seite):
        warte(lambda: self.läuft() and self.zeigt(seite), f"'{seite}' ist zu sehen")

    def geh(self, ort, seite):
        self.schirm.klick(*ort)
        self.warte_auf(seite)

    def zur_startseite(self):
        """From the class list as the child Mia, the second of the list."""
        self.geh(KLASSE_1, "Namensliste")
        self.geh(NAME_2, "Menü")
        self.geh(KURS, "Startseite")

    def zur_stufe(self):
        self.zur_startseite()
        self.geh(START, "Stufe")

    def position(self):
        """The column that blinks between black and grey, counted from 1; 0 if it is not just one."""
        farben = [self.schirm.farbe(_zellenmitte(i), 481) for i in range(1, ZELLEN + 1)]
        andere = [i for i, farbe in enumerate(farben, 1) if farbe != WEISS]
        return andere[0] if len(andere) == 1 and farben[andere[0] - 1] in (GRAU, SCHWARZ) else 0

    def rot(self, nummer):
        """True if the lower cell of a column tells an error."""
        return self.schirm.farbe(_zellenmitte(nummer), 475) == ROT

    def warte_position(self, nummer):
        warte(lambda: self.position() == nummer, f"die Marke steht bei {nummer}")

    def öffnet(self, ort, titel):
        """Clicks there; the windows of that title that come."""
        self.schirm.klick(*ort)
        return warte(lambda: self.schirm.fenster(f"^{titel}$"), f"das Fenster '{titel}'")

    def schließt(self, titel):
        self.schirm.klick(60, 530)
        warte(lambda: not self.schirm.fenster(f"^{titel}$"), f"'{titel}' geht zu")

    def beenden(self):
        """From a page that leads to the end question, through it."""
        self.geh(ENDE, "Endefrage")
        self.schirm.klick(*JA)
        self.endet()

    def endet(self, lauf=None):
        lauf = lauf or self.lauf
        warte(lambda: lauf.poll() is not None, "das Programm endet")
        text = self.schirm.ausgabe()
        prüfe(lauf.poll() == 0, f"Rückgabewert {lauf.poll()}; Ausgabe: {text[-1500:]}")
        # Nothing that a sanitizer or the toolkit has to complain of.
        klagen = re.findall(r".*(?:Sanitizer|runtime error|QWidget::|QObject::|QPainter::|ASSERT).*", text)
        prüfe(not klagen, f"Klagen in der Ausgabe: {klagen[:3]}")
