#include "workbench/Report.h"

#include <algorithm>
#include <numeric>
#include <ostream>

#include "platform/Conversions.h"
#include "platform/XArrayDBObject.h"
#include "workbench/Check.h"
#include "workbench/Provider.h"
#include "workbench/Schema.h"
#include "workbench/Session.h"
#include "workbench/TextTable.h"
#include "workbench/Workplace.h"

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

bool IsLike(std::string_view known, std::string_view typed) {
  if (typed.size() >= 2 && FindIgnoringCase(known, typed) != std::string_view::npos) return true;
  return Distance(known, typed) <= 1 + typed.size() / 4;
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

/// An unset text of the radio may be characters of code 0, which no terminal should get.
std::string Printable(const std::string& text) {
  std::string printable;
  for (const char c : text) {
    const auto code = static_cast<unsigned char>(c);
    constexpr char kDigits[] = "0123456789ABCDEF";
    if (code >= 0x20) {
      printable += c;
    } else {
      printable.append("\\x").append({kDigits[code / 16], kDigits[code % 16]});
    }
  }
  return printable;
}

}  // namespace

namespace Report {

std::string TextOf(const Variant& value) {
  if (!value.IsArray()) return Printable(CStr(value));
  std::string text = "[";
  const XArrayDBObject& array = CArray(value);
  for (std::int32_t row = 1; row <= array.UpperBound(1); ++row) {
    text += (row > 1 ? ", " : "") + CStr(array.GetValue(row, 0));
  }
  return text + "]";
}

Json JsonOf(const Variant& value) {
  if (value.IsEmpty()) return nullptr;
  if (const bool* flag = std::get_if<bool>(&value)) return *flag;
  if (value.IsText()) return std::get<std::string>(value);
  if (value.IsArray()) {
    const XArrayDBObject& array = CArray(value);
    Json rows = Json::array();
    for (std::int32_t row = 1; row <= array.UpperBound(1); ++row)
      rows.push_back(JsonOf(array.GetValue(row, 0)));
    return rows;
  }
  if (std::holds_alternative<std::int32_t>(value) || std::holds_alternative<std::int16_t>(value)) {
    return CLng(value);
  }
  return CDbl(value);
}

std::string TextAt(const Provider& content, std::string_view name, RecordNr record) {
  const SchemaField* field = content.GetSchema().Find(name);
  return field == nullptr || record > content.Count(field->table) ? "" : TextOf(content.Get(*field, record));
}

const std::string& NameOf(const SchemaField& field) {
  return field.uiids.empty() ? field.id : field.uiids.front();
}

TextTable ChangeTable(const Session& session, const std::vector<Change>& changes) {
  TextTable table({{""}, {""}, {""}, {""}});
  for (const Change& change : changes) {
    const std::string values = TextOf(change.before) + " -> " + TextOf(change.now);
    if (change.field == nullptr) {
      table.Add({"table " + std::to_string(change.table->number), change.table->title, "records", values});
    } else {
      const std::string& name = NameOf(*change.field);
      const std::string label = session.LabelOf(*change.field);
      table.Add({name, label == name ? "" : label, "record " + std::to_string(change.record), values});
    }
  }
  return table;
}

Json JsonOf(const Session& session, const std::vector<Change>& changes) {
  Json list = Json::array();
  for (const Change& change : changes) {
    if (change.field == nullptr) {
      list.push_back({{"table", change.table->number},
                      {"title", change.table->title},
                      {"recordsBefore", JsonOf(change.before)},
                      {"recordsNow", JsonOf(change.now)}});
    } else {
      list.push_back({{"name", NameOf(*change.field)},
                      {"fieldId", change.field->id},
                      {"label", session.LabelOf(*change.field)},
                      {"record", change.record},
                      {"before", JsonOf(change.before)},
                      {"now", JsonOf(change.now)}});
    }
  }
  return list;
}

Json JsonOf(const std::vector<Shown>& boxes) {
  Json list = Json::array();
  for (const Shown& box : boxes) {
    Json message = {{"kind", ::NameOf(KindOf(box))}, {"text", box.text}};
    if (IsQuestion(box.style)) message["answer"] = box.answer == Button::Yes ? "Yes" : "No";
    list.push_back(std::move(message));
  }
  return list;
}

void Print(const Outcome& outcome, const Session& session, std::ostream& out) {
  if (!outcome.others.empty()) {
    out << (outcome.accepted ? "Also changed:\n" : "Before it refused, the rule had written (not kept):\n");
    ChangeTable(session, outcome.others).Print(out, 2);
  }
  out << (outcome.saved     ? "Saved.\n"
          : outcome.granted ? "Dry run: nothing is saved.\n"
                            : "The file is as it was.\n");
}

void AddTo(Json& data, const Outcome& outcome, const Session& session, const std::vector<Shown>& boxes) {
  data[outcome.accepted ? "alsoChanged" : "writtenBeforeRefusal"] = JsonOf(session, outcome.others);
  data["messages"] = JsonOf(boxes);
}

std::string Suggestion(std::string_view typed, std::vector<std::string> names) {
  constexpr std::size_t kMost = 5;
  std::erase_if(names, [&](const std::string& name) { return !IsLike(name, typed); });
  std::ranges::stable_sort(names, {}, [&](const std::string& name) { return Distance(name, typed); });
  if (names.size() > kMost) names.resize(kMost);
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "; did you mean " : ", ") + name;
  return text.empty() ? text : text + "?";
}

const SchemaField& FieldNamed(const Schema& schema, std::string_view name) {
  const SchemaField* field = schema.Find(name);
  if (field != nullptr) return *field;
  std::string text = "\"" + std::string(name) + "\" ";
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

}  // namespace Report
