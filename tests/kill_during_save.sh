#!/usr/bin/env bash
# kill_during_save.sh KD4410 TIER SAMPLE KILLS: kills an edit KILLS times, each at another moment of its
# run. The file then holds the old content or the new one, and the next save is not hindered.
set -u
kd4410=$1 tier=$2 sample=$3 kills=$4
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
file=$folder/p.json

edit() { "$kd4410" --tier "$tier" set "$file" TxFreq_k6k 1 "$1" >"$folder/log" 2>&1; }
expect_edit() {
  edit "$1" && return
  echo "an edit failed:"
  cat "$folder/log"
  exit 1
}

cp "$sample" "$file"
expect_edit 421.5
cp "$file" "$folder/one"
expect_edit 422.5
cp "$file" "$folder/two"

for ((i = 0; i < kills; ++i)); do
  # The save lies near the end of a run of some 20 to 50 ms.
  "$kd4410" --tier "$tier" set "$file" TxFreq_k6k 1 "$((421 + i % 2)).5" >"$folder/log" 2>&1 &
  edited=$!
  sleep "0.0$((10 + 5 * (i % 10)))"
  kill -9 $edited 2>/dev/null
  wait $edited 2>/dev/null
  if ! cmp -s "$file" "$folder/one" && ! cmp -s "$file" "$folder/two"; then
    echo "kill $i left a file that is neither the old nor the new one"
    exit 1
  fi
done
expect_edit 421.5
cmp -s "$file" "$folder/one" || { echo "the last edit left something else"; exit 1; }
ls -A "$folder" | grep -q saving && { echo "a file is left beside"; exit 1; }
exit 0
