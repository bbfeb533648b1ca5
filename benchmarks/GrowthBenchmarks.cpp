// What walks the records, on 100 to 3,200 of them: the table tells how each figure grows.

#include <memory>
#include <stdexcept>

#include "benchmarks/Measure.h"
#include "benchmarks/Personalities.h"
#include "benchmarks/Work.h"

namespace {
void Doubling(benchmark::internal::Benchmark* growth) {
  for (std::int64_t count = 100; count <= 3200; count *= 2) growth->Arg(count);
}

RecordNr RecordsOf(benchmark::State& state) {
  state.counters["records"] = static_cast<double>(state.range(0));
  return static_cast<RecordNr>(state.range(0));
}

/// On forms that the work leaves as they were.
void MeasureGrowth(benchmark::State& state, const char* name, void (*work)(Session& session)) {
  const auto session = NewSession(ManyChannels(RecordsOf(state)));
  Measure(state, {.name = name}, &session->Content().Monitor(), {[&] { work(*session); }});
}

/// Groups that hide channels, with 25 members each, so that every second channel is one; the radio starts on
/// a channel of none.
void GiveGroups(Provider& content, RecordNr channels) {
  constexpr RecordNr kSize = 25;
  content.SetCount(16, channels / (2 * kSize));
  content.SetCount(18, content.Count(16) * kSize);
  content.Set("GroupActivityOnPowerUp_k6k", 1, 1);
  content.Set("ChannelGroupIDForRadioStartup", 1, "3");
  for (RecordNr group = 1; group <= content.Count(16); ++group) {
    content.Set("16.GroupIDTracker", group, channels + 1 + group);
    content.Set("16.HiddenChannels", group, 1);
  }
  for (RecordNr member = 1; member <= content.Count(18); ++member) {
    content.Set("18.GroupIDNumber", member, channels + 1 + (member - 1) / kSize + 1);
    content.Set("18.GroupChannelUI", member, content.Get("5.ChannelIDTracker", 2 * member - 1));
  }
}

void FinalValidationGrowth(benchmark::State& state) {
  const RecordNr channels = RecordsOf(state);
  const auto session = NewSession(ManyChannels(channels));
  GiveGroups(session->Content(), channels);
  Measure(state, {.name = "walk before a save"}, &session->Content().Monitor(),
          {[&] { WalkBeforeSave(*session); }});
}
BENCHMARK(FinalValidationGrowth)->Apply(Doubling);

void GlobalEncryptionGrowth(benchmark::State& state) {
  MeasureGrowth(state, "global encryption", [](Session& session) {
    Variant value(1);
    Boolean accepted = kFalse;
    session.Host().Require(session.Host().Validator().ValidateByUIID("GlobalEncryption", value, 1, accepted));
  });
}
BENCHMARK(GlobalEncryptionGrowth)->Apply(Doubling);

void UsedChannelsGrowth(benchmark::State& state) {
  MeasureGrowth(state, "list: channels in use",
                [](Session& session) { benchmark::DoNotOptimize(ItemsOf(session, "EmChannel", 1)); });
}
BENCHMARK(UsedChannelsGrowth)->Apply(Doubling);

void SignallingTypeGrowth(benchmark::State& state) {
  MeasureGrowth(state, "signalling type", TakeSignalling);
}
BENCHMARK(SignallingTypeGrowth)->Apply(Doubling);

/// Of a system whose channels are all asked whether they use the burst; none of them does.
void BurstGrowth(benchmark::State& state) {
  const auto session = NewSession(ManyChannels(RecordsOf(state)));
  Provider& content = session->Content();
  for (const std::int32_t table : {29, 31}) content.SetCount(table, 1);
  content.SetCount(30, 142);
  content.Set("TxFormat_k6k", 1, "RRRRR");
  content.Set("SignalSystemID_k6k", 1, 1);
  content.Set("SignallingType", 1, 1);
  content.Set("NetworkSignallingID", 1, 1);
  content.Set("UGBurstSeq", 9, "54321");
  Measure(state, {.name = "a burst, all channels"}, &content.Monitor(), {[&] {
            Variant value("12345");
            Boolean accepted = kFalse;
            session->Host().Require(
                session->Host().Validator().ValidateByUIID("BurstSequence2_k6k", value, 1, accepted));
            if (accepted == kFalse) throw std::runtime_error("the burst is refused");
          }});
}
BENCHMARK(BurstGrowth)->Apply(Doubling);

void OpeningGrowth(benchmark::State& state) {
  MeasureOpening(state, {.name = "opening"}, *ManyChannels(RecordsOf(state)));
}
BENCHMARK(OpeningGrowth)->Apply(Doubling)->Unit(benchmark::kMillisecond);

void SavingGrowth(benchmark::State& state) {
  const auto session = NewSession(ManyChannels(RecordsOf(state)));
  MeasureSaving(state, {.name = "saving"}, *session);
}
BENCHMARK(SavingGrowth)->Apply(Doubling)->Unit(benchmark::kMillisecond);
}  // namespace
