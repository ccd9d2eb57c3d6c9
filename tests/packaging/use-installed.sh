#!/usr/bin/env bash
# Installs the packages that lie in the current folder and uses them; scripts/check-package.sh runs it as root
# on a bare system that is thrown away afterwards.
set -euo pipefail
export DEBIAN_FRONTEND=noninteractive
samples=/usr/share/kestrabel/samples

fail() {
  echo "FAILED: $*" >&2
  exit 1
}
install() {
  apt-get install --quiet --quiet --yes --no-install-recommends "$@" < /dev/null > apt.log 2>&1 ||
    { cat apt.log; fail "apt-get install $*"; }
}
# Nobody judges an event as root, who could write into /usr/bin.
as_organiser() {
  setpriv --reuid=organiser --regid=organiser --clear-groups env HOME=/home/organiser "$@"
}
title() {
  printf '\n== %s\n' "$*"
}

for program in cc c++ cmake; do
  ! command -v "$program" || fail "this system is not bare, it has $program"
done
useradd --create-home organiser

title "The tool alone"
install ./kestrabel-cli_*.deb
[ -z "$(dpkg-query --show 'libqt6*' 'libx11*' 2> /dev/null)" ] || fail "the tool brought parts of a desktop"
cd "$samples"
as_organiser kestrabel-cli leaderboard --project sample.rsp --division "500 meters Accum" \
  --entry Anna=anna.nmea --entry Ben=ben.gpx --entry Chloe=chloe.txt | tee /root/leaderboard
grep -qE '^ +1  Anna +39\.[0-9]+ ' /root/leaderboard || fail "Anna, who was fastest, is not the first"
cd /root

# window FILE...: the window stays until it is stopped.
window() {
  local status=0
  as_organiser env QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR=/tmp QT_DEBUG_PLUGINS=1 \
    timeout 8 kestrabel "$@" > window.log 2>&1 || status=$?
  echo "kestrabel $*: status $status; 124 says that it ran until it was stopped"
  [ "$status" -eq 124 ] || { cat window.log; fail "the window did not stay"; }
  grep -o '[^/]*libqsvgicon.so" loaded library' window.log || fail "the icons could not be drawn"
}

title "The window"
install ./kestrabel_*.deb
window "$samples"/{sample.rsp,anna.nmea,ben.gpx,chloe.txt}
window # makes the default project, in the user's folder
[ -s /home/organiser/.local/share/kestrabel/Default.rsp ] || fail "there is no default project"
find /home/organiser -path '*estr*' -type f -printf '%M %p\n'
dpkg --verify kestrabel kestrabel-cli || fail "an installed file was changed"

title "Manuals, desktop entry, file types"
install man-db desktop-file-utils shared-mime-info libglib2.0-bin
for program in kestrabel kestrabel-cli; do
  man -w "$program"
  man --warnings "$program" 2>&1 > page | grep . && fail "the manual of $program has faults"
  grep -q 'EXIT STATUS' page || fail "the manual of $program is not whole"
done
desktop-file-validate /usr/share/applications/kestrabel.desktop
grep -n 'kestrabel' /usr/share/applications/mimeinfo.cache

# file_type NAME TYPE [BYTES]: what the desktop takes a file for.
file_type() {
  printf "${3-}" > "$1"
  local type
  type=$(gio info --attributes=standard::content-type "$1" | sed -n 's/.*content-type: //p')
  printf '%-8s %s\n' "$1" "$type"
  [ "$type" = "$2" ] || fail "$1 is not $2"
}
log_header='.\0\240\242\022\0\375 ,,0,,'
file_type x.rsp application/x-kestrabel-project x
file_type x.sbp application/x-sirf-binary-log "$log_header"
file_type X.SBP application/x-sirf-binary-log "$log_header"
file_type x.bin application/x-sirf-binary-log "$log_header"
file_type y.bin application/octet-stream '\001\002\003\004'
file_type x.sbn application/x-sirf-stream '\240\242'
file_type x.nmea text/x-nmea-0183 '$GPRMC,'
file_type x.trk text/x-pcx5-tracklog 'H  SOFTWARE NAME & VERSION\r\n'
file_type x.gtr text/x-gardown-tracklog 'T '
file_type x.gdm text/x-gardown-tracklog 'T '
file_type x.gd application/x-gdscript 'extends Node\n'
file_type x.gpx application/gpx+xml '<?xml version="1.0"?><gpx/>'
file_type x.txt text/plain '$GPRMC,'

title "Removed again"
apt-get purge --quiet --quiet --yes kestrabel kestrabel-cli < /dev/null > apt.log 2>&1 || fail "apt-get purge"
left=$(find /etc /usr /var/lib -name '*kestrabel*' ! -path '/var/lib/dpkg/*' ! -path '/var/lib/apt/*')
[ -z "$left" ] || fail "left behind: $left"
printf '\nThe packages work.\n'
