#!/usr/bin/env bash
# Builds the Debian packages, installing what that takes, and prints their paths: kestrabel with the window,
# kestrabel-cli with the tool alone.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-packages.sh
bash scripts/packages.sh "${build_packages[@]}" "${window_packages[@]}" dpkg-dev file gzip >&2

{
  cmake --preset release
  cmake --build --preset release
  rm -rf build/release/packages # those of an older version
  cpack --preset release
} >&2
printf '%s\n' "$PWD"/build/release/packages/*.deb
