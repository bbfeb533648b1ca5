#!/usr/bin/env bash
# coverage.sh [--html FOLDER]: runs all tests on a tier that counts, tells which share of the lines and branches of src/
# they reach, in all and for each file below the limits, and fails below them. --html: every line, for a browser.
set -u
ROOT=$(cd "$(dirname "$0")/.." && pwd)
. "$ROOT/scripts/setup.sh"
LINE_LIMIT=95 BRANCH_LIMIT=85 # per cent

page=()
case "${1:-}" in
  '') ;;
  --html)
    mkdir -p "${2:?a folder}" && page=(--html-details "$2/index.html") || exit 2
    ;;
  *) echo "coverage: unknown argument $1" >&2 && exit 2 ;;
esac

install_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}" gcovr || exit 2
build "$ROOT/build" -DCMAKE_BUILD_TYPE=Release -DKD4410_TESTS=ON -DKD4410_COVERAGE=ON || exit 2
find "$ROOT/build" -name '*.gcda' -delete # of the run before
run_shards "$ROOT/build/tests/kd4410_coverage_tests" || exit 1

summary=$(mktemp)
trap 'rm -f "$summary"' EXIT
# Not counted: the ways of an exception that could pass but does not, which the compiler adds to every call.
gcovr --root "$ROOT" --filter "$ROOT/src/" --exclude-throw-branches --exclude-unreachable-branches -j "$(nproc)" \
  --json-summary "$summary" "${page[@]}" "$ROOT/build/CMakeFiles/kd4410_counted_objects.dir" >/dev/null || exit 2
python3 - "$summary" $LINE_LIMIT $BRANCH_LIMIT <<'EOF'
import json, sys

with open(sys.argv[1]) as file:
    summary = json.load(file)
limits = {"line": float(sys.argv[2]), "branch": float(sys.argv[3])}


def shares(counts):
    """Kind to (reached, all, per cent)."""
    told = {}
    for kind in limits:
        reached, all_ = counts[kind + "_covered"], counts[kind + "_total"]
        told[kind] = (reached, all_, 100.0 * reached / all_ if all_ else 100.0)
    return told


def below(counts):
    return any(share < limits[kind] for kind, (_, _, share) in shares(counts).items())


def row(name, counts):
    texts = [f"{reached:6} of {all_:6} {share:6.2f} %" for reached, all_, share in shares(counts).values()]
    return f"{texts[0]}   {texts[1]}   {name}"


print(f"{'lines':>15} {'':8}   {'branches':>18} {'':6}      limits {limits['line']:g} % and {limits['branch']:g} %")
for counts in summary["files"]:
    if below(counts):
        print(row(counts["filename"], counts))
print(row("src/ in all", summary))
sys.exit(1 if below(summary) else 0)
EOF
