// Writes the sample personalities: kd4410-make-samples FOLDER. They come out the same on every run.

#include <algorithm>
#include <cmath>
#include <iostream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "workbench/cli/CommandLine.h"
#include "workbench/jobs/Conversion.h"
#include "workbench/jobs/Session.h"
#include "workbench/personality/PersonalityFile.h"
#include "workbench/samples/SampleContent.h"
#include "workbench/samples/SampleFull.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"

namespace {

using Samples::Channel;
using Samples::Personality;

constexpr std::string_view kVersion = "KD4410.0094";
/// Of which there is a sample, too.
constexpr std::string_view kOldVersions[] = {"0029", "0054", "0081", "0089"};
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

/// `content` holds what is stored of the personality.
void Save(const std::string& path, const Personality& personality, std::shared_ptr<Provider> content,
          Workplace& workplace) {
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
  // Dispatch, 21001: thirty vehicles, the depots in the north, east and south, a group of ten vehicles each,
  // all.
  city.systems.push_back({.txFormat = "RRRRR-CCCCC",
                          .rxFormat = "RRRRR",
                          .receive = "21001",
                          .repeaters = {},
                          .callerIds = {"21001", "21002"},
                          .txCalls = {},
                          .statuses = {},
                          .freeFormat = {"21001", "21100", "21200", "21300"}});
  for (int vehicle = 11; vehicle <= 40; ++vehicle) {
    city.systems[0].txCalls.push_back("210" + std::to_string(vehicle));
  }
  for (const char* group : {"21100", "21200", "21300", "2101G", "2102G", "2103G", "21GGG"}) {
    city.systems[0].txCalls.emplace_back(group);
  }
  // Works, 35000: four crews and all of them; at the depot, on the way, at work, finished, back, break, help,
  // accident, breakdown, emergency, and what the driver types.
  city.systems.push_back({.txFormat = "RRRRR-CCCCC-SS",
                          .rxFormat = "RRRRR-SS",
                          .receive = "35000",
                          .repeaters = {},
                          .callerIds = {"35000"},
                          .txCalls = {"35101", "35102", "35103", "35104", "351GG"},
                          .statuses = {"01", "02", "15", "03", "04", "05", "20", "30", "31", "99", "VV"},
                          .freeFormat = {"35000"},
                          .controlStatuses = 16});
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
  // Dispatch listens to its vehicles, works to whichever of its masts hears best.
  city.groups = {{.number = 101, .isVote = false, .channels = {1, 2, 3, 4, 31}},
                 {.number = 102, .isVote = true, .channels = {13, 14, 15}}};
  return city;
}

/// A hospital: doctors and porters are paged by two tones, and the masts of the mountain rescue open by a
/// tone in the band of the voice.
Personality HospitalPaging() {
  Personality hospital{
      .band = kBandB1,
      .networks = {{.signallingType = 3, .system = 1},
                   {.signallingType = 3, .system = 2},
                   {.signallingType = 0, .inBandHertz = 2100}},
      .systems = {},
      .twoToneSystems = {{.isCNE = false, .isCustom = false, .tones = {5105, 7468, 12858, 0}},
                         {.isCNE = true, .isCustom = true, .tones = {6005, 7250, 8100, 9405}}},
      .channels = {}};
  for (std::int32_t i = 0; i < 6; ++i) {
    const double hertz = 152.4e6 + i * 25e3;
    hospital.channels.push_back({.number = i + 1,
                                 .rxHertz = hertz,
                                 .txHertz = hertz,
                                 .rxTone = i < 4 ? "C103.5" : "None",
                                 .txTone = i < 4 ? "C103.5" : "None",
                                 .network = i / 2 + 1,
                                 .isPaged = i < 4,
                                 .hasInBandTone = i >= 4});
  }
  // A fire alarm is wired to an input and shown on an output, a relay keys the siren while a call comes in;
  // the ignition switches the radio, a modem has its lines.
  hospital.pins = {
      {.id = 24, .isOutput = false, .action = 2, .isHigh = true, .label = "IGNITION"},
      {.id = 25, .isOutput = true, .action = 1, .label = "BUSY"},
      {.id = 26, .isOutput = true, .action = 25, .isHigh = true, .label = "SIREN"},
      {.id = 29,
       .isOutput = false,
       .action = 4,
       .debounceMs = 100,
       .label = "FIRE",
       .mirrors = 30,
       .endsToo = false},
      {.id = 30, .isOutput = true, .action = 35, .isHigh = true, .label = "ALARM"},
      {.id = 31, .isOutput = false, .action = 33, .label = "RTS"},
      {.id = 32, .isOutput = true, .action = 22, .label = "CTS"},
      {.id = 33, .isOutput = false, .action = 18, .debounceMs = 20, .label = "DESK PTT"},
  };
  return hospital;
}

/// The harbour as older versions hold it: they have one scan group, no more and no less.
void WriteOld(const std::string& folder, Workplace& workplace) {
  Personality harbour = MarineHarbour();
  harbour.groups = {{.number = 201, .isVote = false, .channels = {16, 6, 8, 103}}};
  std::shared_ptr<Provider> stored = NewPersonality(workplace.Schemas(), kVersion);
  Samples::FillStored(*stored, harbour);
  // As a host of the version saves it; one tier at a time serves the library.
  const auto saved = [&](const std::shared_ptr<Provider>& content, const auto& fill) {
    Session session(workplace.Parts(), content->Copy(), std::make_shared<SilentMessenger>());
    session.ConvertToForms();
    fill(session.Content());
    return session.ConvertedToRaw();
  };
  stored = saved(stored, [&](Provider& content) { Samples::FillForms(content, harbour); });
  std::vector<std::string> way;
  for (const VersionName& version : SchemaFiles::VersionsOf("KD4410"))
    way.insert(way.begin(), version.Text());
  Converter converter(workplace.Parts(), std::make_shared<SilentMessenger>());
  for (std::size_t i = 1; i < way.size(); ++i) {
    stored = converter.Convert(stored, {way[i - 1], way[i]}).result;
    if (stored == nullptr) throw std::runtime_error("the step to " + way[i] + " refuses");
    const std::string digits = stored->GetSchema().Name().Digits();
    if (std::ranges::find(kOldVersions, digits) == std::end(kOldVersions)) continue;
    AtomicFile file(std::string(folder).append("/harbour-").append(digits).append(".json"));
    file.Write(PersonalityFile::Format(file.Name(), *saved(stored, [](Provider&) {})));
  }
}

void WriteAll(const std::string& folder, Workplace& workplace) {
  using Fill = void(Provider&, const Personality&);
  const auto write = [&](const char* name, const Personality& personality, Fill fill) {
    std::shared_ptr<Provider> content = NewPersonality(workplace.Schemas(), kVersion);
    fill(*content, personality);
    Save(folder + "/" + name + ".json", personality, std::move(content), workplace);
  };
  write("minimal", Minimal(), Samples::FillStored);
  write("marine-harbour", MarineHarbour(), Samples::FillStored);
  write("city-fleet", CityFleet(), Samples::FillStored);
  write("hospital-paging", HospitalPaging(), Samples::FillStored);
  write("full", Samples::Full(), Samples::FillFull);
  WriteOld(folder, workplace);
}

}  // namespace

int main(int argc, char** argv) {
  Workplace workplace(std::cout);
  workplace.prefix = "kd4410-make-samples: ";
  std::string folder;
  const auto declare = [&](Words& words) { words.Required("FOLDER", folder, "Where the samples go"); };
  const std::optional<ExitCode> end = ReadWords("kd4410-make-samples", "Writes the sample personalities",
                                                {argv + 1, argv + argc}, declare, workplace);
  if (end) return static_cast<int>(*end);
  try {
    WriteAll(folder, workplace);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << workplace.prefix << error.what() << '\n';
    return 2;
  }
}
