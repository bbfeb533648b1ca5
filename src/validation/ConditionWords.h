#pragma once

#include <string>
#include <vector>

#include "common/ValidatorRef.h"
#include "host/IenablementReasons.h"
#include "validation/ConditionReader.h"

/// Puts conditions into words, with the labels that the forms show.
class ConditionWords {
 public:
  explicit ConditionWords(const ValidatorRef& validator) : validator_(validator) {}

  /// "Emergency Enabled is on and Signalling Type is Selcall".
  std::string Of(const Condition& condition) const;
  /// Every test of the condition with the value that it reads, in its order.
  std::vector<EnablementReading> Readings(const Condition& condition, const ConditionReader& reader) const;
  /// The part of the condition that does not hold; empty when it does.
  std::string Missing(const Condition& condition, const ConditionReader& reader) const;

 private:
  std::string OfTest(const Condition& test) const;

  const ValidatorRef& validator_;
};
