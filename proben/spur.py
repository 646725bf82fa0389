"""What the program touches: spur.py PROGRAM BUILD plays the roads of a child and of a teacher in real windows, with every
call that names a file written down, and looks through the list. The program writes in its data folder, in the file of the
machine, in the run-time folder of the user and in the caches of the libraries that it stands on; it loads code from its own
folder and the system's alone; it starts no other program."""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True
FENSTER = pathlib.Path(__file__).resolve().parent.parent / "tests" / "fenster"
NICHT_MÖGLICH = 77
ROADS = (("strasse", "straße_800x600"), ("strasse", "laufender_text_800x600"), ("lehrkraft", "lehrkraft_800x600"))
GERUFEN = ("openat,open,creat,openat2,mkdir,mkdirat,rmdir,unlink,unlinkat,rename,renameat,renameat2,link,linkat,symlink,symlinkat,"
           "mknod,mknodat,truncate,chmod,fchmodat,chown,lchown,fchownat,setxattr,lsetxattr,removexattr,utimensat,execve,execveat,"
           "chdir")
SYSTEM = ("/usr/lib/", "/lib/", "/lib64/")
ZEILE = re.compile(r"^\d+ +(\w+)\((.*)\) += (-?\d+)")
CODE = re.compile(r"\.so(\.[\d.]+)?$")


def geschrieben(name, rest):
    """The paths that a call writes, makes, moves or removes; none for one that only reads."""
    pfade = re.findall(r'"((?:[^"\\]|\\.)*)"', rest)
    if name in ("openat", "open", "openat2"):
        return pfade[:1] if re.search(r"O_WRONLY|O_RDWR|O_CREAT|O_TRUNC", rest) else []
    return [] if name in ("execve", "execveat", "chdir") else pfade[:2]


def durchsehen(spur, programm):
    """What is not as told in a list of calls, and how many calls there were, by what they did."""
    fehler, zahl, arbeit = [], dict.fromkeys(("Aufrufe", "geschrieben", "Code geladen"), 0), None
    eigene = str(programm.parent.resolve().parent)
    for zeile in spur.read_text(errors="surrogateescape").splitlines():
        treffer = ZEILE.match(zeile)
        if not treffer:
            continue
        name, rest, ergebnis = treffer[1], treffer[2], int(treffer[3])
        zahl["Aufrufe"] += 1
        if ergebnis < 0:
            continue
        if name in ("execve", "execveat"):
            if pathlib.Path(re.search(r'"([^"]*)"', rest)[1]).resolve() != programm.resolve():
                fehler.append(f"gestartet: {rest[:120]}")
            continue
        for pfad in geschrieben(name, rest):
            # Relative to the folder in which the test starts the program.
            pfad = os.path.normpath(os.path.join("ORDNER", pfad.encode().decode("unicode_escape").encode("latin-1").decode()))
            zahl["geschrieben"] += 1
            ordner = re.match(r"(?:ORDNER|/.*?/klopfmeise-fenster-[^/]+)(?:/|$)(.*)", pfad)
            innen = ordner[1] if ordner else None
            erlaubt = pfad.startswith("/dev/") or (innen is not None and (
                innen.startswith(("Daten/", "lauf/", "heim/.cache/")) or innen in ("Daten", "maschine.reg", "") or
                re.fullmatch(r"\.klopfmeise-\d+-\d+", innen)))
            if not erlaubt:
                fehler.append(f"{name} außerhalb: {pfad}")
        pfad = re.search(r'"((?:[^"\\]|\\.)*)"', rest)
        if name in ("openat", "open") and pfad and CODE.search(pfad[1]):
            zahl["Code geladen"] += 1
            echt = os.path.realpath(pfad[1])
            if not pfad[1].startswith("/") or not (echt.startswith(SYSTEM) or echt.startswith(eigene + "/")):
                fehler.append(f"Code aus {pfad[1]}")
    return fehler, zahl


def verfolgen(programm, build):
    with tempfile.TemporaryDirectory(prefix="klopfmeise-spur-") as ordner:
        hülle = pathlib.Path(ordner) / "fenster" / "klopfmeise"
        hülle.parent.mkdir()
        hülle.write_text(f"#!/bin/sh\nexec strace -f --seccomp-bpf -qq -s 4096 -e trace={GERUFEN} -o {ordner}/spur.$$ "
                         f"{programm} \"$@\"\n")
        hülle.chmod(0o755)
        for datei, fall in ROADS:
            subprocess.run([sys.executable, str(FENSTER / f"{datei}.py"), str(hülle), str(build), fall], check=True)
            for spur in pathlib.Path(ordner).glob("spur.*"):
                fehler, zahl = durchsehen(spur, programm)
                print(fall, zahl, flush=True)
                if not zahl["geschrieben"] or not zahl["Code geladen"]:
                    fehler.append("die Spur ist leer")
                if fehler:
                    shutil.copy(spur, build / f"spur_{fall}.txt")
                    sys.exit("\n".join(sorted(set(fehler))[:20]))
                spur.unlink()


if __name__ == "__main__":
    if not shutil.which("strace"):
        print("strace fehlt.")
        sys.exit(NICHT_MÖGLICH)
    verfolgen(pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve())
