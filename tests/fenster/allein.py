"""allein.py PROGRAM [ARGUMENT...]: runs a program that draws into memory, in an environment of its own."""

import pathlib
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True
from schirm import eigene_umgebung

with tempfile.TemporaryDirectory(prefix="klopfmeise-allein-") as ordner:
    umgebung = {**eigene_umgebung(pathlib.Path(ordner)), "QT_QPA_PLATFORM": "offscreen", "LC_ALL": "C.UTF-8"}
    code = subprocess.run(sys.argv[1:], env=umgebung).returncode
if code < 0:
    print(f"{sys.argv[1]} endete durch Signal {-code}", file=sys.stderr)
sys.exit(code if code >= 0 else 1)
