# Set-up shared by run.sh and test.sh; to be sourced. Quiet unless a step fails.

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
TEST_PACKAGES=(libgtest-dev libgmock-dev)

# build FOLDER [CMAKE-OPTION...]: configures and builds with ninja.
build() {
  local folder=$1
  shift
  quietly cmake -S "$ROOT" -B "$folder" -G Ninja "$@" && quietly cmake --build "$folder"
}
