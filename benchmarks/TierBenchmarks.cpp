// What the tier costs on the largest personality, each figure beside the floor of its own run: the counters
// are host calls a run (exact), the floor in microseconds and the ratio to it.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <stdexcept>

#include "benchmarks/Floor.h"
#include "host/Imessenger.h"
#include "validation/modvalEnablement.h"
#include "workbench/AtomicFile.h"
#include "workbench/PersonalityFile.h"
#include "workbench/Provider.h"
#include "workbench/Schema.h"
#include "workbench/Session.h"

extern char** environ;

namespace {
constexpr const char* kFull = SAMPLES_FOLDER "/full.json";

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

/// The largest personality, as it comes from its file.
const Provider& FullPersonality() {
  static const auto provider = [] {
    const auto schemas = SchemaFiles::Read(SCHEMA_FOLDER);
    return PersonalityFile::Parse(kFull, AtomicFile(kFull).Read(), *schemas);
  }();
  return *provider;
}

HostParts Parts() {
  return {
      .schemas = SchemaFiles::Read(SCHEMA_FOLDER), .tierLibrary = TIER_LIBRARY, .dataFolder = DATA_FOLDER};
}

const std::shared_ptr<Provider>& OpenStore() {
  static const std::shared_ptr<Provider> store = FullPersonality().Copy();
  return store;
}

/// One open personality for all figures that leave it as it was.
Session& OpenSession() {
  static Session session(Parts(), OpenStore(), std::make_shared<ConsentingMessenger>());
  static const bool opened = (session.ConvertToForms(), true);
  benchmark::DoNotOptimize(opened);
  return session;
}

HostCalls CallsSince(const CallMonitor& monitor) {
  return {monitor.Count(CallGroup::Lookup), monitor.Count(CallGroup::Read), monitor.Count(CallGroup::Write),
          monitor.Count(CallGroup::Other)};
}

/// Runs `work` in the benchmark's loop, each run counting for `parts` of what is measured.
template <typename Work>
void Measure(benchmark::State& state, Provider& provider, Work work, std::int64_t parts = 1) {
  work();  // warm
  provider.Monitor().Clear();
  work();
  HostCalls calls = CallsSince(provider.Monitor());
  for (auto* count : {&calls.lookups, &calls.reads, &calls.writes, &calls.others}) *count /= parts;
  const double start = CpuMicroseconds();
  for (auto _ : state) work();
  const double microseconds = (CpuMicroseconds() - start) / static_cast<double>(state.iterations() * parts);
  const double floor = FloorMicroseconds(calls);
  state.counters["cpu_us"] = microseconds;
  state.counters["host_calls"] = static_cast<double>(calls.All());
  state.counters["floor_us"] = floor;
  state.counters["ratio"] = microseconds / floor;
}

void Require(Session& session, const Status& status) { session.Host().Require(status); }

/// The command line's check of the file as a process of its own; memory is its largest resident set.
/// It runs first: a child's figure is never below that of the process which spawned it.
void CheckProcess(benchmark::State& state) {
  const char* arguments[] = {WORKBENCH, "check", kFull, nullptr};
  posix_spawn_file_actions_t silent;
  posix_spawn_file_actions_init(&silent);
  posix_spawn_file_actions_addopen(&silent, 1, "/dev/null", O_WRONLY, 0);
  rusage usage{};
  for (auto _ : state) {
    pid_t child = 0;
    int result = 0;
    if (posix_spawn(&child, WORKBENCH, &silent, nullptr, const_cast<char**>(arguments), environ) != 0 ||
        wait4(child, &result, 0, &usage) != child || !WIFEXITED(result) || WEXITSTATUS(result) > 1) {
      state.SkipWithError("the check did not run");
      break;
    }
  }
  posix_spawn_file_actions_destroy(&silent);
  state.counters["MiB"] = static_cast<double>(usage.ru_maxrss) / 1024;
}
BENCHMARK(CheckProcess)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The rule of one field on a channel in the middle, with a value that changes nothing.
void FieldRule(benchmark::State& state, const char* uiid) {
  Session& session = OpenSession();
  constexpr RecordNr kChannel = 50;
  const Variant value = session.Content().Get(uiid, kChannel);
  Measure(state, session.Content(), [&] {
    Variant edited = value;
    Boolean accepted = kFalse;
    Require(session, session.Host().Validator().ValidateByUIID(uiid, edited, kChannel, accepted));
    benchmark::DoNotOptimize(accepted);
  });
}
BENCHMARK_CAPTURE(FieldRule, TxPower, "TxPower_k6k");
BENCHMARK_CAPTURE(FieldRule, RxFrequency, "RxFreq_k6k");
BENCHMARK_CAPTURE(FieldRule, WithoutRule, "NoiseBlanker_k6k");

/// Every field of the tables that is converted record by record, from the form and back to it: all records in
/// one run, behind one clearing of the tone tables, as a save does it. Figures are for one record of the
/// first table, with those that belong to it.
void RecordBothWays(benchmark::State& state, std::vector<std::int32_t> tables) {
  Session& session = OpenSession();
  const auto provider = session.Content().Copy();
  session.Host().UseStore(provider);
  std::vector<std::string> fieldIds;
  for (const SchemaField* field : provider->GetSchema().FieldsInWritingOrder()) {
    const bool isOfThem = std::ranges::find(tables, field->table) != tables.end();
    const bool isConverted = field->transform != 0 && field->scope == FieldScope::Record;
    if (isOfThem && isConverted) fieldIds.push_back(field->id);
  }
  const RecordNr records = provider->Count(tables.front());
  IproviderOwner& owner = session.Host().Owner();
  Boolean converted = kFalse;
  Measure(
      state, *provider,
      [&] {
        Require(session, owner.TransformFromUI(provider, "50.CTCSSfreq", 1, converted));
        for (RecordNr record = 1; record <= records; ++record) {
          for (const auto& fieldId : fieldIds) {
            Require(session, owner.TransformFromUI(provider, fieldId, record, converted));
            Require(session, owner.TransformToUI(provider, fieldId, record, converted));
          }
        }
      },
      records);
  session.Host().UseStore(OpenStore());
}
BENCHMARK_CAPTURE(RecordBothWays, Channel, {5})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(RecordBothWays, Network, {21, 36, 53, 67, 72, 75, 77, 78})->Unit(benchmark::kMillisecond);

/// A network loses its signalling, and its channels their presets; put back by hand, uncounted.
void TakeSignalling(Session& session) {
  Provider& content = session.Content();
  content.Set("SignallingType", 1, 1);
  content.Set("5.TXCallBurstSeq", 1, "12345");
  Variant none(0);
  Boolean accepted = kFalse;
  Require(session, session.Host().Validator().ValidateByUIID("SignallingType", none, 1, accepted));
  if (accepted == kFalse) throw std::runtime_error("the network keeps its signalling");
}

void SignallingType(benchmark::State& state) {
  const auto provider = FullPersonality().Copy();
  Session session(Parts(), provider, std::make_shared<ConsentingMessenger>());
  session.ConvertToForms();
  Measure(state, *provider, [&] { TakeSignalling(session); });
}
BENCHMARK(SignallingType);

/// Post-read processing and every conversion to the forms; without the file.
void Opening(benchmark::State& state) {
  const auto provider = FullPersonality().Copy();
  Session session(Parts(), provider, std::make_shared<ConsentingMessenger>());
  Measure(state, *provider, [&] { session.ConvertToForms(); });
}
BENCHMARK(Opening)->Unit(benchmark::kMillisecond);

/// Every conversion from the forms in the order of writing, as a save runs it on its copy; without the file.
void Saving(benchmark::State& state) {
  Session& session = OpenSession();
  const auto provider = session.Content().Copy();
  session.Host().UseStore(provider);
  Boolean converted = kFalse;
  Measure(state, *provider, [&] {
    for (const SchemaField* field : provider->GetSchema().FieldsInWritingOrder()) {
      if (field->transform == 0) continue;
      const bool isWholeTable = field->scope == FieldScope::Table;
      const RecordNr last = isWholeTable ? 1 : provider->Count(field->table);
      for (RecordNr record = 1; record <= last; ++record) {
        Require(session, session.Host().Owner().TransformFromUI(provider, field->id, record, converted));
      }
    }
  });
  session.Host().UseStore(OpenStore());
}
BENCHMARK(Saving)->Unit(benchmark::kMillisecond);

void FinalValidation(benchmark::State& state) {
  Session& session = OpenSession();
  Measure(state, session.Content(), [&] {
    Boolean passed = kFalse;
    Require(session, session.Host().Validator().RunFinalValidation(passed));
  });
}
BENCHMARK(FinalValidation);

/// The state of every control that has a rule, once.
void EnabledStates(benchmark::State& state) {
  Session& session = OpenSession();
  const auto rows = modvalEnablement::Rows();
  Measure(state, session.Content(), [&] {
    for (const auto& row : rows) {
      Boolean enabled = kFalse;
      Require(session, session.Host().Validator().GetEnabledStatebyUIID(row.uiid, 1, enabled));
    }
  });
  state.counters["controls"] = static_cast<double>(rows.size());
}
BENCHMARK(EnabledStates);

/// Finding the row of a control in the ladder, without asking it.
void LadderLookup(benchmark::State& state) {
  const auto rows = modvalEnablement::Rows();
  const double start = CpuMicroseconds();
  for (auto _ : state) {
    for (const auto& row : rows) benchmark::DoNotOptimize(modvalEnablement::FindCondition(row.uiid));
  }
  state.counters["cpu_ns"] = (CpuMicroseconds() - start) * 1000 / static_cast<double>(state.iterations()) /
                             static_cast<double>(rows.size());
}
BENCHMARK(LadderLookup);

/// The list of one control, on a channel in the middle.
void ComboItems(benchmark::State& state, const char* uiid) {
  Session& session = OpenSession();
  Measure(state, session.Content(), [&] {
    std::shared_ptr<XArrayDBObject> items;
    Boolean filled = kFalse;
    Require(session, session.Host().Owner().GetComboItemsByUIID(OpenStore(), uiid, 50, items, filled));
    benchmark::DoNotOptimize(items);
  });
}
BENCHMARK_CAPTURE(ComboItems, FreeIdentities, "ChannelID_k6k");
BENCHMARK_CAPTURE(ComboItems, UsedChannels, "EmChannel");
BENCHMARK_CAPTURE(ComboItems, Subaudible, "RxSignalling_k6k");

/// The schema with room for many more records than a radio has.
std::shared_ptr<const SchemaFiles> RoomySchemas() {
  const auto folder = std::filesystem::temp_directory_path() / ("kd4410-bench-" + std::to_string(getpid()));
  std::filesystem::create_directories(folder);
  std::filesystem::copy_file(SCHEMA_FOLDER "/fields.tsv", folder / "fields.tsv");
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

/// As many channels as the benchmark's argument, each a member of one group.
std::shared_ptr<Provider> ManyChannels(RecordNr count) {
  static const auto schemas = RoomySchemas();
  auto provider = NewPersonality(*schemas, "KD4410.0094");
  for (const std::int32_t table : {5, 7, 18}) provider->SetCount(table, count);
  provider->SetCount(16, 1);
  provider->Set("16.GroupIDTracker", 1, 1);
  provider->Set("NetworkID", 1, 1);
  for (RecordNr record = 1; record <= count; ++record) {
    provider->Set("5.ChannelIDTracker", record, record + 1);
    provider->Set("5.ChannelNetworkIdUI", record, 1);
    provider->Set("TxFreq_k6k", record, "430.000000");
    provider->Set("18.GroupIDNumber", record, 1);
  }
  return provider;
}

/// What walks the records, on 100 to 3,200 of them: `of_half` is the time beside that of half as many.
template <typename Work>
void MeasureGrowth(benchmark::State& state, Work work) {
  static std::map<std::int64_t, double> times;
  const auto count = static_cast<RecordNr>(state.range(0));
  const auto provider = ManyChannels(count);
  Session session(Parts(), provider, std::make_shared<ConsentingMessenger>());
  Measure(state, *provider, [&] { work(session); });
  times[count] = state.counters["cpu_us"];
  if (times.contains(count / 2)) state.counters["of_half"] = times[count] / times[count / 2];
}

void Doubling(benchmark::internal::Benchmark* growth) {
  for (std::int64_t count = 100; count <= 3200; count *= 2) growth->Arg(count);
}

void FinalValidationGrowth(benchmark::State& state) {
  MeasureGrowth(state, [](Session& session) {
    Boolean passed = kFalse;
    Require(session, session.Host().Validator().RunFinalValidation(passed));
  });
}
BENCHMARK(FinalValidationGrowth)->Apply(Doubling);

void GlobalEncryptionGrowth(benchmark::State& state) {
  MeasureGrowth(state, [](Session& session) {
    Variant value(1);
    Boolean accepted = kFalse;
    Require(session, session.Host().Validator().ValidateByUIID("GlobalEncryption", value, 1, accepted));
  });
}
BENCHMARK(GlobalEncryptionGrowth)->Apply(Doubling);

void UsedChannelsGrowth(benchmark::State& state) {
  MeasureGrowth(state, [](Session& session) {
    std::shared_ptr<XArrayDBObject> items;
    Boolean filled = kFalse;
    const std::shared_ptr<Provider> store(std::shared_ptr<void>(), &session.Content());
    Require(session, session.Host().Owner().GetComboItemsByUIID(store, "EmChannel", 1, items, filled));
  });
}
BENCHMARK(UsedChannelsGrowth)->Apply(Doubling);

void SignallingTypeGrowth(benchmark::State& state) { MeasureGrowth(state, TakeSignalling); }
BENCHMARK(SignallingTypeGrowth)->Apply(Doubling);
}  // namespace
