#!/usr/bin/env python3
"""Checks the handbook against the program: pruefen.py

Made into a folder of its own, the page must be sound (elements closed, headings in order, every picture described,
every link inside leading somewhere). Each picture must be one that a test of the windows takes. And what the handbook
says to be on the screen must stand in the sources to the letter: captions in <b>, messages in <q>, where an ellipsis
stands for what the program puts in. Commands and options of klopfmeise-verwaltung likewise."""

import ast
import html.parser
import pathlib
import re
import sys
import tempfile

sys.dont_write_bytecode = True
import machen

WURZEL = machen.HIER.parent
RÄUME = ("front", "course", "games", "teacher", "screens", "store")
OHNE_ENDE = {"meta", "link", "img", "br"}
LITERALE = re.compile(r'(?:L?"(?:[^"\\\n]|\\.)*"\s*)+')
EINZELN = re.compile(r'"((?:[^"\\\n]|\\.)*)"')


def glatt(text):
    return " ".join(text.split())


def literale(räume, ordner=WURZEL):
    """All strings of the sources, neighbours joined as the compiler does."""
    alle = set()
    for raum in räume:
        for datei in sorted([*(ordner / raum).glob("*.cpp"), *(ordner / raum).glob("*.h")]):
            for folge in LITERALE.findall(datei.read_text("utf-8")):
                text = "".join(EINZELN.findall(folge))
                alle.add(glatt(re.sub(r"\\(.)", lambda z: {"n": " ", "r": " "}.get(z[1], z[1]), text)))
    return alle


def fotos():
    """Of each test of the windows: the names that it takes as they stand, and if a name is put together of two parts
    (Spiel.foto), all strings that can be a part."""
    for datei in sorted((WURZEL / "tests" / "fenster").glob("*.py")):
        baum = ast.parse(datei.read_text("utf-8"))
        ganze, zusammengesetzt = set(), False
        for ruf in (k for k in ast.walk(baum) if isinstance(k, ast.Call) and isinstance(k.func, ast.Attribute)):
            if ruf.func.attr in ("foto", "foto_in_ruhe") and ruf.args:
                erstes = ruf.args[0]
                if isinstance(erstes, ast.Constant):
                    ganze.add(erstes.value)
                zusammengesetzt |= isinstance(erstes, ast.JoinedStr)
        teile = {k.value for k in ast.walk(baum) if isinstance(k, ast.Constant) and isinstance(k.value, str)}
        yield ganze, teile if zusammengesetzt else set()


def nicht_aufgenommen(namen):
    """Those that no test takes."""
    tests = list(fotos())

    def aufgenommen(name):
        halbe = [(name[:i], name[i + 1:]) for i, zeichen in enumerate(name) if zeichen == "_"]
        return any(name in ganze or any(vorn in teile and hinten in teile for vorn, hinten in halbe)
                   for ganze, teile in tests)
    return [name for name in sorted(namen) if not aufgenommen(name)]


class Leser(html.parser.HTMLParser):
    """The page taken apart; faults of its form are collected on the way."""

    def __init__(self):
        super().__init__()
        self.fehler, self.offen, self.ids, self.verweise, self.bilder = [], [], [], [], []
        self.knöpfe, self.meldungen, self.befehle, self.stufe, self.sprache = [], [], [], 0, ""

    def rüge(self, was):
        self.fehler.append(f"index.html:{self.getpos()[0]}: {was}")

    def handle_starttag(self, art, attribute):
        werte = dict(attribute)
        if art not in OHNE_ENDE:
            self.offen.append([art, ""])
        if "id" in werte:
            self.ids.append(werte["id"])
        self.verweise += [werte[wo] for wo in ("href", "src") if wo in werte]
        # A button's drawing stands beside words that say the same.
        if art == "img" and werte.get("class") != "knopf":
            self.bilder.append(werte.get("src", ""))
            if len(werte.get("alt", "")) < 20:
                self.rüge("Ein Bild ohne Beschreibung.")
        if art == "html":
            self.sprache = werte.get("lang", "")
        if art == "th" and "scope" not in werte:
            self.rüge("Eine Kopfzelle ohne scope.")
        if re.fullmatch("h[1-6]", art):
            if int(art[1]) > self.stufe + 1:
                self.rüge(f"Auf eine Überschrift der Stufe {self.stufe} folgt eine der Stufe {art[1]}.")
            self.stufe = int(art[1])
        if art in ("bild", "knopf", "plan", "stufe", "kursheft"):
            self.rüge(f"<{art}> ist nicht ersetzt worden.")

    def handle_startendtag(self, art, attribute):
        self.rüge(f"<{art}/> ist kein HTML.")

    def handle_data(self, text):
        for element in self.offen:
            element[1] += text

    def handle_endtag(self, art):
        if not self.offen or self.offen[-1][0] != art:
            self.rüge(f"</{art}> schließt nichts; offen ist {self.offen[-1][0] if self.offen else 'nichts'}.")
            return
        _, text = self.offen.pop()
        {"b": self.knöpfe, "q": self.meldungen, "code": self.befehle}.get(art, []).append(
            text if art == "code" else glatt(text))

    def close(self):
        super().close()
        self.fehler += [f"index.html: <{art}> bleibt offen." for art, _ in self.offen]
        self.fehler += [f"index.html: Die id {name} steht zweimal da." for name in self.ids if self.ids.count(name) > 1]
        if self.sprache != "de":
            self.fehler.append("index.html: Die Sprache ist nicht als Deutsch angegeben.")


