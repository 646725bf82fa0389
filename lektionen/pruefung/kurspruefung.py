#!/usr/bin/env python3
"""What the course owes its children, as figures: kurspruefung.py LEKTIONEN [--lektion N] [--tabelle].

Reads LektionNN.txt and the free texts, prints a line for each rule that is broken (exit 1) and, without --lektion, the
table that stands in lektionen/README.md. With --lektion only what one lesson can tell by itself.
"""

import argparse
import collections
import os
import pathlib
import re
import subprocess
import sys
import textwrap

sys.dont_write_bytecode = True
HIER = pathlib.Path(__file__).parent
# Share of the letters in German texts, in percent (Beutelspacher, Kryptologie); umlauts counted by themselves.
DEUTSCH = dict(zip("enisratdhulcgmobwfkzvpßjyxqäöü",
                   (17.40, 9.78, 7.55, 7.27, 7.00, 6.51, 6.15, 5.08, 4.76, 4.35, 3.44, 3.06, 3.01, 2.53, 2.51, 1.89, 1.89,
                    1.66, 1.21, 1.13, .67, .79, .31, .27, .04, .03, .02, .54, .30, .65)))
SELTEN = set("jqxyöß")  # come again five times in five lessons, like the signs; the others ten times
LINKS, RECHTS = set("qwertasdfgyxcvb"), set("zuiophjklnmüöäß,.-")
VORSILBEN = ("ge", "be", "ver", "er", "ent", "zer", "un")
NACHSILBEN = ("ung", "heit", "keit", "lich", "ig", "isch", "schaft")
HINWEISBREITE = 51  # characters to a line of the start page
KOPF = {"Titel", "Art", "Tasten"}


class Stufe:
    def __init__(self, block):
        felder = {}
        for zeile in block:
            wort, punkt, rest = zeile.partition(": ")
            if punkt and wort in ("Stufe", "Hinweis", "Text") and wort not in felder:
                felder[wort] = rest
            else:
                felder["Text"] += " " + zeile
        self.titel, self.hinweis, self.text = felder["Stufe"], felder["Hinweis"], felder["Text"]


class Lektion:
    def __init__(self, nummer, datei):
        self.nummer = nummer
        kopf, *blöcke = datei.read_text(encoding="utf-8").strip().split("\n\n")
        felder = dict((zeile + " ").split(": ", 1) if ": " in zeile else (zeile.rstrip(":"), "") for zeile in kopf.split("\n"))
        assert set(felder) == KOPF, f"{datei.name}: Kopf"
        self.titel, self.fließt = felder["Titel"].strip(), felder["Art"].strip() != "Einzeiler"
        tasten = felder["Tasten"].split()
        self.umschalt = "Umschalt" in tasten
        self.tasten = [taste for taste in tasten if taste != "Umschalt"]
        self.stufen = [Stufe(block.split("\n")) for block in blöcke]

    def text(self):
        return "\n".join(stufe.text for stufe in self.stufen)

    def länge(self):
        return sum(len(stufe.text) for stufe in self.stufen)


def spanne(längen):
    return f"{min(längen)}" if min(längen) == max(längen) else f"{min(längen)} bis {max(längen)}"


def wörter(text):
    """The words of a text, without the signs around and in them; numbers and single letters are none."""
    return [wort for wort in re.findall(r"[A-Za-zÄÖÜäöüß]+", text) if len(wort) > 1]


class Wörterbuch:
    """Debian's hunspell-de-de and the course's own list of words that are right but unknown to it."""

    def __init__(self, alle):
        ausnahmen = (HIER / "ausnahmen.txt").read_text(encoding="utf-8").split()
        formen = {form for wort in alle for form in (wort, wort.lower(), wort.capitalize())}
        ruf = subprocess.run(["hunspell", "-d", "de_DE", "-i", "utf-8", "-l"], input="\n".join(sorted(formen)), text=True,
                             capture_output=True, check=True, env={**os.environ, "LC_ALL": "C.UTF-8"})
        self.bekannt = (formen - set(ruf.stdout.split("\n"))) | {f for a in ausnahmen for f in (a, a.lower())}

    def kennt(self, wort, klein):
        """Before capitals are taught every word stands in small letters; later spelling counts."""
        formen = {wort, wort.capitalize()} if klein else {wort, wort[0].lower() + wort[1:]}
        return len(wort) > 1 and bool(formen & self.bekannt)


