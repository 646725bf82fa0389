#!/usr/bin/env python3
"""Makes the handbook, one page to read and to print: machen.py ZIEL [--bilder ORDNER] [--kursheft DATEI]

A chapter in kapitel/ is HTML with a few elements of its own:
  <bild name="05_menue" alt="...">caption</bild>   a screenshot; without its file the page says so in its place
  <knopf name="knopf_info">                        the drawing of a button, beside the words that tell what it shows
  <plan/>, <stufe/>                                the table of lessons, and a stage as it lies in the data folder,
                                                   both from lektionen/
  <kursheft>words</kursheft>                       a link to the booklet of the course, where the build has made one
Numbers, contents list and headings' ids come from here."""

import argparse
import html
import pathlib
import re
import shutil
import unicodedata

HIER = pathlib.Path(__file__).resolve().parent
KURS = HIER.parent / "lektionen"
ZEICHNUNGEN = HIER.parent / "assets"
# The window tests take every picture in two sizes; in the small one letters are large beside the screen.
GRÖSSE = (800, 600)

BILD = re.compile(r'<bild name="([^"]+)" alt="([^"]+)">(.*?)</bild>', re.S)
KNOPF = re.compile(r'<knopf name="([^"]+)">')
KOPF = """<!DOCTYPE html>
<html lang="de">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>Klopfmeise: Handbuch für Lehrkräfte und Verwaltung</title>
<link rel="stylesheet" href="handbuch.css">
</head>
<body>
<a class="sprung" href="#inhaltstext">Zum Text springen</a>
"""


def kapitel():
    """The chapters in their order, each with its file name."""
    return [(datei.name, datei.read_text("utf-8")) for datei in sorted((HIER / "kapitel").glob("*.html"))]


def bildname(name):
    return f"{GRÖSSE[0]}x{GRÖSSE[1]}_{name}.png"


def kennung(überschrift):
    """An id as a person would write it into a link: "Eigene Texte" gives eigene-texte."""
    klein = re.sub(r"<[^>]+>", "", html.unescape(überschrift)).lower()
    for umlaut, lang in zip("äöüß", ("ae", "oe", "ue", "ss")):
        klein = klein.replace(umlaut, lang)
    rein = unicodedata.normalize("NFKD", klein).encode("ascii", "ignore").decode()
    return re.sub(r"[^a-z0-9]+", "-", rein).strip("-")


def lektionen():
    """(title, new keys, kind) of each lesson."""
    for datei in sorted(KURS.glob("Lektion*.txt")):
        kopf = dict(zeile.split(":", 1) for zeile in datei.read_text("utf-8").splitlines()[:3])
        yield tuple(kopf[wort].strip() for wort in ("Titel", "Tasten", "Art"))


def plan():
    def zeile(*felder):
        return "<tr>" + "".join(f"<td>{html.escape(feld) or '–'}</td>" for feld in felder) + "</tr>\n"
    kopf = "".join(f'<th scope="col">{wort}</th>' for wort in ("Lektion", "Titel", "Neue Tasten", "Art"))
    zeilen = "".join(zeile(str(nummer), *lektion) for nummer, lektion in enumerate(lektionen(), 1))
    return (f"<table>\n<caption>Die Lektionen des Kurses</caption>\n<thead><tr>{kopf}</tr></thead>\n"
            f"<tbody>\n{zeilen}</tbody>\n</table>")


def stufe():
    """The first stage of the course in the order of the data folder."""
    block = dict(zeile.split(": ", 1) for zeile in (KURS / "Lektion01.txt").read_text("utf-8").splitlines()[4:7])
    zeilen = "\n".join(["Unterstufe1", *(block[wort] for wort in ("Stufe", "Text", "Hinweis"))])
    return f"<pre><code>{html.escape(zeilen, quote=False)}</code></pre>"


