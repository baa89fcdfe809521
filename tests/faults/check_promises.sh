#!/usr/bin/env bash
# Every test that SECURITY.md names is there: a promise whose proof is gone would be a lie.
# Arguments: the folder of the sources.
set -euo pipefail

cd "$1"
status=0
while read -r name; do
  suite=${name%%.*}
  test=${name#*.}
  pattern="TEST(_F|_P)?\($suite, $test\)"
  if [[ $test == '*' ]]; then
    pattern="TEST(_F|_P)?\($suite,"
  elif [[ $suite == FuzzCorpus ]]; then
    pattern="quorvan_add_fuzz_target\($test "
  elif [[ $suite == Soak ]]; then
    pattern="$suite\.$test"
  elif [[ $suite == Scaling ]]; then
    pattern="quorvan_add_scaling_test\($test |Scaling\.$test"
  fi
  if ! grep -rqE --include='*.cpp' --include=CMakeLists.txt "$pattern" tests fuzz; then
    echo "SECURITY.md names $name, which is no test"
    status=1
  fi
done < <(grep -oE '`[A-Z][A-Za-z]+\.([A-Z*][A-Za-z0-9]*|parser)`' SECURITY.md | tr -d '`' | sort -u)
exit "$status"
