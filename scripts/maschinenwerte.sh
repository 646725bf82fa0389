#!/bin/sh
# Lays the machine-wide values: maschinenwerte.sh FILE DATAFOLDER (with a closing slash). Strings carry their terminator.
set -eu
mkdir -p "$(dirname "$1")"
printf '%s\r\n' 'Windows Registry Editor Version 5.00' '' '[HKEY_LOCAL_MACHINE\Software\Klopfmeise]' \
    "\"Datenablage\"=\"$2\"" '"Pin"="7294"' >"$1"
