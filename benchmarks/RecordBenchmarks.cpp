// Records on their way between radio, forms and versions, on the largest personality.

#include <algorithm>
#include <iterator>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "benchmarks/Measure.h"
#include "benchmarks/Personalities.h"
#include "benchmarks/Work.h"
#include "host/Itables.h"
#include "workbench/host/Messengers.h"
#include "workbench/jobs/Conversion.h"
#include "workbench/schema/Schema.h"

namespace {
/// The fields of the tables that are converted record by record.
std::vector<std::string> ConvertedFields(const Schema& schema, const std::vector<std::int32_t>& tables) {
  std::vector<std::string> fieldIds;
  for (const SchemaField* field : schema.ConvertedToRadio()) {
    const bool isOfThem = std::ranges::find(tables, field->table) != tables.end();
    if (isOfThem && field->scope == FieldScope::Record) fieldIds.push_back(field->id);
  }
  return fieldIds;
}

/// From the form and back to it: all records in one run, behind one clearing of the tone tables, as a save
/// does it. What is told is one record of the first table, with those that belong to it.
void RecordBothWays(benchmark::State& state, const std::vector<std::int32_t>& tables, Figure figure) {
  Session& session = OpenSession();
  const auto provider = session.Content().Copy();
  const OtherStore other(session, provider);
  const auto fieldIds = ConvertedFields(provider->GetSchema(), tables);
  const RecordNr records = provider->Count(tables.front());
  const TierHost& host = session.Host();
  figure.parts = records;
  Measure(state, figure, &provider->Monitor(), {[&] {
            Boolean converted = kFalse;
            host.Require(host.Owner().TransformFromUI(provider, "50.CTCSSfreq", 1, converted));
            for (RecordNr record = 1; record <= records; ++record) {
              for (const auto& fieldId : fieldIds) {
                host.Require(host.Owner().TransformFromUI(provider, fieldId, record, converted));
                host.Require(host.Owner().TransformToUI(provider, fieldId, record, converted));
              }
            }
          }});
}
BENCHMARK_CAPTURE(RecordBothWays, Channel, {5},
                  {.name = "one channel record both ways", .limit = 25, .ratio = 4})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(RecordBothWays, Network, {21, 36, 53, 67, 72, 75, 77, 78},
                  {.name = "one network record both ways", .limit = 30, .ratio = 4})
    ->Unit(benchmark::kMillisecond);

BENCHMARK_CAPTURE(RecordBothWays, Burst, {30}, {.name = "one burst record both ways", .limit = 2, .ratio = 4})
    ->Unit(benchmark::kMillisecond);

BENCHMARK_CAPTURE(RecordBothWays, TwoTone, {37}, {.name = "one two-tone system both ways", .limit = 15})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(RecordBothWays, MDC1200, {80}, {.name = "one MDC1200 system both ways", .limit = 15})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(RecordBothWays, InBandTone, {75}, {.name = "one in-band tone both ways", .limit = 15})
    ->Unit(benchmark::kMillisecond);

/// All of them are converted at once, with their presets.
void DTMFBothWays(benchmark::State& state) {
  Session& session = OpenSession();
  const auto provider = session.Content().Copy();
  const OtherStore other(session, provider);
  const TierHost& host = session.Host();
  const Figure figure = {.name = "one DTMF system both ways", .limit = 15, .parts = provider->Count(64)};
  Measure(state, figure, &provider->Monitor(), {[&] {
            Boolean converted = kFalse;
            for (const char* fieldId : {"64.DTMFNetworkToneSetupRecord", "65.DTMFChannelPresetSequenceUI"}) {
              host.Require(host.Owner().TransformFromUI(provider, fieldId, 1, converted));
              host.Require(host.Owner().TransformToUI(provider, fieldId, 1, converted));
            }
          }});
}
BENCHMARK(DTMFBothWays);

/// Both ways of fields that are in one record each.
void FieldsBothWays(benchmark::State& state, const Figure& figure, std::span<const char* const> fields) {
  Session& session = OpenSession();
  const auto provider = session.Content().Copy();
  const OtherStore other(session, provider);
  const TierHost& host = session.Host();
  Measure(state, figure, &provider->Monitor(), {[&] {
            Boolean converted = kFalse;
            for (const char* fieldId : fields)
              host.Require(host.Owner().TransformFromUI(provider, fieldId, 1, converted));
            for (const char* fieldId : fields)
              host.Require(host.Owner().TransformToUI(provider, fieldId, 1, converted));
          }});
}

/// With the lights of the radio.
void KeysBothWays(benchmark::State& state) {
  constexpr const char* kFields[] = {"15.FnKeyShortPressActionID"};
  FieldsBothWays(state, {.name = "all function keys both ways", .limit = 40}, kFields);
}
BENCHMARK(KeysBothWays);

/// Fifteen pins and what their actions name; the inputs and outputs follow from the first row.
void PinsBothWays(benchmark::State& state) {
  constexpr const char* kFields[] = {"55.DigitalIOInputPinID"};
  FieldsBothWays(state, {.name = "the whole I/O grid both ways", .limit = 60}, kFields);
}
BENCHMARK(PinsBothWays);

/// The list of indicators and the cadences.
void SoundsBothWays(benchmark::State& state) {
  constexpr const char* kFields[] = {"1117.AudibleIndicators_k6k",        "1118.SelcallIndivCallRxCadence1",
                                     "1118.SelcallIndivCallRxCadence2",   "1118.SelcallGroupCallRxCadence",
                                     "1118.T99AllCallRxCadence",          "1118.SelcallPriorityCallRxCadence",
                                     "1118.SelcallEmergencyCallRxCadence"};
  FieldsBothWays(state, {.name = "all sounds without the networks both ways", .limit = 120}, kFields);
}
BENCHMARK(SoundsBothWays);

/// Each conversion moves all six alerts.
void AlertsBothWays(benchmark::State& state) {
  constexpr const char* kFields[] = {"21.SelcallIndivCallAlertDuration1", "21.Sequence1AlertType",
                                     "21.ExternalAlertPtr1"};
  FieldsBothWays(state, {.name = "the alerts of one network both ways", .limit = 40}, kFields);
}
BENCHMARK(AlertsBothWays);

/// All members of all groups, one way.
void Members(benchmark::State& state, bool toRadio, Figure figure) {
  Session& session = OpenSession();
  const auto provider = session.Content().Copy();
  const OtherStore other(session, provider);
  const TierHost& host = session.Host();
  const RecordNr members = provider->Count(18);
  if (!toRadio) figure.parts = members;
  Measure(state, figure, &provider->Monitor(), {[&] {
            Boolean converted = kFalse;
            for (RecordNr record = 1; record <= members; ++record) {
              host.Require(
                  toRadio ? host.Owner().TransformFromUI(provider, "18.GroupChannelUI", record, converted)
                          : host.Owner().TransformToUI(provider, "18.GroupChannelUI", record, converted));
            }
          }});
}
BENCHMARK_CAPTURE(Members, ToForm, false, {.name = "one member of a group to the form", .limit = 1.2});
BENCHMARK_CAPTURE(Members, ToRadio, true, {.name = "all members of all groups to the radio", .limit = 4000})
    ->Unit(benchmark::kMillisecond);

/// Post-read processing and every conversion to the forms; without the file.
void Opening(benchmark::State& state) {
  MeasureOpening(state, {.name = "opening, without the file", .limit = 5000, .ratio = 4}, FullPersonality());
}
BENCHMARK(Opening)->Unit(benchmark::kMillisecond);

void Saving(benchmark::State& state) {
  MeasureSaving(state, {.name = "saving, without the file", .ratio = 4}, OpenSession());
}
BENCHMARK(Saving)->Unit(benchmark::kMillisecond);

/// The largest personality as far as the oldest version holds it.
std::shared_ptr<Provider> LargestOfOldest() {
  constexpr RecordNr kBursts = 205;  // of four systems
  auto content = SharedContent(*Parts().schemas, FullPersonality(), "KD4410.0029");
  content->SetCount(30, kBursts);
  for (RecordNr network = 1; network <= content->Count(21); ++network) {
    content->Set("21.SignallingType", network, 1);
    content->Set("21.NetworkID", network, network - 1);
  }
  for (RecordNr channel = 1; channel <= content->Count(5); ++channel) {
    for (const char* pointer : {"5.RepeaterBurst", "5.CallerIDBurst", "5.TXCallBurst", "5.StatusBurst",
                                "5.RepeaterAccessTone", "5.Lead-In-Tone"}) {
      content->Set(pointer, channel, 0);
    }
  }
  return content;
}

std::vector<std::string> WayUp() {
  const VersionName& version = FullPersonality().GetSchema().Name();
  return VersionPath(OpenSession().Host(), version);
}

/// What the tier does of it, with the largest personality open all the time: the copies that a host makes for
/// each step are not measured.
void StepsOfAllVersions(benchmark::State& state) {
  static const auto pairs = [] {
    std::vector<ConversionPair> kept;
    const auto keepPair = [&](TierHost& host, const ConversionPair& pair) {
      kept.push_back({pair.source, pair.from, pair.destination->Copy(), pair.to});
      return StepOfTier(host, pair);
    };
    Converter(Parts(), std::make_shared<RecordingMessenger>(), keepPair).Convert(LargestOfOldest(), WayUp());
    return kept;
  }();
  Session& session = OpenSession();
  const auto monitor = std::make_shared<CallMonitor>();
  std::vector<ConversionPair> fresh;
  const auto prepare = [&] {
    fresh = pairs;
    for (ConversionPair& pair : fresh) {
      pair.destination = pair.destination->Copy();
      pair.source->SetMonitor(monitor);
      pair.destination->SetMonitor(monitor);
    }
  };
  const auto run = [&] {
    for (const ConversionPair& pair : fresh) {
      if (!StepOfTier(session.Host(), pair)) throw std::runtime_error(pair.to + " was refused");
    }
  };
  const std::string name =
      "steps from the oldest version to the newest (" + std::to_string(pairs.size()) + ")";
  Measure(state, {.name = name, .limit = 1000}, monitor.get(), {run, prepare});
}
BENCHMARK(StepsOfAllVersions);

void Conversions(benchmark::State& state, const Figure& figure, const std::shared_ptr<Provider>& content,
                 const std::vector<std::string>& way) {
  Converter converter(Parts(), std::make_shared<RecordingMessenger>());
  Measure(state, figure, nullptr, {[&] {
            if (converter.Convert(content, way).result == nullptr) throw std::runtime_error("refused");
          }});
}

void OneHop(benchmark::State& state) {
  Conversions(state, {.name = "one version down, with its report", .limit = 4000}, FullPersonality().Copy(),
              {"KD4410.0094", "KD4410.0093"});
}
BENCHMARK(OneHop)->Unit(benchmark::kMillisecond);

void AllHops(benchmark::State& state) {
  Conversions(state, {.name = "the oldest version to the newest, with reports", .limit = 30'000},
              LargestOfOldest(), WayUp());
}
BENCHMARK(AllHops)->Unit(benchmark::kMillisecond);

void Accept(const TierHost& host, const Status& status, const Boolean& accepted) {
  host.Require(status);
  if (accepted == kFalse) throw std::runtime_error("the tier does not let the record go or come");
}

/// The last network goes and comes again, by the host's way of a record: permission, record, completion.
void ReplaceLastNetwork(Session& session, const std::shared_ptr<Provider>& provider) {
  const TierHost& host = session.Host();
  std::shared_ptr<Itables> tables;
  std::shared_ptr<Itable> networks;
  host.Require(provider->Tables(tables));
  host.Require(tables->Table("21", networks));
  RecordNr last = 0;
  RecordNr left = 0;
  Boolean accepted = kFalse;
  host.Require(networks->RecordCount(last));
  Accept(host, host.Validator().DeleteRecord("Network", last, provider, accepted), accepted);
  host.Require(networks->DeleteRecord(last, left));
  Accept(host, host.Owner().PostDeleteProcessing(provider, "Network", last, accepted), accepted);
  Accept(host, host.Validator().AddRecord("Network", provider, accepted), accepted);
  host.Require(networks->NewRecord(last));
  Accept(host, host.Owner().PostAddProcessing(provider, "Network", accepted), accepted);
}

void DeletedAndAddedNetwork(benchmark::State& state) {
  Session& session = OpenSession();
  const auto provider = session.Content().Copy();
  const OtherStore other(session, provider);
  const Variant first = provider->Get("NetworkID", 1);
  for (RecordNr channel = 1; channel <= provider->Count(5); ++channel) {
    provider->Set("5.ChannelNetworkIdUI", channel, first);
  }
  Measure(state, {.name = "one network deleted and added"}, &provider->Monitor(),
          {[&] { ReplaceLastNetwork(session, provider); }});
}
BENCHMARK(DeletedAndAddedNetwork);
}  // namespace
