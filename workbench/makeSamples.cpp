// Writes the sample personalities: kd4410-make-samples FOLDER. They come out the same on every run.

#include <CLI/CLI.hpp>
#include <array>
#include <iostream>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/XArrayDBObject.h"
#include "workbench/Provider.h"
#include "workbench/Schema.h"
#include "workbench/Workplace.h"

namespace {

constexpr std::string_view kVersion = "KD4410.0094";
constexpr std::int32_t kBandB1 = 1;
constexpr std::int32_t kBandH5 = 5;

// What channels, networks and systems are made of. Numbers of networks and systems count from 1.
struct Channel {
  std::int32_t number;
  double rxHertz;
  double txHertz;
  std::string rxTone = "None";
  std::string txTone = "None";
  std::int32_t network = 1;
  std::int32_t power = 4;     // 1 Very Low to 4 High
  std::int32_t txCall = 0;    // position among the Tx call bursts of the network's system, 0 for none
  std::int32_t callerId = 0;  // among its caller ID bursts
  std::int32_t repeater = 0;  // among its repeater bursts
  std::int32_t status = 0;    // among its status bursts
};
struct Network {
  std::int32_t signallingType;  // 0 none, 1 Selcall
  std::int32_t system = 0;
};
struct SelcallSystem {
  std::string txFormat, rxFormat;
  std::string receive;  // the radio's own identity
  std::vector<std::string> repeaters, callerIds, txCalls, statuses;
};
struct Personality {
  std::int32_t band;
  std::vector<Network> networks;
  std::vector<SelcallSystem> systems;
  std::vector<Channel> channels;
};

/// The slots of a Selcall system in table 30, by burst type; slots count from 1.
struct SlotRange {
  std::int32_t first;
  std::int32_t count;
};
constexpr SlotRange kSlots[] = {{1, 5}, {6, 2}, {8, 100}, {108, 24}, {132, 5}, {137, 5}};
constexpr std::int32_t kRepeater = 0, kCallerId = 1, kTxCall = 2, kStatus = 3;
constexpr std::int32_t kSlotsPerSystem = 141;

/// Record 1 of table 30 belongs to no system.
RecordNr BurstRecord(std::int32_t system, std::int32_t slot) {
  return (system - 1) * kSlotsPerSystem + 1 + slot;
}

/// A raw sequence: each character of `text` as its place in `alphabet`, row 0 unused.
Variant Sequence(const std::string& text, std::string_view alphabet) {
  auto rows = std::make_shared<XArrayDBObject>();
  rows->Redim(0, static_cast<std::int32_t>(text.size()), 0, 0);
  std::int32_t row = 0;
  for (const char c : text) rows->SetValue(++row, 0, static_cast<std::int32_t>(alphabet.find(c)));
  return ArrayObject(std::move(rows));
}
Variant Tones(const std::string& text) { return Sequence(text, "0123456789ABCDEF-GV"); }
Variant Format(const std::string& text) { return Sequence(text, "RCS-B"); }

void AddNetworks(Provider& content, const std::vector<Network>& networks) {
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
    content.Set("67.DTMFPatchNetworkID", record, record);
    content.Set("67.DTMFPatchToneSetupPointer", record, record - 1);
    content.Set("72.DTMFPatchTonesNetworkID", record, record);
    content.Set("75.SIBTNetworkID", record, record);
    for (std::int32_t kind = 0; kind < 4; ++kind) {
      content.Set("68.DTMFPatchSeqNetworkID", 4 * (record - 1) + kind + 1, record);
      content.Set("68.DTMFPatchSeqSequenceType", 4 * (record - 1) + kind + 1, kind);
    }
  }
}

void AddBursts(Provider& content, std::int32_t system, std::int32_t type,
               const std::vector<std::string>& bursts) {
  for (std::int32_t i = 0; i < kSlots[type].count; ++i) {
    const std::int32_t slot = kSlots[type].first + i;
    const RecordNr record = BurstRecord(system, slot);
    const auto index = static_cast<std::size_t>(i);
    content.Set("30.FixedFormatSigSystemID", record, system);
    content.Set("30.FixedFormatBurstType", record, type);
    content.Set("30.FixedFormatBurstID", record, slot);
    content.Set("30.FixedFormatBurstSeq", record, Tones(index < bursts.size() ? bursts[index] : ""));
  }
}

