#!/usr/bin/env bash
# The benchmarks, each figure beside its floor and with its count of host calls. Arguments go on to the
# benchmark program (./bench.sh --benchmark_filter=Rule).
set -u
ROOT=$(cd "$(dirname "$0")" && pwd)
. "$ROOT/scripts/setup.sh"

install_packages "${BUILD_PACKAGES[@]}" libbenchmark-dev || exit 2
build "$ROOT/build" -DCMAKE_BUILD_TYPE=Release -DKD4410_TESTS=OFF -DKD4410_BENCHMARKS=ON || exit 2
"$ROOT/build/benchmarks/kd4410_bench" "$@"
