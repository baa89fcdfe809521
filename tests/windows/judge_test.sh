#!/usr/bin/env bash
# judge_test.sh PROGRAM RUNNER...: how a test program ends whose tests go as listed, or otherwise.
set -euo pipefail

program=$1
shift
runner=("$@")
failed=0

# expect STATUS JUDGED FILTER
expect() {
  local status=0 wanted=$1 judged=$2 filter=$3
  JUDGED=$judged "${runner[@]}" "$program" "--gtest_filter=$filter" >/dev/null 2>&1 || status=$?
  if ((status != wanted)); then
    echo "$judged ($filter): exit code $status, not $wanted" >&2
    failed=1
  fi
}

expect 0 'a listed test fails' 'GoldenDocument.*'
expect 1 'a listed test passes' 'GoldenDocument.*'
expect 1 'an unlisted test fails' 'GoldenDocument.*'
expect 1 'a listed test does not exist' '*'
exit "$failed"
