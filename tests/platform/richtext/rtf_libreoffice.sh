#!/bin/sh
# LibreOffice reads the same text from a letter and from what the RTF reader and writer make of it.
# rtf_libreoffice.sh PATH_OF_rtf_probe; exit code 77 where LibreOffice is not installed
set -eu
command -v soffice >/dev/null 2>&1 || { echo "rtf_libreoffice: no soffice, skipped"; exit 77; }
letter=$(dirname "$0")/documents/letter.rtf
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir "$folder/before" "$folder/after"
textOf() {
    timeout 120 soffice "-env:UserInstallation=file://$folder/profile" --headless \
        --convert-to "txt:Text (encoded):UTF8" --outdir "$folder/$2" "$1" >"$folder/messages" 2>&1 \
        || { cat "$folder/messages"; exit 1; }
}
"$1" <"$letter" >"$folder/letter.rtf"
textOf "$letter" before
textOf "$folder/letter.rtf" after
grep -q "aus Köln" "$folder/before/letter.txt"
diff -u "$folder/before/letter.txt" "$folder/after/letter.txt"
