#include <algorithm>
#include <array>
#include <string>

#include "channels/modvalChannels.h"
#include "common/ChannelNetworks.h"
#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"
#include "selcall/BurstSlots.h"

namespace modvalChannels {
namespace {
/// The bursts that make up a call.
constexpr std::string_view kCallBursts[] = {"5.TXCallBurstSeq", "5.StatusBurstSeq", "5.RepeaterBurstSeq",
                                            "5.CallerIDBurstSeq"};

/// A burst that a call needs: always, or when the Tx format holds the letter. The order is that of the
/// tests.
struct NeededBurst {
  std::string_view fieldId;
  char letter;  ///< '\0': always
  std::string_view missing;
};
constexpr NeededBurst kNeededBursts[] = {
    {"5.TXCallBurstSeq", '\0',
     "The Channel %0:S does not have a Tx Call Burst defined.  You must define a Tx Call Burst for this "
     "channel, or set all of the Channel Preset Call (Selcall) bursts for this channel to 'None'"},
    {"5.RepeaterBurstSeq", 'B',
     "The Channel %0:S does not have a Repeater Burst defined.  You must define a Repeater Burst for this "
     "channel, or set all of the Channel Preset Call (Selcall) bursts for this channel to 'None'"},
    {"5.CallerIDBurstSeq", 'C',
     "The Channel %0:S does not have a Caller ID Burst defined.  You must define a Caller ID Burst for this "
     "channel, or set all of the Channel Preset Call (Selcall) bursts for this channel to 'None'"},
};

bool IsNone(const ProviderRef& provider, std::string_view fieldId, RecordNr channel) {
  return CStr(provider.Field(fieldId).Value(channel)) == kNone;
}

bool HasNoCallBursts(const ProviderRef& provider, RecordNr channel) {
  return std::ranges::all_of(kCallBursts, [&](auto fieldId) { return IsNone(provider, fieldId, channel); });
}

/// The first burst that the channel lacks for calls in the format; none for a channel without calls.
const NeededBurst* FindMissingBurst(const ProviderRef& provider, RecordNr channel,
                                    const std::string& format) {
  if (HasNoCallBursts(provider, channel)) return nullptr;
  for (const NeededBurst& burst : kNeededBursts) {
    const bool needed = burst.letter == '\0' || format.find(burst.letter) != std::string::npos;
    if (needed && IsNone(provider, burst.fieldId, channel)) return &burst;
  }
  return nullptr;
}
}  // namespace

bool ValidatePresetSelcallAgainstTxFormat(const ValidatorRef& validator, RecordNr channel) {
  return Procedure("ValidatePresetSelcallAgainstTxFormat", true, [&] {
    if (FindChannelsSignallingRecordNr(validator, channel) != 1) return true;  // the first system alone
    const ProviderRef provider = validator.CurrentProvider();
    const std::string format = CStr(provider.Field("TxFormat_k6k").Value(1));
    if (FindMissingBurst(provider, channel, format) != nullptr) {
      Notify(validator,
             "The channel's Fixed Call Sequence must match the Tx Format (%0:S). One or more bursts relating "
             "to the Tx Format are currently set to None.",
             {format});
    }
    return true;
  });
}

void ValidatePresetsForAllChannels(FinalReport& report) {
  Procedure("ValidatePresetsForAllChannels", [&] {
    const ProviderRef provider = report.Provider();
    const FieldRef numbers = provider.Field("ChannelID_k6k");
    for (const RecordNr channel : numbers.Records()) {
      const RecordNr system = FindChannelsSignallingRecordNr(report.Validator(), channel);
      if (system == 0) continue;
      const std::string format = CStr(provider.Field("TxFormat_k6k").Value(system));
      const NeededBurst* burst = FindMissingBurst(provider, channel, format);
      if (burst == nullptr) continue;
      const bool looksOn = report.Refuse({std::string(burst->fieldId), channel}, burst->missing,
                                         {CStr(numbers.Value(channel))});
      if (!looksOn) return;
    }
  });
}

bool ResetChannelSelcallPresets(FormWrites& writes, RecordNr channel) {
  return Procedure("ResetChannelSelcallPresets", true, [&] {
    for (std::size_t kind = 0; kind < kBurstKinds; ++kind) {
      const BurstUser& burst = ChannelBurst(static_cast<Burst>(kind));
      writes.Set(burst.form, burst.uiid, channel, kNone);
    }
    return true;
  });
}

RecordNr FindChannelsSignallingRecordNr(const ValidatorRef& validator, RecordNr channel) {
  return Procedure("FindChannelsSignallingRecordNr", RecordNr{0}, [&]() -> RecordNr {
    const ProviderRef provider = validator.CurrentProvider();
    return ChannelNetworks(provider).SelcallSystemOf(FindChannelsNetworkRecordNr(validator, channel));
  });
}
}  // namespace modvalChannels
