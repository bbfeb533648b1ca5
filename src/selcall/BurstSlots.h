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

/// Whether bursts of the kind may call a group.
constexpr bool CallsGroups(Burst kind) {
  return kind == Burst::Repeater || kind == Burst::CallerId || kind == Burst::TxCall;
}

/// Where the forms show bursts of a kind.
struct BurstFields {
  std::string_view name;  ///< of the kind in messages
  std::string_view uiid;  ///< of the grid's column
  std::string_view
      sequence;             ///< the same field; row g shows the g-th burst of the kind in the current system
  std::string_view number;  ///< of the row
  char letter;              ///< of such a burst in the Tx format; '\0' for none
};
// Given by the maintainers' reference, like all that ARCHITECTURE lists as given.
// clang-format off
inline constexpr std::array<BurstFields, kBurstKinds> kBurstFields = {{
    {"Repeater",             "BurstSequence0_k6k", "1101.BurstSequence", "1101.BurstID", 'B'},
    {"Caller ID",            "BurstSequence1_k6k", "1102.BurstSequence", "1102.BurstID", 'C'},
    {"Tx Call",              "BurstSequence2_k6k", "1103.BurstSequence", "1103.BurstID", 'R'},
    {"Status",               "BurstSequence3_k6k", "1104.BurstSequence", "1104.BurstID", 'S'},
    {"Repeater Access Tone", "BurstSequence4_k6k", "1105.BurstSequence", "1105.BurstID", '\0'},
    {"Lead In Tone",         "BurstSequence5_k6k", "1106.BurstSequence", "1106.BurstID", '\0'},
}};
// clang-format on
constexpr const BurstFields& FieldsOf(Burst kind) { return kBurstFields[static_cast<std::size_t>(kind)]; }

/// Where a channel, or one of its preset calls in table 76, says which burst it sends: by its text on the
/// forms, in the radio by its record less 1, with 0 for none.
struct BurstUser {
  std::string_view form, uiid, pointer;
  Burst kind;
};
/// Of the channels by kind, then of the preset calls.
// clang-format off
inline constexpr std::array<BurstUser, 10> kBurstUsers = {{
    {"5.RepeaterBurstSeq",      "RepeaterBurstIndex_k6k",      "5.RepeaterBurst",      Burst::Repeater},
    {"5.CallerIDBurstSeq",      "CallerIDBurstIndex_k6k",      "5.CallerIDBurst",      Burst::CallerId},
    {"5.TXCallBurstSeq",        "TXCallBurstIndex_k6k",        "5.TXCallBurst",        Burst::TxCall},
    {"5.StatusBurstSeq",        "StatusBurstIndex_k6k",        "5.StatusBurst",        Burst::Status},
    {"5.RepeaterAccessToneSeq", "RepeaterAccessToneIndex_k6k", "5.RepeaterAccessTone", Burst::AccessTone},
    {"5.Lead-In-ToneSeq",       "Lead-In-ToneIndex_k6k",       "5.Lead-In-Tone",       Burst::LeadIn},
    {"76.RepeaterBurstSeq", {}, "76.DSDBM_CHANNEL_SEL_RPT_BURST_INDEX_POINTER", Burst::Repeater},
    {"76.CallerIDBurstSeq", {}, "76.DSDBM_CHANNEL_SEL_CALLER_ID_INDEX_POINTER", Burst::CallerId},
    {"76.TXCallBurstSeq",   {}, "76.DSDBM_CHANNEL_SEL_TXCALL_INDEX_POINTER",    Burst::TxCall},
    {"76.StatusBurstSeq",   {}, "76.DSDBM_CHANNEL_SEL_STATUS_INDEX_POINTER",    Burst::Status},
}};
// clang-format on
/// What a channel calls its burst of a kind.
constexpr const BurstUser& ChannelBurst(Burst kind) { return kBurstUsers[static_cast<std::size_t>(kind)]; }
static_assert(ChannelBurst(Burst::LeadIn).kind == Burst::LeadIn);

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
