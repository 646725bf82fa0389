# Debian packages by purpose; read by ./run and ./test.
pakete_bauen="g++ cmake ninja-build qt6-base-dev libfontconfig-dev qt6-svg-dev pkg-config libpulse-dev fonts-liberation"
pakete_wayland="qt6-wayland" # where there is no X server beside it
pakete_paket="dpkg-dev file binutils lintian desktop-file-utils appstream man-db"
pakete_probe="debootstrap xvfb xdotool x11-utils x11-xkb-utils xkb-data imagemagick" # the package on a bare system
pakete_testen="git libgtest-dev libbenchmark-dev clang-format clang libclang-rt-14-dev \
hunspell hunspell-de-de xvfb openbox xdotool x11-utils x11-xkb-utils xkb-data imagemagick pulseaudio pulseaudio-utils python3 \
python3-tk x11-xserver-utils strace"

# Installs what is missing of the packages named; where that is not allowed, prints the one line that does it and stops.
installieren() {
    fehlend=""
    for paket in "$@"; do
        dpkg-query -W -f='${Status}' "$paket" 2>/dev/null | grep -q "ok installed" || fehlend="$fehlend $paket"
    done
    [ -z "$fehlend" ] && return
    if [ "$(id -u)" = 0 ]; then
        als=""
    elif sudo -n true 2>/dev/null || { [ -t 0 ] && command -v sudo >/dev/null; }; then
        als="sudo"
    else
        echo "Es fehlen Pakete. Bitte als Administrator ausführen: apt-get install --no-install-recommends$fehlend" >&2
        exit 1
    fi
    echo "Installiere:$fehlend"
    # shellcheck disable=SC2086
    { $als apt-get update -qq && DEBIAN_FRONTEND=noninteractive $als apt-get install -y -qq --no-install-recommends $fehlend; } \
        >/tmp/klopfmeise-apt.$$ 2>&1 || {
        cat /tmp/klopfmeise-apt.$$ >&2
        echo "Das Installieren ist misslungen. Bitte als Administrator ausführen: apt-get install --no-install-recommends$fehlend" >&2
        exit 1
    }
    rm -f /tmp/klopfmeise-apt.$$
}
