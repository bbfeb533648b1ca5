#!/usr/bin/env bash
# clang-tidy over the tier, or the folders given (scripts/tidy.sh src workbench); its checks are in .clang-tidy. With
# --deep first of all, the static analyzer runs too, which takes more than twice the time.
set -u
ROOT=$(cd "$(dirname "$0")/.." && pwd)
. "$ROOT/scripts/setup.sh"

install_packages "${BUILD_PACKAGES[@]}" clang-tidy || exit 2
quietly cmake -S "$ROOT" -B "$ROOT/build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DKD4410_TESTS=OFF || exit 2
checks='-clang-analyzer-*'
if [ "${1:-}" = --deep ]; then
  checks=''
  shift
fi
[ $# -gt 0 ] || set -- src
cd "$ROOT" || exit 2
find "$@" -name '*.cpp' -print0 |
  xargs -0 -n 4 -P "$(nproc)" clang-tidy -p "$ROOT/build" --quiet --checks="$checks" --warnings-as-errors='*' \
    2> >(grep -v 'warnings generated' >&2)
