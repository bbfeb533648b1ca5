#include "benchmarks/Personalities.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <regex>

#include "host/Imessenger.h"
#include "workbench/files/AtomicFile.h"
#include "workbench/personality/PersonalityFile.h"
#include "workbench/schema/Schema.h"

namespace {
/// Says Yes and keeps nothing: what is measured is the tier.
class ConsentingMessenger final : public Imessenger {
 public:
  Status ShowMessage(std::string_view, std::int32_t, std::string_view, std::string_view,
                     std::int32_t& out) override {
    out = static_cast<std::int32_t>(Button::Yes);
    return {};
  }
  Status GetRadioInformation(std::array<std::string, 8>&) override { return {}; }
  Status RefreshField(std::string_view) override { return {}; }
  Status SetFieldEnabled(std::string_view, Boolean) override { return {}; }
};

/// The schema with room for many more records than a radio has.
std::shared_ptr<const SchemaFiles> RoomySchemas() {
  const auto folder = std::filesystem::temp_directory_path() / ("kd4410-bench-" + std::to_string(getpid()));
  std::filesystem::create_directories(folder);
  for (const char* name : {"fields.tsv", "words.tsv", "layouts.tsv", "references.tsv"}) {
    std::filesystem::copy_file(std::filesystem::path(SCHEMA_FOLDER) / name, folder / name);
  }
  std::ifstream original(SCHEMA_FOLDER "/tables.tsv");
  std::ofstream roomy(folder / "tables.tsv");
  const std::regex capacity("^((?:5|7|16|18|50|61)\\t[^\\t]*\\t[^\\t]*\\t\\d+\\t)\\d+");
  for (std::string line; std::getline(original, line);) {
    roomy << std::regex_replace(line, capacity, "$01100000") << '\n';
  }
  roomy.close();
  auto schemas = SchemaFiles::Read(folder);
  std::filesystem::remove_all(folder);
  return schemas;
}
}  // namespace

HostParts Parts() {
  static const auto schemas = SchemaFiles::Read(SCHEMA_FOLDER);
  return {.schemas = schemas, .tierLibrary = TIER_LIBRARY, .dataFolder = DATA_FOLDER};
}

const Provider& FullPersonality() {
  static const auto provider =
      PersonalityFile::Parse(kFullFile, AtomicFile(kFullFile).Read(), *Parts().schemas);
  return *provider;
}

std::unique_ptr<Session> NewSession(std::shared_ptr<Provider> provider) {
  return std::make_unique<Session>(Parts(), std::move(provider), std::make_shared<ConsentingMessenger>());
}

Session& OpenSession() {
  static const auto session = [] {
    auto opened = NewSession(FullPersonality().Copy());
    opened->ConvertToForms();
    return opened;
  }();
  return *session;
}

std::shared_ptr<Provider> ManyChannels(RecordNr count) {
  static const auto schemas = RoomySchemas();
  auto provider = NewPersonality(*schemas, "KD4410.0094");
  for (const std::int32_t table : {5, 7}) provider->SetCount(table, count);
  provider->SetCount(16, 1);
  provider->Set("16.GroupIDTracker", 1, 1);
  provider->Set("NetworkID", 1, 1);
  for (RecordNr record = 1; record <= count; ++record) {
    provider->Set("5.ChannelIDTracker", record, record + 1);
    provider->Set("5.ChannelNetworkIdUI", record, 1);
    provider->Set("TxFreq_k6k", record, "430.000000");
  }
  constexpr RecordNr kMembers = 50;  // each is looked for among all channels
  provider->SetCount(18, kMembers);
  for (RecordNr member = 1; member <= kMembers; ++member) {
    provider->Set("18.GroupIDNumber", member, 1);
    provider->Set("18.GroupChannelUI", member,
                  provider->Get("5.ChannelIDTracker", member * count / kMembers));
  }
  return provider;
}