void AddSystems(Provider& content, const std::vector<SelcallSystem>& systems) {
  const auto count = static_cast<std::int32_t>(systems.size());
  for (const std::int32_t table : {29, 31, 48}) content.SetCount(table, count);
  content.SetCount(30, 1 + kSlotsPerSystem * count);
  content.Set("30.FixedFormatBurstSeq", 1, Tones(""));
  for (std::int32_t number = 1; number <= count; ++number) {
    const SelcallSystem& system = systems[static_cast<std::size_t>(number - 1)];
    content.Set("29.SelcallID", number, number);
    content.Set("29.TxFormat", number, Format(system.txFormat));
    content.Set("29.RxFormat", number, Format(system.rxFormat));
    content.Set("29.RxSeqOne", number, Tones(system.receive));
    content.Set("29.RxSeqTwo", number, Tones(""));
    content.Set("29.RMRBurst", number, Tones(""));
    content.Set("31.SelcallToneSignalSystemId", number, number);
    content.Set("31.ToneSetPointer", number, number - 1);
    const std::array<std::vector<std::string>, 6> bursts = {system.repeaters, system.callerIds,
                                                            system.txCalls, system.statuses};
    for (std::int32_t type = 0; type < 6; ++type) {
      AddBursts(content, number, type, bursts[static_cast<std::size_t>(type)]);
    }
  }
}

/// The raw pointer to a burst of the channel's system, an index from 0; 0 for none.
std::int32_t BurstPointer(std::int32_t system, std::int32_t type, std::int32_t position) {
  return position == 0 ? 0 : BurstRecord(system, kSlots[type].first + position - 1) - 1;
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
    content.Set("5.RepeaterBurst", record, BurstPointer(network.system, kRepeater, channel.repeater));
    content.Set("5.CallerIDBurst", record, BurstPointer(network.system, kCallerId, channel.callerId));
    content.Set("5.TXCallBurst", record, BurstPointer(network.system, kTxCall, channel.txCall));
    content.Set("5.StatusBurst", record, BurstPointer(network.system, kStatus, channel.status));
  }
}

/// Tones are given as a form shows them: the conversion for the radio gives them their place in the shared
/// tables 50 and 61.
void SetTones(Provider& content, const std::vector<Channel>& channels) {
  RecordNr record = 0;
  for (const Channel& channel : channels) {
    ++record;
    content.Set("RxSignalling_k6k", record, channel.rxTone);
    content.Set("TxSignalling_k6k", record, channel.txTone);
  }
}

/// The audience of the rules: nobody. What the generator writes is judged by `kd4410 check`.
class SilentMessenger final : public RecordingMessenger {};

void Save(const std::string& path, const Personality& personality, std::shared_ptr<Provider> content,
          Workplace& workplace) {
  content->Set("34.Band", 1, personality.band);
  AddNetworks(*content, personality.networks);
  AddSystems(*content, personality.systems);
  AddChannels(*content, personality);
  OpenedFile opened(workplace, AtomicFile(path), std::move(content), std::make_shared<SilentMessenger>());
  opened.GetSession().ConvertToForms();
  SetTones(opened.Content(), personality.channels);
  opened.Save();
}

Personality Minimal() {
  return {.band = kBandH5,
          .networks = {{.signallingType = 0}},
          .systems = {},
          .channels = {{.number = 1, .rxHertz = 440.5e6, .txHertz = 440.5e6}}};
}

