#include "networks/modvalNetworkChecks.h"

#include <algorithm>
#include <string>

#include "common/FormWrites.h"
#include "common/RadioCodes.h"
#include "common/StoredValues.h"
#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"
#include "platform/DecimalText.h"
#include "signalling/modMDC1200.h"

namespace modvalNetworkChecks {
namespace {
bool CallsOut(const StoredRecord& network) {
  return network.Holds("EmergencyEnabled", kOn) && !network.Holds("EmCalloutType", EmCallout::kDisabled);
}

bool AcknowledgesBySequence(const StoredRecord& network) {
  return network.Holds("AutoAckType", AutoAck::kSequence);
}

bool SendsANI(const StoredRecord& network) {
  return network.Holds("SignallingOnPTTPress_k6k", SignallingOnPTT::kANI) ||
         network.Holds("SignallingOnPTTRelease_k6k", SignallingOnPTT::kANI);
}

/// A sequence that networks of a type need from their system, and what to tell while it is blank: %0 is the
/// network's number, %1 the system's identity.
struct NeededSequence {
  std::int32_t type;
  bool (*isNeeded)(const StoredRecord& network);
  std::string_view uiid;  ///< by which the network asks for it
  std::string_view field;
  std::string_view blank;
};
constexpr std::string_view kCallout = "EmCalloutType", kANI = "SignallingOnPTTPress_k6k";
constexpr NeededSequence kSelcallEmergency = {
    SignallingType::kSelcall, CallsOut, kCallout, "FreeFormSequence7",
    "You have activated emergency callout on network %0:S, but the emergency sequence for that network is "
    "blank.  You must either turn off emergency callout on the emergency form for network %0:S, or specify "
    "an emergency sequence in the free format bursts form for Selcall system %1:S"};
constexpr NeededSequence kDTMFEmergency = {
    SignallingType::kDTMF, CallsOut, kCallout, "DTMFEmergSequence",
    "You have activated emergency callout on network %0:S, but the emergency sequence for that network is "
    "blank.  You must either turn off emergency callout on the emergency form for network %0:S, or specify "
    "an emergency sequence for DTMF system %1:S"};
constexpr NeededSequence kMDC1200Emergency = {
    SignallingType::kMDC1200, CallsOut, kCallout, "MDC1200EmergencySequence",
    "You have activated emergency callout on network %0:S, but the emergency sequence for that network is "
    "blank.  You must either turn off emergency callout on the emergency form for network %0:S, or specify "
    "an emergency sequence for MDC1200 system %1:S"};
constexpr NeededSequence kSelcallAck = {
    SignallingType::kSelcall, AcknowledgesBySequence, "AutoAckType", "FreeFormSequence6",
    "You have set the Auto Acknowledge Type on network %0:S to Sequence, but the auto acknowledge sequence "
    "is blank. You must either set the Auto Acknowledge Type to None or Beep on the Features form for "
    "network %0:S, or specify an Auto Acknowledge sequence in the Free Format Bursts form for Selcall "
    "system %1:S"};
constexpr NeededSequence kSelcallANI = {
    SignallingType::kSelcall, SendsANI, kANI, "FreeFormSequence5",
    "You have activated an ANI sequence on network %0:S, but the ANI sequence for that network is blank.  "
    "You must either set Signalling On PTT Press/Release to 'none' on the network PTT signalling form for "
    "network %0:S, or specify an ANI sequence in the free format bursts form for Selcall system %1:S"};
constexpr NeededSequence kDTMFANI = {
    SignallingType::kDTMF, SendsANI, kANI, "DTMFANISequence",
    "You have activated an ANI sequence on network %0:S, but the ANI sequence for that network is blank.  "
    "You must either set Signalling On PTT Press/Release to 'none' on the network PTT signalling form for "
    "network %0:S, or specify an ANI sequence for DTMF system %1:S"};

bool IsBlank(std::string_view sequence, std::int32_t type) {
  return modProjectGlobals::IsBlankSequence(sequence) ||
         (type == SignallingType::kMDC1200 && modMDC1200::IsNoSequence(Trim(sequence)));
}

/// A network on a system that is not there has nothing to judge.
bool Lacks(const StoredRecord& network, const NeededSequence& needed) {
  if (!network.Holds("SignallingType", needed.type) || !needed.isNeeded(network)) return false;
  const RecordNr system = modProjectGlobals::SigSysRecordNr(network.provider, needed.type,
                                                            network.Text("NetworkSignallingID"), true);
  return system != 0 && IsBlank(CStr(StoredValue(network.provider, needed.field, system)), needed.type);
}

void CheckSequence(FinalReport& report, const NeededSequence& needed) {
  const ProviderRef provider = report.Provider();
  for (const RecordNr record : provider.Field("NetworkID").Records()) {
    const StoredRecord network{provider, record};
    if (!Lacks(network, needed)) continue;
    const bool looksOn = report.Refuse({std::string(needed.uiid), record}, needed.blank,
                                       {network.Text("NetworkID"), network.Text("NetworkSignallingID")});
    if (!looksOn) return;
  }
}

bool AlertsAcknowledge(const StoredRecord& network) {
  constexpr std::string_view kAlerts[] = {"PriorityAutoAck_k6k", "SelcallIndAutoAckOne",
                                          "SelcallIndAutoAckTwo"};
  return std::ranges::any_of(kAlerts, [&](std::string_view alert) { return network.Holds(alert, kOn); });
}

/// Asks about the first network whose type of acknowledgement and alerts do not go together, in the direction
/// asked for.
void AskAboutAck(FinalReport& report, bool acknowledges, std::string_view question) {
  const ProviderRef provider = report.Provider();
  for (const RecordNr record : provider.Field("NetworkID").Records()) {
    const StoredRecord network{provider, record};
    const bool does = AcknowledgesBySequence(network) || network.Holds("AutoAckType", AutoAck::kBeep);
    if (does != acknowledges || AlertsAcknowledge(network) == acknowledges) continue;
    report.AskYesNo({"AutoAckType", record}, question, {network.Text("NetworkID")});
    if (!report.LooksOn()) return;
  }
}
}  // namespace

void CheckSelcallEmergency(FinalReport& report) { CheckSequence(report, kSelcallEmergency); }
void CheckDTMFEmergency(FinalReport& report) { CheckSequence(report, kDTMFEmergency); }
void CheckMDC1200Emergency(FinalReport& report) { CheckSequence(report, kMDC1200Emergency); }
void CheckSelcallAck(FinalReport& report) { CheckSequence(report, kSelcallAck); }
void CheckSelcallANI(FinalReport& report) { CheckSequence(report, kSelcallANI); }
void CheckDTMFANI(FinalReport& report) { CheckSequence(report, kDTMFANI); }

void CheckAckHasAlerts(FinalReport& report) {
  AskAboutAck(report, true,
              "You have set the Auto Acknowledge Type on network %0:S to Sequence or Beep, but have not "
              "selected the Auto Acknowledge check box on the Alerts form for Rx Decode 1, Rx Decode 2, "
              "or Priority Calls.  Do you want to continue?");
}

void CheckAlertsHaveAck(FinalReport& report) {
  AskAboutAck(report, false,
              "You have selected the Auto Acknowledge check box on the Alerts form for Rx Decode 1, Rx "
              "Decode 2, or Priority Calls but have not set the Auto Acknowledge Type on network %0:S to "
              "Sequence or Beep.  Do you want to continue?");
}

void OfferSideTones(FinalReport& report) {
  const ProviderRef provider = report.Provider();
  if (!HoldsCode(provider, "PTTPressCallSetup1_k6k", kOn, kOnly)) return;
  const FieldRef sideTones = provider.Field("SelcallAudibleSideTones");
  const std::vector<Variant> values = sideTones.Values();
  const auto off = std::ranges::find_if_not(values, IsTicked);
  if (off == values.end()) return;
  const auto first = static_cast<RecordNr>(off - values.begin()) + 1;
  if (report.AskYesNo(
          {"SelcallAudibleSideTones", first},
          "It is recommended that Audible Side Tones is selected for each Network if the Mic PTT Call Setup "
          "is selected.  Select Audible Side Tones for all Networks?") != Button::Yes) {
    return;
  }
  FormWrites writes(report.Validator());
  for (const RecordNr network : sideTones.Records()) writes.Set("SelcallAudibleSideTones", network, kOn);
  writes.Follow(true);
}

void CheckFFSKBaudRate(FinalReport& report) {
  constexpr std::int32_t kFastBitsPerSecond = 2400;
  const ProviderRef provider = report.Provider();
  if (!HoldsCode(provider, "FFSKBaudRate", kFastBitsPerSecond, kOnly)) return;
  for (const RecordNr record : provider.Field("NetworkID").Records()) {
    const StoredRecord network{provider, record};
    if (!network.Holds("SignallingType", SignallingType::kSelcall) ||
        !network.Holds("SIBTEnabled_k6k", kOn)) {
      continue;
    }
    const bool looksOn =
        report.Refuse({"SIBTEnabled_k6k", record},
                      "FFSK Baud rate can not be 2400 if one or more Selcall Networks has SBIT ticked.");
    if (!looksOn) return;
  }
}
}  // namespace modvalNetworkChecks
