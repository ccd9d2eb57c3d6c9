#!/usr/bin/env bash
# Builds the packages, installs them on a bare Debian of this machine's release that has nothing to build
# with, and uses them there as an organiser does. Needs root or sudo, the network, and some minutes.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/packages.sh mmdebstrap lintian util-linux
mapfile -t packages < <(bash scripts/package.sh)
# The packages are not meant for an upload, which would close a report in Debian's tracker.
lintian --allow-root --fail-on error,warning --suppress-tags initial-upload-closes-no-bugs "${packages[@]}"

as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
root=$(mktemp -d)
trap '"${as_root[@]}" rm -rf --one-file-system "$root"' EXIT

# Debian's own sources, where this machine gets them; others have no place on a bare system.
sources=/etc/apt/sources.list.d/debian.sources
[ -f "$sources" ] || sources=/etc/apt/sources.list
. /etc/os-release
"${as_root[@]}" mmdebstrap --quiet --variant=minbase --skip=cleanup/apt "$VERSION_CODENAME" "$root" "$sources"
"${as_root[@]}" cp "${packages[@]}" tests/packaging/use-installed.sh "$root/root/"
# Namespaces of its own, so that nothing that the packages start or mount outlives the check.
"${as_root[@]}" unshare --mount --pid --fork --root="$root" --wd=/root --mount-proc \
  env --ignore-environment PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LANG=C.UTF-8 bash use-installed.sh
