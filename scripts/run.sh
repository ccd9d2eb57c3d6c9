#!/usr/bin/env bash
# Builds Kestrabel, installing what that takes, and opens the sample event in the window. Without a display it
# judges the event with the tool instead: the leaderboards of its divisions. Arguments go to the tool:
#     scripts/run.sh leaderboard --entry "Anna=anna.nmea"
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-packages.sh
bash scripts/packages.sh "${build_packages[@]}" "${window_packages[@]}"

[ -f build/release/build.ninja ] || cmake --preset release > /dev/null
cmake --build --preset release

tool=build/release/src/cli/kestrabel-cli
if [ "$#" -gt 0 ]; then
  exec "$tool" "$@"
fi
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  exec build/release/src/ui/kestrabel samples/sample.rsp samples/anna.nmea samples/ben.gpx samples/chloe.txt
fi
echo "There is no display for the window; the tool judges the sample event."
exec "$tool" leaderboard --project samples/sample.rsp --checkpoint "Start,52.80037,5.2703,50" \
  --entry "Anna=samples/anna.nmea" --entry "Ben=samples/ben.gpx" --entry "Chloe=samples/chloe.txt"
