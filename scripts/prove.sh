#!/usr/bin/env bash
# prove.sh [SECONDS]: what takes longer than a change should have to wait for: clang-tidy with the static analyzer over
# everything, the conformance of the tier at all levels, also under the sanitizers, many random sessions, 10,000 killed
# saves, 2,000 random steps on the grids of each sample, 200 random personalities a version pair, some 60 nasty values for
# each field, the benchmarks, SECONDS (3600 when none are given) of fuzzing a target, and 150 faults of which the tests
# have to catch nearly all.
set -eu
ROOT=$(cd "$(dirname "$0")/.." && pwd)
. "$ROOT/scripts/setup.sh"
seconds=${1:-3600}
sessions=40 # times the sessions of one check, each with seeds of its own

"$ROOT/scripts/tidy.sh" --deep src workbench
install_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
build "$ROOT/build" -DCMAKE_BUILD_TYPE=Release -DKD4410_TESTS=ON
kd4410=$ROOT/build/bin/kd4410
export LSAN_OPTIONS="suppressions=$ROOT/scripts/leaks.supp:print_suppressions=0"
"$kd4410" conform --level 9 --patience 7200
for ((i = 1; i <= sessions; ++i)); do
  "$kd4410" conform --check random-sessions --seed $((1000 * i))
done
"$ROOT/tests/kill_during_save.sh" "$kd4410" "$ROOT/build/lib/kd4410/libkd4410tier.so" "$ROOT/samples/city-fleet.json" 10000
KD4410_WALK_STEPS=2000 "$ROOT/build/tests/kd4410_tests" --gtest_filter='*GridWalk*'
KD4410_LAW_COUNT=200 "$ROOT/build/tests/kd4410_tests" --gtest_filter='ConversionLaws*'
TEST_TMPDIR=/dev/shm KD4410_TYPED_COUNT=0 "$ROOT/build/tests/kd4410_tests" --gtest_filter='*TypedValues*'
"$ROOT/bench.sh"
"$ROOT/scripts/sanitize.sh"
"$ROOT/build-sanitize/bin/kd4410" conform --level 9 --patience 7200
"$ROOT/scripts/fuzz.sh" "$seconds"
"$ROOT/scripts/mutate.sh" 150 1
