#!/usr/bin/env bash
# Checks what the compiler does not: that a folder includes only folders above it, and that nothing uses the
# C locale functions, whose answers change with the user's decimal comma.
set -euo pipefail
cd "$(dirname "$0")/.."

folders=(platform geo model formats engine present app ui cli)
failed=0

allowed=""
for folder in "${folders[@]}"; do
  allowed="$allowed|$folder"
  [ -d "src/$folder" ] || continue
  may_use="${allowed#|}"
  [ "$folder" = cli ] && may_use="${may_use//|ui/}"
  # A quoted include must name one of the allowed folders.
  if grep -rnE '^\s*#\s*include\s*"' "src/$folder" --include='*.h' --include='*.cpp' |
      grep -vE "#\s*include\s*\"($may_use)/"; then
    echo "src/$folder: the includes above point where the folder may not look" >&2
    failed=1
  fi
done

banned='\b(strto(d|f|ld|l|ul|ll|ull)|ato(f|i|l|ll)|v?s?n?f?(scanf|printf)|sto(d|f|i|l|ul|ll|ull)|setlocale)\s*\('
if grep -rnE "$banned" src tools --include='*.h' --include='*.cpp'; then
  echo "the functions above read and write numbers by the user's locale" >&2
  failed=1
fi

exit "$failed"
