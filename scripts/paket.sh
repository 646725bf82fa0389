#!/bin/sh
# Builds the release, makes the Debian package of it and checks it: paket.sh. The package lies in build/release/ then.
set -eu
cd "$(dirname "$0")/.."
. scripts/pakete.sh
# shellcheck disable=SC2086
installieren $pakete_bauen $pakete_paket

cmake --preset release -G Ninja >/dev/null
cmake --build --preset release
# Its pictures are those that the tests of the windows took.
if ninja -C build/release -t query handbuch >/dev/null 2>&1; then
    cmake --build --preset release --target handbuch
fi
rm -f build/release/*.deb
cpack --preset release
paket=$(ls build/release/klopfmeise_*.deb)

fehler=0
# Tags that are explained in paket/lintian-overrides are not shown.
lintian --allow-root --tag-display-limit 0 --fail-on error,warning "$paket" || fehler=1
inhalt=$(mktemp -d)
trap 'rm -rf "$inhalt"' EXIT
dpkg-deb -x "$paket" "$inhalt"
desktop-file-validate "$inhalt"/usr/share/applications/*.desktop || fehler=1
appstreamcli validate --no-net "$inhalt"/usr/share/metainfo/*.metainfo.xml || fehler=1
for seite in "$inhalt"/usr/share/man/*/man1/*.gz; do
    meldungen=$(MANROFFSEQ='' LC_ALL=C.UTF-8 man --warnings -E UTF-8 -l -Tutf8 -Z "$seite" 2>&1 >/dev/null)
    [ -z "$meldungen" ] || { echo "$seite: $meldungen" >&2; fehler=1; }
done
LC_ALL=C du -sk "$inhalt"/usr/lib/klopfmeise "$inhalt"/usr/share/klopfmeise "$inhalt"/usr/share/doc/klopfmeise | sed "s#$inhalt##"
ls -l "$paket"
dpkg-deb -f "$paket" Package Version Installed-Size Depends Recommends
exit $fehler
