#!/bin/sh
# What the compiler does not see: the format of the sources, that the toolkit stays in its room, and which room may look into which.
set -eu
cd "$(dirname "$0")/.."
fehler=0
quellen=$(git ls-files -c -o --exclude-standard -- '*.cpp' '*.h')
# shellcheck disable=SC2086
clang-format --dry-run --Werror $quellen || fehler=1
if git grep -nE '#include <Q' -- '*.cpp' '*.h' ':!platform/qt' ':!tools' ':!tests/fenster' ':!bench'; then
    echo "Qt outside platform/qt and tools." >&2
    fehler=1
fi

# darf RAUM VERBOTEN...: no file of the room includes one of these.
darf() {
    raum=$1
    shift
    verboten=$(IFS='|'; echo "$*")
    if git grep -nE "#include \"($verboten)/" -- "$raum"; then
        echo "$raum looks into a room that it must not know." >&2
        fehler=1
    fi
}
darf platform store screens front course games teacher
darf store screens front course games teacher
darf screens front course games teacher
darf front course games teacher
darf course front games teacher
darf games front course teacher
darf teacher front course games
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
