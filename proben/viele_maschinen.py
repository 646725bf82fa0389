"""viele_maschinen.py BUILD: many machines and a teacher on one data folder, and the checker behind them."""

import shlex
import shutil
import sys
import time

sys.dont_write_bytecode = True
from schule import Probe, Schule, ganz

KLASSEN = 5


def besetzung(maschinen, kinder):
    """For each machine its class and children: six of ten are its own, two the teacher changes too, two are those of all
    machines of the class."""
    for i in range(maschinen):
        klasse = f"Klasse {i % KLASSEN + 1}"
        eigene = [f"Eigen {i}-{k}" for k in range(kinder - 4)]
        yield klasse, eigene + [f"Lehr {i}-{k}" for k in range(2)] + [f"Geteilt {k}" for k in range(2)]


def in_gästen(probe, gäste, arbeit):
    """Machines in guests (netz.sh) that have mounted the folder: each finds its orders there and leaves the diaries."""
    ort = probe.wahl.ort
    for nummer, gast in enumerate(gäste):
        zeilen = [" ".join(shlex.quote(str(w)) for w in ["/spieler", "--daten", "/netz/daten", "--werte", "/maschine.reg", "--tagebuch",
                                                         f"/tmp/{name}", "--wanduhr", 1, *worte]) + " &"
                  for name, worte in arbeit[nummer::len(gäste)]]
        entwurf = ort / f"{gast}.entwurf"
        entwurf.write_text("\n".join([*zeilen, "wait", ""]))
        entwurf.rename(ort / f"{gast}.sh")
    ende = time.monotonic() + probe.wahl.minuten * 60 + 600
    while not all((ort / f"{gast}.fertig").exists() for gast in gäste) and time.monotonic() < ende:
        time.sleep(1)
    for name, _ in arbeit:
        shutil.copy(ort / "tagebuecher" / name, probe.ordner)


def verderben(probe, vorher, jetzt, tagebücher):
    """The checker must find what is put wrong on purpose: one fault at a time in a copy."""
    eigenes, geteiltes = (sorted(jetzt.glob(f"Gruppen/Klasse 1/{name}*"))[0].relative_to(jetzt) for name in ("Eigen", "Geteilt"))
    text = "Data/Texte/Text_001.txt"

    def bytes_setzen(datei, satz, wert):
        inhalt = datei.read_bytes()
        datei.write_bytes(inhalt[:(satz - 1) * 128] + wert + inhalt[(satz - 1) * 128 + len(wert):])
    faults = {
        "ein anderer Wert": lambda d: bytes_setzen(d / eigenes, 36, b"\5\0\1"),
        "der Wert eines anderen Satzes": lambda d: bytes_setzen(d / eigenes, 50, ganz(7)),
        "ein überschriebener Wert": lambda d: bytes_setzen(d / geteiltes, 36, ganz(0) + bytes(6)),
        "zu kurz": lambda d: (d / eigenes).write_bytes((d / eigenes).read_bytes()[:-1]),
        "zu lang": lambda d: (d / geteiltes).write_bytes((d / geteiltes).read_bytes() + b"\0"),
        "ein halber Text": lambda d: (d / text).write_bytes((d / text).read_bytes()[:-5]),
        "eine fremde Datei": lambda d: (d / "Gruppen" / "Klasse 1" / "Rest.tmp").write_bytes(b""),
        "ein liegen gebliebener Entwurf": lambda d: (d / "Data" / "Texte" / ".klopfmeise-1-0").write_bytes(b""),
        "ein Konto fehlt": lambda d: (d / eigenes).unlink(),
        "ein Kurstext geändert": lambda d: (d / "Data" / "Tastatur" / "Lektion1.txt").write_bytes(b"1"),
        "Satz 106 zerrissen": lambda d: bytes_setzen(d / "Gruppen" / "Klasse 1" / "KME.ein", 106, b"\x07\0"),
    }
    for was, tun in faults.items():
        kopie = probe.ordner / "verdorben"
        shutil.copytree(jetzt, kopie)
        tun(kopie)
        gut, _ = probe.prüfen(vorher, kopie, *tagebücher)
        probe.melden(not gut, f"{was}: {'ÜBERSEHEN' if gut else 'gefunden'}")
        shutil.rmtree(kopie)


def main():
    probe = Probe(__doc__, maschinen=30, kinder=10, minuten=10.0, tempo=10.0, saat=1, zugang="", gäste="", netz="")
    wahl = probe.wahl
    if wahl.kurz:
        wahl.maschinen, wahl.kinder, wahl.minuten, wahl.tempo = 6, 6, 0.06, 0
    plätze = list(besetzung(wahl.maschinen, wahl.kinder))
    klassen = {}
    for klasse, kinder in plätze:
        klassen.setdefault(klasse, {}).update(dict.fromkeys(kinder))
    daten = (wahl.ort or probe.ordner) / "daten"
    Schule(daten, {klasse: tuple(kinder) for klasse, kinder in klassen.items()}, None if wahl.kurz else probe.kurs)
    vorher = shutil.copytree(daten, probe.ordner / "vorher")
    # Through several mounts each machine sees the folder by another client.
    zugänge = wahl.zugang.split(",") if wahl.zugang else [daten]
    gemeinsam = ["--sekunden", wahl.minuten * 60, "--tempo", wahl.tempo]
    arbeit = {f"maschine{i:02}": ["--saat", wahl.saat * 1000 + i] + [w for kind in kinder for w in ("--kind", f"{klasse}/{kind}")]
              for i, (klasse, kinder) in enumerate(plätze)}
    arbeit["lehrkraft"] = ["--nur", "lehrkraft", "--eigene", "Eigene", "--saat", wahl.saat]
    arbeit["lehrkraft"] += [wort for klasse in klassen for wort in ("--klasse", klasse)]
    if wahl.gäste:
        in_gästen(probe, wahl.gäste.split(","), [(name, [*worte, *gemeinsam]) for name, worte in arbeit.items()])
    else:
        läufe = [probe.spieler(zugänge[i % len(zugänge)], name, *worte, *gemeinsam) for i, (name, worte) in enumerate(arbeit.items())]
        for lauf in läufe:
            if lauf.wait() != 0:
                probe.melden(False, f"eine Maschine endete mit {lauf.returncode}")
    tagebücher = [probe.ordner / name for name in arbeit]
    netz = ["--netz"] if wahl.netz else []
    probe.melden(*probe.prüfen(vorher, daten, *netz, *tagebücher))
    if wahl.kurz:
        verderben(probe, vorher, daten, tagebücher)
    probe.ende()


if __name__ == "__main__":
    main()
