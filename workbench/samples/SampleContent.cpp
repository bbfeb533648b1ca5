#include "workbench/samples/SampleContent.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <string_view>
#include <utility>

#include "platform/XArrayDBObject.h"
#include "workbench/store/Provider.h"

namespace Samples {
namespace {

/// The slots of a Selcall system in table 30, by burst type; slots count from 1.
struct SlotRange {
  std::int32_t first;
  std::int32_t count;
};
constexpr SlotRange kSlots[] = {{1, 5}, {6, 2}, {8, 100}, {108, 24}, {132, 5}, {137, 5}};
constexpr std::int32_t kSlotsPerSystem = 141;
constexpr std::int32_t kSequencesPerSystem = 7;

/// Record 1 of table 30 belongs to no system.
RecordNr BurstRecord(std::int32_t system, std::int32_t slot) {
  return (system - 1) * kSlotsPerSystem + 1 + slot;
}

std::int32_t NumberOf(std::int32_t given, RecordNr place) { return given == 0 ? place : given; }

/// A raw sequence: each character of `text` as its place in `alphabet`.
Variant Sequence(const std::string& text, std::string_view alphabet) {
  std::vector<std::int32_t> codes;
  for (const char c : text) codes.push_back(static_cast<std::int32_t>(alphabet.find(c)));
  return Rows(codes);
}
Variant Format(const std::string& text) { return Sequence(text, "RCS-B"); }

/// In the order of their records in table 51, six for each network.
constexpr std::string_view kAlertPointers[] = {"21.Ind1CallAlertPtr",     "21.Ind2CallAlertPtr",
                                               "21.GroupCallAlertPtr",    "21.AllCallAlertPtr",
                                               "21.PriorityCallAlertPtr", "21.EmergencyCallAlertPtr"};

void AddAlerts(Provider& content, const std::vector<Network>& networks) {
  constexpr std::int32_t kTwoTone = 3, kBeep = 2;
  RecordNr alert = 0;
  content.SetCount(51, static_cast<RecordNr>(networks.size() * std::size(kAlertPointers)));
  RecordNr record = 0;
  for (const Network& network : networks) {
    ++record;
    for (const std::string_view pointer : kAlertPointers) {
      content.Set(pointer, record, alert);
      ++alert;
      content.Set("51.CallAlertID", alert, alert - 1);
      if (network.signallingType == kTwoTone)
        content.Set("51.CallAlertType", alert, kBeep);  // it can not ring
    }
  }
}

/// An emergency without callout, which would need a sequence of the system; cycling a fixed number of times.
void AddEmergency(Provider& content, RecordNr network, std::int32_t channel,
                  const std::vector<Channel>& channels) {
  content.Set("53.EmergencyEnabled", network, 1);
  content.Set("53.EmCalloutType", network, 0);
  content.Set("53.EmCyclingType", network, 2);
  content.Set("53.EmCyclingNumber", network, 5);
  content.Set("53.EmCyclingRxTime", network, 20);
  content.Set("53.EmCyclingTxTime", network, 10);
  if (channel == 0) return;
  const auto dedicated = std::ranges::find(channels, channel, &Channel::number);
  content.Set("53.ChannelType", network, 1);
  content.Set("53.ChannelRecordNr", network, static_cast<std::int32_t>(dedicated - channels.begin()));
}

void AddNetworks(Provider& content, const Personality& personality) {
  const std::vector<Network>& networks = personality.networks;
  const auto count = static_cast<RecordNr>(networks.size());
  // Record n of each of these belongs to network n.
  for (const std::int32_t table : {21, 36, 53, 67, 72, 75, 77, 78}) content.SetCount(table, count);
  content.SetCount(68, 4 * count);
  for (RecordNr record = 1; record <= count; ++record) {
    const Network& network = networks[static_cast<std::size_t>(record - 1)];
    content.Set("21.NetworkPointer", record, record);
    content.Set("21.SIBTPointer", record, record - 1);
    content.Set("21.EmergencyPointer", record, record - 1);
    content.Set("21.SignallingType", record, network.signallingType);
    content.Set("21.SignallingPointer", record, std::max(network.system - 1, 0));
    content.Set("53.NetworkId", record, record - 1);
    content.Set("53.SignallingType", record, network.signallingType);
    if (network.emergency) AddEmergency(content, record, network.emergencyChannel, personality.channels);
    content.Set("67.DTMFPatchNetworkID", record, record);
    content.Set("67.DTMFPatchToneSetupPointer", record, record - 1);
    content.Set("72.DTMFPatchTonesNetworkID", record, record);
    content.Set("75.SIBTNetworkID", record, record);
    if (network.inBandHertz != 0) {
      content.Set("75.SIBTRawEnabled", record, 2);
      content.Set("75.SIBTFrequency", record, 10 * network.inBandHertz);
    }
    for (std::int32_t kind = 0; kind < 4; ++kind) {
      content.Set("68.DTMFPatchSeqNetworkID", 4 * (record - 1) + kind + 1, record);
      content.Set("68.DTMFPatchSeqSequenceType", 4 * (record - 1) + kind + 1, kind);
    }
  }
  AddAlerts(content, networks);
}

/// The mic speaks into the microphone of the control head, the external PTTs into the auxiliary one; record 1
/// is the receiver.
void AddMicrophones(Provider& content) {
  constexpr std::int32_t kControlHead = 1, kAuxiliary = 2;
  content.Set("59.AudioIOMicSource", 2, kControlHead);
  for (const RecordNr external : {3, 4}) content.Set("59.AudioIOMicSource", external, kAuxiliary);
}

/// The position reports need short data messages, and a port that the data does not use.
void AddGPS(Provider& content, const std::vector<Network>& networks) {
  const auto ofNetworks = [&](std::int32_t Positions::*member) {
    std::vector<std::int32_t> values;
    values.reserve(networks.size());
    for (const Network& network : networks) values.push_back(network.positions.*member);
    return Rows(values);
  };
  content.Set("9.DataSDMOptionsEnabled", 1, 1);
  content.Set("9.DataCCDIPort", 1, 1);    // Aux
  content.Set("69.GPSSerialPort", 1, 0);  // Mic
  content.Set("69.GPSEnabled", 1, 1);
  content.Set("69.GPSNetworkSendPosOnPTT", 1, ofNetworks(&Positions::onPTT));
  content.Set("69.GPSNetworkSendPosOnEPTT1", 1, ofNetworks(&Positions::onEPTT1));
  content.Set("69.GPSNetworkSendPosOnEPTT2", 1, ofNetworks(&Positions::onEPTT2));
  content.Set("69.PttGPSSuppressionTime", 1, ofNetworks(&Positions::suppressionSeconds));
}

/// Record 1 of table 65 is no preset.
RecordNr PresetRecord(std::int32_t system, std::int32_t position) {
  return (system - 1) * kPresetsPerSystem + 1 + position;
}

void AddDTMFSystems(Provider& content, const std::vector<DTMFSystem>& systems) {
  constexpr std::array kSequenceTypes = {0, 1, 2, 3, 4, 6};
  const auto count = static_cast<std::int32_t>(systems.size());
  for (const std::int32_t table : {63, 64}) content.SetCount(table, count);
  content.SetCount(65, 1 + kPresetsPerSystem * count);
  content.SetCount(66, count * static_cast<RecordNr>(kSequenceTypes.size()));
  RecordNr sequence = 0;
  for (RecordNr place = 1; place <= count; ++place) {
    const DTMFSystem& system = systems[static_cast<std::size_t>(place - 1)];
    const std::int32_t number = NumberOf(system.number, place);
    content.Set("64.DTMFNetworkSigSystemID", place, number);
    content.Set("64.DTMFNetworkToneSetupRecord", place, place - 1);
    for (std::int32_t position = 1; position <= kPresetsPerSystem; ++position) {
      const RecordNr record = PresetRecord(place, position);
      const auto index = static_cast<std::size_t>(position - 1);
      content.Set("65.DTMFChannelPresetSeqSigSysID", record, number);
      content.Set("65.DTMFChannelPresetSequence", record,
                  Keys(index < system.presets.size() ? system.presets[index] : ""));
    }
    for (std::size_t kind = 0; kind < system.sequences.size(); ++kind) {
      ++sequence;
      content.Set("66.DTMFNetworkPresetSeqSigSysID", sequence, number);
      content.Set("66.DTMFNetworkPresetSeqType", sequence, kSequenceTypes[kind]);
      content.Set("66.DTMFNetworkPresetSequence", sequence, Keys(system.sequences[kind]));
    }
  }
}

/// The periods of the CNE format, in steps; those of the other one are the defaults.
constexpr struct {
  std::string_view field;
  std::int32_t steps;
} kCNEPeriods[] = {{"37.T99MaxFirstTonePeriod", 30},
                   {"37.T99MinSecondTonePeriod", 10},
                   {"37.T99MaxSecondTonePeriod", 80},
                   {"37.T99MinAllCallTonePeriod", 0},
                   {"37.T99MaxAllCallTonePeriod", 0}};

void AddTwoToneSystems(Provider& content, const std::vector<TwoToneSystem>& systems) {
  content.SetCount(37, static_cast<RecordNr>(systems.size()));
  RecordNr place = 0;
  for (const TwoToneSystem& system : systems) {
    ++place;
    content.Set("37.T99NetworkID", place, NumberOf(system.number, place));
    content.Set("37.T99TableFormat", place, system.isCNE ? 1 : 0);
    content.Set("37.T99CustomSet", place, system.isCustom ? 1 : 0);
    for (const auto& [field, steps] : kCNEPeriods) {
      if (system.isCNE) content.Set(field, place, steps);
    }
    content.Set("37.T99TableFreq", place, Rows({system.tones.begin(), system.tones.end()}));
  }
}

void AddBursts(Provider& content, RecordNr system, std::int32_t number, std::size_t type,
               const std::vector<std::string>& bursts) {
  for (std::int32_t i = 0; i < kSlots[type].count; ++i) {
    const std::int32_t slot = kSlots[type].first + i;
    const RecordNr record = BurstRecord(system, slot);
    const auto index = static_cast<std::size_t>(i);
    content.Set("30.FixedFormatSigSystemID", record, number);
    content.Set("30.FixedFormatBurstType", record, static_cast<std::int32_t>(type));
    content.Set("30.FixedFormatBurstID", record, slot);
    content.Set("30.FixedFormatBurstSeq", record, Tones(index < bursts.size() ? bursts[index] : ""));
  }
}

void AddFreeFormat(Provider& content, RecordNr system, std::int32_t number,
                   const std::vector<std::string>& bursts) {
  for (std::int32_t place = 0; place < kSequencesPerSystem; ++place) {
    const RecordNr record = (system - 1) * kSequencesPerSystem + place + 1;
    const auto index = static_cast<std::size_t>(place);
    content.Set("49.FreeFormSigSysID", record, number);
    content.Set("49.FreeFormSeqID", record, place);
    if (index < bursts.size()) content.Set("49.FreeFormBurstR1", record, Tones(bursts[index]));
  }
}

void AddControlStatuses(Provider& content, std::int32_t number, std::int32_t count) {
  for (std::int32_t type = 0; type < count; ++type) {
    const RecordNr record = content.Count(32) + 1;
    content.SetCount(32, record);
    content.Set("32.SignalSystemId", record, number);
    content.Set("32.Value", record, type + 1);
    content.Set("32.Type", record, type);
    content.Set("32.Rx", record, 1);
    content.Set("32.Tx", record, type % 2);
  }
}

void AddSystems(Provider& content, const std::vector<SelcallSystem>& systems) {
  const auto count = static_cast<std::int32_t>(systems.size());
  for (const std::int32_t table : {29, 31, 48}) content.SetCount(table, count);
  content.SetCount(30, 1 + kSlotsPerSystem * count);
  content.SetCount(49, kSequencesPerSystem * count);
  content.Set("30.FixedFormatBurstSeq", 1, Tones(""));
  for (RecordNr place = 1; place <= count; ++place) {
    const SelcallSystem& system = systems[static_cast<std::size_t>(place - 1)];
    const std::int32_t number = NumberOf(system.number, place);
    content.Set("29.SelcallID", place, number);
    content.Set("29.TxFormat", place, Format(system.txFormat));
    content.Set("29.RxFormat", place, Format(system.rxFormat));
    content.Set("29.RxSeqOne", place, Tones(system.receive));
    content.Set("29.RxSeqTwo", place, Tones(""));
    content.Set("29.RMRBurst", place, Tones(""));
    content.Set("31.SelcallToneSignalSystemId", place, number);
    content.Set("31.ToneSetPointer", place, place - 1);
    const std::array bursts = {system.repeaters, system.callerIds,   system.txCalls,
                               system.statuses,  system.accessTones, system.leadIns};
    for (std::size_t type = 0; type < bursts.size(); ++type) {
      AddBursts(content, place, number, type, bursts[type]);
    }
    AddFreeFormat(content, place, number, system.freeFormat);
    AddControlStatuses(content, number, system.controlStatuses);
  }
}

void AddChannels(Provider& content, const Personality& personality) {
  const auto count = static_cast<RecordNr>(personality.channels.size());
  content.SetCount(5, count);
  content.SetCount(7, count);
  for (RecordNr record = 1; record <= count; ++record) {
    const Channel& channel = personality.channels[static_cast<std::size_t>(record - 1)];
    const Network& network = personality.networks[static_cast<std::size_t>(channel.network - 1)];
    content.Set("7.CibChannelID", record, channel.number);
    content.Set("7.CibChannelRec", record, record - 1);
    content.Set("5.ChannelRxFreq", record, channel.rxHertz);
    content.Set("5.ChannelTxFreq", record, channel.txHertz);
    content.Set("5.ChannelNetworkId", record, channel.network - 1);
    content.Set("5.TxPower_k6k", record, channel.power);
    const auto pointTo = [&](std::string_view field, Burst type, std::int32_t position) {
      content.Set(field, record, BurstPointer(network.system, type, position));
    };
    pointTo("5.RepeaterBurst", Burst::Repeater, channel.repeater);
    pointTo("5.CallerIDBurst", Burst::CallerId, channel.callerId);
    pointTo("5.TXCallBurst", Burst::TxCall, channel.txCall);
    pointTo("5.StatusBurst", Burst::Status, channel.status);
    pointTo("5.RepeaterAccessTone", Burst::AccessTone, channel.accessTone);
    pointTo("5.Lead-In-Tone", Burst::LeadIn, channel.leadIn);
    const RecordNr preset = channel.preset == 0 ? 1 : PresetRecord(network.system, channel.preset);
    content.Set("5.DTMFPresetCallPointer", record, preset - 1);
    if (channel.isPaged) content.Set("T99IndividualCallReceive_k6k", record, 1);
    if (channel.hasInBandTone) content.Set("ChannelSIBTEnabled_k6k", record, 1);
  }
}

/// The pins of the grid in their order; the first three are inputs alone.
constexpr std::int32_t kFirstPin = 22, kFirstOutputPin = 25;
constexpr std::int32_t kBusyStatus = 1;

/// Outputs that show a busy channel name the record of the one before them.
void AddPin(Provider& content, const Pin& pin, std::int32_t& busy) {
  const RecordNr input = pin.id - kFirstPin + 1;
  content.Set("55.DigitalIOInputDirection", input, pin.isOutput ? 2 : 1);
  content.Set("55.DigitalIOInputActiveState", input, pin.isHigh ? 1 : 0);
  if (!pin.label.empty()) content.Set("55.DigitalIOInputLabel", input, pin.label);
  if (!pin.isOutput) {
    content.Set("55.DigitalIOInputActivationAction", input, pin.action);
    content.Set("55.DigitalIOInputDeactivationAction", input, pin.endsToo ? pin.action : 0);
    content.Set("55.DigitalIOInputDebounceTime", input, pin.debounceMs);
    content.Set("55.DigitalIOInputMirroredTo", input, pin.mirrors);
    content.Set("55.GPIOActivation1", input, pin.parameter);
    content.Set("55.GPIODeActivation1", input, pin.endsToo ? pin.parameter : 0);
    return;
  }
  if (pin.action == kBusyStatus)
    content.Set("55.DigitalIOInputMirroredTo", input, std::exchange(busy, input));
  const RecordNr output = pin.id - kFirstOutputPin + 1;
  content.Set("56.DigitalIOOutputPinID", output, pin.id);
  content.Set("56.DigitalIOOutputAction", output, pin.action);
  content.Set("56.DigitalIOOutputSignalType", output, pin.isLatching ? 1 : 0);
  content.Set("56.DigitalIOOutputLabel", output, content.Get("55.DigitalIOInputLabel", input));
}

void AddPins(Provider& content, const std::vector<Pin>& pins) {
  constexpr const char* kLabels[] = {"PIN_12", "PIN_5",  "PIN_4",  "PIN_10", "PIN_2",
                                     "PIN_9",  "PIN_1",  "PIN_9",  "PIN_10", "PIN_11",
                                     "PIN_12", "PIN_13", "PIN_14", "PIN_15", "C_HEAD"};
  constexpr std::int32_t kFirstBit = 25, kBitsInARow = 5, kSixthBit = 43;
  for (RecordNr record = 1; record <= content.Count(55); ++record) {
    content.Set("55.DigitalIOInputPinID", record, kFirstPin + record - 1);
    content.Set("55.DigitalIOInputLabel", record, kLabels[record - 1]);
  }
  std::int32_t busy = 0;
  for (const Pin& pin : pins) {
    AddPin(content, pin, busy);
    const std::int32_t bit = pin.action - kFirstBit, late = pin.action - kSixthBit + kBitsInARow;
    if (pin.isOutput) continue;
    if (bit >= 0 && bit < kBitsInARow) content.Set("57.ReverseBCDLookup", bit + 1, pin.id);
    if (late >= kBitsInARow && late < 8) content.Set("57.ReverseBCDLookup", late + 1, pin.id);
  }
}

/// The index of a channel, from 0.
std::int32_t IndexOf(const Personality& personality, std::int32_t number) {
  const auto channel = std::ranges::find(personality.channels, number, &Channel::number);
  return static_cast<std::int32_t>(channel - personality.channels.begin());
}

void AddGroups(Provider& content, const Personality& personality) {
  RecordNr group = 0, member = 0;
  for (const Group& one : personality.groups) {
    content.SetCount(16, ++group);
    content.Set("16.GroupIdentity", group, one.number);
    content.Set("16.GroupType", group, one.isVote ? 1 : 0);
    content.Set("16.FirstGroupMember", group, member);
    const RecordNr first = member;
    const RecordNr last = member + static_cast<RecordNr>(one.channels.size());
    content.SetCount(18, last);
    for (const std::int32_t channel : one.channels) {
      content.Set("18.GroupIDNumber", ++member, one.number);
      content.Set("18.GroupRecordNumber", member, group - 1);
      content.Set("18.GroupChannelRecordNum", member, IndexOf(personality, channel));
      content.Set("18.GroupNextMemberRecordNum", member, member == last ? first : member);
    }
  }
}

}  // namespace

Variant Tones(const std::string& text) { return Sequence(text, "0123456789ABCDEF-GV"); }

Variant Keys(const std::string& text) { return Sequence(text, "0123456789ABCD#*-"); }

Variant Rows(const std::vector<std::int32_t>& values) {
  auto rows = std::make_shared<XArrayDBObject>();
  rows->Redim(0, static_cast<std::int32_t>(values.size()), 0, 0);
  std::int32_t row = 0;
  for (const std::int32_t value : values) rows->SetValue(++row, 0, value);
  return ArrayObject(std::move(rows));
}

std::int32_t BurstPointer(std::int32_t system, Burst type, std::int32_t position) {
  return position == 0 ? 0 : BurstRecord(system, kSlots[static_cast<int>(type)].first + position - 1) - 1;
}

void FillStored(Provider& content, const Personality& personality) {
  content.Set("34.Band", 1, personality.band);
  AddNetworks(content, personality);
  AddMicrophones(content);
  if (personality.gps) AddGPS(content, personality.networks);
  AddSystems(content, personality.systems);
  AddDTMFSystems(content, personality.dtmfSystems);
  AddTwoToneSystems(content, personality.twoToneSystems);
  AddChannels(content, personality);
  AddGroups(content, personality);
  AddPins(content, personality.pins);
}

void FillForms(Provider& content, const Personality& personality) {
  RecordNr record = 0;
  for (const Channel& channel : personality.channels) {
    ++record;
    content.Set("RxSignalling_k6k", record, channel.rxTone);
    content.Set("TxSignalling_k6k", record, channel.txTone);
  }
}

}  // namespace Samples
