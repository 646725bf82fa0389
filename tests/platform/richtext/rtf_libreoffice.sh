#!/bin/sh
# Lets LibreOffice open what the RTF writer wrote, and the RTF reader what LibreOffice makes of it.
# rtf_libreoffice.sh PATH_OF_rtf_probe; exit code 77 where LibreOffice is not installed
set -eu
probe=$1
if ! command -v soffice >/dev/null 2>&1; then
    echo "rtf_libreoffice: no soffice, skipped"
    exit 77
fi
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir "$folder/there" "$folder/back"

convert() {
    timeout 120 soffice "-env:UserInstallation=file://$folder/profile" --headless \
        --convert-to "$1" --outdir "$2" "$3" >"$folder/messages" 2>&1 || { cat "$folder/messages"; exit 1; }
}
# LibreOffice ends lines with LF alone and begins with a byte order mark; the last line end is not compared.
even() { printf '%s\n' "$(tr -d '\r' <"$1" | sed '1s/^\xef\xbb\xbf//')"; }
compare() {
    even "$1" >"$folder/expected"
    even "$2" >"$folder/actual"
    diff -u "$folder/expected" "$folder/actual" || { echo "rtf_libreoffice: $3: the text differs"; exit 1; }
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
} >"$folder/text.txt"

"$probe" write "$folder/text.txt" "$folder/probe.rtf"
convert "txt:Text (encoded):UTF8" "$folder/there" "$folder/probe.rtf"
compare "$folder/text.txt" "$folder/there/probe.txt" "written"

convert rtf "$folder/back" "$folder/probe.rtf"
"$probe" read "$folder/back/probe.rtf" "$folder/back.txt"
compare "$folder/text.txt" "$folder/back.txt" "read"
echo "rtf_libreoffice: in order"
