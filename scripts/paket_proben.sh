#!/bin/sh
# Tries the package, as root: paket_proben.sh [nackt] [doppelt].
#   nackt    on a bare Debian 12: installed, used by a teacher and a child, upgraded, removed, installed anew, purged
#   doppelt  two builds in different places and surroundings give the same package
# Not part of ./test: it fetches a whole system, and builds everything twice.
set -eu
cd "$(dirname "$0")/.."
. scripts/pakete.sh
[ "$(id -u)" = 0 ] || { echo "paket_proben.sh braucht die Rechte des Administrators (chroot)." >&2; exit 1; }
probe=$(mktemp -d /tmp/klopfmeise-probe.XXXXXX)
nackt=$probe/nackt
aufraeumen() {
    for was in proc dev/pts; do
        mountpoint -q "$nackt/$was" && umount "$nackt/$was"
    done
    rm -rf --one-file-system "$probe"
}
trap aufraeumen EXIT
trap 'exit 1' INT TERM

gut() { echo "gut $*"; }
schlecht() { echo "SCHLECHT $*" >&2; exit 1; }
# gleich WAS GELESEN ERWARTET
gleich() { [ "$2" = "$3" ] || schlecht "$1: '$2' statt '$3'"; }
im() { chroot "$nackt" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LANG=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"; }

# A folder with all that is in it, by name, rights, owner, time and content.
abdruck() {
    im sh -c 'for ort; do
        find "$ort" -printf "%p %M %u %g %T@ %l\n" | LC_ALL=C sort
        find "$ort" -type f -exec sha256sum {} + | LC_ALL=C sort
    done' abdruck "$@"
}
schuldaten() { abdruck /etc/klopfmeise /var/lib/klopfmeise; }
installieren_im() {
    cp "$1" "$nackt/root/"
    im apt-get install -y -qq --no-install-recommends "/root/${1##*/}" >"$probe/apt.log" 2>&1 || { cat "$probe/apt.log"; schlecht "Installieren"; }
}
fenster() { python3 tests/fenster/nackt.py "$nackt" build/release "$1" || schlecht "$1"; }

# neuere PAKET ZIEL: the same package as a later one, with a lesson and the example of the values changed.
neuere() {
    dpkg-deb -R "$1" "$probe/neuer"
    sed -i 's/^Version: .*/&+neuer/' "$probe/neuer/DEBIAN/control"
    echo "neu" >>"$probe/neuer/usr/share/klopfmeise/Klopfmeise/Data/Tastatur/Lektion1.txt"
    echo "; neu" >>"$probe/neuer/usr/share/klopfmeise/maschine.reg"
    (cd "$probe/neuer" && find usr -type f -exec md5sum {} + >DEBIAN/md5sums)
    dpkg-deb --root-owner-group -b "$probe/neuer" "$2" >/dev/null
}

nackte_probe() {
    # shellcheck disable=SC2086
    installieren $pakete_probe
    scripts/paket.sh >"$probe/paket.log" 2>&1 || { cat "$probe/paket.log"; schlecht "scripts/paket.sh"; }
    paket=$(ls "$PWD"/build/release/klopfmeise_*.deb)
    gut "gebaut und von lintian, desktop-file-validate, appstreamcli und man nicht beanstandet: ${paket##*/}"

    mkdir -p build/paketprobe
    basis=build/paketprobe/debian12.tar
    spiegel=$(sed -n 's/^URIs: *\([^ ]*\).*/\1/p; s/^deb [^h]*\(http[^ ]*\).*/\1/p' /etc/apt/sources.list /etc/apt/sources.list.d/* 2>/dev/null |
        grep '/debian/*$' | head -n 1)
    if [ ! -f "$basis" ]; then
        debootstrap --variant=minbase bookworm "$probe/basis" "${spiegel:-http://deb.debian.org/debian}" >"$probe/basis.log" 2>&1 ||
            { tail -n 20 "$probe/basis.log"; schlecht "debootstrap"; }
        tar -C "$probe/basis" -cf "$basis.neu" .
        mv "$basis.neu" "$basis"
        rm -rf "$probe/basis"
    fi
    mkdir "$nackt"
    tar -C "$nackt" -xpf "$basis"
    cp /etc/resolv.conf "$nackt/etc/" 2>/dev/null || :
    mount -t proc proc "$nackt/proc"
    im apt-get update -qq
    im useradd -m lehrer
    im useradd -m kind
    gut "ein nacktes Debian $(cat "$nackt/etc/debian_version") mit $(im dpkg-query -W | wc -l) Paketen"

    leer=$(im du -skx / | cut -f1)
    installieren_im "$paket"
    im apt-get clean
    grep '^Klopfmeise:' "$probe/apt.log"
    gut "installiert, nun $(im dpkg-query -W | wc -l) Pakete; $(($(im du -skx / | cut -f1) - leer)) KiB mehr auf der Platte"
    echo "   davon das Paket selbst: $(im sh -c 'dpkg -L klopfmeise | while read -r f; do [ -d "$f" ] || printf "%s\0" "$f"; done |
        du -skc --files0-from=- | tail -n 1 | cut -f1') KiB, die Datenablage $(im du -sk /var/lib/klopfmeise | cut -f1) KiB"
    gleich "die Werte des Rechners" "$(im sha256sum </dev/null /etc/klopfmeise/maschine.reg | cut -d' ' -f1)" \
        "$(im sha256sum /usr/share/klopfmeise/maschine.reg | cut -d' ' -f1)"
    gleich "ihre Rechte" "$(im stat -c '%a %U' /etc/klopfmeise/maschine.reg)" "644 root"
    gleich "die Datenablage" "$(im stat -c '%a' /var/lib/klopfmeise/Klopfmeise)" 1777
    gleich "was in der Datenablage nicht alle schreiben dürfen" "$(im find /var/lib/klopfmeise/Klopfmeise ! -perm -0006)" ""
    im diff -r /usr/share/klopfmeise/Klopfmeise /var/lib/klopfmeise/Klopfmeise || schlecht "die Datenablage ist nicht die Vorlage"
    gleich "was von der Vorlage andere schreiben dürfen" "$(im find /usr/share/klopfmeise -perm /0022 ! -type l)" ""
    gleich "fehlende Bibliotheken" "$(im ldd /usr/lib/klopfmeise/klopfmeise /usr/lib/klopfmeise/klopfmeise_sound.so | grep 'not found' || :)" ""
    gut "Werte und Datenablage liegen da, mit Schreibrecht für alle"
    # The handbook is a part of its own, made where there are pictures for it.
    if [ -d build/release/handbuch ]; then
        [ -f "$nackt/usr/share/doc/klopfmeise/handbuch/index.html" ] || schlecht "das Handbuch fehlt"
    else
        echo "   ohne Handbuch gebaut"
    fi

    fenster lehrkraft_legt_an
    fenster kind_tippt

    # What an administrator and a school have by now.
    im sed -i 's/"Pin"="7294"/"Pin"="2468"/' /etc/klopfmeise/maschine.reg
    im sh -c 'cd /var/lib/klopfmeise/Klopfmeise && chmod 2770 Gruppen && rm Data/Texte/Text_002.txt'
    schuldaten >"$probe/vorher"
    neuere "$paket" "$probe/klopfmeise_neuer.deb"
    installieren_im "$probe/klopfmeise_neuer.deb"
    schuldaten | diff "$probe/vorher" - || schlecht "das Aktualisieren hat die Daten der Schule geändert"
    im grep -q '^neu' /usr/share/klopfmeise/Klopfmeise/Data/Tastatur/Lektion1.txt || schlecht "die Vorlage ist nicht die neue"
    gut "aktualisiert auf $(im dpkg-query -W -f='${Version}' klopfmeise): Werte, Klassen und Texte sind unberührt"
    # The child's class folder was closed to all but its group.
    im chmod 0777 /var/lib/klopfmeise/Klopfmeise/Gruppen
    fenster kind_tippt
    schuldaten >"$probe/vorher"

    im apt-get remove -y -qq klopfmeise >"$probe/apt.log" 2>&1 || schlecht "Entfernen"
    [ ! -e "$nackt/usr/bin/klopfmeise" ] && [ ! -e "$nackt/usr/lib/klopfmeise" ] && [ ! -e "$nackt/usr/share/klopfmeise" ] ||
        schlecht "nach dem Entfernen ist das Programm noch da"
    schuldaten | diff "$probe/vorher" - || schlecht "das Entfernen hat die Daten der Schule geändert"
    gut "entfernt: Werte, Klassen und Texte sind unberührt"

    installieren_im "$paket"
    schuldaten | diff "$probe/vorher" - || schlecht "das Installieren hat vorhandene Daten geändert"
    gut "wieder installiert: Werte, Klassen und Texte sind unberührt"

    # With another folder in the values, as the program writes them.
    im sed -i 's/^"Datenablage"=.*/"Datenablage"=hex(1):2f,73,72,76,2f,53,63,68,fc,6c,65,72,2f/' /etc/klopfmeise/maschine.reg
    abdruck /var/lib/klopfmeise >"$probe/vorher"
    im apt-get purge -y -qq klopfmeise >"$probe/apt.log" 2>&1 || { cat "$probe/apt.log"; schlecht "Vernichten"; }
    grep '^Klopfmeise:' "$probe/apt.log"
    grep -q 'bleiben in /var/lib/klopfmeise/Klopfmeise liegen' "$probe/apt.log" || schlecht "purge sagt nicht, wo die Daten liegen"
    grep -q 'Datenablage /srv/Schüler/ bleibt unberührt' "$probe/apt.log" || schlecht "purge nennt den eingestellten Ordner nicht"
    abdruck /var/lib/klopfmeise | diff "$probe/vorher" - || schlecht "purge hat die Daten der Schule geändert"
    gleich "was außer den Daten übrig ist" "$(im find / -xdev -iname '*klopfmeise*' ! -path '/var/lib/klopfmeise*' ! -path '/root/*' \
        ! -path '/tmp/*' ! -path '/proc/*')" ""
    gut "purge: die Werte sind fort, Klassen und Texte bleiben, und es sagt, wo"

    # Values that were there first, as an administrator lays them on all machines.
    im mkdir -p /etc/klopfmeise
    printf '[HKEY_LOCAL_MACHINE\\Software\\Klopfmeise]\n"Datenablage"="/srv/schule/"\n"Pin"="1111"\n' >"$nackt/etc/klopfmeise/maschine.reg"
    schuldaten >"$probe/vorher"
    installieren_im "$paket"
    schuldaten | diff "$probe/vorher" - || schlecht "das Installieren hat gelegte Werte geändert"
    gut "Werte, die vor dem Paket da waren, bleiben"
}

# bauen STAND ORT ZIEL UMGEBUNG...: the package of a commit, built in that folder.
bauen() {
    stand=$1
    ort=$2
    ziel=$3
    shift 3
    git clone -q -n . "$ort"
    git -C "$ort" checkout -q "$stand"
    (cd "$ort" && env "$@" sh -c 'cmake --preset release -G Ninja && cmake --build --preset release && cpack --preset release') \
        >"$probe/bauen.log" 2>&1 || { tail -n 30 "$probe/bauen.log"; schlecht "Bauen in $ort"; }
    cp "$ort"/build/release/klopfmeise_*.deb "$ziel"
}

doppelte_probe() {
    # shellcheck disable=SC2086
    installieren git $pakete_bauen $pakete_paket
    git diff --quiet HEAD || echo "   gebaut wird der letzte Stand, nicht was seither geändert ist"
    stand=$(git rev-parse HEAD)
    # The first one may take objects that were compiled elsewhere from a cache, the second one never does.
    umask 022
    bauen "$stand" "$probe/a" "$probe/a.deb" TZ=Europe/Berlin LANG=C.UTF-8
    find "$probe/a" -exec touch -h -d '2020-02-02' {} +
    umask 027
    bauen "$stand" "$probe/ein/ganz/anderer Ort" "$probe/b.deb" TZ=Pacific/Auckland LC_ALL=C HOME=/nonexistent CCACHE_DISABLE=1
    umask 022
    for seite in a b; do
        mkdir "$probe/$seite-inhalt"
        dpkg-deb -R "$probe/$seite.deb" "$probe/$seite-inhalt"
    done
    diff -r "$probe/a-inhalt" "$probe/b-inhalt" || schlecht "die Inhalte sind verschieden"
    cmp "$probe/a.deb" "$probe/b.deb" || schlecht "die Pakete sind verschieden"
    sha256sum "$probe/a.deb" "$probe/b.deb" | cut -c1-64 | sed 's/^/   /'
    gut "zweimal gebaut, $(find "$probe/a-inhalt" -type f | wc -l) Dateien und das Paket gleich auf das Byte"
}

for was in ${*:-nackt doppelt}; do
    case $was in
    nackt) nackte_probe ;;
    doppelt) doppelte_probe ;;
    *) echo "paket_proben.sh [nackt] [doppelt]" >&2; exit 2 ;;
    esac
done