/// A harbour office: calling and working channels, the public duplex channels, two private ones.
Personality MarineHarbour() {
  const auto simplex = [](std::int32_t number, double megahertz) {
    return Channel{.number = number, .rxHertz = megahertz * 1e6, .txHertz = megahertz * 1e6};
  };
  const auto duplex = [](std::int32_t number, double shipMegahertz) {
    return Channel{.number = number, .rxHertz = (shipMegahertz + 4.6) * 1e6, .txHertz = shipMegahertz * 1e6};
  };
  Personality harbour{.band = kBandB1,
                      .networks = {{.signallingType = 0}, {.signallingType = 1, .system = 1}},
                      .systems = {{.txFormat = "RRRRR-CCCCC",
                                   .rxFormat = "RRRRR",
                                   .receive = "41700",
                                   .repeaters = {},
                                   .callerIds = {"41700"},
                                   .txCalls = {"41701", "41702", "41703", "41710"},
                                   .statuses = {}}},
                      .channels = {}};
  harbour.channels = {simplex(16, 156.8), simplex(6, 156.3),   simplex(8, 156.4),    simplex(9, 156.45),
                      simplex(10, 156.5), simplex(11, 156.55), simplex(12, 156.6),   simplex(13, 156.65),
                      simplex(14, 156.7), simplex(17, 156.85), simplex(72, 156.625), duplex(20, 157.0),
                      duplex(22, 157.1),  duplex(24, 157.2),   duplex(26, 157.3),    duplex(27, 157.35)};
  Channel office = duplex(101, 158.525);
  office.rxTone = office.txTone = "C103.5";
  Channel pilots = simplex(102, 159.025);
  pilots.network = 2;
  pilots.power = 2;
  pilots.callerId = 1;
  pilots.txCall = 1;
  harbour.channels.push_back(office);
  harbour.channels.push_back(pilots);
  // Exact hertz: a sum of decimals in MHz has a residue.
  for (Channel& channel : harbour.channels) {
    channel.rxHertz = std::round(channel.rxHertz);
    channel.txHertz = std::round(channel.txHertz);
  }
  return harbour;
}

/// A city's vehicles: repeaters with a talk-through pair each, dispatch by Selcall, works without it.
Personality CityFleet() {
  constexpr const char* kCodes[] = {"D023", "D114", "D205", "D331", "D464"};
  Personality city{.band = kBandH5,
                   .networks = {{.signallingType = 0},
                                {.signallingType = 1, .system = 1},
                                {.signallingType = 1, .system = 2}},
                   .systems = {},
                   .channels = {}};
  city.systems.push_back({.txFormat = "RRRRR-CCCCC",
                          .rxFormat = "RRRRR",
                          .receive = "21001",
                          .repeaters = {},
                          .callerIds = {"21001", "21002"},
                          .txCalls = {},
                          .statuses = {}});
  for (int vehicle = 11; vehicle <= 40; ++vehicle) {
    city.systems[0].txCalls.push_back("210" + std::to_string(vehicle));
  }
  city.systems.push_back({.txFormat = "RRRRR-CCCCC-SS",
                          .rxFormat = "RRRRR",
                          .receive = "35000",
                          .repeaters = {},
                          .callerIds = {"35000"},
                          .txCalls = {"35101", "35102", "35103", "35104"},
                          .statuses = {"01", "02", "15"}});
  for (std::int32_t i = 0; i < 20; ++i) {
    Channel channel{.number = i + 1, .rxHertz = 460.0125e6 + i * 25e3, .txHertz = 450.0125e6 + i * 25e3};
    channel.rxTone = channel.txTone = kCodes[i % 5];
    channel.network = i < 12 ? 2 : i < 16 ? 3 : 1;
    if (channel.network != 1) {
      channel.callerId = 1;
      channel.txCall = channel.network == 2 ? i + 1 : i - 11;
      channel.status = channel.network == 3 ? 1 : 0;
    }
    channel.power = i % 2 == 0 ? 4 : 3;
    city.channels.push_back(channel);
  }
  return city;
}

std::string Digits(std::int32_t value, std::size_t count) {
  const std::string text = std::to_string(value);
  return std::string(count - text.size(), '0') + text;
}

/// Channels and scan groups share a limit of 100 records.
constexpr std::int32_t kFullChannels = 90;
constexpr std::int32_t kFullGroups = 10;

