"""Locks a process out of all folders but some: whatever it does, it writes nowhere else. The kernel keeps the lock (Landlock),
it needs no rights, and everything that the process starts inherits it."""

import ctypes
import os
import struct

_ANLEGEN, _REGEL, _ANWENDEN = 444, 445, 446
_NO_NEW_PRIVS = 38
# Writing and cutting files; making and removing of every kind, and moving between folders.
_SCHREIBEN = 1 << 1 | sum(1 << n for n in range(4, 15))
_libc = ctypes.CDLL(None, use_errno=True)


def möglich():
    """True if this machine has the lock with all that it must hold (from its third version on)."""
    return _libc.syscall(_ANLEGEN, None, 0, 1) >= 3


def einsperren(*ordner):
    """This process and its children write in these folders alone from now on."""
    regeln = struct.pack("<Q", _SCHREIBEN)
    satz = _libc.syscall(_ANLEGEN, regeln, len(regeln), 0)
    if satz < 0:
        raise OSError(ctypes.get_errno(), "landlock_create_ruleset")
    for name in ordner:
        ort = os.open(name, os.O_PATH | os.O_CLOEXEC)
        if _libc.syscall(_REGEL, satz, 1, struct.pack("<Qi", _SCHREIBEN, ort), 0):
            raise OSError(ctypes.get_errno(), "landlock_add_rule", str(name))
        os.close(ort)
    if _libc.prctl(_NO_NEW_PRIVS, 1, 0, 0, 0) or _libc.syscall(_ANWENDEN, satz, 0):
        raise OSError(ctypes.get_errno(), "landlock_restrict_self")
    os.close(satz)