def tote_verweise(seite, ordner):
    for ziel in seite.verweise:
        if ziel.startswith("#"):
            if ziel[1:] not in seite.ids:
                yield f"Der Verweis {ziel} führt nirgendwohin."
        elif re.match(r"[a-z]+:", ziel):
            yield f"Der Verweis {ziel} führt ins Netz."
        elif not (ordner / ziel).is_file():
            yield f"Die Datei {ziel} fehlt neben dem Handbuch."


def falsche_worte(seite):
    """Captions and messages that the program does not show."""
    bekannt = literale(RÄUME)
    for knopf in dict.fromkeys(seite.knöpfe):
        if knopf not in bekannt:
            yield f"Auf keinem Bild des Programms steht \"{knopf}\"."
    for meldung in dict.fromkeys(seite.meldungen):
        for teil in filter(None, map(str.strip, meldung.split("…"))):
            if not any(teil in text for text in bekannt):
                yield f"Keine Meldung enthält \"{teil}\"."


def falsche_befehle(seite):
    bekannt = literale(["verwaltung"])
    for zeile in (z for block in seite.befehle for z in block.splitlines() if "klopfmeise-verwaltung" in z):
        worte = zeile[zeile.index("klopfmeise-verwaltung"):].split()
        if len(worte) > 1 and worte[1] not in bekannt:
            yield f"klopfmeise-verwaltung hat keinen Befehl {worte[1]}."
    for option in sorted({o for block in seite.befehle for o in re.findall(r"(?<![-\w])--([a-z]+)", block)
                          if "klopfmeise-verwaltung" in block or block.startswith("--")} - {"help"}):
        if option not in bekannt:
            yield f"klopfmeise-verwaltung hat keine Option --{option}."


def main():
    with tempfile.TemporaryDirectory() as temp:
        ordner = pathlib.Path(temp)
        # Stand-ins for what the build and the tests make, so that every element comes out once.
        bilder = ordner / "aufnahmen"
        bilder.mkdir()
        namen = {name for _, text in machen.kapitel() for name, _, _ in machen.BILD.findall(text)}
        for name in namen:
            (bilder / machen.bildname(name)).write_bytes(b"PNG")
        heft = ordner / "Kursheft.html"
        heft.write_text("<!DOCTYPE html>", "utf-8")
        fehler = []

        # Without pictures the page must stand as well.
        for ziel, quellen in ((ordner / "ohne", (None, None)), (ordner / "mit", (bilder, heft))):
            fehlende = machen.machen(ziel, *quellen)
            seite = Leser()
            seite.feed((ziel / "index.html").read_text("utf-8"))
            seite.close()
            fehler += seite.fehler + list(tote_verweise(seite, ziel))
            stehen = len(set(seite.bilder))
            if set(fehlende) != (set() if quellen[0] else namen) or stehen != len(namen) - len(fehlende):
                fehler.append(f"Von {len(namen)} Bildern, {ziel.name} Aufnahmen: {len(fehlende)} fehlen, {stehen} stehen da.")
        fehler += [f"Kein Test der Fenster nimmt das Bild {name} auf." for name in nicht_aufgenommen(namen)]
        if not namen or not seite.knöpfe or not seite.meldungen or not seite.befehle:
            fehler.append("Das Handbuch nennt keine Bilder, Knöpfe, Meldungen oder Befehle: Die Prüfung sieht nichts.")
        fehler += falsche_worte(seite)
        # Where the command is not built there is nothing to hold against.
        if (WURZEL / "verwaltung").is_dir():
            fehler += falsche_befehle(seite)
        fehler = list(dict.fromkeys(fehler))
        print("".join(f"{was}\n" for was in fehler), end="", file=sys.stderr)
        print(f"Handbuch: {len(namen)} Bilder, {len(seite.verweise)} Verweise, "
              f"{len(set(seite.knöpfe))} Beschriftungen, {len(set(seite.meldungen))} Meldungen, {len(fehler)} Fehler.")
        return 1 if fehler else 0


if __name__ == "__main__":
    sys.exit(main())
