#include "workbench/cli/Report.h"

#include <optional>
#include <ostream>
#include <utility>

#include "platform/Conversions.h"
#include "platform/XArrayDBObject.h"
#include "workbench/cli/TextTable.h"
#include "workbench/files/TabbedFile.h"
#include "workbench/jobs/PersonalityCheck.h"
#include "workbench/jobs/Session.h"
#include "workbench/jobs/Wording.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/ValueText.h"

namespace Report {

Json JsonOf(const Variant& value) {
  if (value.IsEmpty()) return nullptr;
  if (const bool* flag = std::get_if<bool>(&value)) return *flag;
  if (value.IsText()) return std::get<std::string>(value);
  if (value.IsArray()) {
    const XArrayDBObject& array = CArray(value);
    Json rows = Json::List();
    for (std::int32_t row = 1; row <= array.UpperBound(1); ++row) rows.Add(JsonOf(array.GetValue(row, 0)));
    return rows;
  }
  if (std::holds_alternative<std::int32_t>(value) || std::holds_alternative<std::int16_t>(value)) {
    return CLng(value);
  }
  return CDbl(value);
}

Json JsonOf(const SchemaField& field, const Variant& value) {
  const bool isOfNumbers = field.type == FieldType::Integer || field.type == FieldType::Number;
  return isOfNumbers && value.IsText() && IsNumeric(value) ? Json(CDbl(value)) : JsonOf(value);
}

Json JsonAt(const Provider& content, std::string_view name, RecordNr record) {
  const SchemaField* field = content.GetSchema().Find(name);
  if (field == nullptr || record > content.Count(field->table)) return nullptr;
  return JsonOf(*field, content.Get(*field, record));
}

void AddValue(Json& object, std::string_view name, Json value, const std::optional<std::string>& word) {
  object[name] = std::move(value);
  if (word) object[name == "value" ? "word" : std::string(name) + "Word"] = *word;
}

void AddWorded(Json& object, std::string_view name, Json value, const std::string& plain,
               const std::string& shown) {
  AddValue(object, name, std::move(value), shown == plain ? std::nullopt : std::optional(shown));
}

std::optional<std::string> WordOfShown(const Session& session, const SchemaField& stored,
                                       const SchemaField& shownAs, const Variant& value) {
  constexpr RecordNr kAny = 1;  // the code of an entry is the same in the lists of all records
  if (&stored == &shownAs && !Wording::IsShownAsStored(stored)) return {};
  return Wording::WordOf(session, shownAs, kAny, value);
}

Json NumberOf(std::string_view text) {
  if (const std::optional<std::int32_t> number = ParseInteger(text)) return *number;
  if (text.empty() || text == "None") return nullptr;
  return text;
}

std::string LinesOf(std::string_view text) {
  std::string lines;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isReturn = text[i] == '\r';
    if (isReturn && i + 1 < text.size() && text[i + 1] == '\n') continue;
    lines += isReturn ? '\n' : text[i];
  }
  return lines;
}

TextTable ChangeTable(const Session& session, const std::vector<Change>& changes) {
  TextTable table({{""}, {""}, {""}, {""}});
  for (const Change& change : changes) {
    if (change.field == nullptr) {
      table.Add({"table " + std::to_string(change.table->number), change.table->title, "records",
                 ValueText::Of(change.before) + " -> " + ValueText::Of(change.now)});
    } else {
      const auto text = [&](const Variant& value) {
        return Wording::TextOf(session, *change.field, change.record, value);
      };
      const std::string& name = change.field->CommonName();
      const std::string label = session.LabelOf(*change.field);
      table.Add({name, label == name ? "" : label, "record " + std::to_string(change.record),
                 text(change.before) + " -> " + text(change.now)});
    }
  }
  return table;
}

Json JsonOf(const Session& session, const std::vector<Change>& changes) {
  Json list = Json::List();
  for (const Change& change : changes) {
    if (change.field == nullptr) {
      list.Add({{"table", change.table->number},
                {"title", change.table->title},
                {"recordsBefore", JsonOf(change.before)},
                {"recordsNow", JsonOf(change.now)}});
    } else {
      const auto word = [&](const Variant& value) {
        return Wording::WordOf(session, *change.field, change.record, value);
      };
      Json one = {{"name", change.field->CommonName()},
                  {"fieldId", change.field->id},
                  {"label", session.LabelOf(*change.field)},
                  {"record", change.record}};
      AddValue(one, "before", JsonOf(*change.field, change.before), word(change.before));
      AddValue(one, "now", JsonOf(*change.field, change.now), word(change.now));
      list.Add(std::move(one));
    }
  }
  return list;
}

Json JsonOf(const std::vector<Shown>& boxes) {
  Json list = Json::List();
  for (const Shown& box : boxes) {
    Json message = {{"kind", ::NameOf(KindOf(box))}, {"text", LinesOf(box.text)}};
    if (IsQuestion(box.style)) message["answer"] = NameOf(box.answer);
    list.Add(std::move(message));
  }
  return list;
}

void Print(const Outcome& outcome, const Session& session, std::ostream& out) {
  if (!outcome.others.empty()) {
    out << (outcome.accepted ? "Also changed:\n" : "Before it refused, the rule had written (not kept):\n");
    ChangeTable(session, outcome.others).Print(out, 2);
  }
  out << (outcome.filed == Filed::Saved    ? "Saved.\n"
          : outcome.filed == Filed::Staged ? "To be saved at the end of the script.\n"
          : outcome.granted                ? "Dry run: nothing is saved.\n"
                                           : "The file is as it was.\n");
}

void AddTo(Json& data, const Outcome& outcome, const Session& session, const std::vector<Shown>& boxes) {
  if (outcome.filed == Filed::Staged) data["staged"] = true;
  data[outcome.accepted ? "alsoChanged" : "writtenBeforeRefusal"] = JsonOf(session, outcome.others);
  data["messages"] = JsonOf(boxes);
}

}  // namespace Report
