#!/usr/bin/env bash
# Builds Kestrabel, installing what that takes, and judges the sample event: the leaderboards of its divisions.
# Arguments go to the tool instead of the sample event: scripts/run.sh leaderboard --entry "Anna=anna.nmea"
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-packages.sh
bash scripts/packages.sh "${build_packages[@]}"

[ -f build/release/build.ninja ] || cmake --preset release > /dev/null
cmake --build --preset release

tool=build/release/src/cli/kestrabel-cli
if [ "$#" -gt 0 ]; then
  exec "$tool" "$@"
fi
exec "$tool" leaderboard --project samples/sample.rsp --checkpoint "Start,52.80037,5.2703,50" \
  --entry "Anna=samples/anna.nmea" --entry "Ben=samples/ben.gpx" --entry "Chloe=samples/chloe.txt"
