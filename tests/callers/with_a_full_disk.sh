#!/bin/sh
# with_a_full_disk.sh FOLDER COMMAND...: runs the command with a full file system in the folder, which
# nobody else sees and which is gone afterwards. Ends with 77 where none can be mounted.
set -eu

folder=$1
shift
mkdir -p "$folder"
if ! unshare --user --map-root-user --mount mount -t tmpfs -o size=4096 none "$folder"; then
  exit 77
fi
# shellcheck disable=SC2016
exec unshare --user --map-root-user --mount sh -c '
  mount -t tmpfs -o size=4096 none "$0" && head -c 4096 /dev/zero >"$0/filler" && exec "$@"
' "$folder" "$@"
