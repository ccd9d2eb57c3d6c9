#!/usr/bin/env bash
# Formatting, the arrows between the folders, and clang-tidy over the sources. "--fix" formats in place.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/packages.sh clang-format clang-tidy

mapfile -t files < <(git ls-files 'src/*.h' 'src/*.cpp' 'tests/*.h' 'tests/*.cpp' 'tools/*.h' 'tools/*.cpp' 'bench/*.h' 'bench/*.cpp')
if [ "${1:-}" = --fix ]; then
  clang-format -i "${files[@]}"
else
  clang-format --dry-run --Werror "${files[@]}"
fi
scripts/check-sources.sh

[ -f build/dev/compile_commands.json ] || cmake --preset dev > /dev/null
git ls-files 'src/*.cpp' | xargs --max-args=4 --max-procs="$(nproc)" clang-tidy --quiet -p build/dev
