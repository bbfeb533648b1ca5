#!/usr/bin/env bash
# Builds and runs all tests. Installs what is missing before that. Arguments go on to ctest
# (./test.sh -R Frequency).
set -u
ROOT=$(cd "$(dirname "$0")" && pwd)
. "$ROOT/scripts/setup.sh"

install_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}" || exit 2
build "$ROOT/build" -DCMAKE_BUILD_TYPE=Release -DKD4410_TESTS=ON -DKD4410_COVERAGE=OFF || exit 2
ctest --test-dir "$ROOT/build" --output-on-failure -j "$(nproc)" "$@"
