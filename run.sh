#!/usr/bin/env bash
# The main job: checks a sample personality and shows its channels. With arguments: kd4410 with these.
# Installs what is missing and builds before that; the first run takes a few minutes.
set -u
ROOT=$(cd "$(dirname "$0")" && pwd)
. "$ROOT/scripts/setup.sh"

install_packages "${BUILD_PACKAGES[@]}" || exit 2
build "$ROOT/build" -DCMAKE_BUILD_TYPE=Release -DKD4410_TESTS=OFF || exit 2

kd4410="$ROOT/build/bin/kd4410"
if [ $# -gt 0 ]; then
  exec "$kd4410" "$@"
fi

sample="$ROOT/samples/marine-harbour.json"
echo "kd4410 check samples/marine-harbour.json"
"$kd4410" check "$sample"
checked=$?
[ $checked -le 1 ] || exit $checked # 1: there are findings, and they have been listed
echo
echo "kd4410 show samples/marine-harbour.json channels"
exec "$kd4410" show "$sample" channels
