#!/usr/bin/env bash
# All tests under the address and undefined-behaviour sanitizers. Arguments go on to ctest.
set -u
ROOT=$(cd "$(dirname "$0")/.." && pwd)
. "$ROOT/scripts/setup.sh"

install_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}" "${SANITIZER_PACKAGES[@]}" || exit 2
build_sanitized "$ROOT/build-sanitize" || exit 2
export LSAN_OPTIONS="suppressions=$ROOT/scripts/leaks.supp:print_suppressions=0"
export KD4410_WALK_STEPS=4 KD4410_DAMAGE_STRIDE=5 # random work is slow here, and done in the plain build
if [ $# -gt 0 ]; then
  exec ctest --test-dir "$ROOT/build-sanitize" --output-on-failure -j "$(nproc)" "$@"
fi
run_shards "$ROOT/build-sanitize/tests/kd4410_tests"
