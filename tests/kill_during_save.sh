#!/usr/bin/env bash
# kill_during_save.sh KD4410 TIER SAMPLE KILLS: kills an edit KILLS times. The file then holds the old content or the
# new one, and what is left beside it does not hinder the next save. One edit in four dies at any moment of its run,
# the others while they save. .ci/run asks for 300 kills; 10,000 are run by hand.
set -u
kd4410=$1 tier=$2 sample=$3 kills=$4
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
file=$folder/p.json side=$folder/.p.json.saving

fail() {
  echo "$*" >&2
  exit 1
}

edit() { exec "$kd4410" --tier "$tier" set "$file" TxFreq_k6k 1 "$1" >"$folder/log" 2>&1; }
expect_edit() {
  (edit "$1") || fail "an edit failed: $(cat "$folder/log")"
  [ ! -e "$side" ] || fail "an edit left a file beside"
}

# Waits until the save has begun, and then for a part of its duration.
wait_into_save() {
  local step
  until [ -e "$side" ] || [ "$file" -nt "$folder/started" ]; do :; done
  for ((step = RANDOM % duration; step > 0; --step)); do :; done
}

cp "$sample" "$file"
expect_edit 421.5
cp "$file" "$folder/one"
expect_edit 422.5
cp "$file" "$folder/two"

duration=100 # of a save, in steps of a loop; it follows what this machine shows
empty=0 partly=0 whole=0
for ((i = 0; i < kills; ++i)); do
  : >"$folder/started"
  edit "$((421 + i % 2)).5" &
  edited=$!
  if ((i % 4 == 0)); then sleep "0.0$((RANDOM % 50 + 10))"; else wait_into_save; fi
  kill -9 $edited 2>/dev/null
  wait $edited 2>/dev/null

  if ! cmp -s "$file" "$folder/one" && ! cmp -s "$file" "$folder/two"; then
    fail "kill $i left a file that is neither the old nor the new one"
  fi
  if [ ! -e "$side" ]; then
    ((duration = duration > 20 ? duration * 9 / 10 : duration))
    continue
  fi
  ((duration = duration * 21 / 20 + 1))
  if [ ! -s "$side" ]; then
    ((++empty))
  elif cmp -s "$side" "$folder/one" || cmp -s "$side" "$folder/two"; then
    ((++whole))
  else
    ((++partly))
  fi
  expect_edit "$((421 + i % 2)).5" # over what is left
done
expect_edit 421.5
cmp -s "$file" "$folder/one" || fail "the last edit left something else"
echo "$kills kills, $((empty + partly + whole)) of them between the opening of the file beside and its renaming:" \
  "$empty found it empty, $partly partly written, $whole whole"