class Buch:
    """The text of all chapters on its way to one page."""

    def __init__(self, bilder, kursheft):
        self.bilder, self.kursheft = bilder, kursheft
        self.bildnamen, self.fehlende, self.knöpfe, self.inhalt = [], [], [], []
        self.bildzahl = 0

    def bild(self, treffer):
        name, beschreibung, unterschrift = treffer.groups()
        if name not in self.bildnamen:
            self.bildnamen.append(name)
        if self.bilder and (self.bilder / bildname(name)).is_file():
            inhalt = (f'<img src="bilder/{name}.png" alt="{beschreibung}" width="{GRÖSSE[0]}" height="{GRÖSSE[1]}">')
        else:
            self.fehlende.append(name)
            inhalt = (f'<p class="fehlt">Hier steht ein Bildschirmfoto, sobald die Tests der Fenster gelaufen sind '
                      f'(<code>./test</code>). Zu sehen ist dann: {beschreibung}</p>')
        self.bildzahl += 1
        return f'<figure>\n{inhalt}\n<figcaption>Bild {self.bildzahl}: {unterschrift.strip()}</figcaption>\n</figure>'

    def knopf(self, treffer):
        self.knöpfe.append(treffer[1])
        return f'<img class="knopf" src="bilder/{treffer[1]}.svg" alt="" width="36" height="36">'

    def überschrift(self, treffer):
        stufe, eigene, worte = int(treffer[1]), treffer[2], treffer[3]
        name = eigene or kennung(worte)
        if stufe == 2:
            self.inhalt.append((worte, name, []))
            worte = f"{len(self.inhalt)}. {worte}"
        elif stufe == 3:
            self.inhalt[-1][2].append((worte, name))
        return f'<h{stufe} id="{name}">{worte}</h{stufe}>'

    def seite(self):
        teile = []
        for name, text in kapitel():
            text = BILD.sub(self.bild, text).replace("<plan/>", plan()).replace("<stufe/>", stufe())
            text = KNOPF.sub(self.knopf, text)
            # A browser would break an option behind its hyphens.
            text = re.sub(r"<code>([^<\s]{1,28})</code>", r'<code class="kurz">\1</code>', text)
            text = re.sub(r"<kursheft>(.*?)</kursheft>",
                          r'<a href="Kursheft.html">\1</a>' if self.kursheft else r"\1", text, flags=re.S)
            teile.append(re.sub(r'<h([2-4])(?: id="([^"]+)")?>(.*?)</h\1>', self.überschrift, text, flags=re.S))
        titel, rest = teile[0], teile[1:]

        def verweis(worte, name, unter=()):
            darunter = "<ol>" + "".join(verweis(*u) for u in unter) + "</ol>" if unter else ""
            return f'<li><a href="#{name}">{worte}</a>{darunter}</li>\n'
        verzeichnis = "".join(verweis(*eintrag) for eintrag in self.inhalt)
        kapiteltext = "".join(f"<section>\n{teil.strip()}\n</section>\n" for teil in rest)
        return (f'{KOPF}<header>\n{titel.strip()}\n</header>\n'
                f'<nav aria-labelledby="inhalt">\n<p id="inhalt">Inhalt</p>\n<ol>\n{verzeichnis}</ol>\n</nav>\n'
                f'<main id="inhaltstext">\n{kapiteltext}</main>\n</body>\n</html>\n')


def machen(ziel, bilder=None, kursheft=None):
    """Writes the handbook; the names of the pictures that were not there."""
    if kursheft and not kursheft.is_file():
        kursheft = None
    buch = Buch(bilder, kursheft)
    seite = buch.seite()
    # Nothing of an earlier run stays.
    shutil.rmtree(ziel, ignore_errors=True)
    (ziel / "bilder").mkdir(parents=True)
    for name in buch.bildnamen:
        if name not in buch.fehlende:
            shutil.copyfile(bilder / bildname(name), ziel / "bilder" / f"{name}.png")
    for name in set(buch.knöpfe):
        shutil.copyfile(ZEICHNUNGEN / f"{name}.svg", ziel / "bilder" / f"{name}.svg")
    if kursheft:
        shutil.copyfile(kursheft, ziel / "Kursheft.html")
    shutil.copyfile(HIER / "handbuch.css", ziel / "handbuch.css")
    (ziel / "index.html").write_text(seite, "utf-8")
    return buch.fehlende


def main():
    worte = argparse.ArgumentParser(description="Makes the handbook.")
    worte.add_argument("ziel", type=pathlib.Path)
    worte.add_argument("--bilder", type=pathlib.Path, help="folder of the window tests' screenshots")
    worte.add_argument("--kursheft", type=pathlib.Path, help="the booklet of the course, if it has been made")
    wahl = worte.parse_args()
    fehlende = machen(wahl.ziel, wahl.bilder, wahl.kursheft)
    if fehlende:
        print(f"Handbuch: {len(fehlende)} Bilder fehlen noch, ./test macht sie: {', '.join(fehlende)}")


if __name__ == "__main__":
    main()
