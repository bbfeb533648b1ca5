#include "signalling/modvalSIBT.h"

#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"

namespace modvalSIBT {
namespace {
constexpr std::string_view kChannelSIBT = "ChannelSIBTEnabled_k6k";

bool ValidateSignalling(FieldEdit& edit) {
  const bool exists = edit.validator.CurrentProvider().Field(kChannelSIBT).HasRecord(edit.record);
  if (!exists || CStr(edit.value).empty()) return edit.PassUnchanged();
  if (ReadsAs(edit.value, kNone) || !edit.Holds(kChannelSIBT, kOn, edit.record)) return true;
  return Refuse(
      edit.validator,
      "Subaudible signalling cannot be used when SIBT is enabled on the channel. You must clear the "
      "'Send/Decode SIBT on Channel' check box on the Detailed tab before assigning a value here.");
}

/// The next channel behind `channel` that uses the tone and bears the network's record as its network's
/// number; wanted so. 0 for none.
RecordNr NextUser(const ProviderRef& provider, RecordNr network, RecordNr channel) {
  const FieldRef networks = provider.Field("ChannelNetworkId_k6k");
  const FieldRef boxes = provider.Field(kChannelSIBT);
  do {
    channel = modProjectGlobals::FindRecord(networks, network, channel + 1);
  } while (channel != 0 && !IsCode(boxes.Value(channel), kOn));
  return channel;
}
}  // namespace

bool ValidateRXSignalling(FieldEdit& edit) {
  return Procedure("ValidateRXSignalling", true, [&] { return ValidateSignalling(edit); });
}

bool ValidateTXSignalling(FieldEdit& edit) {
  return Procedure("ValidateTXSignalling", true, [&] { return ValidateSignalling(edit); });
}

bool ValidateEnableDisableSIBT(FieldEdit& edit) {
  return Procedure("ValidateEnableDisableSIBT", true, [&] {
    if (!edit.Is(kOff)) return true;
    edit.writes.Set("SIBTTxCyclingEnabled_k6k", edit.record, kOff);
    const ProviderRef provider = edit.validator.CurrentProvider();
    const RecordNr first = NextUser(provider, edit.record, 0);
    if (first == 0) return true;
    if (AskYesNo(edit.validator,
                 "SIBT is currently being used on an associated channel. Continuing will disable SIBT on all "
                 "channels associated with this network. Are you sure you want to proceed?") != Button::Yes) {
      return false;
    }
    for (RecordNr channel = first; channel != 0; channel = NextUser(provider, edit.record, channel)) {
      edit.writes.Set(kChannelSIBT, channel, kOff);
    }
    return true;
  });
}
}  // namespace modvalSIBT
