#!/usr/bin/env bash
# mutate.sh N [SEED]: puts N random faults into a copy of src/, one at a time, builds and tests each, and lists those
# that no test catches, by file and line; fails when fewer than 95 % are caught. --only PATH: only in files whose path
# starts with it; --list: prints the faults and builds nothing; --survivors, instead of N: tries those again that
# survived the last run. The copy, its build and what is known of the tests are in build/mutate.
set -u
ROOT=$(cd "$(dirname "$0")/.." && pwd)
. "$ROOT/scripts/setup.sh"

install_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}" lld git python3 || exit 2
PYTHONDONTWRITEBYTECODE=1 exec python3 "$ROOT/scripts/mutate.py" "$@"
