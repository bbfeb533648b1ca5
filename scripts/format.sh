#!/usr/bin/env bash
# Checks that clang-format leaves the sources alone; with --fix, formats them.
set -u
ROOT=$(cd "$(dirname "$0")/.." && pwd)
. "$ROOT/scripts/setup.sh"

install_packages clang-format || exit 2
mode=(--dry-run -Werror)
[ "${1:-}" = --fix ] && mode=(-i)
find "$ROOT"/{src,workbench,tests,benchmarks,fuzz} \( -name '*.h' -o -name '*.cpp' \) -print0 |
  xargs -0 clang-format "${mode[@]}"
