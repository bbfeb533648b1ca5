#include "validation/modvalControlHead.h"

#include <algorithm>
#include <string>
#include <vector>

#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/StoredValues.h"
#include "common/modCommonGlobals.h"
#include "platform/Conversions.h"
#include "radioui/modProgIO.h"

namespace modvalControlHead {
namespace {
constexpr std::int32_t kHighest = 9;
constexpr std::string_view kPinActions = "1108.Action";

constexpr std::string_view kNoValidChannel =
    "%0:S%1:SOnly channels with an ID in the range 0 to %2:S are valid for the attached radio. At least one "
    "channel must be in this range for the radio to work as expected.%3:S%4:S";
constexpr std::string_view kChannels =
    "%0:S%1:SChannel IDs in the range %2:S to %3:S are not valid for the attached radio. Channel selection "
    "will be limited to channels with an ID in the range 0 to %4:S.%5:S%6:S";
constexpr std::string_view kEmergencyChannel =
    "%0:S%1:SAn emergency channel value of '%2:S' is not valid for the attached radio. Emergency mode may "
    "not work as expected.%3:S%4:S";
constexpr std::string_view kHomeChannel =
    "%0:S%1:SA programmable I/O home channel ID of '%2:S' is not valid for the attached radio. Programmable "
    "I/O channel selection may not work as expected.%3:S%4:S";
constexpr std::string_view kPresetChannel =
    "%0:S%1:SA programmable I/O preset channel ID of '%2:S' is not valid for the attached radio. "
    "Programmable I/O channel selection may not work as expected.%3:S%4:S";
constexpr std::string_view kPresetGroup =
    "%0:S%1:SA programmable I/O preset group ID of '%2:S' is not valid for the attached radio. Programmable "
    "I/O group selection may not work as expected.%3:S%4:S";
constexpr std::string_view kGroup =
    "%0:S%1:SA group ID of '%2:S' is not valid for the attached radio. Group operation may not work as "
    "expected.%3:S%4:S";
constexpr std::string_view kPresetTxChannel =
    "%0:S%1:SA group with a preset Tx channel ID '%2:S' is not valid for the attached radio. Group operation "
    "may not work as expected.%3:S%4:S";
constexpr std::string_view kGroupMember =
    "%0:S%1:SA group member with a channel ID '%2:S' is not valid for the attached radio. Group operation "
    "may not work as expected.%3:S%4:S";
constexpr std::string_view kGPSChannel =  // "work at expected" is wanted so
    "%0:S%1:SA GPS channel ID of '%2:S' is not valid for the attached radio. GPS operation may not work at "
    "expected.%3:S%4:S";
constexpr std::string_view kBCDLines =
    "%0:S%1:SChannel IDs in the range %2:S to %3:S are not valid via programmable I/O BCD lines. "
    "Programmable I/O channel selection may not work as expected.%4:S%5:S";

class PelicanWalk {
 public:
  explicit PelicanWalk(const ValidatorRef& validator)
      : validator_(validator), provider_(validator.CurrentProvider()) {}

  Button Run() {
    CheckChannels();
    if (someFail_) CheckEmergencyChannels();
    if (someFail_) CheckPinChannels();
    CheckParameter("Preset Group", "ActionParamPresetGroup", kPresetGroup);
    CheckGroups("GroupID_k6k", kGroup);
    CheckGroups("ScanPresetTxChannel_k6k", kPresetTxChannel);
    if (someFail_) CheckMembers();
    if (someFail_) CheckGPSChannel();
    if (someFail_) CheckBCDLines();
    return answer_;
  }

 private:
  bool GoesOn() const { return answer_ == Button::Yes; }

  void Ask(std::string_view question, Parameters values) {
    using modCommonGlobals::MakeParamString;
    constexpr std::string_view kGap = "\r\n\r\n";
    const std::string parameters =
        MakeParamString({"The following error occurred while programming the radio:", kGap,
                         MakeParamString(values), kGap, "Display subsequent error messages?"});
    answer_ = validator_.Messenger().ShowMessage(question, MessageStyle::kYesNoCancel, "Warning", parameters);
  }
  /// Asks about a value that is beyond the head; whether it did.
  bool AskAbout(const Variant& value, std::string_view question) {
    if (IsPelicanChannelID(value)) return false;
    Ask(question, {CStr(value)});
    return true;
  }
  std::string HighestChannel() const { return CStr(provider_.Field("ChannelID_k6k").Maximum()); }

