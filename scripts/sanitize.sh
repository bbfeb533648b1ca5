#!/usr/bin/env bash
# All tests under the address and undefined-behaviour sanitizers. Arguments go on to ctest.
set -u
ROOT=$(cd "$(dirname "$0")/.." && pwd)
. "$ROOT/scripts/setup.sh"

install_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}" || exit 2
build "$ROOT/build-sanitize" -DCMAKE_BUILD_TYPE=Debug -DKD4410_SANITIZE=ON || exit 2
if [ $# -gt 0 ]; then
  exec ctest --test-dir "$ROOT/build-sanitize" --output-on-failure -j "$(nproc)" "$@"
fi
# All of them in one process a core: under the sanitizers a process takes longer to start than most tests to run.
export GTEST_TOTAL_SHARDS GTEST_BRIEF=1
GTEST_TOTAL_SHARDS=$(nproc)
shards=()
for ((shard = 0; shard < GTEST_TOTAL_SHARDS; ++shard)); do
  GTEST_SHARD_INDEX=$shard "$ROOT/build-sanitize/tests/kd4410_tests" &
  shards+=($!)
done
result=0
for shard in "${shards[@]}"; do wait "$shard" || result=1; done
exit $result
