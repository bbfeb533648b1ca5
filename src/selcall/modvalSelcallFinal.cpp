#include <algorithm>
#include <string>

#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/StoredValues.h"
#include "platform/Conversions.h"
#include "selcall/BurstSlots.h"
#include "selcall/modFreeFormat.h"
#include "selcall/modSelcallMapping.h"
#include "selcall/modvalSelcall.h"

/// What holds over all systems before a save.
namespace modvalSelcall {
namespace {
using modSelcallMapping::SequenceText;

/// The burst of the system in which a tone follows a group tone, told as a warning; false for none.
bool TellFixedBurst(const ValidatorRef& validator, const ProviderRef& provider, RecordNr system) {
  const BurstLayout& layout = BurstLayoutOf(provider);
  const FieldRef bursts = provider.Field("UGBurstSeq");
  const RecordNr last = std::min(layout.RecordOf(system + 1, 0), bursts.RecordCount());
  for (RecordNr record = layout.RecordOf(system, 1); record <= last; ++record) {
    const std::string burst = SequenceText(bursts.Value(record));
    if (HasGroupsLast(burst)) continue;
    Warn(
        validator,
        "There is a Fixed Format %0:S Burst of '%1:S' in Selcall System %2:S with an invalid 'G' tone "
        "sequence.  You must correct this burst to follow the Sigtec Group Format by placing all 'G's at the "
        "end of the burst.",
        {FieldsOf(layout.KindOf(layout.SlotOf(record))).name, burst,
         CStr(StoredValue(provider, kIdentity, system))});
    return true;
  }
  return false;
}

/// Likewise of the first sequences, those of the presets.
bool TellFreeBurst(const ValidatorRef& validator, const ProviderRef& provider, RecordNr system) {
  constexpr RecordNr kChecked = 4;  // of seven; wanted so
  const FieldRef sequences = provider.Field("FreeFormSequence");
  const RecordNr before = (system - 1) * modFreeFormat::kSequencesPerSystem;
  const RecordNr last = std::min(before + kChecked, sequences.RecordCount());
  for (RecordNr record = before + 1; record <= last; ++record) {
    const std::string sequence = CStr(sequences.Value(record));
    const std::string_view burst = FindBurstWithoutGroupsLast(sequence);
    if (burst.empty()) continue;
    Warn(validator,
         "The Free Format Burst '%0:S' in Selcall System %1:S has an invalid 'G' tone sequence.  You must "
         "correct this burst to follow the Sigtec Group Format by placing 'G's at the end of the burst they "
         "occur in.",
         {burst, CStr(StoredValue(provider, kIdentity, system))});
    return true;
  }
  return false;
}
}  // namespace

bool CheckRMRSequences(const ValidatorRef& validator) {
  const ProviderRef provider = validator.CurrentProvider();
  for (const RecordNr system : provider.Field(kIdentity).Records()) {
    const std::string rmr = SequenceText(StoredValue(provider, kRMRSequence, system));
    if (rmr.empty()) continue;
    const auto* same = std::ranges::find_if(kDecodeSequences, [&](std::string_view uiid) {
      return CStr(StoredValue(provider, uiid, system)) == rmr;
    });
    if (same == std::end(kDecodeSequences)) continue;
    Warn(
        validator,
        "The RMR sequence for Selcall system %0:S is the same as the %1:S sequence so you will never receive "
        "the RMR call. You should change one of these sequences.",
        {CStr(StoredValue(provider, kIdentity, system)), validator.LabelOf(*same)});
  }
  return true;
}

bool ValidateTxSequences(const ValidatorRef& validator) {
  return Procedure("ValidateTxSequences", true, [&] {
    const ProviderRef provider = validator.CurrentProvider();
    FormWrites writes(validator);
    for (const RecordNr system : provider.Field(kIdentity).Records()) {
      const std::string format = modSelcallMapping::TxFormatOf(provider, system);
      if (!TxSequencesValid(validator, writes, format, system, true)) return writes.Follow(false);
    }
    return writes.Follow(true);
  });
}

bool ValidateGroupFormatFinal(const ValidatorRef& validator) {
  return Procedure("ValidateGroupFormatFinal", true, [&] {
    const ProviderRef provider = validator.CurrentProvider();
    for (const RecordNr system : provider.Field(kIdentity).Records()) {
      if (!HoldsCode(provider, "GroupFormat", GroupFormat::kSigtec, system)) continue;
      if (TellFixedBurst(validator, provider, system) || TellFreeBurst(validator, provider, system)) break;
    }
    return true;
  });
}

bool HasGroupsLast(std::string_view burst) {
  const std::size_t first = burst.find('G');
  return first == std::string_view::npos || burst.find_first_not_of('G', first) == std::string_view::npos;
}

std::string_view FindBurstWithoutGroupsLast(std::string_view sequence) {
  while (!sequence.empty()) {
    const std::string_view burst = sequence.substr(0, sequence.find('-'));
    if (!HasGroupsLast(burst)) return burst;
    sequence.remove_prefix(std::min(burst.size() + 1, sequence.size()));
  }
  return {};
}
}  // namespace modvalSelcall
