#!/usr/bin/env bash
# Builds everything, installing what that takes, and runs all tests: once with assertions, once more under the
# address and undefined-behaviour sanitizers, and every fuzzer for a moment.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-packages.sh
bash scripts/packages.sh "${build_packages[@]}" "${window_packages[@]}" \
  fonts-dejavu-core libgtest-dev libgmock-dev locales desktop-file-utils

export QT_QPA_PLATFORM=offscreen # the window is tested without a display
export ASAN_OPTIONS=detect_leaks=1:strict_string_checks=1 UBSAN_OPTIONS=print_stacktrace=1
for preset in dev asan; do
  [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset" > /dev/null
  cmake --build --preset "$preset"
  ctest --preset "$preset" --parallel "$(nproc)"
done
bash scripts/build-fuzzers.sh
ctest --preset fuzz