  void CheckChannels() {
    bool somePass = false;
    for (const Variant& number : provider_.Field("ChannelID_k6k").Values()) {
      const bool passes = IsPelicanChannelID(number);
      somePass = somePass || passes;
      someFail_ = someFail_ || !passes;
    }
    const std::string highest = std::to_string(kHighest);
    if (!somePass) {
      Ask(kNoValidChannel, {highest});
    } else if (someFail_) {
      Ask(kChannels, {std::to_string(kHighest + 1), HighestChannel(), highest});
    }
  }

  bool HasValidChannel(const Variant& network) const {
    const FieldRef numbers = provider_.Field("ChannelID_k6k");
    const FieldRef networks = provider_.Field("ChannelNetworkId_k6k");
    for (const RecordNr channel : numbers.Records()) {
      if (IsPelicanChannelID(numbers.Value(channel)) && SameValue(networks.Value(channel), network))
        return true;
    }
    return false;
  }
  /// Only of the first network that has a channel to call on instead.
  void CheckEmergencyChannels() {
    const FieldRef networks = provider_.Field("NetworkID");
    for (const RecordNr network : networks.Records()) {
      if (!GoesOn()) return;
      const Variant channel = StoredValue(provider_, "EmChannel", network);
      if (IsPelicanChannelID(channel) || !HasValidChannel(networks.Value(network))) continue;
      Ask(kEmergencyChannel, {CStr(channel)});
      return;
    }
  }

  void CheckParameter(std::string_view action, std::string_view parameter, std::string_view question) {
    if (!GoesOn() || !modProgIO::IsProgIOActionInList(provider_, kPinActions, action)) return;
    AskAbout(StoredValue(provider_, parameter, kOnly), question);
  }
  void CheckPinChannels() {
    CheckParameter("Home Channel", "ActionParamHomeChannel", kHomeChannel);
    CheckParameter("Preset Channel", "ActionParamPresetChannel", kPresetChannel);
  }

  void CheckGroups(std::string_view uiid, std::string_view question) {
    const FieldRef field = provider_.Field(uiid);
    for (const RecordNr group : field.Records()) {
      if (!GoesOn()) return;
      AskAbout(field.Value(group), question);
    }
  }

  void CheckMembers() {
    const FieldRef channels = provider_.Field("GroupChannelUI_k6k");
    for (const RecordNr member : channels.Records()) {
      if (!GoesOn() || AskAbout(channels.Value(member), kGroupMember)) return;
    }
  }

  void CheckGPSChannel() {
    if (GoesOn()) AskAbout(StoredValue(provider_, "GPSPollResponseChannel", kOnly), kGPSChannel);
  }

  /// With fewer than all lines the radio reaches no number above 9 anyway.
  void CheckBCDLines() {
    if (!GoesOn()) return;
    const std::vector<Variant> actions = provider_.Field("DigitalIOAction").Values();
    const auto isLine = [&](const Variant& action) {
      return std::ranges::any_of(modProgIO::kBCDInputs, [&](std::string_view line) {
        return ReadsAs(action, modProgIO::InputAction(line).strName);
      });
    };
    if (std::ranges::count_if(actions, isLine) < std::ssize(modProgIO::kBCDInputs)) return;
    Ask(kBCDLines, {std::to_string(kHighest + 1), HighestChannel()});
  }

  const ValidatorRef& validator_;
  const ProviderRef provider_;
  Button answer_ = Button::Yes;
  bool someFail_ = false;  // of the channels' numbers
};
}  // namespace

bool IsPelicanChannelID(const Variant& channelID) {
  return !IsNumeric(channelID) || CDbl(channelID) <= kHighest;
}

bool ValidatePelicanRadio(const ValidatorRef& validator) {
  return Procedure("ValidatePelicanRadio", true, [&] {
    const ProviderRef provider = validator.CurrentProvider();
    const ScopedAutoUpdate silent(provider, false);
    return PelicanWalk(validator).Run() != Button::Cancel;
  });
}
}  // namespace modvalControlHead
