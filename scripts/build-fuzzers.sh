#!/usr/bin/env bash
# Installs what the fuzzers take and builds them.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-packages.sh
bash scripts/packages.sh "${build_packages[@]}" clang-14 libclang-rt-14-dev
[ -f build/fuzz/build.ninja ] || cmake --preset fuzz > /dev/null
cmake --build --preset fuzz
