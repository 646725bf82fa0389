#!/bin/sh
# What the compiler does not see: the format of the sources, and that the toolkit stays in its room.
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
if git grep -nE '#include "(store|front|course|games|teacher)/' -- platform ||
    git grep -nE '#include "(front|course|games|teacher)/' -- store; then
    echo "A room looks into one that it must not know." >&2
    fehler=1
fi
exit $fehler
