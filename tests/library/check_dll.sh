#!/usr/bin/env bash
# check_dll.sh DLL: it needs nothing but what every Windows has, and asks for every protection.
set -euo pipefail

headers=$(x86_64-w64-mingw32-objdump -p "$1")
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
exit "$failed"
