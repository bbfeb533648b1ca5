#include "benchmarks/Work.h"

#include <stdexcept>

#include "benchmarks/Personalities.h"
#include "workbench/schema/Schema.h"

void WalkBeforeSave(Session& session) {
  Boolean passed = kFalse;
  session.Host().Require(session.Host().Validator().RunFinalValidation(passed));
}

void TakeSignalling(Session& session) {
  Provider& content = session.Content();
  content.Set("SignallingType", 1, 1);
  content.Set("5.TXCallBurstSeq", 1, "12345");
  Variant none(0);
  Boolean accepted = kFalse;
  session.Host().Require(session.Host().Validator().ValidateByUIID("SignallingType", none, 1, accepted));
  if (accepted == kFalse) throw std::runtime_error("the network keeps its signalling");
}

std::shared_ptr<XArrayDBObject> ItemsOf(Session& session, std::string_view uiid, RecordNr record) {
  std::shared_ptr<XArrayDBObject> items;
  Boolean filled = kFalse;
  const TierHost& host = session.Host();
  host.Require(host.Owner().GetComboItemsByUIID(session.SharedContent(), uiid, record, items, filled));
  return items;
}

void MeasureOpening(benchmark::State& state, const Figure& figure, const Provider& stored) {
  const auto monitor = std::make_shared<CallMonitor>();
  std::unique_ptr<Session> session;
  const auto prepare = [&] {
    const auto provider = stored.Copy();
    provider->SetMonitor(monitor);
    session = NewSession(provider);
  };
  Measure(state, figure, monitor.get(), {[&] { session->ConvertToForms(); }, prepare});
}

void MeasureSaving(benchmark::State& state, const Figure& figure, Session& session) {
  const auto monitor = std::make_shared<CallMonitor>();
  std::shared_ptr<Provider> copy;
  const auto prepare = [&] {
    copy = session.Content().Copy();
    copy->SetMonitor(monitor);
    session.Host().UseStore(copy);
  };
  const auto run = [&] {
    const TierHost& host = session.Host();
    Boolean converted = kFalse;
    for (const SchemaField* field : copy->GetSchema().ConvertedToRadio()) {
      for (RecordNr record = 1; HasConversion(*copy, *field, record); ++record) {
        host.Require(host.Owner().TransformFromUI(copy, field->id, record, converted));
      }
    }
  };
  Measure(state, figure, monitor.get(), {run, prepare});
  session.Host().UseStore(session.SharedContent());
}
