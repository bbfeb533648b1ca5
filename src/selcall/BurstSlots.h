#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "common/Handles.h"

/// The fixed-format bursts of the Selcall systems in table 30. Its record 1 belongs to no system; behind it
/// each system has a block of as many slots as the others, divided among the kinds of bursts. A burst is
/// unused when its text is empty or "Undefined".

/// In the order of their codes.
enum class Burst : std::size_t { Repeater, CallerId, TxCall, Status, AccessTone, LeadIn };
inline constexpr std::size_t kBurstKinds = 6;

/// Where the forms show bursts of a kind, and what a channel calls the one that it uses.
struct BurstFields {
  std::string_view uiid;  ///< of the grid's column
  std::string_view
      sequence;             ///< the same field; row g shows the g-th burst of the kind in the current system
  std::string_view number;  ///< of the row
  std::string_view channel, channelUiid;
  char letter;  ///< of such a burst in the Tx format; '\0' for none
};
// Given by the maintainers' reference, like all that ARCHITECTURE lists as given.
// clang-format off
inline constexpr std::array<BurstFields, kBurstKinds> kBurstFields = {{
    {"BurstSequence0_k6k", "1101.BurstSequence", "1101.BurstID", "5.RepeaterBurstSeq", "RepeaterBurstIndex_k6k", 'B'},
    {"BurstSequence1_k6k", "1102.BurstSequence", "1102.BurstID", "5.CallerIDBurstSeq", "CallerIDBurstIndex_k6k", 'C'},
    {"BurstSequence2_k6k", "1103.BurstSequence", "1103.BurstID", "5.TXCallBurstSeq",   "TXCallBurstIndex_k6k",   'R'},
    {"BurstSequence3_k6k", "1104.BurstSequence", "1104.BurstID", "5.StatusBurstSeq",   "StatusBurstIndex_k6k",   'S'},
    {"BurstSequence4_k6k", "1105.BurstSequence", "1105.BurstID", "5.RepeaterAccessToneSeq", "RepeaterAccessToneIndex_k6k", '\0'},
    {"BurstSequence5_k6k", "1106.BurstSequence", "1106.BurstID", "5.Lead-In-ToneSeq",  "Lead-In-ToneIndex_k6k",  '\0'},
}};
// clang-format on
constexpr const BurstFields& FieldsOf(Burst kind) { return kBurstFields[static_cast<std::size_t>(kind)]; }

/// How a block is divided. Slots count from 1.
class BurstLayout {
 public:
  constexpr explicit BurstLayout(const std::array<RecordNr, kBurstKinds>& counts) : counts_(counts) {
    for (std::size_t kind = 0; kind < kBurstKinds; ++kind) {
      offsets_[kind] = slots_;
      slots_ += counts_[kind];
    }
  }

  constexpr RecordNr SlotsPerSystem() const { return slots_; }
  constexpr RecordNr CountOf(Burst kind) const { return counts_[static_cast<std::size_t>(kind)]; }
  /// The slots before those of the kind.
  constexpr RecordNr OffsetOf(Burst kind) const { return offsets_[static_cast<std::size_t>(kind)]; }
  constexpr Burst KindOf(RecordNr slot) const {
    std::size_t kind = kBurstKinds - 1;
    while (kind > 0 && slot <= offsets_[kind]) --kind;
    return static_cast<Burst>(kind);
  }

  /// The system that owns a record of table 30; 0 for record 1.
  constexpr RecordNr SystemOf(RecordNr record) const { return record < 2 ? 0 : (record - 2) / slots_ + 1; }
  constexpr RecordNr SlotOf(RecordNr record) const { return record < 2 ? 0 : (record - 2) % slots_ + 1; }
  constexpr RecordNr RecordOf(RecordNr system, RecordNr slot) const {
    return (system - 1) * slots_ + 1 + slot;
  }

 private:
  std::array<RecordNr, kBurstKinds> counts_;
  std::array<RecordNr, kBurstKinds> offsets_{};
  RecordNr slots_ = 0;
};

inline constexpr BurstLayout kBurstLayout{{5, 2, 100, 24, 5, 5}};
/// Of database versions before 0090.
inline constexpr BurstLayout kEarlyBurstLayout{{5, 2, 10, 24, 5, 5}};
static_assert(kBurstLayout.SlotsPerSystem() == 141 && kEarlyBurstLayout.SlotsPerSystem() == 51);
static_assert(kBurstLayout.KindOf(107) == Burst::TxCall && kBurstLayout.KindOf(108) == Burst::Status);
static_assert(kBurstLayout.SystemOf(kBurstLayout.RecordOf(3, 141)) == 3);

/// The layout of the personality's version.
const BurstLayout& BurstLayoutOf(const ProviderRef& provider);
