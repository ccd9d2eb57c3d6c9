#!/usr/bin/env bash
# Installs a build into an empty folder and checks that it is whole, and that what stands in several places is
# the same there: file types, and the options of the programs and their manuals.
#
#   installed-files.sh BUILD_FOLDER [window]
set -uo pipefail
build=$(realpath "$1")
window=${2-}
sources=$(realpath "$(dirname "$0")/../..")
export QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR=/tmp LC_ALL=C
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
usr=$folder/root/usr
failed=0

# same WHAT FILE1 FILE2: both have the same lines, in whatever order, and some at all.
same() {
  sort -u "$2" > "$folder/one"
  sort -u "$3" > "$folder/other"
  if [ ! -s "$folder/one" ] || ! diff "$folder/one" "$folder/other"; then
    echo "$1 differ, as above" >&2
    failed=1
  fi
}

cd "$folder" || exit 1
DESTDIR=$folder/root cmake --install "$build" --prefix /usr > log || { cat log; exit 1; }

papers() {
  printf '%s\n' "bin/$1" "share/man/man1/$1.1.gz" "share/doc/$1"/{changelog.Debian.gz,changelog.gz,copyright}
}
{
  papers kestrabel-cli
  printf 'share/kestrabel/samples/%s\n' README.md anna.nmea ben.gpx chloe.txt sample.rsp truth.json
  if [ "$window" ]; then
    papers kestrabel
    printf 'share/%s\n' applications/kestrabel.desktop mime/packages/kestrabel.xml \
      icons/hicolor/scalable/apps/kestrabel.svg
  fi
} > expected
(cd "$usr" && find . -type f | sed 's|^\./||') > installed
same 'the files expected and installed' expected installed

# The version that Debian sees is that of the program.
"$usr/bin/kestrabel-cli" --version | sed 's/^kestrabel-cli //' > version
zcat "$usr/share/doc/kestrabel-cli/changelog.Debian.gz" | sed -nE '1s/^kestrabel \((.*)-[0-9]+\).*/\1/p' > logged
same 'the versions of the program and of its changelog' version logged

# Options, one a line, with the words that may follow where they are a choice: "--format table|csv".
# Those of a help text on the standard input:
help_options() {
  sed -nE '/^Options:/,/^[A-Z]/ s/^  (-[^ ,]+(, ?-[^ ,]+)?( [a-z]+\|[^ ]+)?).*/\1/p' |
    sed -E 's/^(-.), ?(-.*)/\1\n\2/'
}
# Those of a line of a manual's source on the standard input: ".Op Fl -format Cm table | csv".
manual_options() {
  awk '{
    flags = ""; choice = ""
    for (i = 2; i <= NF; ++i) {
      if ($i == "Ar") break
      if ($i ~ /^(Fl|Cm)$/) kind = $i
      else if (kind == "Fl" && $i !~ /^[|,]$/) { if (flags != "") print flags; flags = "-" $i }
      else if (kind == "Cm") choice = choice $i
    }
    if (flags != "") print flags (choice == "" ? "" : " " choice)
  }'
}
# The lines of the synopsis for one command, "results" or "project new"; of the program itself for none.
synopsis() {
  awk -v wanted="$2" '
    /^\.Sh/ { in_synopsis = $2 == "SYNOPSIS" }
    /^\.Nm/ { command = "" }
    /^\.Cm/ { command = substr($0, 5) }
    in_synopsis && /^\.Op Fl/ && command == wanted' "$1"
}
# The commands that a help text on the standard input lists.
commands() {
  sed -nE '/^Commands:/,/^$/ s/^  ([a-z]+) .*/\1/p'
}

# check_manual PROGRAM COMMAND...: the program's manual names what its help says, command by command.
check_manual() {
  local program=$1 command
  shift
  zcat "$usr/share/man/man1/$program.1.gz" > manual
  : > all
  for command in '' "$@"; do
    # The command is one word or two.
    "$usr/bin/$program" $command --help 2>&1 | help_options > helped
    synopsis manual "$command" | manual_options > named
    same "the options of $program $command in its help and in its manual" helped named
    cut -d' ' -f1 helped >> all
  done
  grep '^\.It Fl' manual | sed 's/ Cm .*//' | manual_options > explained
  same "the options of $program and those that its manual explains" all explained
}

tool=$usr/bin/kestrabel-cli
"$tool" --help | commands > commands
"$tool" project --help | commands | sed 's/^/project /' >> commands
mapfile -t commands < commands
check_manual kestrabel-cli "${commands[@]}"
sed -nE '/^\.Sh SYNOPSIS/,/^\.Sh DESC/ s/^\.Cm //p' manual > named
same 'the commands of kestrabel-cli and of its manual' commands named

if [ "$window" ]; then
  check_manual kestrabel
  entry=$usr/share/applications/kestrabel.desktop
  types=$usr/share/mime/packages/kestrabel.xml

  { echo application/gpx+xml; sed -nE 's/.*<mime-type type="([^"]*)".*/\1/p' "$types"; } > described
  sed -n 's/^MimeType=//p' "$entry" | tr ';' '\n' | grep . > opened
  same 'the types that are described and that the desktop entry opens' described opened

  # GPX has its type elsewhere; text files and binary files are anybody's.
  grep -oE '"\.[a-z]+"' "$sources/src/formats/TrackFormat.cpp" | tr -d '"' | grep -vxE '\.(gpx|txt|bin)' > readable
  echo .rsp >> readable
  sed -nE 's/.*<glob pattern="\*([^"]*)".*/\1/p' "$types" > typed
  same 'the extensions that are read and those that have a type' readable typed

  if command -v desktop-file-validate > /dev/null; then
    desktop-file-validate "$entry" || failed=1
  fi
  [ -x "$usr/bin/$(sed -nE 's/^Exec=([^ ]+) .*/\1/p' "$entry")" ] || { echo 'Exec= names no program' >&2; failed=1; }
  icon=$(sed -n 's/^Icon=//p' "$entry")
  [ -f "$usr/share/icons/hicolor/scalable/apps/$icon.svg" ] || { echo 'Icon= names no icon' >&2; failed=1; }
fi
exit "$failed"
