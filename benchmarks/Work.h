#pragma once

#include <memory>
#include <string_view>

#include "benchmarks/Measure.h"
#include "platform/Types.h"

class Provider;
class Session;
class XArrayDBObject;

/// Work that is measured on the largest personality and again on a growing one. Each raises for an answer
/// that would make the figure one of something else.

void WalkBeforeSave(Session& session);

/// A network loses its signalling, and its channels their presets; they are put back first, without a call of
/// the tier.
void TakeSignalling(Session& session);

/// The list that the field offers.
std::shared_ptr<XArrayDBObject> ItemsOf(Session& session, std::string_view uiid, RecordNr record);

/// From stored content to the forms. Each run opens a copy, for some fields are converted in place.
void MeasureOpening(benchmark::State& state, const Figure& figure, const Provider& stored);

/// From the forms of the session to what a radio stores, on a copy as a save does it; likewise.
void MeasureSaving(benchmark::State& state, const Figure& figure, Session& session);
