#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>

#include "platform/Types.h"

class Schema;

/// Where a fixed-format burst stands, whatever the version: in which system, a record of table 29, and in
/// which row of the grid of its kind.
struct BurstPlace {
  RecordNr system;
  std::size_t kind;  // in BurstSlots::kKinds
  RecordNr row;

  /// "Selcall system 2, Tx call burst 11"
  std::string Name() const;
};

/// How a version divides table 30: record 1 is no system's, then comes a block for each system, in which each
/// kind has as many slots as its grid has rows.
class BurstPlaces {
 public:
  explicit BurstPlaces(const Schema& schema);

  /// No value for record 1.
  std::optional<BurstPlace> Of(RecordNr record) const;
  /// 0 for a place that the version does not have.
  RecordNr RecordOf(const BurstPlace& place) const;

  friend bool operator==(const BurstPlaces&, const BurstPlaces&) = default;

 private:
  std::array<RecordNr, 6> rows_{};  // by kind
  RecordNr block_ = 0;
};
