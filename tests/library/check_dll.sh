#!/usr/bin/env bash
# check_dll.sh DLL: it needs nothing but what every Windows has, asks for every protection, and
# holds nothing of the place and time where it was built.
set -euo pipefail

headers=$(TZ=UTC x86_64-w64-mingw32-objdump -p "$1")
failed=0

imports=$(awk '/DLL Name:/ { print tolower($3) }' <<<"$headers" | tr -d '\r' | sort -u)
allowed='^(advapi32|kernel32|msvcrt|ole32|oleaut32|user32)\.dll$'
if foreign=$(grep -vE "$allowed" <<<"$imports"); then
  echo "imports what is not part of the system: $foreign" >&2
  failed=1
fi

for protection in HIGH_ENTROPY_VA DYNAMIC_BASE NX_COMPAT; do
  if ! grep -q "$protection" <<<"$headers"; then
    echo "does not ask for $protection" >&2
    failed=1
  fi
done
# Without relocations it is loaded at its one address whatever it asks for.
if ! x86_64-w64-mingw32-objdump -h "$1" | grep -q ' \.reloc '; then
  echo "has no relocations" >&2
  failed=1
fi
# The same sources make the same bytes: nothing tells when and where it was built.
if ! grep -q '^Time/Date[[:space:]].* 1970$' <<<"$headers"; then
  echo "tells when it was built" >&2
  failed=1
fi
source=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
if grep -qF "$source/" "$1"; then
  echo "tells where it was built" >&2
  failed=1
fi
if x86_64-w64-mingw32-nm "$1" 2>/dev/null | grep -q .; then
  echo "is not stripped" >&2
  failed=1
fi
exit "$failed"
