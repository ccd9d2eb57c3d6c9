#!/usr/bin/env bash
# Fuzzes every reader and the project loader, from the bytes of a file to results and exports:
#
#     scripts/fuzz.sh [SECONDS]              each target for so long (60), one per processor at a time
#     scripts/fuzz.sh --target NAME SECONDS  one target, built before and with its seeds made
#
# New inputs are kept under build/fuzz/corpus. One that fails is left as build/fuzz/failed-TARGET-...; once
# the fault is mended it belongs into fuzz/regression/TARGET, where every test run tries it again.
set -euo pipefail
cd "$(dirname "$0")/.."

targets=(nmea gpx sbn sbp trk gtr rsp)
export ASAN_OPTIONS=detect_leaks=1:strict_string_checks=1:allocator_may_return_null=0
export UBSAN_OPTIONS=print_stacktrace=1

# Above 64 KiB an input only repeats itself; one that takes a second, or much more memory than its size,
# is a fault.
run_target() {
  local name=$1 seconds=$2 corpus=build/fuzz/corpus/$1
  mkdir -p "$corpus" "fuzz/regression/$name"
  "build/fuzz/fuzz/fuzz-$name" -max_total_time="$seconds" -max_len=65536 -timeout=5 -rss_limit_mb=768 \
    -malloc_limit_mb=256 -artifact_prefix="build/fuzz/failed-$name-" -print_final_stats=1 -verbosity=0 \
    "$corpus" "build/fuzz/fuzz/seeds/$name" "fuzz/regression/$name" > "build/fuzz/$name.log" 2>&1 ||
    { cat "build/fuzz/$name.log"; return 1; }
  printf '%-5s %12d executions clean in %d s\n' "$name" \
    "$(sed -n 's/^stat::number_of_executed_units: *//p' "build/fuzz/$name.log")" "$seconds"
}

if [ "${1-}" = --target ]; then
  run_target "$2" "$3"
  exit
fi
bash scripts/build-fuzzers.sh
build/fuzz/fuzz/make-seeds build/fuzz/fuzz/seeds
export -f run_target
printf '%s\n' "${targets[@]}" | xargs -P "$(nproc)" -I{} bash -euo pipefail -c "run_target {} ${1:-60}"
