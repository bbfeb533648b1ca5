#include "workbench/jobs/Wording.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "platform/Conversions.h"
#include "platform/XArrayDBObject.h"
#include "workbench/host/TierHost.h"
#include "workbench/jobs/ComboList.h"
#include "workbench/jobs/Session.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/ValueText.h"

namespace {

/// The conversion of the band, and those whose lists have names for what a field of numbers holds: the
/// actions of the keys, the parameters of actions, the lines of flow control, the taps.
constexpr std::int32_t kBand = 540, kNamedLists[] = {522, 531, 532, 538};

bool IsBand(const SchemaField& field) { return field.transform == kBand; }

bool HasNamedList(const SchemaField& field) {
  return field.type == FieldType::Integer &&
         std::ranges::find(kNamedLists, field.transform) != std::end(kNamedLists);
}

bool IsThere(const Provider& content, const SchemaField& field, RecordNr record) {
  return content.GetSchema().Find(field.id) != nullptr && record >= 1 && record <= content.Count(field.table);
}

}  // namespace

namespace Wording {

std::vector<std::string> BandNames(const TierHost& host) {
  XArrayDBObject bands;
  host.Require(host.Owner().GetBands(bands));
  std::vector<std::string> names;
  for (std::int32_t position = 0; position <= bands.UpperBound(1); ++position) {
    names.push_back(CStr(bands.GetValue(position, 0)));
  }
  return names;
}

CodeWords WordsOf(const TierHost& host, const SchemaField& field) {
  if (field.words != nullptr) return *field.words;
  std::vector<CodeWords::Entry> entries;
  if (IsBand(field)) {
    constexpr std::size_t kCode = 2;  // characters of a band's name
    for (const std::string& name : BandNames(host)) {
      const auto position = static_cast<std::int32_t>(entries.size());
      if (LimitsOf(field).Hold(position)) entries.push_back({position, name.substr(0, kCode)});
    }
  }
  return CodeWords(std::move(entries));
}

std::optional<std::string> WordOf(const Session& session, const SchemaField& field, RecordNr record,
                                  const Variant& value) {
  if (!IsNumeric(value)) return {};
  if (HasNamedList(field) && !field.uiids.empty() && IsThere(session.Content(), field, record)) {
    return EntryOf(session.Host(), session.Content(), field.CommonName(), record, value);
  }
  if (!session.Content().IsOnForms()) return WordOfStored(field, value);
  if (field.words != nullptr) return field.words->WordOf(value);
  return IsBand(field) ? WordsOf(session.Host(), field).WordOf(value) : std::nullopt;
}

bool IsShownAsStored(const SchemaField& field) {
  return field.words == nullptr || !field.words->IsOppositeInRadio();
}

std::optional<std::string> WordOfStored(const SchemaField& field, const Variant& value) {
  const bool hasWords = field.words != nullptr && IsShownAsStored(field);
  return hasWords ? field.words->WordOf(value) : std::nullopt;
}

std::string TextOf(const Session& session, const SchemaField& field, RecordNr record, const Variant& value) {
  return WordOf(session, field, record, value).value_or(ValueText::Of(value));
}

std::string TextAt(const Session& session, std::string_view name, RecordNr record) {
  const Provider& content = session.Content();
  const SchemaField* field = content.GetSchema().Find(name);
  const bool isThere = field != nullptr && record <= content.Count(field->table);
  return isThere ? TextOf(session, *field, record, content.Get(*field, record)) : "";
}

}  // namespace Wording
