#include "workbench/cli/FieldSheet.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <optional>
#include <ostream>
#include <utility>
#include <vector>

#include "platform/Conversions.h"
#include "workbench/cli/Report.h"
#include "workbench/cli/TextTable.h"
#include "workbench/cli/Workplace.h"
#include "workbench/files/TabbedFile.h"
#include "workbench/jobs/ComboList.h"
#include "workbench/jobs/Control.h"
#include "workbench/jobs/Forms.h"
#include "workbench/jobs/Session.h"
#include "workbench/jobs/Wording.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"

namespace {

class FieldSheet {
 public:
  FieldSheet(const SchemaField& field, const std::string& uiid, Session& session)
      : field_(field),
        session_(session),
        control_{field, uiid, ""},
        words_(Wording::WordsOf(session.Host(), field)),
        list_(ListOffered(session.Host(), session.Content(), uiid, kNew)),
        limits_(LimitsOf(field)) {
    for (Control& control : Forms::Controls(session)) {
      if (&control.field == &field && control.uiid == uiid) control_.grid = std::move(control.grid);
    }
    if (const auto reason = session.Host().ReasonOf(uiid, kNew)) condition_ = reason->condition;
  }

  Json AsJson() const {
    Json json = {{"uiid", control_.uiid},  {"label", session_.LabelOf(control_.uiid)},
                 {"fieldId", field_.id},   {"table", field_.table},
                 {"title", Table().title}, {"control", Kind()}};
    if (!field_.units.empty()) json["unit"] = field_.units;
    if (HasLimits()) {
      json["minimum"] = field_.minimum;
      json["maximum"] = field_.maximum;
    }
    if (IsNumber() && field_.width > 0) json["decimals"] = field_.width;
    if (!field_.validation.empty()) json["characters"] = field_.validation;
    if (!IsNumber() && field_.width > 0) json["longest"] = field_.width;
    Report::AddValue(json, "default", Report::JsonOf(field_, field_.shownStandard), DefaultWord());
    json["entries"] = Entries();
    json["form"] = FormTitle();
    json["enabledWhen"] = condition_;
    return json;
  }

  void Print(std::ostream& out) const {
    out << session_.LabelOf(control_.uiid) << " (" << control_.uiid << ")\n";
    TextTable facts({{""}, {""}});
    facts.Add(
        {"FieldId", field_.id + ", table " + std::to_string(field_.table) + " (" + Table().title + ")"});
    facts.Add({"Control", std::string(Kind())});
    const std::string unit = field_.units.empty() ? "" : " " + field_.units;
    if (HasLimits()) facts.Add({"Range", CStr(field_.minimum) + " to " + CStr(field_.maximum) + unit});
    if (!HasLimits() && !unit.empty()) facts.Add({"Unit", field_.units});
    if (IsNumber() && field_.width > 0) facts.Add({"Decimals", "at most " + CStr(field_.width)});
    if (!field_.validation.empty()) facts.Add({"Characters", field_.validation});
    if (!IsNumber() && field_.width > 0) facts.Add({"Longest", CStr(field_.width) + " characters"});
    const std::string standard = DefaultWord().value_or(CStr(field_.shownStandard));
    facts.Add({"Default", standard.empty() ? "empty" : standard});
    if (!FormTitle().empty()) facts.Add({"Form", FormTitle()});
    facts.Add({"Enabled", condition_.empty() ? "always" : "when " + condition_});
    facts.Print(out, 2);
    PrintEntries(out);
  }

 private:
  static constexpr RecordNr kNew = 1;  // of a new personality, or the one to come

  const SchemaTable& Table() const { return session_.Content().GetSchema().TableOf(field_); }
  std::string_view Kind() const { return ControlKindOf(field_, words_, list_.has_value()); }
  bool IsNumber() const { return field_.type == FieldType::Number; }
  bool HasLimits() const {
    return (IsNumber() || field_.type == FieldType::Integer) && limits_.lowest < limits_.highest && !list_;
  }
  std::optional<std::string> DefaultWord() const { return words_.WordOf(field_.shownStandard); }
  std::string FormTitle() const {
    const Form* form = Forms::FormOf(control_);
    return form == nullptr ? control_.grid : std::string(form->title);
  }

  /// What the list offers, else the words of the codes.
  std::vector<ComboItem> Offered() const {
    if (list_) return list_->items;
    std::vector<ComboItem> items;
    for (const auto& [code, word] : words_.Entries()) items.push_back({word, code});
    return items;
  }
  Json Entries() const {
    Json entries = Json::List();
    for (const ComboItem& item : Offered()) {
      Json entry = {{"item", item.text}};
      if (item.code) entry["code"] = *item.code;
      entries.Add(std::move(entry));
    }
    return entries;
  }
  void PrintEntries(std::ostream& out) const {
    const std::vector<ComboItem> items = Offered();
    if (items.empty()) return;
    out << (list_ ? "  Its list in a new personality (see: kd4410 combo FILE UIID):\n" : "  Its codes:\n");
    TextTable table({{"", TextTable::Align::Right}, {""}});
    for (auto item = items.begin(); item != items.end();) {
      const auto end = EndOfRun(item, items.end());
      const bool isRun = end - item > 1;
      table.Add({item->code ? CStr(*item->code) : "",
                 isRun ? item->text + " to " + std::prev(end)->text : item->text});
      item = end;
    }
    table.Print(out, 4);
  }
  using Item = std::vector<ComboItem>::const_iterator;
  /// Behind the numbers, one above the other, that begin with the item and have no codes; behind the item
  /// where that are none.
  static Item EndOfRun(Item item, Item last) {
    const auto number = [](const ComboItem& of) { return of.code ? std::nullopt : ParseInteger(of.text); };
    const Item end = std::adjacent_find(item, last, [&](const ComboItem& one, const ComboItem& next) {
      return !number(one) || number(next) != std::int64_t{*number(one)} + 1;
    });
    return end == last ? last : std::next(end);
  }

  const SchemaField& field_;
  Session& session_;
  Control control_;
  CodeWords words_;
  std::optional<ComboList> list_;
  Limits limits_;
  std::string condition_;
};

}  // namespace

void TellField(const SchemaField& field, const std::string& uiid, const std::string& version,
               Workplace& workplace) {
  Session session(workplace.Parts(), NewPersonality(workplace.Schemas(), version), workplace.Messenger());
  session.ConvertToForms();
  const FieldSheet sheet(field, uiid, session);
  workplace.Tell(
      [&] {
        return Json({{"version", version}, {"field", sheet.AsJson()}});
      },
      [&](std::ostream& out) { sheet.Print(out); });
}
