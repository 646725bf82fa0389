#!/bin/sh
# Builds and measures everything, in about 35 minutes: messen.sh [BUILD]. Nothing else should run on the machine.
set -eu
cd "$(dirname "$0")/.."
build=${1:-build/messung}
. scripts/pakete.sh
# shellcheck disable=SC2086
installieren $pakete_bauen libbenchmark-dev libx11-dev libxext-dev libxdamage-dev libxtst-dev \
    xvfb openbox xdotool x11-utils x11-xkb-utils imagemagick dbus pulseaudio pulseaudio-utils python3
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKLOPFMEISE_BENCH=ON -DKLOPFMEISE_TESTS=OFF >/dev/null
cmake --build "$build"
"$build/bench/bench_innen" --benchmark_repetitions=5 --benchmark_report_aggregates_only
"$build/bench/bench_fenster"
"$build/bench/bench_fenster" spiele
python3 bench/klang.py "$build"
python3 bench/spiele.py "$build"
exec python3 bench/aussen.py "$build"
