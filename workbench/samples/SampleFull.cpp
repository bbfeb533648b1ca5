#include "workbench/samples/SampleFull.h"

#include "workbench/samples/SampleFiller.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"

namespace Samples {
namespace {

constexpr std::int32_t kBandB1 = 1;
constexpr std::int32_t kSystems = 4;  // of each type

std::string Digits(std::int32_t value, std::size_t count) {
  const std::string text = std::to_string(value);
  return std::string(count - text.size(), '0') + text;
}

/// No number of a channel or system is its place; networks, which the forms sort, have none to leave out.
std::int32_t ChannelNumber(std::int32_t index) { return 10 * index + 7; }

/// Three networks of four are Selcall, which has the most that depends on it; the fourth is DTMF or MDC1200
/// by turn.
Network FullNetwork(std::int32_t index) {
  constexpr std::int32_t kOtherTypes[] = {2, 4, 2, 4};
  const bool isSelcall = index % 4 != 3;
  return {.signallingType = isSelcall ? 1 : kOtherTypes[index / 4],
          .system = (index + index / 4) % kSystems + 1,
          .positions = {.onPTT = index % 3,
                        .onEPTT1 = (index + 1) % 3,
                        .onEPTT2 = (index + 2) % 3,
                        .suppressionSeconds = 10 + index}};
}

DTMFSystem FullDTMFSystem(std::int32_t place) {
  const std::string prefix = "*" + std::to_string(place);
  DTMFSystem system{.presets = {},
                    .sequences = {prefix + "1", prefix + "2", prefix + "3", prefix + "4", "A7" + prefix + "#",
                                  prefix + "112#"},
                    .number = 4 * place - 1};
  for (std::int32_t i = 1; i <= kPresetsPerSystem; ++i) system.presets.push_back(prefix + Digits(i, 3) + "#");
  return system;
}

/// Both formats, each with tones of its list and with tones of the user's own; A is not the lowest.
TwoToneSystem FullTwoToneSystem(std::int32_t place) {
  constexpr std::array<std::int32_t, 4> kTones[] = {
      {12858, 5105, 7468, 18810}, {8325, 5175, 9675, 6525}, {10001, 20005, 4007, 0}, {3001, 9000, 0, 6009}};
  return {
      .isCNE = place % 2 == 0, .isCustom = place > 2, .tones = kTones[place - 1], .number = 4 * place - 3};
}

/// All of them, and actions of every kind: with a parameter, for a bit of the channel's number, on a chain.
std::vector<Pin> FullPins() {
  return {
      {.id = 22, .isOutput = false, .action = 18, .debounceMs = 20, .label = "EPTT"},
      {.id = 23, .isOutput = false, .action = 4, .debounceMs = 50, .endsToo = false, .parameter = 1},
      {.id = 24, .isOutput = false, .action = 2, .isHigh = true, .debounceMs = 5, .label = "IGN"},
      {.id = 25, .isOutput = true, .action = 1, .isHigh = true, .label = "BUSY"},
      {.id = 26, .isOutput = true, .action = 1},
      {.id = 27, .isOutput = true, .action = 13, .isLatching = true},
      {.id = 28, .isOutput = false, .action = 43, .debounceMs = 100, .mirrors = 29},
      {.id = 29, .isOutput = true, .action = 35, .isHigh = true, .label = "ALARM"},
      {.id = 30, .isOutput = false, .action = 23, .isHigh = true, .debounceMs = 200, .parameter = 40},
      {.id = 31, .isOutput = false, .action = 24, .endsToo = false, .parameter = 17},
      {.id = 32, .isOutput = true, .action = 26, .label = "STATUS"},
      {.id = 33, .isOutput = false, .action = 7, .isHigh = true, .debounceMs = 2, .parameter = 2},
      {.id = 35, .isOutput = false, .action = 41, .isHigh = true},
      {.id = 36, .isOutput = false, .action = 34, .debounceMs = 150, .label = "SIREN", .mirrors = 32},
  };
}

/// `count` bursts of so many tones.
std::vector<std::string> Bursts(const std::string& prefix, std::int32_t count, std::size_t tones) {
  std::vector<std::string> bursts;
  for (std::int32_t i = 1; i <= count; ++i) bursts.push_back(prefix + Digits(i, tones - prefix.size()));
  return bursts;
}

/// Of one tone each status is a digit, and there are no more of them; of two they are numbers. One is
/// variable.
std::vector<std::string> Statuses(std::size_t tones) {
  std::vector<std::string> statuses = {std::string(tones, 'V')};
  for (const char digit : std::string_view("0123456789ABCDEF")) {
    if (tones == 1) statuses.emplace_back(1, digit);
  }
  for (std::int32_t i = 1; tones == 2 && i < 24; ++i) statuses.push_back(Digits(4 * i + 3, 2));
  return statuses;
}
/// All systems have so many.
constexpr std::int32_t kFewestStatuses = 17;

SelcallSystem FullSelcallSystem(std::int32_t place) {
  // Every kind of burst, in lengths of their own.
  struct Format {
    const char *tx, *rx;
    std::size_t repeater, txCall, callerId, status;
  };
  constexpr Format kFormats[] = {{"BBBBB-RRRRR-CCCCC-SS", "RRRRR-CCCCC-SS", 5, 5, 5, 2},
                                 {"BBBB-RRRRRR-CCCC-S", "RRRRR-CCCCC-S", 4, 6, 4, 1},
                                 {"BBB-CCCC-RRRRR-SS", "RRRRR-SS", 3, 5, 4, 2},
                                 {"BBBB-RRRRRRR-CCC-S", "RRRRR-S", 4, 7, 3, 1}};
  const Format& format = kFormats[place - 1];
  const std::string prefix = std::to_string(place);
  SelcallSystem system{.txFormat = format.tx,
                       .rxFormat = format.rx,
                       .receive = prefix + "0000",
                       .repeaters = Bursts(prefix + "9", 5, format.repeater),
                       .callerIds = Bursts(prefix, 2, format.callerId),
                       .txCalls = Bursts(prefix + "1", 100, format.txCall),
                       .statuses = Statuses(format.status),
                       .accessTones = Bursts(prefix + "C", 5, 5),
                       .leadIns = Bursts(prefix + "D", 5, 5),
                       .number = 4 * place - 2};
  system.txCalls.back().back() = 'G';
  return system;
}

Channel FullChannel(std::int32_t index, std::int32_t signallingType) {
  constexpr const char* kTones[] = {"C67.0", "D023", "C103.5", "D754", "C254.1", "D331"};
  const bool hasInBandTone = SendsInBandTone(index + 1);
  Channel channel{.number = ChannelNumber(index),
                  .rxHertz = 146.003125e6 + index * 25e3,
                  .txHertz = 138.00625e6 + index * 37.5e3,
                  .rxTone = hasInBandTone ? "None" : kTones[index % 6],
                  .txTone = hasInBandTone ? "None" : kTones[(index + 1) % 6],
                  .network = index % kFullNetworks + 1,
                  .power = index % 4 + 1};
  if (signallingType == 1) {
    channel.txCall = index + 1;
    channel.callerId = index % 2 + 1;
    channel.repeater = index % 5 + 1;
    channel.status = index % kFewestStatuses + 1;
    channel.accessTone = (index + 2) % 5 + 1;
    channel.leadIn = (index + 4) % 5 + 1;
  } else if (signallingType == 2) {
    channel.preset = index % kPresetsPerSystem + 1;
  }
  return channel;
}

const Network& NetworkOf(const Personality& personality, const Channel& channel) {
  return personality.networks[static_cast<std::size_t>(channel.network - 1)];
}

/// The first is for the last channel. Those of a network without Selcall are empty.
void AddPresetCalls(Provider& content, const Personality& personality) {
  const auto count = static_cast<RecordNr>(personality.channels.size());
  content.SetCount(76, count);
  for (RecordNr record = 1; record <= count; ++record) {
    const RecordNr place = count + 1 - record;
    const Network& network =
        NetworkOf(personality, personality.channels[static_cast<std::size_t>(place - 1)]);
    content.Set("76.DSDBM_PRESET_CALL_CHANNEL_REF", record, place);
    const auto pointTo = [&](const char* kind, Burst type, std::int32_t position) {
      const std::string field = "76.DSDBM_CHANNEL_SEL_" + std::string(kind) + "_INDEX_POINTER";
      content.Set(field, record,
                  BurstPointer(network.system, type, network.signallingType == 1 ? position : 0));
    };
    pointTo("RPT_BURST", Burst::Repeater, record % 5 + 1);
    pointTo("CALLER_ID", Burst::CallerId, record % 2 + 1);
    pointTo("TXCALL", Burst::TxCall, record);
    pointTo("STATUS", Burst::Status, record % kFewestStatuses + 1);
  }
}

}  // namespace

Personality Full() {
  Personality full{.band = kBandB1, .networks = {}, .systems = {}, .channels = {}, .gps = true};
  for (std::int32_t i = 0; i < kFullNetworks; ++i) full.networks.push_back(FullNetwork(i));
  for (std::int32_t place = 1; place <= kSystems; ++place) {
    full.dtmfSystems.push_back(FullDTMFSystem(place));
    full.twoToneSystems.push_back(FullTwoToneSystem(place));
    full.systems.push_back(FullSelcallSystem(place));
  }
  full.pins = FullPins();
  for (std::int32_t i = 0; i < kFullChannels; ++i) {
    const auto network = static_cast<std::size_t>(i % kFullNetworks);
    full.channels.push_back(FullChannel(i, full.networks[network].signallingType));
  }
  return full;
}

void FillFull(Provider& content, const Personality& full) {
  for (const SchemaTable& table : content.GetSchema().Tables()) {
    if (table.IsRaw()) content.SetCount(table.number, table.maximum);
  }
  content.SetCount(16, kFullGroups);
  content.SetCount(18, kFullGroups * kFullMembers);
  content.SetCount(24, kFullActions);
  FillTelling(content);
  for (const std::int32_t table : {55, 56, 57}) {  // what is not described is as in a new personality
    const RecordNr count = content.Count(table);
    content.SetCount(table, 0);
    content.SetCount(table, count);
  }
  FillStored(content, full);
  AddPresetCalls(content, full);
  FillTied(content);
}

}  // namespace Samples
