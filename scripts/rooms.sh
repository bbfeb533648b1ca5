#!/usr/bin/env bash
# rooms.sh: holds src/ and workbench/ against the tables of rooms in ARCHITECTURE.md, which stand there from the roof to
# the ground. Each folder is a room of the tables, an include points to the same room or to one further down, the
# workbench includes nothing of the tier but the border and what crosses it, and no room holds more than a third of the
# lines of its side.
set -u
cd "$(dirname "$0")/.." || exit 2
awk '
  function complain(what) { print "rooms: " FILENAME ":" FNR ": " what; bad = 1 }
  function room_of(path, parts) { split(path, parts, "/"); return parts[1] "/" parts[2] }
  function side_of(room) { return substr(room, 1, index(room, "/") - 1) }
  FILENAME == "ARCHITECTURE.md" {
    if (match($0, /^\| `(src|workbench)\/[a-z]+` \|/)) { split($0, cells, "`"); rank[cells[2]] = ++rooms }
    next
  }
  FNR == 1 { here = room_of(FILENAME); if (!(here in rank)) complain(here " is no room of ARCHITECTURE.md") }
  { ++lines[here]; ++side[side_of(here)] }
  /^#include "/ {
    split($0, quoted, "\"")
    there = room_of((quoted[2] ~ /^workbench\// ? "" : "src/") quoted[2])
    if (!(there in rank)) complain(quoted[2] " is in no room")
    else if (side_of(there) != side_of(here)) { if (there !~ /^src\/(host|platform)$/) complain(there " is inside the tier") }
    else if (rank[there] < rank[here]) complain(there " is above " here)
  }
  END {
    for (room in rank) {
      if (!(room in lines)) { print "rooms: ARCHITECTURE.md: there is no " room; bad = 1 }
      if (lines[room] * 3 > side[side_of(room)]) { print "rooms: " room " is too large"; bad = 1 }
    }
    if (rooms < 2) { print "rooms: ARCHITECTURE.md has no tables of rooms"; bad = 1 }
    exit bad
  }' ARCHITECTURE.md $(find src workbench -name '*.h' -o -name '*.cpp' | sort)
