#!/bin/sh
# Lets LibreOffice open what the RTF writer wrote, and the RTF reader what LibreOffice makes of it.
# rtf_libreoffice.sh PATH_OF_rtf_probe; exit code 77 where LibreOffice is not installed
set -eu
probe=$1
if ! command -v soffice >/dev/null 2>&1; then
    echo "rtf_libreoffice: soffice fehlt, übersprungen"
    exit 77
fi
ordner=$(mktemp -d)
trap 'rm -rf "$ordner"' EXIT
mkdir "$ordner/hin" "$ordner/rück"

wandle() {
    timeout 120 soffice "-env:UserInstallation=file://$ordner/profil" --headless \
        --convert-to "$1" --outdir "$2" "$3" >"$ordner/meldungen" 2>&1 || { cat "$ordner/meldungen"; exit 1; }
}
# LibreOffice ends lines with LF alone and begins with a byte order mark; the last line end is not compared.
eben() { tr -d '\r' <"$1" | sed '1s/^\xef\xbb\xbf//'; }
vergleiche() {
    eben "$1" >"$ordner/soll"
    eben "$2" >"$ordner/ist"
    diff -u "$ordner/soll" "$ordner/ist" || { echo "rtf_libreoffice: $3: der Text weicht ab"; exit 1; }
}

{
    printf '\357\273\277'
    cat <<'TEXT'
Grüße aus Köln: Käse, Öl und 3,50 € für „alles“ – ß
{geschweift} \rückwärts\ und ; Strichpunkt

	Tabulator	in der Zeile, Ελλάδα und 😀 dazu


Blocksatz mit vielen Wörtern, damit jede Schrift und jede Farbe einmal vorkommt
rechts zentriert und so weiter
letzte Zeile
TEXT
} >"$ordner/text.txt"

"$probe" schreiben "$ordner/text.txt" "$ordner/probe.rtf"
wandle "txt:Text (encoded):UTF8" "$ordner/hin" "$ordner/probe.rtf"
vergleiche "$ordner/text.txt" "$ordner/hin/probe.txt" "geschrieben"

wandle rtf "$ordner/rück" "$ordner/probe.rtf"
"$probe" lesen "$ordner/rück/probe.rtf" "$ordner/zurück.txt"
vergleiche "$ordner/text.txt" "$ordner/zurück.txt" "gelesen"
echo "rtf_libreoffice: in Ordnung"
