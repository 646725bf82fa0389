"""Looks through the accounts and settings of a data folder, and says what lies outside the range that is told for it."""

import math
import pathlib
import struct
import sys

SATZ = 128
ANGELEGT = 100
LEER, GANZ, LANG, EINFACH, DOPPELT, TEXT = 0, 2, 3, 4, 5, 8
ZAHLEN = {GANZ: "<h", LANG: "<i", EINFACH: "<f", DOPPELT: "<d"}
TEXTNAME = 106

# Number -> (types that the program may have written, lowest and highest value).
BEREICHE = {
    29: ({GANZ}, 0, 1), 30: ({GANZ}, 0, 1), 31: ({GANZ}, 0, 1),
    32: ({GANZ, LANG}, 0, 31), 33: ({GANZ, LANG}, 0, 12),
    34: ({GANZ, LANG}, 0, 50), 35: ({GANZ, LANG}, 0, 50),
    36: ({GANZ, DOPPELT}, 0, 100),
    37: ({GANZ, DOPPELT}, 0, 1e6), 38: ({GANZ, LANG}, 0, 1e6), 39: ({GANZ, EINFACH}, 0, 1e6),
    40: ({GANZ, LANG}, 0, 1e5), 41: ({GANZ, DOPPELT, TEXT}, 0, 1e5),
}


def wert(satz):
    """(type, value) at the beginning of a slot; no value where it is cut off or its type unknown."""
    if len(satz) < 4:
        return None, None
    marke, = struct.unpack("<H", satz[:2])
    if marke in ZAHLEN:
        länge = struct.calcsize(ZAHLEN[marke])
        daten = satz[2:2 + länge]
        return marke, struct.unpack(ZAHLEN[marke], daten)[0] if len(daten) == länge else None
    if marke == TEXT:
        länge, = struct.unpack("<H", satz[2:4])
        return marke, satz[4:4 + länge].decode("cp1252") if len(satz) >= 4 + länge else None
    return marke, 0 if marke == LEER else None


def konto(bytes_):
    """What is wrong with an account; one that was never used has its creation image."""
    fehler = []
    if not (ANGELEGT - 1) * SATZ < len(bytes_) <= ANGELEGT * SATZ:
        fehler.append(f"ist {len(bytes_)} Bytes lang")
    for nummer in range(1, ANGELEGT + 1):
        art, zahl = wert(bytes_[(nummer - 1) * SATZ:nummer * SATZ])
        arten, kleinste, größte = BEREICHE.get(nummer, ({GANZ}, 0, 0))
        if art == TEXT and zahl is not None:
            zahl = float(zahl.replace(",", ".")) if zahl.replace(",", "").isdigit() else None
        if art not in arten or zahl is None or not math.isfinite(zahl) or not kleinste <= zahl <= größte:
            fehler.append(f"Satz {nummer}: Art {art}, Wert {zahl}")
    return fehler


def einstellungen(bytes_, texte):
    fehler = [f"Satz {n}: {paar}" for n in range(1, ANGELEGT + 1)
              if (paar := wert(bytes_[(n - 1) * SATZ:n * SATZ])) not in ((GANZ, 0), (GANZ, 1))]
    rest = bytes_[(TEXTNAME - 1) * SATZ:]
    länge, = struct.unpack("<H", rest[:2].ljust(2, b"\0"))
    name = rest[2:2 + länge].decode("cp1252")
    if len(rest) > SATZ or länge != len(name) or (name and name not in texte):
        fehler.append(f"Satz {TEXTNAME}: Länge {länge}, Text {name!r}")
    return fehler


def ablage(ordner):
    """All that is wrong in a data folder: lines with the file's name. Also how many accounts and settings were looked at."""
    ordner = pathlib.Path(ordner)
    texte = {t.name for t in (ordner / "Data" / "Texte").iterdir()}
    fehler, gesehen = [], 0
    for datei in sorted((ordner / "Gruppen").rglob("*")):
        if datei.is_dir():
            continue
        gesehen += 1
        if datei.name.lower() == "kme.ein":
            gefunden = einstellungen(datei.read_bytes(), texte)
        elif datei.name.endswith("._"):
            gefunden = konto(datei.read_bytes())
        else:
            gefunden = ["gehört nicht hierher"]
        fehler += [f"{datei.relative_to(ordner)}: {f}" for f in gefunden]
    return fehler, gesehen


if __name__ == "__main__":
    gefunden, zahl = ablage(sys.argv[1])
    print("\n".join(gefunden) or f"{zahl} Dateien, alle Werte im Bereich")
    sys.exit(bool(gefunden))
