#!/usr/bin/env bash
# Installs the Debian packages named as arguments where they are missing: as root, or through sudo. Where
# neither is possible it names them and stops.
set -euo pipefail

missing=()
for package in "$@"; do
  status=$(dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null || true)
  [ "$status" = installed ] || missing+=("$package")
done
[ "${#missing[@]}" -eq 0 ] && exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  if ! command -v sudo >/dev/null; then
    echo "These packages are missing; please install them: ${missing[*]}" >&2
    exit 1
  fi
  as_root=(sudo)
fi
echo "Installing: ${missing[*]}"
install=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install --yes --no-install-recommends "${missing[@]}")
# The list of packages may be old, or missing on a fresh machine.
"${install[@]}" || { "${as_root[@]}" apt-get update && "${install[@]}"; }
