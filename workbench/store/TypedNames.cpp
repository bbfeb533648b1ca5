#include "workbench/store/TypedNames.h"

#include <algorithm>
#include <numeric>

#include "platform/CaseText.h"
#include "workbench/files/Printable.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"

namespace {

/// The number of letters to change, add or leave out to make one name of the other; case does not count.
std::size_t Distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i + 1;
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t replaced = diagonal + (UpperChar(a[i]) == UpperChar(b[j]) ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({replaced, diagonal + 1, row[j] + 1});
    }
  }
  return row.back();
}

/// Without the ending that most names have and a person leaves out.
std::string_view StemOf(std::string_view name) {
  constexpr std::string_view kEnding = "_k6k";
  const std::size_t end = name.size() - std::min(name.size(), kEnding.size());
  return EqualsIgnoringCase(name.substr(end), kEnding) ? name.substr(0, end) : name;
}

std::size_t DistanceOfStems(std::string_view a, std::string_view b) { return Distance(StemOf(a), StemOf(b)); }

bool IsLike(std::string_view known, std::string_view typed) {
  if (typed.size() >= 2 && FindIgnoringCase(known, typed) != std::string_view::npos) return true;
  const std::size_t most = 1 + StemOf(typed).size() / 4;
  return StemOf(typed).size() <= known.size() + most && DistanceOfStems(known, typed) <= most;
}

/// All names by which a field of the schema can be called.
std::vector<std::string> NamesOf(const Schema& schema) {
  std::vector<std::string> names;
  for (const SchemaField& field : schema.Fields()) {
    names.insert(names.end(), field.uiids.begin(), field.uiids.end());
    names.push_back(field.id);
  }
  return names;
}

}  // namespace

namespace TypedNames {

std::string Suggestion(std::string_view typed, std::vector<std::string> names) {
  constexpr std::size_t kMost = 5;
  std::erase_if(names, [&](const std::string& name) { return !IsLike(name, typed); });
  std::ranges::stable_sort(names, {}, [&](const std::string& name) { return DistanceOfStems(name, typed); });
  // Names that differ by their case alone are equally near.
  names.erase(std::unique(names.begin(), names.end(), EqualsIgnoringCase), names.end());
  if (names.size() > kMost) names.resize(kMost);
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "; did you mean " : ", ") + name;
  return text.empty() ? text : text + "?";
}

const SchemaField& FieldNamed(const Schema& schema, std::string_view name) {
  const SchemaField* field = schema.Find(name);
  if (field != nullptr) return *field;
  std::string text = Printable::Quoted(name) + " ";
  if (schema.IsAmbiguous(name)) {
    text += "is a field of several tables; put the table number before it (\"5." + std::string(name) + "\")";
    throw UsageError(text);
  }
  throw UsageError(text + "is no field of version " + schema.Version() + Suggestion(name, NamesOf(schema)));
}

void RequireRecord(const Provider& content, const SchemaField& field, RecordNr record) {
  RequireRecord(content, content.GetSchema().TableOf(field), record);
}

void RequireRecord(const Provider& content, const SchemaTable& table, RecordNr record) {
  const RecordNr count = content.Count(table);
  if (record >= 1 && record <= count) return;
  throw UsageError("record " + std::to_string(record) + " is outside 1.." + std::to_string(count) +
                   ", the records of table " + std::to_string(table.number) + " (" + table.title + ")");
}

}  // namespace TypedNames