/// Every channel, network, system and burst that the version has room for.
Personality Full() {
  constexpr const char* kTones[] = {"C67.0", "D023", "C103.5", "D754", "C254.1", "D331"};
  Personality full{.band = kBandH5, .networks = {}, .systems = {}, .channels = {}};
  for (std::int32_t i = 0; i < 16; ++i) full.networks.push_back({.signallingType = 1, .system = i % 4 + 1});
  for (std::int32_t n = 1; n <= 4; ++n) {
    SelcallSystem system{.txFormat = "BBBBB-RRRRR-CCCCC-SS",
                         .rxFormat = "RRRRR-CCCCC-SS",
                         .receive = std::to_string(n) + "0000",
                         .repeaters = {},
                         .callerIds = {std::to_string(n) + "0000", std::to_string(n) + "0001"},
                         .txCalls = {},
                         .statuses = {}};
    for (std::int32_t i = 1; i <= 5; ++i) system.repeaters.push_back(std::to_string(n) + "9" + Digits(i, 3));
    for (std::int32_t i = 1; i <= 100; ++i) system.txCalls.push_back(std::to_string(n) + "1" + Digits(i, 3));
    for (std::int32_t i = 1; i <= 24; ++i) system.statuses.push_back(Digits(i, 2));
    full.systems.push_back(system);
  }
  for (std::int32_t i = 0; i < kFullChannels; ++i) {
    full.channels.push_back({.number = i + 1,
                             .rxHertz = 430.0125e6 + i * 25e3,
                             .txHertz = 420.0125e6 + i * 25e3,
                             .rxTone = kTones[i % 6],
                             .txTone = kTones[(i + 1) % 6],
                             .network = i % 16 + 1,
                             .power = i % 4 + 1,
                             .txCall = i + 1,
                             .callerId = i % 2 + 1,
                             .repeater = i % 5 + 1,
                             .status = i % 24 + 1});
  }
  return full;
}

/// Identities and owners that have to be there in tables which are full of new records.
void FillTables(Provider& content) {
  for (const SchemaTable& table : content.GetSchema().Tables()) {
    if (table.IsRaw()) content.SetCount(table.number, table.maximum);
  }
  content.SetCount(16, kFullGroups);
  content.SetCount(18, kFullGroups * kFullChannels);
  content.SetCount(76, kFullChannels);
  const auto number = [&](std::string_view field, auto value) {
    for (RecordNr record = 1; record <= content.Count(content.FieldOf(field).table); ++record) {
      content.Set(field, record, static_cast<std::int32_t>(value(record)));
    }
  };
  number("16.GroupIdentity", [](RecordNr r) { return 100 + r; });
  number("16.FirstGroupMember", [](RecordNr r) { return kFullChannels * (r - 1); });
  number("18.GroupIDNumber", [](RecordNr r) { return 101 + (r - 1) / kFullChannels; });
  number("18.GroupRecordNumber", [](RecordNr r) { return (r - 1) / kFullChannels; });
  number("18.GroupChannelRecordNum", [](RecordNr r) { return (r - 1) % kFullChannels; });
  number("32.SignalSystemId", [](RecordNr r) { return (r - 1) / 16 + 1; });
  number("32.Value", [](RecordNr r) { return (r - 1) % 16; });
  number("37.T99NetworkID", [](RecordNr r) { return r; });
  number("49.FreeFormSigSysID", [](RecordNr r) { return (r - 1) / 7 + 1; });
  number("49.FreeFormSeqID", [](RecordNr r) { return (r - 1) % 7; });
  number("51.CallAlertID", [](RecordNr r) { return r - 1; });
  number("64.DTMFNetworkSigSystemID", [](RecordNr r) { return r; });
  number("76.DSDBM_PRESET_CALL_CHANNEL_REF", [](RecordNr r) { return r; });
  number("80.MDC1200SignallingSystemID", [](RecordNr r) { return r; });
}

void WriteAll(const std::string& folder, Workplace& workplace) {
  const SchemaFiles& schemas = workplace.Schemas();
  Save(folder + "/minimal.json", Minimal(), NewPersonality(schemas, kVersion), workplace);
  Save(folder + "/marine-harbour.json", MarineHarbour(), NewPersonality(schemas, kVersion), workplace);
  Save(folder + "/city-fleet.json", CityFleet(), NewPersonality(schemas, kVersion), workplace);
  const std::shared_ptr<Provider> full = NewPersonality(schemas, kVersion);
  FillTables(*full);
  Save(folder + "/full.json", Full(), full, workplace);
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Writes the sample personalities", "kd4410-make-samples");
  Workplace workplace(std::cout);
  std::string folder;
  app.add_option("FOLDER", folder, "Where the samples go")->required()->check(CLI::ExistingDirectory);
  app.add_option("--tier", workplace.options.tier, "The library of the tier");
  app.add_option("--data", workplace.options.data, "The folder of the data files and the schema");
  CLI11_PARSE(app, argc, argv);
  try {
    WriteAll(folder, workplace);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "kd4410-make-samples: " << error.what() << '\n';
    return 2;
  }
}
