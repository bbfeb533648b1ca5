// Writes the sample personalities: kd4410-make-samples FOLDER. They come out the same on every run.

#include <CLI/CLI.hpp>
#include <cmath>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "workbench/Provider.h"
#include "workbench/SampleContent.h"
#include "workbench/Schema.h"
#include "workbench/Workplace.h"

namespace {

using Samples::Channel;
using Samples::DTMFSystem;
using Samples::Network;
using Samples::Personality;
using Samples::SelcallSystem;

constexpr std::string_view kVersion = "KD4410.0094";
constexpr std::int32_t kBandB1 = 1;
constexpr std::int32_t kBandH5 = 5;

/// The audience of the rules: nobody. What the generator writes is judged by `kd4410 check`.
class SilentMessenger final : public RecordingMessenger {};

/// The tones are given as a form shows them: what is stored of them comes from the conversion.
bool IsOfTones(const SchemaField& field) {
  return field.table == 50 || field.table == 61 || field.id.find("Subaudible") != std::string::npos;
}

/// Throws for a value that was described and that a save would lose: every sample would be without it, and so
/// would every test that begins with one.
void RequireAll(const Provider& described, const Provider& saved) {
  for (const SchemaField& field : described.GetSchema().Fields()) {
    for (RecordNr record = 1; field.IsRaw() && record <= described.Count(field.table); ++record) {
      const Variant& value = described.Get(field, record);
      if (IsOfTones(field) || SameCell(value, field.standard)) continue;
      if (record <= saved.Count(field.table) && SameCell(value, saved.Get(field, record))) continue;
      throw std::runtime_error("a save loses " + field.id + " of record " + std::to_string(record));
    }
  }
}

void Save(const std::string& path, const Personality& personality, std::shared_ptr<Provider> content,
          Workplace& workplace) {
  Samples::FillStored(*content, personality);
  const std::shared_ptr<Provider> described = content->Copy();
  OpenedFile opened(workplace, AtomicFile(path), std::move(content), std::make_shared<SilentMessenger>());
  opened.GetSession().ConvertToForms();
  Samples::FillForms(opened.Content(), personality);
  RequireAll(*described, *opened.GetSession().ConvertedToRaw());
  opened.Save();
}

Personality Minimal() {
  return {.band = kBandH5,
          .networks = {{.signallingType = 0}},
          .systems = {},
          .channels = {{.number = 1, .rxHertz = 440.5e6, .txHertz = 440.5e6}}};
}

/// A harbour office: calling and working channels, the public duplex channels, private ones, and a network
/// for emergencies with a channel of its own.
Personality MarineHarbour() {
  const auto simplex = [](std::int32_t number, double megahertz) {
    return Channel{.number = number, .rxHertz = megahertz * 1e6, .txHertz = megahertz * 1e6};
  };
  const auto duplex = [](std::int32_t number, double shipMegahertz) {
    return Channel{.number = number, .rxHertz = (shipMegahertz + 4.6) * 1e6, .txHertz = shipMegahertz * 1e6};
  };
  Personality harbour{
      .band = kBandB1,
      .networks = {{.signallingType = 0},
                   {.signallingType = 1, .system = 1},
                   {.signallingType = 1, .system = 1, .emergency = true, .emergencyChannel = 103}},
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
  Channel rescue = simplex(103, 159.05);
  rescue.network = 3;
  rescue.callerId = 1;
  rescue.txCall = 4;
  harbour.channels.insert(harbour.channels.end(), {office, pilots, rescue});
  // Exact hertz: a sum of decimals in MHz has a residue.
  for (Channel& channel : harbour.channels) {
    channel.rxHertz = std::round(channel.rxHertz);
    channel.txHertz = std::round(channel.txHertz);
  }
  return harbour;
}

/// A city's vehicles: repeaters with a talk-through pair each, dispatch by Selcall, works without it, the
/// gates of the depots by DTMF. They report where they are.
Personality CityFleet() {
  constexpr const char* kCodes[] = {"D023", "D114", "D205", "D331", "D464"};
  Personality city{.band = kBandH5,
                   .networks = {{.signallingType = 0},
                                {.signallingType = 1,
                                 .system = 1,
                                 .emergency = true,
                                 .positions = {.onPTT = 2, .onEPTT1 = 1, .suppressionSeconds = 30}},
                                {.signallingType = 1, .system = 2, .positions = {.onEPTT1 = 1, .onEPTT2 = 1}},
                                {.signallingType = 2, .system = 1}},
                   .systems = {},
                   .channels = {},
                   .gps = true};
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
  city.dtmfSystems.push_back(
      {.presets = {"*12#", "*13#", "*99A"}, .sequences = {"101", "102", "", "", "7*7", "112"}});
  for (std::int32_t i = 0; i < 3; ++i) {
    const double hertz = 461.0125e6 + i * 25e3;
    city.channels.push_back(
        {.number = 31 + i, .rxHertz = hertz, .txHertz = hertz, .network = 4, .preset = i + 1});
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

/// Three networks of four are Selcall, which has the most that depends on it; the fourth is DTMF or MDC1200
/// by turn.
Network FullNetwork(std::int32_t index) {
  constexpr std::int32_t kOtherTypes[] = {2, 4, 2, 4};
  const bool isSelcall = index % 4 != 3;
  return {.signallingType = isSelcall ? 1 : kOtherTypes[index / 4],
          .system = index / 4 + 1,
          .emergency = true,
          .positions = {.onPTT = index % 3, .onEPTT1 = 1, .onEPTT2 = 2, .suppressionSeconds = 10 + index}};
}

DTMFSystem FullDTMFSystem(std::int32_t number) {
  const std::string prefix = "*" + std::to_string(number);
  DTMFSystem system{.presets = {},
                    .sequences = {prefix + "1", prefix + "2", prefix + "3", prefix + "4", "A7" + prefix + "#",
                                  prefix + "112#"}};
  for (std::int32_t i = 1; i <= Samples::kPresetsPerSystem; ++i)
    system.presets.push_back(prefix + Digits(i, 3) + "#");
  return system;
}

/// Every channel, network, system and burst that the version has room for.
Personality Full() {
  constexpr const char* kTones[] = {"C67.0", "D023", "C103.5", "D754", "C254.1", "D331"};
  Personality full{.band = kBandH5, .networks = {}, .systems = {}, .channels = {}, .gps = true};
  for (std::int32_t i = 0; i < 16; ++i) full.networks.push_back(FullNetwork(i));
  for (std::int32_t n = 1; n <= 4; ++n) {
    full.dtmfSystems.push_back(FullDTMFSystem(n));
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
    Channel channel{.number = i + 1,
                    .rxHertz = 430.0125e6 + i * 25e3,
                    .txHertz = 420.0125e6 + i * 25e3,
                    .rxTone = kTones[i % 6],
                    .txTone = kTones[(i + 1) % 6],
                    .network = i % 16 + 1,
                    .power = i % 4 + 1};
    const std::int32_t type = full.networks[static_cast<std::size_t>(i % 16)].signallingType;
    if (type == 1) {
      channel.txCall = i + 1;
      channel.callerId = i % 2 + 1;
      channel.repeater = i % 5 + 1;
      channel.status = i % 24 + 1;
    } else if (type == 2) {
      channel.preset = i % Samples::kPresetsPerSystem + 1;
    }
    full.channels.push_back(channel);
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
  number("51.CallAlertType", [](RecordNr r) { return r % 3; });
  number("51.CallAlertInternalDuration", [](RecordNr r) { return r; });
  number("76.DSDBM_PRESET_CALL_CHANNEL_REF", [](RecordNr r) { return r; });
  number("80.MDC1200SignallingSystemID", [](RecordNr r) { return r; });
  number("80.MDC1200RadioID", [](RecordNr r) { return 4096 + r; });
  number("81.MDC1200NetworkPresetSeqSigSystemID", [](RecordNr r) { return (r - 1) / 2 + 1; });
  number("81.MDC1200NetworkPresetSeqSeqType", [](RecordNr r) { return r % 2 == 1 ? 4 : 6; });
  number("81.MDC1200NetworkPresetSeqSequence", [](RecordNr r) { return 1024 + r; });
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
