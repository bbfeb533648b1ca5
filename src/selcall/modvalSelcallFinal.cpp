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

/// The bursts of the system in which a tone follows a group tone, told as warnings. Whether to look on.
bool TellFixedBursts(FinalReport& report, const ProviderRef& provider, RecordNr system) {
  const BurstLayout& layout = BurstLayoutOf(provider);
  const FieldRef bursts = provider.Field("UGBurstSeq");
  const RecordNr last = std::min(layout.RecordOf(system + 1, 0), bursts.RecordCount());
  for (RecordNr record = layout.RecordOf(system, 1); record <= last; ++record) {
    const std::string burst = SequenceText(bursts.Value(record));
    if (HasGroupsLast(burst)) continue;
    report.Warn(
        {"UGBurstSeq", record},
        "There is a Fixed Format %0:S Burst of '%1:S' in Selcall System %2:S with an invalid 'G' tone "
        "sequence.  You must correct this burst to follow the Sigtec Group Format by placing all 'G's at the "
        "end of the burst.",
        {FieldsOf(layout.KindOf(layout.SlotOf(record))).name, burst,
         CStr(StoredValue(provider, kIdentity, system))});
    if (!report.LooksOn()) return false;
  }
  return true;
}

/// Likewise of the first sequences, those of the presets.
bool TellFreeBursts(FinalReport& report, const ProviderRef& provider, RecordNr system) {
  constexpr RecordNr kChecked = 4;  // of seven; wanted so
  const FieldRef sequences = provider.Field("FreeFormSequence");
  const RecordNr before = (system - 1) * modFreeFormat::kSequencesPerSystem;
  const RecordNr last = std::min(before + kChecked, sequences.RecordCount());
  for (RecordNr record = before + 1; record <= last; ++record) {
    const std::string sequence = CStr(sequences.Value(record));
    const std::string_view burst = FindBurstWithoutGroupsLast(sequence);
    if (burst.empty()) continue;
    report.Warn(
        {"FreeFormSequence", record},
        "The Free Format Burst '%0:S' in Selcall System %1:S has an invalid 'G' tone sequence.  You must "
        "correct this burst to follow the Sigtec Group Format by placing 'G's at the end of the burst they "
        "occur in.",
        {burst, CStr(StoredValue(provider, kIdentity, system))});
    if (!report.LooksOn()) return false;
  }
  return true;
}
}  // namespace

void CheckRMRSequences(FinalReport& report) {
  const ProviderRef provider = report.Provider();
  for (const RecordNr system : provider.Field(kIdentity).Records()) {
    const std::string rmr = SequenceText(StoredValue(provider, kRMRSequence, system));
    if (rmr.empty()) continue;
    const auto* same = std::ranges::find_if(kDecodeSequences, [&](std::string_view uiid) {
      return CStr(StoredValue(provider, uiid, system)) == rmr;
    });
    if (same == std::end(kDecodeSequences)) continue;
    report.Warn(
        {std::string(kRMRSequence), system},
        "The RMR sequence for Selcall system %0:S is the same as the %1:S sequence so you will never receive "
        "the RMR call. You should change one of these sequences.",
        {CStr(StoredValue(provider, kIdentity, system)), report.Validator().LabelOf(*same)});
  }
}

void ValidateTxSequences(FinalReport& report) {
  Procedure("ValidateTxSequences", [&] {
    const ProviderRef provider = report.Provider();
    FormWrites writes(report.Validator());
    for (const RecordNr system : provider.Field(kIdentity).Records()) {
      const std::string format = modSelcallMapping::TxFormatOf(provider, system);
      TxSequencesValid(report, writes, format, system);
      if (!report.HasPassed() && !report.LooksOn()) break;
    }
    writes.Follow(report.HasPassed());
  });
}

void ValidateGroupFormatFinal(FinalReport& report) {
  Procedure("ValidateGroupFormatFinal", [&] {
    const ProviderRef provider = report.Provider();
    for (const RecordNr system : provider.Field(kIdentity).Records()) {
      if (!HoldsCode(provider, "GroupFormat", GroupFormat::kSigtec, system)) continue;
      if (!TellFixedBursts(report, provider, system) || !TellFreeBursts(report, provider, system)) return;
    }
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
