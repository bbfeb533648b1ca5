#include "networks/modvalNetworks.h"

#include <algorithm>
#include <optional>

#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/StoredValues.h"
#include "common/modProjectGlobals.h"
#include "networks/modNetworkRecords.h"
#include "platform/Conversions.h"

namespace modvalNetworks {
namespace {
/// The fields of the companion records that hold the network's number, and what the forms call them.
constexpr struct {
  std::string_view fieldId, uiid;
} kNumbers[] = {
    {"53.NetworkID", "EmNetworkID"},  // a field of the radio alone, beside the one that the forms show
    {"75.SIBTNetworkID", "SIBTNetworkID_k6k"},
    {"53.NetworkIDTracker", "EmNetworkID"},
    {"67.DTMFPatchNetworkID", "DTMFPatchNetworkID_k6k"},
    {"72.DTMFPatchTonesNetworkID", "DTMFPatchTonesNetworkID_k6k"},
    {"77.CustomerDataNetworkID", "CustomerDataNetworkID"},
};

/// False when the user declines, before anything was written.
bool MoveChannels(FieldEdit& edit, const Variant& old, const Variant& number) {
  const FieldRef networkOfChannel = edit.validator.CurrentProvider().Field("ChannelNetworkId_k6k");
  bool agreed = false;
  for (const RecordNr channel : networkOfChannel.Records()) {
    if (!SameValue(networkOfChannel.Value(channel), old)) continue;
    if (!agreed &&
        AskYesNo(edit.validator,
                 "Changing this Network ID will cause all references to it to be updated.  Do you wish "
                 "to proceed?") != Button::Yes) {
      return false;
    }
    agreed = true;
    edit.writes.Set("ChannelNetworkId_k6k", channel, number);
  }
  return true;
}

bool HasChannels(const ProviderRef& provider, const Variant& number) {
  const std::vector<Variant> networks = provider.Field("ChannelNetworkId_k6k").Values();
  return std::any_of(networks.begin(), networks.end(),
                     [&](const Variant& network) { return SameValue(network, number); });
}

/// What keeps a form from being left; none when nothing does.
using Objection = std::optional<std::string_view>;

Objection BasicSettingsObjection(const StoredRecord& network) {
  if (!network.Holds("SignallingType", SignallingType::kNone) &&
      network.Text("NetworkSignallingID") == kNone) {
    return "You must select a Signalling ID when a Signalling Type other than None has been selected.";
  }
  if (network.Holds("SIBTEnabled_k6k", kOn) && CDbl(network.Value("SIBTToneEncodeDuration_k6k")) <
                                                   CDbl(network.Value("SIBTMinimumDecodeDuration_k6k"))) {
    return "SIBT Encode Duration must be equal or greater than SIBT Minimum Decode Duration.";
  }
  return {};
}

Objection EmergencyObjection(const StoredRecord& network) {
  if (network.Holds("EmergencyEnabled", kOn) && network.Holds("EmCyclingType", EmCycling::kNone) &&
      network.Holds("EmCalloutType", EmCallout::kDisabled)) {
    return "A callout and/or cycling phase must be specified when the Emergency Enabled check box is "
           "selected.";
  }
  if (network.Holds("EmChannelType", ChannelType::kDedicated) && network.Text("EmChannel") == kNone) {
    return "You must specify a Channel when the Channel Type is set to Dedicated";
  }
  return {};
}

Objection PTTSignallingObjection(const StoredRecord& network) {
  const auto signals = [&](std::string_view field) { return !network.Holds(field, SignallingOnPTT::kNone); };
  const auto isIncluded = [&](std::string_view field) { return network.Holds(field, kOn); };
  constexpr std::string_view kSignalling[] = {"SignallingOnPTTPress_k6k", "SignallingOnPTTRelease_k6k"};
  constexpr std::string_view kIncluded[] = {"IncludePTTSignallingWithPTT_k6k",
                                            "IncludePTTSignallingWithEPTT1_k6k",
                                            "IncludePTTSignallingWithEPTT2_k6k"};
  if (std::ranges::none_of(kSignalling, signals) || std::ranges::any_of(kIncluded, isIncluded)) return {};
  return "You have defined signalling on a PTT press or release, but not selected any PTT to include the "
         "signalling with.";
}

/// A form that shows no network has nothing to object to.
bool Passes(const ValidatorRef& validator, Objection (*objectionOf)(const StoredRecord& network)) {
  const ProviderRef provider = validator.CurrentProvider();
  const RecordNr network = CurrentNetwork(provider);
  if (!provider.Field("NetworkID").HasRecord(network)) return true;
  const Objection objection = objectionOf({provider, network});
  return !objection || Refuse(validator, *objection);
}

bool Sorted(const ValidatorRef& validator) {
  SortNetworks(validator);
  return true;
}
}  // namespace

bool ValidateNetworkID(FieldEdit& edit) {
  return Procedure("ValidateNetworkID", true, [&] {
    const ProviderRef provider = edit.validator.CurrentProvider();
    const Variant old = provider.Field("NetworkID").Value(edit.record);
    if (SameValue(old, edit.value)) return edit.PassUnchanged();
    // The form's number is text; the references are numbers.
    const Variant number = WholeNumberOf(edit.value);
    if (!MoveChannels(edit, old, number)) return false;
    for (const auto& [fieldId, uiid] : kNumbers) {
      if (provider.Field(fieldId).HasRecord(edit.record)) edit.writes.Set(fieldId, uiid, edit.record, number);
    }
    return true;
  });
}

bool DeleteNetwork(const ValidatorRef& validator, RecordNr network) {
  return Procedure("DeleteNetwork", true, [&] {
    const ProviderRef provider = validator.CurrentProvider();
    const FieldRef numbers = provider.Field("NetworkID");
    if (HasChannels(provider, numbers.Value(network))) {
      return Refuse(validator, "This Network is being used by one or more Channels and can not be deleted");
    }
    FormWrites writes(validator);
    const RecordNr current = CurrentNetwork(provider);
    // There is no record 0 to show, even when the last network goes.
    if (current == numbers.RecordCount() && current > 1) writes.Set("CurrentNetworkNr", 1, current - 1);
    modNetworkRecords::DeleteCompanions(provider, network);
    writes.Follow(true);
    modNetworkRecords::ReloadLists(validator);
    return true;
  });
}

bool ValidateBasicSettingsForm(const ValidatorRef& validator) {
  return Procedure("ValidateBasicSettingsForm", true,
                   [&] { return Passes(validator, BasicSettingsObjection) && Sorted(validator); });
}

bool ValidateEmergencyForm(const ValidatorRef& validator) {
  return Procedure("ValidateEmergencyForm", true,
                   [&] { return Passes(validator, EmergencyObjection) && Sorted(validator); });
}

bool ValidatePTTSignallingForm(const ValidatorRef& validator) {
  return Procedure("ValidatePTTSignallingForm", true,
                   [&] { return Passes(validator, PTTSignallingObjection); });
}

bool ValidateDTMFPatchForm(const ValidatorRef& validator) {
  return Procedure("ValidateDTMFPatchForm", true, [&] { return Sorted(validator); });
}

bool ValidateFeaturesForm(const ValidatorRef& validator) {
  return Procedure("ValidateFeaturesForm", true, [&] { return Sorted(validator); });
}

void SortNetworks(const ValidatorRef& validator) {
  Procedure("SortNetworks", [&] {
    const ProviderRef provider = validator.CurrentProvider();
    const Variant current = StoredValue(provider, "NetworkID", CurrentNetwork(provider));
    modNetworkRecords::Sort(provider);
    const FieldRef numbers = provider.Field("NetworkID");
    FormWrites writes(validator);
    for (const RecordNr network : numbers.Records()) {
      if (!SameValue(numbers.Value(network), current)) continue;
      writes.Set("CurrentNetworkNr", 1, network);
      break;
    }
    writes.Follow(true);
    modNetworkRecords::ReloadLists(validator);
  });
}
}  // namespace modvalNetworks
