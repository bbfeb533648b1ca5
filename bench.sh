#!/usr/bin/env bash
# The benchmarks in one table, each figure beside its floor and, where one stands, its limit. Arguments go on to the
# benchmark program (./bench.sh --benchmark_filter=Rule). Fails when host calls grow faster than their records; with
# --strict also when a ratio to the floor, a growth or a size is above its limit. Times are told beside theirs.
set -u
ROOT=$(cd "$(dirname "$0")" && pwd)
. "$ROOT/scripts/setup.sh"

results=$(mktemp -d)
trap 'rm -rf "$results"' EXIT
json=$results/json
table=()
arguments=()
for argument in "$@"; do
  case $argument in
    --strict) table+=(--strict) ;;
    --benchmark_out=*) json=${argument#*=} ;;
    *) arguments+=("$argument") ;;
  esac
done

install_packages "${BUILD_PACKAGES[@]}" libbenchmark-dev python3 || exit 2
build "$ROOT/build" -DCMAKE_BUILD_TYPE=Release -DKD4410_TESTS=OFF -DKD4410_BENCHMARKS=ON || exit 2
# Several short repetitions: the best of them is the one that other processes disturbed least.
if ! "$ROOT/build/benchmarks/kd4410_bench" --benchmark_repetitions=5 --benchmark_min_time=0.05 "${arguments[@]}" \
  --benchmark_out="$json" --benchmark_out_format=json >"$results/text" 2>&1; then
  cat "$results/text" >&2
  exit 2
fi
if [ ! -s "$json" ]; then # a question about the program (--help), or no benchmark of that name
  cat "$results/text"
  ! grep -q '^Failed to match' "$results/text" || exit 2
  exit 0
fi
python3 "$ROOT/benchmarks/table.py" "${table[@]}" "$json"