def unbekannte(stufe, buch, klein):
    return [wort for wort in wörter(stufe.text) if not buch.kennt(wort, klein)]


def ist_wortstufe(stufe, buch, klein, einzelne=True):
    """Real words or word groups: at most one scrap in twelve that is none. Single letters are scraps while letters are
    being learnt; later they stand in km/h and geht's."""
    teile = [t for t in re.split(r"[^A-Za-zÄÖÜäöüß]+", stufe.text) if t and (len(t) > 1 or einzelne)]
    return bool(teile) and sum(not buch.kennt(teil, klein) for teil in teile) * 12 <= len(teile)


def handwechsel(text):
    """Share of neighbouring letters that are typed by different hands."""
    paare = [(a, b) for a, b in zip(text.lower(), text.lower()[1:]) if a in LINKS | RECHTS and b in LINKS | RECHTS]
    return sum((a in LINKS) != (b in LINKS) for a, b in paare) / max(1, len(paare))


class Prüfung:
    def __init__(self, ordner):
        self.ordner, self.fehler = ordner, []
        self.lektionen = []
        for n in range(1, 31):
            datei = ordner / f"Lektion{n:02}.txt"
            if datei.exists():
                self.lektionen.append(Lektion(n, datei))
        self.groß_ab = next((l.nummer for l in self.lektionen if l.umschalt), 31)
        self.buch = Wörterbuch({w for l in self.lektionen for w in wörter(l.text())})

    def rüge(self, wo, was):
        self.fehler.append(f"{wo}: {was}")

    def wortstufen(self, lektion):
        klein = lektion.nummer < self.groß_ab
        return [stufe for stufe in lektion.stufen if ist_wortstufe(stufe, self.buch, klein, lektion.nummer < 17)]

    def form(self, lektion):
        wo = f"Lektion {lektion.nummer}"
        if len(lektion.stufen) != 12:
            self.rüge(wo, f"{len(lektion.stufen)} Stufen statt 12")
        voll, klein = 0, lektion.nummer < self.groß_ab
        for s, stufe in enumerate(lektion.stufen, 1):
            hier = f"{wo}, Stufe {s}"
            if len(stufe.titel) > 50 or len(lektion.titel) > 50:
                self.rüge(hier, f"Titel mit {len(stufe.titel)} Zeichen (höchstens 50)")
            if len(stufe.hinweis) > 100 or len(textwrap.wrap(stufe.hinweis, HINWEISBREITE, break_on_hyphens=False)) > 2:
                self.rüge(hier, f"Hinweis passt nicht in zwei Zeilen ({len(stufe.hinweis)} Zeichen): {stufe.hinweis}")
            unten, oben = (120, 590) if lektion.fließt else (40, 55)
            if not unten <= len(stufe.text) <= oben:
                self.rüge(hier, f"{len(stufe.text)} Zeichen ({unten} bis {oben}): {stufe.text[-30:]}")
            voll += len(stufe.text) == 55
            if stufe.text != stufe.text.strip() or "  " in stufe.text:
                self.rüge(hier, "Leerzeichen am Rand oder doppelt")
            if not lektion.fließt and re.search(r"(?<![-.,]) [A-Za-zäöü]$", stufe.text) and lektion.nummer < 18:
                self.rüge(hier, "endet mit einem einzelnen Buchstaben, der nur füllt")
            if stufe in self.wortstufen(lektion) or lektion.fließt:
                fremd = unbekannte(stufe, self.buch, klein)
                if fremd:
                    self.rüge(hier, f"kein Wort? (sonst nach ausnahmen.txt): {' '.join(fremd)}")
            elif 5 <= lektion.nummer < 26 and 0 < len(fremd := unbekannte(stufe, self.buch, klein)) * 3 < len(wörter(stufe.text)):
                # Neither a stage of words nor a drill: words spelt wrongly hide like that.
                self.rüge(hier, f"meist Wörter, aber nicht alle: {' '.join(fremd)}")
            elif 5 <= lektion.nummer <= 16 and handwechsel(stufe.text) < .25:
                self.rüge(hier, f"Fingerübung mit nur {handwechsel(stufe.text):.0%} Wechseln der Hand")
        if not lektion.fließt and voll < 8:
            self.rüge(wo, f"nur {voll} Zeilen mit genau 55 Zeichen (8)")
        if 5 <= lektion.nummer <= 16 and len(self.wortstufen(lektion)) < 6:
            self.rüge(wo, f"nur {len(self.wortstufen(lektion))} Stufen mit Wörtern (6)")

    def eingeführt(self):
        """Every character with the lesson that brings it, capitals of known letters included."""
        seit, groß = {" ": 0}, False
        for lektion in self.lektionen:
            for taste in lektion.tasten:
                seit.setdefault(taste, lektion.nummer)
            groß = groß or lektion.umschalt
            if groß:
                for taste in list(seit):
                    if taste.isalpha() and taste != "ß":
                        seit.setdefault(taste.upper(), lektion.nummer)
        return seit

    def zeichen(self, lektion, seit):
        for stufe in lektion.stufen:
            fremd = {z for z in stufe.text if seit.get(z, 99) > lektion.nummer}
            if fremd:
                self.rüge(f"Lektion {lektion.nummer}, „{stufe.titel}“", f"noch nicht eingeführt: {' '.join(sorted(fremd))}")
        if len(lektion.tasten) > 6:
            self.rüge(f"Lektion {lektion.nummer}", f"{len(lektion.tasten)} neue Zeichen (höchstens 6)")
        for taste in lektion.tasten:
            stufen = sum(taste in stufe.text.lower() for stufe in lektion.stufen)
            if not lektion.fließt and stufen < 6:
                self.rüge(f"Lektion {lektion.nummer}", f"{taste} steht nur in {stufen} Stufen (6): Keine neue Taste kommt zu kurz")

    def plan(self, seit):
        for zeichen, spätestens in zip("enirthc", (5, 5, 7, 7, 7, 10, 10)):
            if seit.get(zeichen, 99) > spätestens:
                self.rüge("Plan", f"{zeichen} kommt erst in Lektion {seit.get(zeichen)}")
        erste = next(l.nummer for l in self.lektionen if l.fließt)
        for zeichen in "äöüß":
            if seit.get(zeichen, 99) > erste:
                self.rüge("Plan", f"{zeichen} kommt nach dem ersten Fließtext")
        for lektion in self.lektionen:
            tot, alt_gr = set("^´`") & set(lektion.tasten), set("@€{}[]\\~|²³") & set(lektion.tasten)
            if tot and alt_gr:
                self.rüge(f"Lektion {lektion.nummer}", "Tottasten und Alt Gr in einer Lektion")
        if sum(not (l.tasten or l.umschalt or l.fließt) for l in self.lektionen[:16]) < 2:
            self.rüge("Plan", "weniger als zwei Wiederholungen unter den ersten sechzehn")
        rest = {z for z in seit if z.lower() == z} - set(self.lektionen[-1].text().lower())
        if rest:
            self.rüge("Lektion 30", f"braucht nicht jede Taste: {' '.join(sorted(rest))}")

    def häufige(self):
        liste = (HIER / "haeufige_woerter.txt").read_text(encoding="utf-8").split()
        if len(set(liste)) != 200:
            self.rüge("haeufige_woerter.txt", f"{len(set(liste))} Wörter statt 200")
        stand = {}
        for grenze in (10, 16, 20):
            gesehen = {w for l in self.lektionen[:grenze] for w in wörter(l.text())}
            gesehen |= {w.lower() for w in gesehen}
            if grenze <= 16:
                gesehen |= {w.capitalize() for l in self.lektionen[:self.groß_ab - 1] for w in wörter(l.text())}
            stand[grenze] = [w for w in liste if w not in gesehen and w.lower() not in gesehen]
        if len(stand[16]) > 80:
            self.rüge("Häufige Wörter", f"bis Lektion 16 fehlen {len(stand[16])} von 200 (höchstens 80): {' '.join(stand[16])}")
        if stand[20]:
            self.rüge("Häufige Wörter", f"bis Lektion 20 fehlen: {' '.join(stand[20])}")
        return {grenze: 200 - len(fehlt) for grenze, fehlt in stand.items()}

    def silben(self):
        """The first stage that trains each prefix and each ending: named in its title, with four words of the kind."""
        für = {}
        for art, silben in (("Vorsilbe", VORSILBEN), ("Nachsilbe", NACHSILBEN)):
            for silbe in silben:
                name = silbe + "-" if art == "Vorsilbe" else "-" + silbe
                for lektion in self.lektionen:
                    for s, stufe in enumerate(lektion.stufen, 1):
                        hat = str.startswith if art == "Vorsilbe" else str.endswith
                        passend = [w for w in wörter(stufe.text.lower()) if hat(w, silbe) and len(w) > len(silbe) + 1]
                        if re.search(rf"(?<![\wäöü-]){re.escape(name)}(?!\w)", stufe.titel) and len(passend) >= 4:
                            für.setdefault(name, f"{lektion.nummer}/{s}")
                if name not in für:
                    self.rüge("Silben", f"keine Stufe mit {name} im Titel und vier solchen Wörtern")
        return für

    @staticmethod
    def soll(zeichen):
        häufig = zeichen in "0123456789,." or (zeichen.isalpha() and zeichen not in SELTEN)
        return 10 if häufig else 5

    def wiederkehr(self, seit):
        """What was taught comes again: small letters and signs in each five lessons that follow, capitals in sum."""
        zähler = [collections.Counter(l.text()) for l in self.lektionen]
        klein = [collections.Counter(l.text().lower()) for l in self.lektionen]
        knapp = {}
        for zeichen, lektion in seit.items():
            if zeichen.isalpha() and zeichen != zeichen.lower():
                danach = sum(z[zeichen] for z in zähler[lektion:])
                if danach < 5 and lektion < 30:
                    self.rüge("Wiederkehr", f"{zeichen} nach Lektion {lektion} nur {danach} mal (5)")
                continue
            if zeichen == " " or lektion >= 30:
                continue
            soll = self.soll(zeichen)
            for ab in range(lektion, max(lektion + 1, 26)):
                n = sum(z[zeichen] for z in klein[ab:ab + 5])
                knapp[zeichen] = min(knapp.get(zeichen, 1e9), n)
                if n < soll:
                    self.rüge("Wiederkehr", f"{zeichen} in den Lektionen {ab + 1} bis {min(ab + 5, 30)} nur {n} mal ({soll})")
            if not zeichen.isalnum() and not sum(z[zeichen] for z in zähler[28:]):
                self.rüge("Wiederkehr", f"{zeichen} fehlt in den Lektionen 29 und 30")
        return knapp

    def anteile(self, seit):
        """Letters of lessons 9 to 30, each without the lessons that train it. q, x and y have to come again more often
        than German has them; their upper bound is left out."""
        ergebnis = {}
        for zeichen, soll in DEUTSCH.items():
            texte = [l.text().lower() for l in self.lektionen if l.nummer >= 9 and zeichen not in l.tasten
                     and l.nummer > seit.get(zeichen, 0)]
            buchstaben = sum(z in DEUTSCH for text in texte for z in text)
            ist = 100 * sum(text.count(zeichen) for text in texte) / max(1, buchstaben)
            ergebnis[zeichen] = ist
            if ist < soll / 2 or (ist > soll * 2 and zeichen not in "qxy"):
                self.rüge("Anteile", f"{zeichen}: {ist:.2f} % gegen {soll} % im Deutschen")
        return ergebnis

    def paare(self):
        nötig = (HIER / "buchstabenpaare.txt").read_text(encoding="utf-8").split()
        alle = "\n".join(l.text() for l in self.lektionen).lower()
        fehlt = [paar for paar in nötig if paar not in alle]
        if fehlt:
            self.rüge("Buchstabenpaare", f"nirgends getippt: {' '.join(fehlt)}")
        return len(nötig), len(nötig) - len(fehlt)

    def längen(self):
        fließend = [l for l in self.lektionen if l.fließt]
        for davor, danach in zip(fließend, fließend[1:]):
            if danach.länge() <= davor.länge() or len(danach.stufen[0].text) <= len(davor.stufen[0].text):
                self.rüge(f"Lektion {danach.nummer}", "ist nicht länger als der Fließtext davor")
        for lektion in fließend:
            längen = [len(s.text) for s in lektion.stufen]
            if any(b < a * .9 for a, b in zip(längen, längen[1:])):
                self.rüge(f"Lektion {lektion.nummer}", f"wird unterwegs kürzer: {längen}")
        if fließend and not (120 <= len(fließend[0].stufen[0].text) <= 135):
            self.rüge("Längen", "die erste Stufe im ersten Fließtext hat nicht 120 bis 135 Zeichen")
        if fließend and not 575 <= len(fließend[-1].stufen[-1].text) <= 590:
            self.rüge("Längen", "die letzte Stufe des Kurses hat nicht 575 bis 590 Zeichen")

    def doppelt(self):
        for was in ("titel", "hinweis", "text"):
            zahl = collections.Counter(getattr(s, was) for l in self.lektionen for s in l.stufen)
            for inhalt, n in zahl.items():
                if n > 1:
                    self.rüge("Doppelt", f"{was}: {inhalt}")
        for titel, n in collections.Counter(l.titel for l in self.lektionen).items():
            if n > 1:
                self.rüge("Doppelt", f"Lektionstitel: {titel}")

    def tabelle(self, häufig, silben, knapp, anteile, paare):
        zeilen = ["| Lektion | Neue Tasten | Art | Stufen mit Wörtern | Zeichen der Stufen | Zeichen in allem |",
                  "|---|---|---|---|---|---|"]
        for l in self.lektionen:
            neu = " ".join(("\\" if t in "\\|_*`<>~[]" else "") + t for t in l.tasten) or ("Umschalt" if l.umschalt else "keine")
            längen = [len(s.text) for s in l.stufen]
            art = "Fließtext" if l.fließt else "Einzeiler"
            wort = 12 if l.fließt else len(self.wortstufen(l))
            zeilen.append(f"| {l.nummer} | {neu} | {art} | {wort} | {spanne(längen)} | {l.länge()} |")
        eng, selten = (sorted((n, z) for z, n in knapp.items() if self.soll(z) == soll)[:3] for soll in (10, 5))
        weit = sorted(((max(ist / DEUTSCH[z], DEUTSCH[z] / max(ist, 1e-9)), z) for z, ist in anteile.items() if z not in "qxy"),
                      reverse=True)[:3]
        zeilen += ["", "| Was | Wie viel |", "|---|---|",
                   *(f"| Von den 200 häufigsten Wörtern bis Lektion {g} | {n} |" for g, n in häufig.items()),
                   f"| Buchstabenpaare über 0,02 % im Deutschen, davon getippt | {paare[0]}, {paare[1]} |",
                   "| Seltenste Tasten in fünf Lektionen danach (Soll 10) | " + ", ".join(f"{z} {n}" for n, z in eng) + " |",
                   "| Seltenste seltene Buchstaben und Zeichen (Soll 5) | " +
                   ", ".join(("\\" if z in "|`*_~" else "") + f"{z} {n}" for n, z in selten) + " |",
                   "| Am weitesten vom Anteil im Deutschen (höchstens 2) | " +
                   ", ".join(f"{z} {f:.2f}".replace(".", ",") for f, z in weit) + " |",
                   "| Vorsilben und Nachsilben (Lektion/Stufe) | " + ", ".join(f"{s} {wo}" for s, wo in silben.items()) + " |"]
        return "\n".join(zeilen)


