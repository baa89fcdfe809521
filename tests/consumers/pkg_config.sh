#!/usr/bin/env bash
# pkg_config.sh LIBDIR COMPILER SOURCE WORK [--static]: builds and runs a plain C host with nothing
# but what pkg-config says.
set -euo pipefail

libdir=$1 compiler=$2 source=$3 work=$4 static=${5:-}
export PKG_CONFIG_PATH=$libdir/pkgconfig

rm -rf "$work"
mkdir -p "$work"
cd "$work"
# shellcheck disable=SC2046  # the words are separate arguments
"$compiler" -std=c99 -Wall -Wextra -Wpedantic -Werror $(pkg-config --cflags quorvan) "$source" \
  -o host $(pkg-config $static --libs quorvan)
LD_LIBRARY_PATH=$libdir ./host
