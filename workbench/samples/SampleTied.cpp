#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "platform/Conversions.h"
#include "workbench/samples/SampleFull.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"

namespace Samples {
namespace {

/// A field in all records of its table, each by its number.
struct Column {
  std::string_view field;
  std::int32_t (*value)(RecordNr r);
};

template <std::size_t count>
void Fill(Provider& content, const Column (&columns)[count]) {
  for (const auto& [field, value] : columns) {
    for (RecordNr r = 1; r <= content.Count(content.FieldOf(field).table); ++r)
      content.Set(field, r, value(r));
  }
}

constexpr bool IsSelcall(RecordNr network) { return network % 4 != 0; }
constexpr bool HasEmergency(RecordNr network) { return network % 4 != 2; }

constexpr std::int32_t kTransparentMode = 1, kSoftware = 2, kMic = 0, kInternal = 2;  // codes of tables 9, 69

// clang-format off
constexpr Column kRadio[] = {
    {"34.PATimerRaw",                        [](RecordNr) { return 5430; }},  // 90.5 minutes
    {"34.FrontPanelChannelSelectionLockout", [](RecordNr) { return 2; }},
    {"34.UiPreCarrierIndicationTime",        [](RecordNr) { return 45; }},    // 0 or 10 to 90
    {"17.ChannelGroupRecordForRadioStartup", [](RecordNr) { return kFullGroups - 3; }},
    {"52.ExternalAlertID",                   [](RecordNr r) { return r - 1; }},
};

/// Of so many steps.
constexpr std::int32_t Cadence(std::int32_t steps) { return steps == 0 ? 0 : 0xB6DB >> (16 - steps) << (16 - steps); }
/// Of the cadences that are the user's, by their records.
constexpr std::int32_t StepsOf(RecordNr r) { return (r >= 20 && r <= 24) || r == 28 ? r - 12 : 0; }

/// That of the control head (1) or the auxiliary one (2).
constexpr std::int32_t MicOf(RecordNr source) { return source == 2 ? 2 : 1; }

constexpr Column kSounds[] = {
    // The user may turn these off.
    {"4.EnabledFlag", [](RecordNr r) { return r == 2 || r == 9 || r == 17 || r == 30 || r == 48 ? 0 : 1; }},
    {"60.AudibleIndicatorCadence", [](RecordNr r) { return Cadence(StepsOf(r)); }},
    {"60.TonesPerIndicator",       StepsOf},
    // Whose microphone is shown is that of the audio path of the same index.
    {"25.PTTPriority",                  [](RecordNr r) { return r % 3; }},
    {"25.MicSelect",                    MicOf},
    {"59.AudioIOMicSource",             [](RecordNr r) { return r == 1 || r > 4 ? 0 : MicOf(r - 1); }},
    {"25.PTTTransmissionType",          [](RecordNr r) { return (r + 1) % 3; }},
    {"25.PTTInhibitedByMicOnHook",      [](RecordNr r) { return r == 1 ? 0 : 1; }},
    {"25.PTTInhibitedByExternalControl", [](RecordNr r) { return r == 2 ? 0 : 1; }},
    // The mic calls nobody: its side tones would be for every network.
    {"25.PTTPressCallSetup",            [](RecordNr r) { return r == 3 ? 1 : 0; }},
};

constexpr Column kData[] = {
    {"9.DataPowerupState",          [](RecordNr) { return kTransparentMode; }},  // a modem would not scan
    // One of the two ports is the mic's, which has no lines for hardware flow control.
    {"9.DataCCDIPort",              [](RecordNr) { return kMic; }},
    {"69.GPSSerialPort",            [](RecordNr) { return kInternal; }},
    {"9.DataCMFlowControl",         [](RecordNr) { return kSoftware; }},
    {"9.DataTMFlowControl",         [](RecordNr) { return kSoftware; }},
    {"9.DataHSDFlowControl",        [](RecordNr) { return kSoftware; }},
    {"9.DataTMBaudRate",            [](RecordNr) { return 14400; }},
    {"9.FFSKBaudRate",              [](RecordNr) { return 2400; }},
    {"9.DataHSDBaudRate",           [](RecordNr) { return 28800; }},
    {"69.GPSBaudRate",              [](RecordNr) { return 9600; }},
    {"9.DataXon",                   [](RecordNr) { return 0x0B; }},
    {"9.DataXoff",                  [](RecordNr) { return 0xE7; }},
    {"9.dataTotalRadioId",          [](RecordNr) { return 0x0ABC; }},
    {"9.dataTotalSystemId",         [](RecordNr) { return 0x0D; }},
    {"9.dataTotalDestinationId",    [](RecordNr) { return 0xF00E; }},
    {"9.dataTotalLinkId",           [](RecordNr) { return 0xC5; }},
    {"9.dataTotalMtuSize",          [](RecordNr) { return 4321; }},  // for the second service without FEC
    {"9.dataTxBackoffTimeMin",      [](RecordNr) { return 250; }},
    {"9.dataTxBackoffTimeMax",      [](RecordNr) { return 1750; }},
    {"9.TextSDMIndicator",          [](RecordNr) { return 2; }},
    {"69.GPSPollResponseChannel",   [](RecordNr) { return 41; }},
};

constexpr Column kChannels[] = {
    // Companding is both directions, and no noise reduction.
    {"5.TxCompression",      [](RecordNr r) { return r / 2 % 2; }},
    {"5.ReceptionExpansion", [](RecordNr r) { return r / 2 % 2; }},
    {"5.ChannelANR",         [](RecordNr r) { return r % 4 == 0 ? 1 : 0; }},
    {"5.ChannelSIBTEnabled_k6k", [](RecordNr r) { return SendsInBandTone(r) ? 1 : 0; }},
    {"5.HiddenChannel",      [](RecordNr r) { return r <= kFullMembers ? 1 : 0; }},  // members of a hidden group
};

/// Beyond those of the channels.
constexpr std::int32_t GroupNumber(RecordNr group) { return 900 + 9 * group; }

/// The first group in the background, the others standard (0) and VornAx (2).
constexpr std::int32_t ScanTypeOf(RecordNr group) { return group == 1 ? 1 : group % 2 * 2; }

constexpr Column kGroups[] = {
    {"16.GroupIdentity",    GroupNumber},
    {"16.FirstGroupMember", [](RecordNr r) { return kFullMembers * (r - 1); }},
    {"16.GroupSleepTime",   [](RecordNr) { return 0; }},  // every save clears it
    {"16.HiddenChannels",   [](RecordNr r) { return r == 2 ? 1 : 0; }},
    {"16.Priority1Channel",    [](RecordNr r) { return 7 * r; }},
    {"16.Priority2Channel",    [](RecordNr r) { return 7 * r + 3; }},
    {"16.ScanPresetTxChannel", [](RecordNr r) { return kFullChannels - 5 * r; }},
    {"16.VotePresetTxChannel", [](RecordNr r) { return 3 * r + 1; }},
    // The one group that is scanned in the background (1) shows the Tx channel and calls on the selected one.
    {"16.ScanType",         ScanTypeOf},
    {"16.ScanGroupDisplayIndicator", [](RecordNr r) { return r == 1 ? 2 : r % 2; }},
    {"16.ScanDefaultTxChannel_k6k",  [](RecordNr r) { return r == 1 ? 4 : ScanTypeOf(r) == 2 ? 3 : r / 2 % 3; }},
    {"16.ScanTxChannelSelect_k6k",   [](RecordNr r) { return ScanTypeOf(r) == 0 ? 0 : 1; }},
    {"16.ScanInclCurrentChan_k6k",   [](RecordNr r) { return r == 3 ? 0 : 1; }},
    {"16.PriorityScan_k6k",          [](RecordNr r) { return r == 1 ? 2 : r % 2; }},
    // The members of a group are a ring.
    {"18.GroupIDNumber",     [](RecordNr r) { return GroupNumber((r - 1) / kFullMembers + 1); }},
    {"18.GroupRecordNumber", [](RecordNr r) { return (r - 1) / kFullMembers; }},
    {"18.GroupNextMemberRecordNum",
     [](RecordNr r) { return r % kFullMembers == 0 ? r - kFullMembers : r; }},
    {"18.GroupChannelRecordNum",
     [](RecordNr r) { return (7 * r + (r - 1) / kFullMembers) % kFullMembers; }},
};

/// Of the actions in the order of the keys: programmable action, what it is about, the key.
struct KeyAction {
  std::int32_t type, parameter1, parameter2;
};
constexpr KeyAction kKeyActions[kFullActions] = {{12, 4, 0}, {13, 0, 0}, {27, 3, 1}, {28, 3, 1},
                                                 {9, 41, 2}, {20, 0, 0}, {20, 0, 0}};

constexpr Column kKeys[] = {
    {"15.FnKeyShortPressActionID", [](RecordNr r) { return r == 4 ? 0 : 2 * r - 1; }},
    {"15.FnKeyLongPressActionID",  [](RecordNr r) { return r > 2 ? 0 : 2 * r; }},
    {"15.FnKeyUpActionID",         [](RecordNr r) { return r == 4 ? 6 : 0; }},
    {"15.FnKeyDownActionID",       [](RecordNr r) { return r == 4 ? 7 : 0; }},
    {"24.ProgrammableActionType",  [](RecordNr r) { return kKeyActions[r - 1].type; }},
    {"24.Parameter1",              [](RecordNr r) { return kKeyActions[r - 1].parameter1; }},
    {"24.Parameter2",              [](RecordNr r) { return kKeyActions[r - 1].parameter2; }},
};

constexpr Column kNetworks[] = {
    // Monitors open all mutes where calls are muted.
    {"21.CallMute",             [](RecordNr r) { return r % 2; }},
    {"21.MonitorOverrides_k6k", [](RecordNr r) { return r % 2 == 1 ? 1 : r / 2 % 2; }},
    {"21.HookswitchMonitorOverrides_k6k", [](RecordNr r) { return r % 2 == 1 ? 1 : (r / 2 + 1) % 2; }},
    // What is acknowledged, at least one call where anything is.
    {"21.AutoAckType",          [](RecordNr r) { return r % 3; }},
    {"21.SelcallIndAutoAckOne", [](RecordNr r) { return r % 3 == 0 ? 0 : r % 2; }},
    {"21.SelcallIndAutoAckTwo", [](RecordNr r) { return r % 3 == 0 ? 0 : (r + 1) % 2; }},
    {"21.PriorityAutoAck_k6k",  [](RecordNr r) { return r % 3 == 0 ? 0 : r / 2 % 2; }},
    {"21.DeferredCalling_k6k",  [](RecordNr r) { return r % 2; }},
    {"21.TimeRadioAttemptsDeferredCall", [](RecordNr r) { return r % 2 == 0 ? 0 : 5 * r; }},
    // Nothing, the ANI or a tone, on a press of Selcall alone.
    {"21.LeadingANI",                 [](RecordNr r) { return IsSelcall(r) && r % 3 == 1 ? 2 : 0; }},
    {"21.PTTPressRepeaterAccessTone", [](RecordNr r) { return IsSelcall(r) && r % 3 == 2 ? 1 : 0; }},
    {"21.TrailingANI",                [](RecordNr r) { return r % 3 == 0 ? 1 : 0; }},
    {"21.AutoOverBeep",               [](RecordNr r) { return r % 3 == 1 ? 1 : 0; }},
    {"21.TxDurationTimer",         [](RecordNr r) { return r % 5 == 0 ? 0 : 20 + 9 * r; }},
    {"21.TxDurationTimingEnabled", [](RecordNr r) { return r % 5 == 0 ? 0 : 1; }},
    {"51.CallAlertType",             [](RecordNr r) { return r % 3; }},
    {"51.CallAlertInternalDuration", [](RecordNr r) { return r; }},
};

/// The record of one of the channels on the network; the networks take turns.
constexpr RecordNr OwnChannel(RecordNr network) { return network + kFullNetworks * (1 + (network - 1) % 4); }

/// None, continuous where an acknowledgement ends it, a fixed number.
constexpr std::int32_t CalloutType(RecordNr network) {
  if (!HasEmergency(network) || network % 8 == 5) return 0;
  return network % 8 == 1 ? 1 : 2;
}

constexpr Column kEmergencies[] = {
    // A dedicated channel is one of the network's own. An emergency calls out or cycles, and no cycling is for ever.
    {"53.ChannelType",      [](RecordNr r) { return r % 2; }},
    {"53.ChannelRecordNr",  [](RecordNr r) { return r % 2 == 0 ? 0 : OwnChannel(r) - 1; }},
    {"53.EmergencyEnabled", [](RecordNr r) { return HasEmergency(r) ? 1 : 0; }},
    {"53.EmCalloutType",    CalloutType},
    {"53.EmCalloutNumber",  [](RecordNr r) { return 3 + 7 * r; }},
    {"53.EmCyclingType",    [](RecordNr r) { return r % 8 == 3 ? 0 : 2; }},
    {"53.EmCyclingNumber",  [](RecordNr r) { return 3 + r; }},
    {"53.EmCyclingRxTime",  [](RecordNr r) { return 20 + r; }},
    {"53.EmCyclingTxTime",  [](RecordNr r) { return 5 + 2 * r; }},
    {"53.TxBeginToneFreq",  [](RecordNr r) { return 3000 + 370 * r; }},  // whole hertz
    {"53.TxEndToneFreq",    [](RecordNr r) { return 30000 - 410 * r; }},
    {"53.StealthFalsePowerdown", [](RecordNr r) { return r % 4 == 1 || r % 4 == 2 ? 1 : 0; }},  // of Selcall
};

constexpr Column kAudioPaths[] = {
    {"59.AudioIOTapIn",               [](RecordNr r) { return std::array{7, 19, 20, 24}[static_cast<std::size_t>(r - 1)]; }},
    {"59.AudioIOTapInType",           [](RecordNr r) { return std::array{1, 5, 0, 1}[static_cast<std::size_t>(r - 1)]; }},
    {"59.AudioIOTapInUnmuteCondition", [](RecordNr r) { return r == 1 ? 2 : r == 3 ? -1 : 0; }},
    {"59.AudioIOTapOut",              [](RecordNr r) { return std::array{10, 28, 29, 0}[static_cast<std::size_t>(r - 1)]; }},
    {"59.AudioIOTapOutType",          [](RecordNr r) { return r % 2 == 0 ? 2 : 3; }},
    {"59.AudioIOTapOutUnmuteCondition", [](RecordNr r) { return r == 1 ? 4 : r == 2 ? 0 : -1; }},
};

constexpr std::int32_t InBandTone(RecordNr network) { return 10 * (500 + 97 * network); }

constexpr Column kInBandTones[] = {
    // Not beside Selcall: the data are too fast.
    {"75.SIBTRawEnabled",  [](RecordNr r) { return IsSelcall(r) ? 0 : 1 + r / 4 % 2; }},
    {"75.SIBTFrequency",   [](RecordNr r) { return InBandTone(r); }},
    {"75.SIBTLowerBound",  [](RecordNr r) { return InBandTone(r) - 75; }},
    {"75.SIBTUpperBound",  [](RecordNr r) { return InBandTone(r) + 75; }},
    {"75.SIBTMixingFrequency", [](RecordNr r) { return InBandTone(r) < 15000 ? 17130 : 12870; }},
    {"75.SIBTToneBandwidth", [](RecordNr) { return 0; }},  // every save clears it
    {"75.SIBTToneEncodeDuration_k6k",    [](RecordNr r) { return 1000 + 100 * r; }},
    {"75.SIBTMinimumDecodeDuration_k6k", [](RecordNr r) { return 100 + 30 * r; }},
};

/// Of each Selcall system: the set whose tones a user may choose from, and the hertz of the tone codes.
struct ToneSet {
  std::int32_t base;
  std::array<std::int32_t, 16> hertz;
};
constexpr ToneSet kToneSets[] = {
    {9, {1275, 1400, 1728, 1830, 1981, 2110, 2247, 2433, 571, 631, 697, 770, 852, 941, 1040, 1160}},
    {3, {1060, 2400, 1160, 1270, 1400, 1530, 1670, 1830, 2000, 2200, 2800, 810, 970, 885, 2600, 680}},
    {6, {2400, 1160, 1060, 1270, 1400, 1530, 1670, 1830, 2000, 2200, 970, 810, 2800, 885, 680, 2600}},
    {2, {1981, 1124, 1197, 1275, 1358, 1446, 1540, 1640, 1747, 1860, 1055, 930, 2400, 991, 2110, 2247}},
};

/// Two-tone systems of the MOT format, which has them, and of the CNE format take turns.
constexpr bool HasCallsToAll(RecordNr system) { return system % 2 == 1; }

constexpr Column kSystems[] = {
    {"29.TonePeriod",           [](RecordNr r) { return r == 1 ? 1 : r + 1; }},
    {"29.GapPeriod",            [](RecordNr r) { return std::min(r + 3, 7); }},
    {"29.ThirdToneReset_k6k",   [](RecordNr r) { return r % 2; }},
    {"29.InvalidCallReset_k6k", [](RecordNr r) { return (r + 1) % 2; }},
    // The last system has a standard tone set, with its tones; those of the others are the user's.
    {"31.GroupTone",  [](RecordNr r) { return r == 4 ? 10 : 10 + r; }},
    {"31.RepeatTone", [](RecordNr r) { return r == 4 ? 14 : r == 1 ? 15 : 8 + r; }},
    {"48.SelcallToneSet",         [](RecordNr r) { return kToneSets[r - 1].base; }},
    {"48.ToneSetBandwidth",       [](RecordNr r) { return r == 4 ? 0 : 1; }},
    {"48.ToneSetMixingFrequency", [](RecordNr r) { return r == 4 ? 1694 : 1600; }},
    {"32.SignalSystemId",   [](RecordNr r) { return 4 * ((r - 1) / 16) + 2; }},
    // Every second system has statuses of one tone.
    {"32.Value", [](RecordNr r) { return (r - 1) / 16 % 2 == 1 ? (r - 1) % 16 : 3 * ((r - 1) % 16) + 5; }},
    {"49.FreeFormSigSysID", [](RecordNr r) { return 4 * ((r - 1) / 7) + 2; }},
    {"49.FreeFormSeqID",    [](RecordNr r) { return (r - 1) % 7; }},
    // No burst joins the next one.
    {"49.FreeFormGap1",     [](RecordNr r) { return r % 8 + 1; }},
    {"49.FreeFormGap2",     [](RecordNr r) { return (r + 3) % 8 + 1; }},
    {"49.FreeFormGap3",     [](RecordNr r) { return r % 7 + 1; }},
    {"49.FreeFormGap4",     [](RecordNr r) { return r % 5 + 2; }},
    {"37.T99ToneSetMixingFreq",    [](RecordNr r) { return HasCallsToAll(r) ? 1413 : 1100; }},
    // In steps of 50 ms; a gap of one step is not allowed.
    {"37.T99MinFirstTonePeriod",   [](RecordNr r) { return 5 + 2 * r; }},
    {"37.T99MaxFirstTonePeriod",   [](RecordNr r) { return 30 + 11 * r; }},
    {"37.T99MinGapPeriod",         [](RecordNr r) { return r == 4 ? 0 : r + 1; }},
    {"37.T99MaxGapPeriod",         [](RecordNr r) { return 11 + 2 * r; }},
    {"37.T99MinSecondTonePeriod",  [](RecordNr r) { return 8 + 3 * r; }},
    {"37.T99MaxSecondTonePeriod",  [](RecordNr r) { return 70 + 7 * r; }},
    {"37.T99MinAllCallTonePeriod", [](RecordNr r) { return HasCallsToAll(r) ? 100 + 9 * r : 0; }},
    {"37.T99MaxAllCallTonePeriod", [](RecordNr r) { return HasCallsToAll(r) ? 180 + 11 * r : 0; }},
    {"80.MDC1200SignallingSystemID", [](RecordNr r) { return 4 * r; }},
    {"80.MDC1200RadioID",            [](RecordNr r) { return 0x0ABC + 9241 * (r - 1); }},
    {"81.MDC1200NetworkPresetSeqSigSystemID", [](RecordNr r) { return 4 * ((r + 1) / 2); }},
    {"81.MDC1200NetworkPresetSeqSeqType",     [](RecordNr r) { return r % 2 == 1 ? 4 : 6; }},
    {"81.MDC1200NetworkPresetSeqSequence",    [](RecordNr r) { return 4011 * r; }},
};
// clang-format on

/// What the decoder of a two-tone system looks for: the bounds of the tones in ascending order, in tenths of
/// a hertz, and which tone each is.
struct TwoTones {
  std::vector<std::int32_t> lowest, highest, order;
};
const TwoTones kTwoTones[] = {
    {{5030, 7393, 12783, 31000}, {5180, 7543, 12933, 31000}, {2, 3, 1, 4}},
    {{5100, 6450, 8250, 9600}, {5250, 6600, 8400, 9750}, {2, 4, 1, 3}},
    {{3932, 9926, 19930, 31000}, {4082, 10076, 20080, 31000}, {3, 1, 2, 4}},
    {{0, 2926, 5934, 8925}, {0, 3076, 6084, 9075}, {3, 1, 4, 2}},
};

/// Tones with their limits, and the order in which the codes stand for them.
void FillToneSets(Provider& content) {
  for (RecordNr r = 1; r <= content.Count(37); ++r) {
    const TwoTones& system = kTwoTones[r - 1];
    content.Set("37.T99ToneSetLowerBound", r, Rows(system.lowest));
    content.Set("37.T99ToneSetUpperBound", r, Rows(system.highest));
    content.Set("37.T99ToneSetRemapTable", r, Rows(system.order));
  }
  for (RecordNr r = 1; r <= content.Count(48); ++r) {
    const auto& hertz = kToneSets[r - 1].hertz;
    content.Set("48.CustomFrequencies", r, Rows({hertz.begin(), hertz.end()}));
  }
}

void FillSequences(Provider& content) {
  for (RecordNr r = 1; r <= content.Count(29); ++r) {
    content.Set("29.RxSeqTwo", r, Tones("2D" + std::to_string(100 + r)));
    content.Set("29.RMRBurst", r, Tones("3C" + std::to_string(200 + r)));
  }
  constexpr const char* kStatuses[] = {"07", "V", "C", "VV", "5"};
  for (RecordNr r = 1; r <= content.Count(49); ++r)
    content.Set("49.FreeFormStatus", r, Tones(kStatuses[r % 5]));
  for (RecordNr r = 1; r <= content.Count(68); ++r) {
    const std::string number = std::to_string(100 + r);
    content.Set("68.DTMFPatchSeqSequence", r, Keys("*" + number));
    content.Set("68.DTMFPatchSeqLineCapturedSeq", r, Keys("A" + number + "#"));
    content.Set("68.DTMFPatchSeqLineReleaseSeq", r, Keys("B" + number + "-"));
  }
  content.Set("22.SecurityPIN", 1, Rows({4, 7, 1}));
  content.Set("44.MaxAudioLevel", 1, Rows({140, 99}));
}

void FillTexts(Provider& content) {
  content.Set("9.DataIdentity", 1, "40960713");
  content.Set("69.GPSAVLDespatcherAddress", 1, "21043567");
  for (RecordNr r = 1; r <= content.Count(16); ++r) {
    const bool isVote = SameValue(content.Get("16.GroupType", r), 1);
    const Variant plain = content.Get(isVote ? "16.GroupVote" : "16.ScanGroupDisplayIndicator", r);
    content.Set("16.GroupAlias", r, SameValue(plain, 0) ? "SC" : std::to_string(GroupNumber(r)));
  }
  for (RecordNr r = 1; r <= content.Count(78); ++r) content.Set("78.CWIDString", r, "CW" + std::to_string(r));
}

}  // namespace

void FillTied(Provider& content) {
  Fill(content, kRadio);
  Fill(content, kSounds);
  Fill(content, kData);
  Fill(content, kChannels);
  Fill(content, kGroups);
  Fill(content, kKeys);
  Fill(content, kNetworks);
  Fill(content, kEmergencies);
  Fill(content, kInBandTones);
  content.SetCount(59, 4);  // the fifth path is none
  Fill(content, kAudioPaths);
  for (RecordNr r = 1; r <= 4; ++r) content.Set("59.AudioIOLabel", r, "");  // every save clears them
  Fill(content, kSystems);
  FillToneSets(content);
  FillSequences(content);
  FillTexts(content);
}

}  // namespace Samples
