#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Status.h"
#include "platform/Types.h"

/// Where what a rule tells is mended.
struct FinalPlace {
  std::string uiid;
  RecordNr record = 0;
};

/// What came of one rule of the walk before a save.
struct FinalOutcome {
  /// The number of the rule, or the name of a routine behind the numbered ones.
  std::string name;
  Boolean passed = 0;
  /// One for each box that the rule has shown, in order.
  std::vector<FinalPlace> places;
};

/// The rules behind `ItierValidator.RunFinalValidation`, each by itself and over all records: the walk stops
/// at the first thing that it finds. An extra that a host asks the tier's validator for by a dynamic cast; a
/// tier without it gives a null pointer.
class IfinalRules {
 public:
  virtual ~IfinalRules() = default;
  virtual Status FinalRuleCount(std::int32_t& out) = 0;
  /// Runs one rule, from 1 in the order of the walk, to its end: it shows what it has to tell of each record.
  /// What it writes stands, as after a save. Legal when RunFinalValidation is; a number that no rule has
  /// raises 9.
  virtual Status RunFinalRule(std::int32_t rule, FinalOutcome& out) = 0;
};
