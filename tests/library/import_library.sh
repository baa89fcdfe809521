#!/usr/bin/env bash
# import_library.sh IMPORT_LIBRARY DLL INCLUDES WORK RUNNER...: builds a host with the other family's
# compiler and linker, and runs it.
set -euo pipefail

import_library=$1 dll=$2 includes=$3 work=$4
shift 4
source=$(dirname "${BASH_SOURCE[0]}")/import_library_host.c

rm -rf "$work"
mkdir -p "$work"
cp "$dll" "$work"
clang --target=x86_64-pc-windows-msvc -O1 -Wall -Wextra -Werror "-I$includes" -c "$source" \
  -o "$work/host.obj"
lld-link /nologo /subsystem:console /entry:mainCRTStartup /nodefaultlib "$work/host.obj" \
  "$import_library" /usr/x86_64-w64-mingw32/lib/libkernel32.a "/out:$work/host.exe"
cd "$work"
"$@" ./host.exe
grep -q '<CKtZantoLine .*<CKtDrawingControl ' import_library.xml
