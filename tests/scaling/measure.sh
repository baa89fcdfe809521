#!/usr/bin/env bash
# Counts the instructions of each step that a program takes (measured_step.h), at a size and at four
# times that size, and fails where the work grows more than five times. Arguments: the program and its
# own. Skipped, with status 77, where the counter is not installed.
set -euo pipefail

command -v valgrind >/dev/null || {
  echo "valgrind is not installed"
  exit 77
}
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
step=quorvan_measured_step
valgrind --quiet --tool=callgrind --callgrind-out-file="$folder/count" --toggle-collect=$step \
  --dump-after=$step "$@" >steps

# The counts come one file a step, in the order of the steps.
number=0
while IFS=$'\t' read -r shape name size; do
  number=$((number + 1))
  count=$(awk '/^(summary|totals):/ { print $2; exit }' "count.$number")
  printf '%s\t%s\t%s\t%s\n' "$shape" "$name" "$size" "$count"
done <steps >counts

awk -F '\t' '
  { key = $1 ", " $2 }
  !(key in first) { first[key] = $4; next }
  {
    # What costs next to nothing is not told from noise.
    growth = $4 / (first[key] > 20000 ? first[key] : 20000)
    isTooMuch = growth > 5
    printf("%-60s %12d %12d %6.2f%s\n", key, first[key], $4, growth, isTooMuch ? "  too much" : "")
    steps++
    failed = failed || isTooMuch
  }
  END { exit failed || steps == 0 }' counts
