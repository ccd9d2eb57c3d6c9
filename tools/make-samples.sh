#!/usr/bin/env bash
# Makes the files of samples/ again, with the same bytes on every machine:
#
#   tools/make-samples.sh PROGRAM            writes them
#   tools/make-samples.sh --check PROGRAM    compares with them and writes nothing; status 1 when one differs
#
# PROGRAM is the path of kestrabel-simulate, such as build/dev/tools/kestrabel-simulate;
# kestrabel-sample-project stands beside it.
set -euo pipefail

check=0
if [ "${1:-}" = --check ]; then
  check=1
  shift
fi
if [ $# -ne 1 ] || [ ! -x "$1" ]; then
  echo "usage: ${0##*/} [--check] PROGRAM" >&2
  exit 2
fi
program=$(realpath "$1")
cd "$(dirname "$0")/.."

made=$(mktemp -d)
trap 'rm -rf "$made"' EXIT

# One rider: the file, then what is special about the session. The truth goes to the standard output.
rider() {
  local file=$1
  shift
  "$program" "$made/$file" --position 52.8,5.27 --wind 240 "$@"
}

{
  echo '['
  rider anna.nmea --seed 31 --rate 1 --minutes 30 --start 2024-08-17T12:04:10 --cold-start 21 --nmea-order gga-rmc
  echo ','
  rider ben.gpx --seed 32 --rate 5 --minutes 20 --start 2024-08-17T12:11:32 --planted-speed 38.5
  echo ','
  rider chloe.txt --seed 33 --rate 2 --minutes 20 --start 2024-08-17T12:19:05 --planted-speed 39.2 \
    --minute-decimals 6
  echo ']'
} > "$made/truth.json"

# The head of a GPX file tells when it was written.
sed -i '1,8s|^  <time>.*</time>|  <time>2024-08-17T18:00:00Z</time>|' "$made/ben.gpx"

"$(dirname "$program")/kestrabel-sample-project" "$made/sample.rsp"

for file in anna.nmea ben.gpx chloe.txt truth.json sample.rsp; do
  if [ "$check" -eq 0 ]; then
    cp "$made/$file" "samples/$file"
  elif ! cmp "$made/$file" "samples/$file"; then
    failed=1
  fi
done
exit "${failed:-0}"
