#!/usr/bin/env bash
# Installs into a scratch folder and builds, as somebody else would, a host against what was installed:
# by the CMake package and by pkg-config. What the workbench tells shells and man has to be in place, too.
set -eu
ROOT=$(cd "$(dirname "$0")/.." && pwd)
. "$ROOT/scripts/setup.sh"

install_packages "${BUILD_PACKAGES[@]}" pkg-config
build "$ROOT/build" -DCMAKE_BUILD_TYPE=Release -DKD4410_TESTS=OFF
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
quietly cmake --install "$ROOT/build" --prefix "$scratch/prefix"
quietly cmake -S "$ROOT/tests/package" -B "$scratch/host" -G Ninja -DCMAKE_PREFIX_PATH="$scratch/prefix"
quietly cmake --build "$scratch/host"
tier=$(find "$scratch/prefix" -name libkd4410tier.so)
"$scratch/host/host" "$tier"

export PKG_CONFIG_PATH=$(dirname "$(find "$scratch/prefix" -name kd4410.pc)")
# shellcheck disable=SC2046
g++ $(pkg-config --cflags kd4410) "$ROOT/tests/package/host.cpp" $(pkg-config --libs kd4410) -o "$scratch/host2"
"$scratch/host2" "$tier"
"$scratch/prefix/bin/kd4410" fields >/dev/null

for told in man/man1/kd4410.1 bash-completion/completions/kd4410 zsh/site-functions/_kd4410 \
  fish/vendor_completions.d/kd4410.fish; do
  grep -q convert "$scratch/prefix/share/$told" || { echo "package: share/$told is not installed" >&2 && exit 1; }
done
echo "package: the installed contract builds a host, the installed workbench runs, has its manual page and completion"
