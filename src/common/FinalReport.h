#pragma once

#include <string_view>
#include <vector>

#include "common/Messages.h"
#include "common/ValidatorRef.h"
#include "host/IfinalRules.h"

/// What a rule of the walk before a save finds. The walk ends with the first refusal, and a rule with its
/// first question; a rule that runs by itself looks on.
class FinalReport {
 public:
  enum class Scope { FirstFinding, EveryFinding };
  FinalReport(const ValidatorRef& validator, Scope scope) : validator_(validator), scope_(scope) {}

  const ValidatorRef& Validator() const { return validator_; }
  ProviderRef Provider() const { return validator_.CurrentProvider(); }

  /// The boxes, each with the control that mends what it tells. Whether the rule looks on.
  bool Refuse(FinalPlace place, std::string_view message, Parameters parameters = {});
  /// Asks, and lets the walk go on after a Yes alone.
  Button AskYesNo(FinalPlace place, std::string_view message, Parameters parameters = {});
  void Warn(FinalPlace place, std::string_view message, Parameters parameters = {});
  void Notify(FinalPlace place, std::string_view message, Parameters parameters = {});

  /// Whether a rule looks for more after a box that tells enough.
  bool LooksOn() const { return scope_ == Scope::EveryFinding; }
  bool HasPassed() const { return passed_; }
  const std::vector<FinalPlace>& Places() const { return places_; }

 private:
  const ValidatorRef& validator_;
  Scope scope_;
  bool passed_ = true;
  std::vector<FinalPlace> places_;
};
