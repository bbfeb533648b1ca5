#!/usr/bin/env bash
# Fuzzes with libFuzzer under the sanitizers: scripts/fuzz.sh [SECONDS [TARGET...]], 20 seconds for each of all
# targets unless told; scripts/fuzz.sh 14400 runs for hours. Replays the committed corpora first. What it finds goes
# into build-sanitize/fuzz-work. With --merge first of all it does nothing but take over what earlier runs found into
# the committed corpora, minimised. With FUZZ_SEED set the search goes the same way in each run, as far as the time
# reaches; else another one each time. Exit code 1: a crash.
set -u
ROOT=$(cd "$(dirname "$0")/.." && pwd)
. "$ROOT/scripts/setup.sh"

FUZZ_BUILD=$ROOT/build-sanitize
WORK=$FUZZ_BUILD/fuzz-work
CORPUS=$ROOT/fuzz/corpus
MOST_BYTES=4096 # of an input
MOST_FILES=40   # of a committed corpus

merge=no
if [ "${1:-}" = --merge ]; then
  merge=yes
  shift
fi
seconds=20
if [[ ${1:-} =~ ^[0-9]+$ ]]; then
  seconds=$1
  shift
fi
targets=("$@")
[ ${#targets[@]} -gt 0 ] || mapfile -t targets < <(basename -s .cpp -a "$ROOT"/fuzz/*.cpp)

# options_of TARGET: how the target is run, with the lines of fuzz/TARGET.options, which win. What the target prints
# is not kept: a tier in a session shows many boxes.
options_of() {
  printf '%s\n' -close_fd_mask=3 -max_len=$MOST_BYTES -timeout=30 -rss_limit_mb=4096 "-artifact_prefix=$WORK/$1-" \
    "-seed=${FUZZ_SEED:-0}"
  [ ! -f "$ROOT/fuzz/$1.dict" ] || echo "-dict=$ROOT/fuzz/$1.dict"
  [ ! -f "$ROOT/fuzz/$1.options" ] || cat "$ROOT/fuzz/$1.options"
}

# fuzz TARGET ARGUMENT...: runs the target; its output goes to the target's log.
fuzz() {
  local target=$1 options
  shift
  mapfile -t options < <(options_of "$target")
  (cd "$WORK" && "$FUZZ_BUILD/fuzz/fuzz$target" "${options[@]}" "$@") >"$WORK/$target.log" 2>&1
}

# failed TARGET: tells of the crash in the target's log, with the input and what the target says of it: the log of
# another machine may be gone.
failed() {
  local input
  input=$(sed -n 's/.*Test unit written to //p' "$WORK/$1.log" | tail -n 1)
  echo "$1: CRASH on ${input:-no input}; the log is $WORK/$1.log"
  echo "  reproduce: $FUZZ_BUILD/fuzz/fuzz$1 $input"
  [ -f "$input" ] || return
  echo "  input in base64: $(base64 -w 0 "$input")"
  timeout 60 "$FUZZ_BUILD/fuzz/fuzz$1" "$input" 2>&1 | tail -n 25 | cut -c 1-400 | sed 's/^/  /'
}

# replay TARGET: each committed input once.
replay() {
  fuzz "$1" -runs=0 "$CORPUS/$1" && return
  failed "$1"
  return 1
}

# run TARGET: fuzzes for the time given and tells inputs, speed, and coverage.
run() {
  mkdir -p "$WORK/$1"
  if ! fuzz "$1" -max_total_time="$seconds" -print_final_stats=1 "$WORK/$1" "$CORPUS/$1"; then
    failed "$1"
    return 1
  fi
  awk -v target="$1" '/ cov: / { for (i = 1; i < NF; ++i) { if ($i == "cov:") cov = $(i + 1); if ($i == "ft:") ft = $(i + 1) } }
    /stat::number_of_executed_units/ { inputs = $2 }
    /stat::average_exec_per_sec/ { speed = $2 }
    END { printf "%s: %d inputs, %d a second, %d edges and %d features covered\n", target, inputs, speed, cov, ft }' \
    "$WORK/$1.log"
}

# merge TARGET: the committed corpus becomes what of it and of the work folder covers most; the files come in that
# order, the one that adds most first.
merge() {
  local merged=$WORK/$1-merged
  rm -rf "$merged" && mkdir -p "$merged" "$WORK/$1"
  fuzz "$1" -set_cover_merge=1 "$merged" "$CORPUS/$1" "$WORK/$1" || { failed "$1"; return 1; }
  rm -f "$CORPUS/$1"/*
  find "$merged" -type f -printf '%T@ %p\n' | sort -n | head -n $MOST_FILES | cut -d' ' -f2- |
    xargs -r cp -t "$CORPUS/$1"
  echo "$1: $(find "$CORPUS/$1" -type f | wc -l) inputs of $(find "$merged" -type f | wc -l)"
}

# for_all ROUTINE: for each target, as many at a time as there are processors.
for_all() {
  local result=0 running=0 target
  for target in "${targets[@]}"; do
    if [ $running -ge "$(nproc)" ]; then
      wait -n || result=1
      running=$((running - 1))
    fi
    "$1" "$target" &
    running=$((running + 1))
  done
  while [ $running -gt 0 ]; do
    wait -n || result=1
    running=$((running - 1))
  done
  return $result
}

install_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}" "${SANITIZER_PACKAGES[@]}" || exit 2
build_sanitized "$FUZZ_BUILD" || exit 2
mkdir -p "$WORK"
for target in "${targets[@]}"; do
  [ -x "$FUZZ_BUILD/fuzz/fuzz$target" ] && continue
  echo "fuzz: there is no target $target" >&2
  exit 2
done
if [ $merge = yes ]; then
  for_all merge
  exit
fi
for_all replay && for_all run
