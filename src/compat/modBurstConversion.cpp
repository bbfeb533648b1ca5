#include "compat/modBurstConversion.h"

#include <algorithm>
#include <array>
#include <vector>

#include "compat/VersionStep.h"
#include "platform/Conversions.h"
#include "selcall/BurstSlots.h"
#include "selcall/modSelcallMapping.h"

namespace modBurstConversion {
namespace {
constexpr std::string_view kOwner = "30.FixedFormatSigSystemID", kKind = "30.FixedFormatBurstType",
                           kNumber = "30.FixedFormatBurstID", kSequence = "30.FixedFormatBurstSeq";

/// The slot of a burst in the other layout; 0 for one that has no place there.
RecordNr SlotIn(const BurstLayout& to, const BurstLayout& from, RecordNr slot) {
  const Burst kind = from.KindOf(slot);
  const RecordNr index = slot - from.OffsetOf(kind);
  return index <= to.CountOf(kind) ? to.OffsetOf(kind) + index : 0;
}

/// Lays the blocks of a personality out anew.
class Blocks {
 public:
  Blocks(const ProviderRef& provider, const BurstLayout& from, const BurstLayout& to)
      : provider_(provider), from_(from), to_(to), systems_(provider.Table("29").RecordCount()) {
    for (std::size_t i = 0; i < kFields.size(); ++i) before_[i] = provider.Field(kFields[i]).Values();
  }

  /// Whether a burst is in use that has no place in the new layout.
  bool DropsAny() const {
    for (RecordNr record = 2; record <= Count() && from_.SystemOf(record) <= systems_; ++record) {
      const bool isDropped = SlotIn(to_, from_, from_.SlotOf(record)) == 0;
      if (isDropped && !modSelcallMapping::NumarrayToString(Before(kSequenceAt, record)).empty()) return true;
    }
    return false;
  }

  void Move() const {
    const TableRef table = provider_.Table("30");
    const RecordNr needed = 1 + systems_ * to_.SlotsPerSystem();
    for (RecordNr record = table.RecordCount(); record > needed; --record) table.DeleteRecord(record);
    table.FillTo(needed);
    const std::vector<Variant> identities = provider_.Field("29.SelcallID").Values();
    for (const RecordNr system : RecordRange(systems_)) {
      for (RecordNr slot = 1; slot <= to_.SlotsPerSystem(); ++slot) {
        Write(system, slot, identities[static_cast<std::size_t>(system - 1)]);
      }
    }
  }

  /// A pointer holds the record less 1, or 0 for none. What points behind the blocks stays.
  void MovePointers() const {
    for (const BurstUser& user : kBurstUsers) {
      const FieldRef pointer = provider_.Field(user.pointer);
      for (const RecordNr record : pointer.Records()) {
        const std::int32_t target = CLng(pointer.Value(record));
        if (target <= 0 || from_.SystemOf(target + 1) > systems_) continue;
        const RecordNr slot = SlotIn(to_, from_, from_.SlotOf(target + 1));
        pointer.SetValue(record, slot == 0 ? 0 : to_.RecordOf(from_.SystemOf(target + 1), slot) - 1);
      }
    }
  }

 private:
  static constexpr std::array<std::string_view, 4> kFields = {kOwner, kKind, kNumber, kSequence};
  static constexpr std::size_t kNumberAt = 2, kSequenceAt = 3;

  RecordNr Count() const { return static_cast<RecordNr>(before_[0].size()); }
  const Variant& Before(std::size_t field, RecordNr record) const {
    return before_[field][static_cast<std::size_t>(record - 1)];
  }

  /// A slot that the old layout did not have is as a save leaves an unused one.
  void Write(RecordNr system, RecordNr slot, const Variant& identity) const {
    const RecordNr record = to_.RecordOf(system, slot);
    const RecordNr oldSlot = SlotIn(from_, to_, slot);
    const RecordNr old = oldSlot == 0 ? 0 : from_.RecordOf(system, oldSlot);
    if (old == 0 || old > Count()) {
      const std::array<Variant, 4> fresh = {identity, static_cast<std::int32_t>(to_.KindOf(slot)), slot,
                                            modSelcallMapping::StringToNumarray("")};
      for (std::size_t i = 0; i < kFields.size(); ++i) provider_.Field(kFields[i]).SetValue(record, fresh[i]);
      return;
    }
    for (std::size_t i = 0; i < kFields.size(); ++i) {
      // A burst that is numbered by its slot goes on to be.
      const bool isSlot = i == kNumberAt && SameValue(Before(i, old), oldSlot);
      provider_.Field(kFields[i]).SetValue(record, isSlot ? Variant(slot) : Before(i, old));
    }
  }

  const ProviderRef& provider_;
  const BurstLayout& from_;
  const BurstLayout& to_;
  RecordNr systems_;
  std::array<std::vector<Variant>, 4> before_;
};
}  // namespace

bool CallsBeyondTen(const ProviderRef& provider) {
  const RecordNr last = kEarlyBurstLayout.OffsetOf(Burst::TxCall) + kEarlyBurstLayout.CountOf(Burst::TxCall);
  const std::vector<Variant> pointers = provider.Field("5.TXCallBurst").Values();
  return std::ranges::any_of(pointers, [&](const Variant& pointer) {
    return CLng(pointer) > 0 && kBurstLayout.SlotOf(CLng(pointer) + 1) > last;
  });
}

bool SelCallFixedFormatBurstsConversion90To89(const VersionStep& step) {
  const Blocks blocks(step.Destination(), kBurstLayout, kEarlyBurstLayout);
  if (blocks.DropsAny()) {
    step.Warn(
        "This database version does not support more than 10 Selcall Fixed Format Tx Sequences.  Only the "
        "first ten will be saved for each Selcall System.");
  }
  blocks.Move();
  blocks.MovePointers();
  return true;
}

void SelCallFixedFormatBurstsConversion89To90(const VersionStep& step) {
  const Blocks blocks(step.Destination(), kEarlyBurstLayout, kBurstLayout);
  blocks.Move();
  blocks.MovePointers();
}
}  // namespace modBurstConversion
