#!/usr/bin/env bash
# Runs the simulator as a user does and checks exit status, messages and files.
#
#   simulate-program.sh PROGRAM
set -uo pipefail
program=$(realpath "$1")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
failed=0

# expect STATUS TEXT ARGUMENT...: the program ends with the status and says the text on either output.
expect() {
  local status=$1 text=$2
  shift 2
  "$program" "$@" > said 2>&1
  local got=$?
  if [ "$got" -ne "$status" ] || ! grep -qF -- "$text" said; then
    echo "kestrabel-simulate $*: status $got instead of $status, or not \"$text\":" >&2
    cat said >&2
    failed=1
  fi
}

expect 2 'OUT is required'
expect 2 'no format that can be written' a.doc --fixes 10
expect 2 'whole number of milliseconds' a.gpx --rate 3
expect 2 'not of the form' a.gpx --start 2024-02-30T12:00:00
expect 2 'not of the form' a.gpx --position 52.8,east
expect 2 'latitude' a.gpx --position 95,5
expect 1 'missing/a.nmea: ' missing/a.nmea --fixes 10
[ -z "$(find . -type f ! -name said)" ] || { echo 'a refused command left a file' >&2; failed=1; }

expect 0 '"fixes": 600,' a.gpx a.nmea a.txt --minutes 2 --start 2021-03-04T05:06:07 --name Anna --position=-38.84,146.16
for line in '"name": "Anna"' '"firstTime": "2021-03-04T05:06:07.000Z"' '"latitude": -38.84' '"plantedRun": null'; do
  grep -qF "$line" said || { echo "the truth lacks $line" >&2; failed=1; }
done
cmp a.nmea a.txt || failed=1
[ "$(grep -c '<trkpt lat="-38.8.* lon="+146' a.gpx)" -eq 595 ] || { echo 'a.gpx lacks fixes' >&2; failed=1; }
[ "$(grep -c '^\$GPRMC,.*,A,' a.nmea)" -eq 595 ] || { echo 'a.nmea lacks fixes' >&2; failed=1; }
grep -q '<name>"Anna"</name>' a.gpx || { echo 'a.gpx lacks the name' >&2; failed=1; }

expect 0 '"spikes": 0' b.gpx --no-noise --spikes 300 --fixes 9000
exit "$failed"
