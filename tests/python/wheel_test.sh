#!/usr/bin/env bash
# wheel_test.sh PYTHON LIBRARY FOLDER: builds the wheel, installs it into a fresh virtual environment
# without a network, and runs the tests of the package there.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
python=$1 library=$2 folder=$3

rm -rf "$folder"
PYTHON=$python "$root/scripts/python-wheel" "$library" "$folder/wheel"
"$python" -m venv "$folder/venv"
"$folder/venv/bin/pip" install --quiet --no-index "$folder"/wheel/quorvan-*.whl
cd "$folder"
env -u QUORVAN_LIBRARY -u PYTHONPATH "$folder/venv/bin/python" "$root/tests/python/package_test.py"
