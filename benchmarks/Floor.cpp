#include "benchmarks/Floor.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <memory>
#include <string>
#include <unordered_map>

#include "host/Iprovider.h"
#include "platform/CaseText.h"

namespace {
constexpr RecordNr kRecords = 100;

Status Unused() { return {ErrorNumber::kNotSupported, "BareProvider", "not part of the floor"}; }

class BareField final : public Ifield {
 public:
  Status TransformId(std::int32_t&) override { return Unused(); }
  Status Default(Variant&) override { return Unused(); }
  Status Name(std::string&) override { return Unused(); }
  Status TableNumber(std::int32_t&) override { return Unused(); }
  Status Maximum(std::int32_t&) override { return Unused(); }
  Status Minimum(std::int32_t&) override { return Unused(); }
  Status ListCount(std::int32_t&) override { return Unused(); }
  Status Scale(Currency&) override { return Unused(); }
  Status RecordCount(RecordNr& out) override {
    out = kRecords;
    return {};
  }
  Status Value(RecordNr record, Variant& out) override {
    out = values_[static_cast<std::size_t>(record - 1)];
    return {};
  }
  Status SetValue(RecordNr record, const Variant& value) override {
    values_[static_cast<std::size_t>(record - 1)] = value;
    return {};
  }
  Status Values(std::vector<Variant>&) override { return Unused(); }
  Status Units(std::string&) override { return Unused(); }
  Status FreeValues(std::shared_ptr<IvalueList>&) override { return Unused(); }
  Status UsedValues(std::shared_ptr<IvalueList>&) override { return Unused(); }
  Status Validation(std::string&) override { return Unused(); }

 private:
  std::vector<Variant> values_ = std::vector<Variant>(kRecords, Variant(7));
};

class BareProvider final : public Iprovider {
 public:
  explicit BareProvider(const std::vector<std::string>& names) {
    for (const auto& name : names) fields_[name] = std::make_shared<BareField>();
  }
  Status DefaultValue(std::string_view, Variant&) override { return Unused(); }
  Status RefreshField(std::string_view) override { return Unused(); }
  Status RefreshValues(std::string_view) override { return Unused(); }
  Status TransformIdOf(std::string_view, std::int32_t&) override { return Unused(); }
  Status Field(std::string_view name, std::shared_ptr<Ifield>& out) override {
    out = fields_.find(name)->second;
    return {};
  }
  Status Tables(std::shared_ptr<Itables>&) override { return Unused(); }
  Status FactoryMode(Boolean&) override { return Unused(); }
  Status AutoUpdate(Boolean& out) override {
    out = autoUpdate_;
    return {};
  }
  Status SetAutoUpdate(Boolean state) override {
    autoUpdate_ = state;
    return {};
  }
  Status ClearTable(std::string_view, Boolean) override { return Unused(); }

 private:
  std::unordered_map<std::string, std::shared_ptr<BareField>, NameHash, NameEqual> fields_;
  Boolean autoUpdate_ = kTrue;
};

const std::vector<std::string>& Names() {
  static const std::vector<std::string> names = [] {
    std::vector<std::string> made;
    for (int i = 0; i < 700; ++i) made.push_back("5.FieldOfThePersonality" + std::to_string(i));
    return made;
  }();
  return names;
}

/// Through the interface alone: the compiler sees no class behind it.
void Run(Iprovider& provider, const HostCalls& calls) {
  std::shared_ptr<Ifield> field;
  Variant value;
  benchmark::DoNotOptimize(provider.Field(Names()[0], field).Ok());
  for (std::int64_t i = 0; i < calls.lookups; ++i) {
    benchmark::DoNotOptimize(provider.Field(Names()[static_cast<std::size_t>(i * 37 % 700)], field).Ok());
  }
  const auto record = [](std::int64_t i) { return static_cast<RecordNr>(i % kRecords + 1); };
  for (std::int64_t i = 0; i < calls.reads; ++i) {
    benchmark::DoNotOptimize(field->Value(record(i), value).Ok());
  }
  for (std::int64_t i = 0; i < calls.writes; ++i) {
    benchmark::DoNotOptimize(field->SetValue(record(i), value).Ok());
  }
  Boolean state = kFalse;
  for (std::int64_t i = 0; i < calls.others; ++i) benchmark::DoNotOptimize(provider.AutoUpdate(state).Ok());
}
}  // namespace

double CpuMicroseconds() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
}

double FloorMicroseconds(const HostCalls& calls) {
  const std::unique_ptr<Iprovider> provider = std::make_unique<BareProvider>(Names());
  const auto repeats = std::max<std::int64_t>(3, 200'000 / std::max<std::int64_t>(calls.All(), 1));
  Run(*provider, calls);  // warm
  const double start = CpuMicroseconds();
  for (std::int64_t i = 0; i < repeats; ++i) Run(*provider, calls);
  return (CpuMicroseconds() - start) / static_cast<double>(repeats);
}
