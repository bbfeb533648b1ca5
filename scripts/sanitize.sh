#!/usr/bin/env bash
# All tests under the address and undefined-behaviour sanitizers. Arguments go on to ctest.
set -u
ROOT=$(cd "$(dirname "$0")/.." && pwd)
. "$ROOT/scripts/setup.sh"

install_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}" || exit 2
build "$ROOT/build-sanitize" -DCMAKE_BUILD_TYPE=Debug -DKD4410_SANITIZE=ON || exit 2
ctest --test-dir "$ROOT/build-sanitize" --output-on-failure -j "$(nproc)" "$@"
