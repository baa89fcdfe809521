#!/usr/bin/env bash
# package_test.sh BUILD SOURCE WORK HEADERS COMPILER RUNNER...: makes the package of the build and
# holds it against what it promises; then builds and runs a host with nothing but the package.
set -euo pipefail

build=$1 source=$2 work=$3 headers=$4 compiler=$5
shift 5
rm -rf "$work"
mkdir -p "$work"
cpack -G ZIP --config "$build/CPackConfig.cmake" -B "$work" >"$work/log" || {
  cat "$work/log" >&2
  exit 1
}
zips=("$work"/*.zip)
if ((${#zips[@]} != 1)) || [[ ! ${zips[0]} =~ /Quorvan-[0-9.]+-win64\.zip$ ]]; then
  echo "not the one package: ${zips[*]}" >&2
  exit 1
fi
cd "$work"
cmake -E tar xf "${zips[0]}"
root=$(basename "${zips[0]}" .zip)

# Headers are the public ones and no others; of the documents and examples, all.
{
  printf '%s\n' bin/quorvan.dll lib/libquorvan.dll.a lib/quorvan.lib lib/pkgconfig/quorvan.pc \
    lib/cmake/Quorvan/Quorvan{Config,ConfigVersion,Targets,Targets-release}.cmake
  [[ ! -e $build/tools/quorvan.exe ]] || echo bin/quorvan.exe
  tr ';' '\n' <<<"$headers" | sed "s|^$build/include/|include/|; s|^$source/|include/|"
  echo share/doc/Quorvan/README.md
  (cd "$source" && find docs examples -type f | sed 's|^|share/doc/Quorvan/|')
} | sort >promised
(cd "$root" && find . -type f | sed 's|^\./||' | sort) >packed
diff -u promised packed

mkdir host
"$compiler" -std=c99 -Wall -Wextra -Werror "-I$root/include" \
  "$root/share/doc/Quorvan/examples/c/linked_host.c" "-L$root/lib" -lquorvan -o host/host.exe
cp "$root/bin/quorvan.dll" host
cd host
"$@" ./host.exe
grep -q '<CKtZantoRepartition .*<CKtDrawingControl ' lintel.xml
