#!/usr/bin/env bash
# Measures what the README says, beside well-known programs in the same run, and prints it as Markdown tables.
# Installs those programs. Takes several minutes; "scripts/bench.sh 100000" takes a shorter session.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-packages.sh
bash scripts/packages.sh "${build_packages[@]}" "${window_packages[@]}" libbenchmark-dev libgeographiclib-dev gpsbabel

fixes=${1:-1000000}
runs=5
[ -f build/bench/build.ninja ] || cmake --preset bench > /dev/null
cmake --build --preset bench
programs=build/bench/bench
tool=build/bench/src/cli/kestrabel-cli
simulate=build/bench/tools/kestrabel-simulate

data=build/bench-data
mkdir -p "$data"
session="$data/session-$fixes"
for format in gpx nmea sbn sbp trk gtr; do
  [ -f "$session.$format" ] || "$simulate" "$session.$format" --seed 7 --rate 5 --fixes "$fixes" > "$session.truth.json"
done
# Track marks are written but hold no track lines; a download program would have made these of the same fixes.
[ -f "$session.gd" ] || awk -F '[,T:-]' -v months="Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec" '
  BEGIN { split(months, month, " ") }
  { printf "T N%d %.6f E%03d %.6f Sat %s %s %s:%s:%s %s\n", $1, ($1 - int($1)) * 60, $2, ($2 - int($2)) * 60,
      month[$4 + 0], $5, $6, $7, $8, $3 }' "$session.gtr" > "$session.gd"
[ -f "$session.csv" ] || TZ=UTC gpsbabel -t -i gpx -f "$session.gpx" -o unicsv -F "$session.csv"

# The peer reads the time zone file for every sentence when this is not set, which would flatter us.
export TZ=UTC

echo
echo "## The engine"
"$programs/kestrabel-bench" "$session.gpx" 2> /dev/null | grep '^|'

echo
echo "## Every kind of division"
"$programs/kestrabel-kinds" "$((fixes / 10))" "$fixes" 2> /dev/null | grep '^|' ||
  echo "A target was missed."

echo
echo "## The window"
QT_QPA_PLATFORM=offscreen "$programs/kestrabel-window-bench" "$session.sbp" 2> /dev/null | grep '^|'

echo
echo "## Whole processes, processor time, in pairs"
echo
echo "| Work on $fixes fixes | Kestrabel | gpsbabel | ratio | target | peak memory |"
echo "|---|---|---|---|---|---|"
pair() { # LABEL TARGET COMMAND PEER
  local line
  line=$("$programs/compare-processes" "$runs" "$1" "$3" "$4")
  IFS='|' read -r label ours peer ratio memory <<< "$line"
  echo "| $label|$ours|$peer|$ratio| at most $2 |$memory |"
}
gpx_peer="gpsbabel -i gpx -f $session.gpx"
nmea_peer="gpsbabel -i nmea -f $session.nmea"
pair "GPX into points" 0.40 "$programs/kestrabel-read $session.gpx" "$gpx_peer"
pair "NMEA (GGA and RMC) into points" 0.12 "$programs/kestrabel-read $session.nmea" "$nmea_peer"
# Of binary logs the peer reads no track unless it is asked for one; PCX5 and Gardown it does not read, and is
# given the same points as its own table of comma-separated values.
pair "SiRF stream (.sbn) into points" 0.50 "$programs/kestrabel-read $session.sbn" "gpsbabel -t -i sbn -f $session.sbn"
pair "Binary log (.sbp) into points" 0.50 "$programs/kestrabel-read $session.sbp" "gpsbabel -t -i sbp -f $session.sbp"
csv_peer="gpsbabel -t -i unicsv -f $session.csv"
pair "PCX5 (.trk) into points, the peer: unicsv" 0.20 "$programs/kestrabel-read $session.trk" "$csv_peer"
pair "Gardown (.gd) into points, the peer: unicsv" 0.20 "$programs/kestrabel-read $session.gd" "$csv_peer"
pair "GPX to the six leaderboards" 0.55 "$tool leaderboard $session.gpx" "$gpx_peer"

peak() { "$programs/compare-processes" 3 x "$1" | awk -F'|' '{ print $5 + 0 }'; }
whole=$(peak "$tool leaderboard $session.gpx")
empty=$(peak "$tool --version")
echo
echo "Peak memory of the whole job: $(( (whole - empty) * 1024 / fixes )) bytes a fix over the empty program (target: 256)."

echo
echo "## The same track written by gpsbabel"
for format in gpx nmea; do
  gpsbabel -t -i gpx -f "$session.gpx" -o "$format" -F "$data/peer.$format"
done
echo "GPX:  $("$programs/compare-tracks" "$session.gpx" "$data/peer.gpx" 1e-8)"
# It writes minutes with three decimals.
echo "NMEA: $("$programs/compare-tracks" "$session.gpx" "$data/peer.nmea" 1e-5)"

echo
echo "## Accuracy of distances and azimuths"
"$programs/geodesy-accuracy"