def main():
    frage = argparse.ArgumentParser()
    frage.add_argument("ordner", type=pathlib.Path)
    frage.add_argument("--lektion", type=int, action="append", help="nur, was eine Lektion für sich sagt")
    frage.add_argument("--readme", type=pathlib.Path, help="die Tabelle muss so in dieser Datei stehen")
    wahl = frage.parse_args()
    prüfung = Prüfung(wahl.ordner)
    seit = prüfung.eingeführt()
    for lektion in prüfung.lektionen:
        if not wahl.lektion or lektion.nummer in wahl.lektion:
            prüfung.form(lektion)
            prüfung.zeichen(lektion, seit)
            if wahl.lektion:
                wort = prüfung.wortstufen(lektion)
                print(f"Lektion {lektion.nummer}: {lektion.länge()} Zeichen, {len(wort)} Stufen mit Wörtern,",
                      "Längen", *(len(s.text) for s in lektion.stufen))
    prüfung.doppelt()
    if not wahl.lektion:
        prüfung.plan(seit)
        prüfung.längen()
        tabelle = prüfung.tabelle(prüfung.häufige(), prüfung.silben(), prüfung.wiederkehr(seit), prüfung.anteile(seit),
                                  prüfung.paare())
        print(tabelle)
        if wahl.readme and tabelle not in wahl.readme.read_text(encoding="utf-8"):
            prüfung.rüge(wahl.readme.name, "die Tabelle dort ist nicht die von heute")
    for fehler in prüfung.fehler:
        print(fehler, file=sys.stderr)
    return bool(prüfung.fehler)


if __name__ == "__main__":
    sys.exit(main())
