// What the forms ask of the tier, on the largest personality.

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "benchmarks/Measure.h"
#include "benchmarks/Personalities.h"
#include "benchmarks/Work.h"
#include "host/Itables.h"
#include "platform/XArrayDBObject.h"
#include "validation/modvalEnablement.h"
#include "workbench/schema/Schema.h"

namespace {
constexpr RecordNr kChannelInTheMiddle = 50;

/// The rule of one field, with a value that changes nothing.
void FieldRule(benchmark::State& state, const char* uiid, const Figure& figure) {
  Session& session = OpenSession();
  const Variant value = session.Content().Get(uiid, kChannelInTheMiddle);
  Measure(state, figure, &session.Content().Monitor(), {[&] {
            Variant edited = value;
            Boolean accepted = kFalse;
            session.Host().Require(
                session.Host().Validator().ValidateByUIID(uiid, edited, kChannelInTheMiddle, accepted));
            benchmark::DoNotOptimize(accepted);
          }});
}
BENCHMARK_CAPTURE(FieldRule, TxPower, "TxPower_k6k", {.name = "field rule: Tx power", .limit = 1});
BENCHMARK_CAPTURE(FieldRule, RxFrequency, "RxFreq_k6k",
                  {.name = "field rule: Rx frequency", .limit = 1, .ratio = 20});
BENCHMARK_CAPTURE(FieldRule, WithoutRule, "NoiseBlanker_k6k",
                  {.name = "field rule: field without one", .limit = 1});

/// On the first systems, which the forms show.
void SystemRule(benchmark::State& state, const char* uiid, RecordNr record, const char* typed,
                const Figure& figure) {
  const auto session = NewSession(FullPersonality().Copy());
  session->ConvertToForms();
  Measure(
      state, figure, &session->Content().Monitor(), {[&] {
        Variant edited = typed;
        Boolean accepted = kFalse;
        session->Host().Require(session->Host().Validator().ValidateByUIID(uiid, edited, record, accepted));
        if (accepted == kFalse) throw std::runtime_error(std::string(uiid) + " is refused");
      }});
}
BENCHMARK_CAPTURE(SystemRule, Burst, "BurstSequence2_k6k", 99, "17777",
                  {.name = "field rule: a burst, all channels", .limit = 100});
BENCHMARK_CAPTURE(SystemRule, Grids, "CurrentSelcallNumber", 1, "2",
                  {.name = "burst grids of another system", .limit = 60});

BENCHMARK_CAPTURE(SystemRule, TxFormat, "TxFormat_k6k", 1, "BBBBB-RRRRR-CCCCC-SS",
                  {.name = "field rule: Tx format, its bursts", .limit = 60});
BENCHMARK_CAPTURE(SystemRule, RxFormat, "RxFormat_k6k", 1, "RRRRR-CCCCC-SS",
                  {.name = "field rule: Rx format, its sequences", .limit = 60});
BENCHMARK_CAPTURE(SystemRule, Period, "T99MinGapPeriod_k6k", 1, "100",
                  {.name = "field rule: a two-tone period", .limit = 1});
BENCHMARK_CAPTURE(SystemRule, CustomTone, "T99CustomToneA_k6k", 3, "1014.9",
                  {.name = "field rule: a custom tone", .limit = 1});
BENCHMARK_CAPTURE(SystemRule, DTMFSequence, "DTMFEmergSequence", 1, "112",
                  {.name = "field rule: a DTMF sequence", .limit = 1});
BENCHMARK_CAPTURE(SystemRule, Direction, "DigitalIODirection", 13, "Input",
                  {.name = "field rule: direction of a pin", .limit = 25});
BENCHMARK_CAPTURE(SystemRule, Action, "DigitalIOAction", 10, "Home Channel",
                  {.name = "field rule: action of a pin", .limit = 25});
BENCHMARK_CAPTURE(SystemRule, Presets, "CurrentDTMFNr", 1, "2", {.name = "presets of another DTMF system"});

void ScanGroupForm(benchmark::State& state) {
  const auto session = NewSession(FullPersonality().Copy());
  session->ConvertToForms();
  Measure(state, {.name = "leaving the form of a scan group", .limit = 150}, &session->Content().Monitor(),
          {[&] {
            Boolean mayBeLeft = kFalse;
            session->Host().Require(session->Host().Validator().FormValidationByFormName(
                "usrCtlScanGroupsKD4410", kFalse, mayBeLeft));
          }});
}
BENCHMARK(ScanGroupForm);

/// To another tone and back, so that each swap finds what it has to do.
void GroupTone(benchmark::State& state) {
  const auto session = NewSession(FullPersonality().Copy());
  session->ConvertToForms();
  const SchemaField& tone = session->Content().FieldOf("GroupTone");
  const Variant first = session->Content().Get(tone, 1);
  Measure(state, {.name = "group tone of a system, all that holds it", .limit = 400, .parts = 2},
          &session->Content().Monitor(), {[&] {
            for (const Variant& next : {Variant(3), first}) {
              Variant value = next;
              Boolean accepted = kFalse;
              session->Host().Require(
                  session->Host().Validator().ValidateByUIID("GroupTone", value, 1, accepted));
              session->Content().Set(tone, 1, value);
            }
          }});
}
BENCHMARK(GroupTone);

/// A system comes and goes again, with all that belongs to it.
void System(benchmark::State& state, const char* grid, const char* table, const Figure& figure) {
  constexpr RecordNr kLast = 4;
  const auto session = NewSession(FullPersonality().Copy());
  session->ConvertToForms();
  Provider& content = session->Content();
  for (RecordNr network = 1; network <= content.Count(21); ++network) {
    content.Set("NetworkSignallingID", network, "None");
  }
  const TierHost& host = session->Host();
  std::shared_ptr<Itables> tables;
  std::shared_ptr<Itable> systems;
  host.Require(content.Tables(tables));
  host.Require(tables->Table(table, systems));
  const auto take = [&] {
    Boolean accepted = kFalse;
    RecordNr left = 0;
    host.Require(host.Validator().DeleteRecord(grid, kLast, session->SharedContent(), accepted));
    host.Require(systems->DeleteRecord(kLast, left));
    host.Require(host.Validator().AddRecord(grid, session->SharedContent(), accepted));
    host.Require(systems->NewRecord(left));
    host.Require(host.Owner().PostAddProcessing(session->SharedContent(), grid, accepted));
  };
  Measure(state, figure, &content.Monitor(), {take});
}
BENCHMARK_CAPTURE(System, Selcall, "Selcall6000", "29",
                  {.name = "deleting and adding a Selcall system", .limit = 1000});
BENCHMARK_CAPTURE(System, DTMF, "DTMF", "64", {.name = "deleting and adding a DTMF system", .limit = 500});
BENCHMARK_CAPTURE(System, TwoTone, "Type99", "37",
                  {.name = "deleting and adding a two-tone system", .limit = 500});
BENCHMARK_CAPTURE(System, MDC1200, "MDC1200", "80",
                  {.name = "deleting and adding an MDC1200 system", .limit = 500});

void SignallingType(benchmark::State& state) {
  const auto session = NewSession(FullPersonality().Copy());
  session->ConvertToForms();
  Measure(state, {.name = "field rule: signalling type, all walks", .limit = 200},
          &session->Content().Monitor(), {[&] { TakeSignalling(*session); }});
}
BENCHMARK(SignallingType);

void FinalValidation(benchmark::State& state) {
  Session& session = OpenSession();
  Measure(state, {.name = "walk before a save", .limit = 1000, .ratio = 5}, &session.Content().Monitor(),
          {[&] { WalkBeforeSave(session); }});
}
BENCHMARK(FinalValidation);

void EnabledStates(benchmark::State& state) {
  Session& session = OpenSession();
  const auto rows = modvalEnablement::Rows();
  const std::string name = "state of every control (" + std::to_string(rows.size()) + ")";
  Measure(state, {.name = name, .limit = 150, .ratio = 4}, &session.Content().Monitor(), {[&] {
            for (const auto& row : rows) {
              Boolean enabled = kFalse;
              session.Host().Require(session.Host().Validator().GetEnabledStatebyUIID(row.uiid, 1, enabled));
            }
          }});
}
BENCHMARK(EnabledStates);

/// Finding the row of a control in the ladder, without asking it.
void LadderLookup(benchmark::State& state) {
  const auto rows = modvalEnablement::Rows();
  const auto parts = static_cast<std::int64_t>(rows.size());
  Measure(state, {.name = "one look-up in a ladder", .limit = 0.06, .parts = parts}, nullptr, {[&] {
            for (const auto& row : rows) {
              benchmark::DoNotOptimize(modvalEnablement::FindCondition(row.uiid));
            }
          }});
}
BENCHMARK(LadderLookup);

/// Every text that a form asks for: what is told is one of them.
void MetadataLookup(benchmark::State& state) {
  Session& session = OpenSession();
  std::vector<std::string> uiids;
  for (const SchemaField& field : session.Content().GetSchema().Fields()) {
    uiids.insert(uiids.end(), field.uiids.begin(), field.uiids.end());
  }
  const auto parts = static_cast<std::int64_t>(uiids.size());
  Measure(state, {.name = "one look-up of a field's label", .parts = parts}, &session.Content().Monitor(),
          {[&] {
            std::string label;
            Boolean isKnown = kFalse;
            for (const std::string& uiid : uiids) {
              session.Host().Require(session.Host().UserInterface().GetLabelByUIID(uiid, label, isKnown));
            }
            benchmark::DoNotOptimize(label);
          }});
}
BENCHMARK(MetadataLookup);

void ComboItems(benchmark::State& state, const char* uiid, const Figure& figure) {
  Session& session = OpenSession();
  Measure(state, figure, &session.Content().Monitor(),
          {[&] { benchmark::DoNotOptimize(ItemsOf(session, uiid, kChannelInTheMiddle)); }});
}
BENCHMARK_CAPTURE(ComboItems, FreeIdentities, "ChannelID_k6k", {.name = "list: free channel numbers"});
BENCHMARK_CAPTURE(ComboItems, UsedChannels, "EmChannel", {.name = "list: channels in use"});
BENCHMARK_CAPTURE(ComboItems, Subaudible, "RxSignalling_k6k", {.name = "list: subaudible tones"});
}  // namespace
