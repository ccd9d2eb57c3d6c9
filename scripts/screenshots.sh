#!/usr/bin/env bash
# Draws the window on the sample event and every dialog into docs/images: light and dark, and both at twice
# the size for sharp screens. Needs no display.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-packages.sh
bash scripts/packages.sh "${build_packages[@]}" "${window_packages[@]}" fonts-dejavu-core

[ -f build/dev/build.ninja ] || cmake --preset dev > /dev/null
cmake --build --preset dev --target kestrabel-screenshots
mkdir -p docs/images
for theme in light dark; do
  for scale in 1 2; do
    QT_SCALE_FACTOR=$scale build/dev/tools/kestrabel-screenshots docs/images "$theme" samples/sample.rsp \
      samples/anna.nmea samples/ben.gpx samples/chloe.txt
  done
done
