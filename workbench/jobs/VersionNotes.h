#pragma once

#include <string>
#include <string_view>
#include <vector>

class Schema;

/// What the step between two neighbouring versions does to any personality.
struct VersionNotes {
  std::string from, to;
  /// What the tier's step changes, asks for and refuses; empty where the versions differ in their number
  /// alone.
  std::string step;
  /// Tables and fields that only one of them has, or that hold another range there.
  std::vector<std::string> differences;
};

VersionNotes NotesOf(const Schema& from, const Schema& to);
