#include "validation/ConditionReader.h"

#include <algorithm>

#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"
#include "radioui/modProgIO.h"

using Kind = Condition::Kind;

bool ConditionReader::IsMet(const Condition& condition) {
  lacksRecord_ = false;
  const bool holds = Evaluate(condition);
  return holds || lacksRecord_;
}

bool ConditionReader::Evaluate(const Condition& condition) {
  const auto holds = [this](const Condition* part) { return Evaluate(*part); };
  if (condition.kind == Kind::AllOf) return std::ranges::all_of(condition.parts, holds);
  if (condition.kind == Kind::AnyOf) return std::ranges::any_of(condition.parts, holds);
  if (condition.kind == Kind::Never) return false;
  const Reading reading = Read(condition);
  if (!reading.value) lacksRecord_ = true;
  return Holds(condition, reading);
}

ConditionReader::Reading ConditionReader::Read(const Condition& test) const {
  if (test.kind == Kind::ActionInUse) {
    return {0, Variant(modProgIO::IsProgIOActionInList(provider_, test.field, test.text))};
  }
  if (!provider_.HasField(test.field)) return {};
  const RecordNr record = RecordAt(test.at);
  const FieldRef field = provider_.Field(test.field);
  if (!field.HasRecord(record)) return {record, {}};
  return {record, field.Value(record)};
}

bool ConditionReader::Holds(const Condition& test, const Reading& reading) const {
  if (!reading.value) return false;
  const Variant& value = *reading.value;
  const auto isCode = [&](std::int32_t code) { return IsCode(value, code); };
  bool holds = false;
  switch (test.kind) {
    case Kind::On:
      holds = IsTicked(value);
      break;
    case Kind::OneOf:
      holds = std::ranges::any_of(test.codes, isCode);
      break;
    case Kind::Above:
      holds = IsAbove(value, test.codes.front());
      break;
    case Kind::Text:
      holds = CStr(value) == test.text;
      break;
    case Kind::ActionInUse:
      holds = CBool(value);
      break;
    case Kind::ThisNetwork:
      holds = IsOnCurrentNetwork(value);
      break;
    case Kind::Never:
    case Kind::AllOf:
    case Kind::AnyOf:
      break;
  }
  return holds != test.negated;
}

RecordNr ConditionReader::RecordAt(At at) const {
  switch (at) {
    case At::Only:
      return 1;
    case At::Drawn:
      return drawn_;
    case At::Network:
      return Pointer("CurrentNetworkNr");
    case At::ScanGroup:
      return Pointer("CurrentScanGroupNr");
    case At::SelcallSystem:
      return Pointer("CurrentSelcallNumber");
    case At::ChannelNetwork:
      break;
  }
  return ChannelsNetwork();
}

RecordNr ConditionReader::Pointer(std::string_view field) const {
  const FieldRef pointer = provider_.Field(field);
  return pointer.RecordCount() == 0 ? 0 : CLng(pointer.Value(1));
}

RecordNr ConditionReader::ChannelsNetwork() const {
  if (!provider_.Table("5").HasRecord(drawn_)) return 0;
  return modProjectGlobals::GetChannelNetworkRecordNr(provider_, drawn_);
}

/// The first network with that number is the current one.
bool ConditionReader::IsOnCurrentNetwork(const Variant& network) const {
  const FieldRef number = provider_.Field("NetworkID");
  for (const RecordNr record : number.Records()) {
    if (SameValue(number.Value(record), network)) return record == Pointer("CurrentNetworkNr");
  }
  return false;
}
