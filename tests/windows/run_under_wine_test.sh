#!/usr/bin/env bash
# run_under_wine_test.sh RUN_UNDER_WINE WORK: what is repeated and what is not, with a stand-in for
# Wine that ends as the test wants.
set -euo pipefail

runner=$1 work=$2
rm -rf "$work"
mkdir -p "$work/bin" "$work/prefix"
touch "$work/prefix/ready"

# Each run takes the next of the endings: an exit code or the name of a signal.
cat >"$work/bin/wine" <<'END'
#!/usr/bin/env bash
[[ $1 == cmd.exe ]] && exit
ending=$(head -n 1 "$ENDINGS")
sed -i 1d "$ENDINGS"
echo "$ending" >>"$RUNS"
case $ending in
  complaint) echo 'wine client error:0: partial write' >&2; exit 1 ;;
  red) echo '[  FAILED  ] Some.Test'; exit 1 ;;
  [0-9]*) exit "$ending" ;;
  *) kill -s "$ending" $$ ;;
esac
END
printf '#!/bin/sh\nexit 2\n' >"$work/bin/wineserver"
chmod +x "$work"/bin/*
export PATH=$work/bin:$PATH ENDINGS=$work/endings RUNS=$work/runs

failed=0
arguments=()
# expect STATUS RUNS NAME ENDING...: on a fresh count, with the arguments.
expect() {
  local status=0 wanted_status=$1 wanted_runs=$2 name=$3
  shift 3
  "$runner" --begin "$work/prefix"
  printf '%s\n' "$@" >"$ENDINGS"
  : >"$RUNS"
  "$runner" "$work/prefix" program.exe "${arguments[@]}" >/dev/null 2>&1 || status=$?
  if ((status != wanted_status || $(wc -l <"$RUNS") != wanted_runs)); then
    echo "$name: exit code $status after $(wc -l <"$RUNS") runs," \
      "not $wanted_status after $wanted_runs" >&2
    failed=1
  fi
}

expect 0 1 'a program that succeeds' 0 1
expect 1 1 'a program that fails is not repeated' 1 0
expect 5 1 'a program that crashes is not repeated' 5 0
expect 253 1 'a program that overflows its stack is not repeated' 253 0
expect 0 2 'a crash of Wine is repeated' SEGV 0
expect 0 2 'a complaint of Wine is repeated' complaint 0
expect 1 2 'a failure after a crash of Wine is a failure' ABRT 1 0
expect 137 6 'crashes of Wine above the limit fail' KILL KILL KILL KILL KILL KILL KILL 0

arguments=(--gtest_filter=Some.*)
expect 0 2 'tests that did not begin are repeated' 1 0
expect 1 1 'tests that fail are not repeated' red 0
expect 5 1 'tests that crash are not repeated' 5 0
expect 137 6 'crashes of Wine above the limit fail, of tests too' KILL KILL KILL KILL KILL KILL KILL 0

told=$("$runner" --end "$work/prefix")
if [[ $told != *'crashes of Wine: 6'* ]]; then
  echo "the crashes are not told: $told" >&2
  failed=1
fi
exit "$failed"
