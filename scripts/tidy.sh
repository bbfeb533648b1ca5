#!/usr/bin/env bash
# clang-tidy over the tier, or the folders given (scripts/tidy.sh src workbench); its checks are in .clang-tidy. With
# --deep first of all, the static analyzer runs too, which takes more than twice the time.
set -u
ROOT=$(cd "$(dirname "$0")/.." && pwd)
. "$ROOT/scripts/setup.sh"

install_packages "${BUILD_PACKAGES[@]}" clang-tidy || exit 2
folder=$ROOT/build/apart # it is told how each source is compiled, alone
quietly cmake -S "$ROOT" -B "$folder" -G Ninja -DCMAKE_BUILD_TYPE=Release -DKD4410_TESTS=OFF -DKD4410_APART=ON || exit 2
checks='-clang-analyzer-*'
if [ "${1:-}" = --deep ]; then
  checks=''
  shift
fi
[ $# -gt 0 ] || set -- src
cd "$ROOT" || exit 2
find "$@" -name '*.cpp' -print0 |
  xargs -0 -n 4 -P "$(nproc)" clang-tidy -p "$folder" --quiet --checks="$checks" --warnings-as-errors='*' \
    2> >(grep -v 'warnings generated' >&2)
