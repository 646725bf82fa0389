#!/bin/sh
# Lets LibreOffice open what the RTF writer wrote.
# rtf_libreoffice.sh PATH_OF_rtf_probe; exit code 77 where LibreOffice is not installed
set -eu
command -v soffice >/dev/null 2>&1 || { echo "rtf_libreoffice: no soffice, skipped"; exit 77; }
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir "$folder/there"
cat >"$folder/text.txt" <<'TEXT'
Grüße aus Köln: Käse, Öl und 3,50 € für „alles“ – ß
{geschweift} \rückwärts\ und ; Strichpunkt

	Tabulator	in der Zeile, Ελλάδα und 😀 dazu


Blocksatz mit vielen Wörtern, damit jede Schrift und jede Farbe einmal vorkommt
letzte Zeile
TEXT
"$1" "$folder/text.txt" "$folder/probe.rtf"
timeout 120 soffice "-env:UserInstallation=file://$folder/profile" --headless --convert-to "txt:Text (encoded):UTF8" \
    --outdir "$folder/there" "$folder/probe.rtf" >"$folder/messages" 2>&1 || { cat "$folder/messages"; exit 1; }
# LibreOffice ends lines with LF alone and begins with a byte order mark; the last line end is not compared.
even() { printf '%s\n' "$(tr -d '\r' <"$1" | sed '1s/^\xef\xbb\xbf//')"; }
even "$folder/text.txt" >"$folder/expected"
even "$folder/there/probe.txt" | diff -u "$folder/expected" - || { echo "rtf_libreoffice: the text differs"; exit 1; }
