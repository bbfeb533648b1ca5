# Steps that the scripts share; to be sourced. Quiet unless a step fails.

# Runs a command; its output appears only when it fails.
quietly() {
  local log
  log=$(mktemp)
  if ! "$@" >"$log" 2>&1; then
    cat "$log" >&2
    rm -f "$log"
    echo "setup: failed: $*" >&2
    return 1
  fi
  rm -f "$log"
}

# install_packages NAME...: installs those Debian packages that are missing.
install_packages() {
  local missing=() name as_root=()
  for name in "$@"; do
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$name" 2>/dev/null)" = installed ] || missing+=("$name")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  if [ "$(id -u)" != 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo "setup: these packages are missing, and installing them takes root or sudo: ${missing[*]}" >&2
      return 1
    fi
    as_root=(sudo)
  fi
  echo "setup: installing ${missing[*]}" >&2
  export DEBIAN_FRONTEND=noninteractive
  quietly "${as_root[@]}" apt-get update &&
    quietly "${as_root[@]}" apt-get install -y --no-install-recommends "${missing[@]}"
}

BUILD_PACKAGES=(g++ cmake ninja-build nlohmann-json3-dev libcli11-dev)
TEST_PACKAGES=(libgtest-dev libgmock-dev libvalijson-dev jq)

# build FOLDER [CMAKE-OPTION...]: configures and builds with ninja.
build() {
  local folder=$1
  shift
  quietly cmake -S "$ROOT" -B "$folder" -G Ninja "$@" && quietly cmake --build "$folder"
}

SANITIZER_PACKAGES=(clang libclang-rt-dev)

# build_sanitized FOLDER [CMAKE-OPTION...]: builds everything with clang and its sanitizers.
build_sanitized() {
  local folder=$1
  shift
  # cmake keeps the compiler that a folder was made with.
  grep -qs '^CMAKE_CXX_COMPILER:.*clang' "$folder/CMakeCache.txt" || rm -rf "$folder"
  build "$folder" -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=Debug -DKD4410_SANITIZE=ON "$@"
}

# run_shards EXECUTABLE: all tests of the executable, in a few processes a core, one after the other: the long tests
# stand together. For builds whose processes take longer to start or to end than most tests to run.
run_shards() {
  local cores count
  cores=$(nproc)
  count=$((8 * cores))
  seq 0 $((count - 1)) |
    GTEST_BRIEF=1 GTEST_TOTAL_SHARDS=$count xargs -P "$cores" -I '{}' env GTEST_SHARD_INDEX='{}' "$1"
}
