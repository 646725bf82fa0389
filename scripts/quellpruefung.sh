#!/bin/sh
# What the compiler does not see: the format of the sources, that the toolkit stays in its room, and which room may look into which.
set -eu
cd "$(dirname "$0")/.."
for werkzeug in git clang-format; do
    command -v $werkzeug >/dev/null || { echo "$werkzeug is missing." >&2; exit 1; }
done
fehler=0
quellen=$(git ls-files -c -o --exclude-standard -- '*.cpp' '*.h')
[ -n "$quellen" ] || { echo "No sources found." >&2; exit 1; }
# shellcheck disable=SC2086
clang-format --dry-run --Werror $quellen || fehler=1

# verboten MUSTER WAS PFAD...: no source under these paths, new ones included, has a line like that.
verboten() {
    muster=$1
    was=$2
    shift 2
    gefunden=0
    git grep --untracked -nE "$muster" -- "$@" || gefunden=$?
    case $gefunden in
    0) echo "$was" >&2; fehler=1 ;;
    1) ;;
    *) echo "git grep failed." >&2; exit 1 ;;
    esac
}
verboten '#include [<"]Q' "Qt outside platform/qt and tools." '*.cpp' '*.h' ':!platform/qt' ':!tools' ':!tests/fenster' ':!bench' ':!fuzz/bild_fuzz.cpp'
verboten '#include "\.' "Names in #include start at the root." '*.cpp' '*.h'
verboten '#include "(tests|tools|bench|fuzz|proben)/' "The program looks into what is not part of it." '*.cpp' '*.h' ':!tests' ':!tools' ':!bench' ':!fuzz' ':!proben'

# darf RAUM VERBOTEN...: no file of the room includes one of these.
darf() {
    raum=$1
    shift
    verboten "#include \"($(IFS='|'; echo "$*"))/" "$raum looks into a room that it must not know." "$raum"
}
darf platform store screens front course games teacher verwaltung
darf store screens front course games teacher verwaltung platform/qt platform/headless
darf screens front course games teacher verwaltung platform/qt platform/headless
darf front course games teacher verwaltung platform/qt platform/headless
darf course front games teacher verwaltung platform/qt platform/headless
darf games front course teacher verwaltung platform/qt platform/headless
darf teacher front course games verwaltung platform/qt platform/headless
darf verwaltung screens front course games teacher platform/controls platform/forms platform/input platform/qt platform/headless
# Inside platform/, from the lowest to the highest.
darf platform/values platform/richtext platform/machine platform/controls platform/forms platform/input platform/qt platform/headless
darf platform/richtext platform/machine platform/controls platform/forms platform/input platform/qt platform/headless
darf platform/machine platform/richtext platform/controls platform/forms platform/input platform/qt platform/headless
darf platform/controls platform/forms platform/input platform/qt platform/headless
darf platform/forms platform/input platform/qt platform/headless
darf platform/input platform/qt platform/headless
darf platform/qt platform/headless
darf platform/headless platform/qt
exit $fehler
