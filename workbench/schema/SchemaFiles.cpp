#include <algorithm>
#include <iterator>

#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "platform/System.h"
#include "platform/XArrayDBObject.h"
#include "workbench/files/FileError.h"
#include "workbench/files/Printable.h"
#include "workbench/files/TabbedFile.h"
#include "workbench/schema/Schema.h"

namespace {
constexpr std::string_view kKinds[] = {"raw", "form"};                   // StorageKind
constexpr std::string_view kFieldKinds[] = {"raw", "form", "in-place"};  // the last is Raw, too
constexpr std::string_view kTypes[] = {"integer", "number", "text", "boolean", "array"};  // FieldType
constexpr std::string_view kScopes[] = {"record", "table"};                               // FieldScope
constexpr std::size_t kRequired = std::string_view::npos;  // an empty cell is no choice

namespace table_columns {
constexpr std::string_view kNames[] = {"table", "title", "kind", "minimum", "maximum", "first", "last"};
enum : std::size_t { kTable, kTitle, kKind, kMinimum, kMaximum, kFirst, kLast };
}  // namespace table_columns

namespace field_columns {
constexpr std::string_view kNames[] = {"table",      "field",   "uiid",  "kind",  "type",      "default",
                                       "minimum",    "maximum", "scale", "units", "transform", "scope",
                                       "validation", "width",   "first", "last",  "twin"};
enum : std::size_t {
  kTable,
  kField,
  kUiid,
  kKind,
  kType,
  kDefault,
  kMinimum,
  kMaximum,
  kScale,
  kUnits,
  kTransform,
  kScope,
  kValidation,
  kWidth,
  kFirst,
  kLast,
  kTwin
};
}  // namespace field_columns

namespace words_columns {
constexpr std::string_view kNames[] = {"field", "words", "first", "last"};
enum : std::size_t { kField, kWords, kFirst, kLast };
}  // namespace words_columns

namespace layout_columns {
constexpr std::string_view kNames[] = {"table",  "owner",  "each",  "ownerless", "key",
                                       "number", "upkeep", "first", "last"};
enum : std::size_t { kTable, kOwner, kEach, kOwnerless, kKey, kNumber, kUpkeep, kFirst, kLast };
}  // namespace layout_columns
constexpr std::string_view kUpkeeps[] = {"", "save", "anew", "first-save", "first-save-in-place"};  // Upkeep

namespace reference_columns {
constexpr std::string_view kNames[] = {"field", "table", "counts", "selector", "selected", "first", "last"};
enum : std::size_t { kField, kTable, kCounts, kSelector, kSelected, kFirst, kLast };
}  // namespace reference_columns
constexpr std::string_view kCounting[] = {"from-0",         "from-0-or-none", "from-1",
                                          "from-1-or-none", "number",         "number-or-none"};  // Counts

constexpr struct {
  std::string_view model;
  std::int32_t oldest;
} kModels[] = {{"KD4410", 29}, {"KE2210 Rx", 87}, {"KE2210 Tx", 87}};
constexpr std::int32_t kNumbers[] = {29, 51, 52, 53, 54, 81, 82, 83, 84, 85, 86, 87, 88, 89, 90, 91, 93, 94};

std::vector<VersionName> AllVersions() {
  std::vector<VersionName> versions;
  for (const auto& [model, oldest] : kModels) {
    for (const std::int32_t number : kNumbers) {
      if (number >= oldest) versions.push_back({std::string(model), number});
    }
  }
  return versions;
}

[[noreturn]] void RaiseUnknownVersion(std::string_view text) {
  std::string known, meant;
  for (const VersionName& version : SchemaFiles::Versions()) {
    known += (known.empty() ? "" : ", ") + version.Text();
    if (version.IsMeantBy(text)) meant += (meant.empty() ? "" : ", ") + version.Text();
  }
  throw FileError("", 0, "version",
                  Printable::Quoted(text) + (meant.empty() ? " is none of " + known
                                                           : " names no model; did you mean " + meant + "?"));
}

/// A sequence of codes that blanks separate. Row 0 is not used: the one of no codes has that row alone.
Variant CodesOf(const TabbedFile& file, std::size_t column) {
  auto array = std::make_shared<XArrayDBObject>();
  array->Redim(0, 0, 0, 0);
  std::string_view codes = file.Cell(column);
  while (!codes.empty()) {
    const std::size_t end = std::min(codes.find(' '), codes.size());
    const auto code = ParseInteger(codes.substr(0, end));
    if (!code) file.Fail(column, "not integers with one blank between them");
    array->AppendRows(1, 1);
    array->SetValue(array->UpperBound(1), 0, *code);
    codes.remove_prefix(std::min(end + 1, codes.size()));
  }
  return ArrayObject(std::move(array));
}

Variant DefaultOf(const TabbedFile& file, FieldType type) {
  using namespace field_columns;
  constexpr std::string_view kFlags[] = {"false", "true", "0", "-1"};
  const bool isGiven = !file.Cell(kDefault).empty();
  switch (type) {
    case FieldType::Integer:
      return file.Integer(kDefault, 0);
    case FieldType::Number:
      return isGiven ? file.Number(kDefault) : 0.0;
    case FieldType::Text:
      return file.Cell(kDefault);
    case FieldType::Flag:
      return file.Choice(kDefault, kFlags, 0) % 2 == 1;
    case FieldType::Array:
      return CodesOf(file, kDefault);
  }
  return {};
}

std::vector<std::string> SplitNames(std::string_view names) {
  std::vector<std::string> parts;
  while (!names.empty()) {
    const std::size_t end = std::min(names.find('|'), names.size());
    if (end > 0) parts.emplace_back(names.substr(0, end));
    names.remove_prefix(std::min(end + 1, names.size()));
  }
  return parts;
}

/// An integer that has a range, with a default outside it. That of a scaled field is in other units.
bool IsIdentity(const TabbedFile& file, const SchemaField& field) {
  using namespace field_columns;
  if (field.type != FieldType::Integer || !field.IsUnscaled()) return false;
  if (file.Cell(kMinimum).empty() || file.Cell(kMaximum).empty()) return false;
  const std::int32_t standard = CLng(field.standard);
  return standard < field.minimum || standard > field.maximum;
}

std::int32_t WidthOf(const TabbedFile& file, const SchemaField& field) {
  using namespace field_columns;
  if (file.Cell(kWidth).empty()) return 0;
  const std::int32_t width = file.Integer(kWidth);
  if (width < 1) file.Fail(kWidth, "less than 1");
  const bool hasWidth = field.type == FieldType::Text || field.type == FieldType::Number;
  if (!hasWidth) file.Fail(kWidth, "only a text or a number with decimals has a width");
  return width;
}

SchemaField FieldOfRow(const TabbedFile& file) {
  using namespace field_columns;
  SchemaField field;
  field.table = file.Integer(kTable);
  if (file.Cell(kField).empty()) file.Fail(kField, "a field needs a name");
  field.id = std::to_string(field.table) + "." + std::string(file.Cell(kField));
  field.uiids = SplitNames(file.Cell(kUiid));
  const auto kind = file.Choice(kKind, kFieldKinds, kRequired);
  field.isInPlace = kind == std::size(kKinds);
  field.kind = field.isInPlace ? StorageKind::Raw : static_cast<StorageKind>(kind);
  field.type = static_cast<FieldType>(file.Choice(kType, kTypes, kRequired));
  field.shownStandard = DefaultOf(file, field.type);
  field.minimum = file.Integer(kMinimum, 0);
  field.maximum = file.Integer(kMaximum, 0);
  if (field.minimum > field.maximum) file.Fail(kMaximum, "less than the minimum");
  field.scale = CCur(file.Cell(kScale).empty() ? 1.0 : file.Number(kScale));
  field.standard =
      field.isInPlace ? RoundToLong(CDbl(field.shownStandard) * CDbl(field.scale)) : field.shownStandard;
  field.units = file.Cell(kUnits);
  field.transform = file.Integer(kTransform, 0);
  field.scope = static_cast<FieldScope>(file.Choice(kScope, kScopes, 0));
  field.validation = file.Cell(kValidation);
  field.width = WidthOf(file, field);
  field.twin = file.Cell(kTwin);
  field.isIdentity = IsIdentity(file, field);
  if (field.type == FieldType::Flag) field.words = std::make_shared<const CodeWords>(CodeWords::Tick());
  return field;
}

bool IsWithin(const SchemaField& field, std::int32_t code) {
  return field.minimum >= field.maximum || (field.minimum <= code && code <= field.maximum);
}

/// What the words of a row can not be given to; empty for a field that takes them.
std::string WordsRefusal(const SchemaField& field, const CodeWords& words) {
  if (field.type == FieldType::Flag) return words.IsTick() ? "" : "is a flag: its words are those of a tick";
  if (field.type != FieldType::Integer || !field.IsUnscaled()) return "holds no codes";
  const bool isTick = field.minimum == 0 && field.maximum == 1;
  return words.IsTick() && !isTick ? "is no tick: its limits are not 0 and 1" : "";
}

/// Those of the codes that the field knows.
std::shared_ptr<const CodeWords> WordsFor(const SchemaField& field,
                                          const std::shared_ptr<const CodeWords>& words) {
  const auto isKnown = [&](const CodeWords::Entry& entry) { return IsWithin(field, entry.code); };
  if (std::ranges::all_of(words->Entries(), isKnown)) return words;
  std::vector<CodeWords::Entry> known;
  std::ranges::copy_if(words->Entries(), std::back_inserter(known), isKnown);
  return std::make_shared<const CodeWords>(std::move(known));
}

/// The row says names of its own table alone: they become FieldIds.
SchemaLayout LayoutOf(const TabbedFile& file) {
  using namespace layout_columns;
  const std::string table = std::string(file.Cell(kTable)) + ".";
  SchemaLayout layout;
  layout.owner = file.Integer(kOwner, 0);
  layout.each = file.Integer(kEach, 0);
  layout.ownerless = file.Integer(kOwnerless, 0);
  if (layout.each < 0 || (layout.each > 0 && layout.owner == 0)) file.Fail(kEach, "of no owner's record");
  if (layout.ownerless < 0) file.Fail(kOwnerless, "less than 0");
  for (const std::string& name : SplitNames(file.Cell(kKey))) layout.key.push_back(table + name);
  if (!file.Cell(kNumber).empty()) layout.number = table + std::string(file.Cell(kNumber));
  layout.upkeep = static_cast<Upkeep>(file.Choice(kUpkeep, kUpkeeps, 0));
  return layout;
}

SchemaTable TableOfRow(const TabbedFile& file) {
  using namespace table_columns;
  SchemaTable table;
  table.number = file.Integer(kTable);
  table.title = file.Cell(kTitle);
  table.kind = static_cast<StorageKind>(file.Choice(kKind, kKinds, kRequired));
  table.minimum = file.Integer(kMinimum);
  table.maximum = file.Integer(kMaximum);
  if (table.minimum < 0) file.Fail(kMinimum, "less than 0");
  if (table.minimum > table.maximum) file.Fail(kMaximum, "less than the minimum");
  return table;
}
}  // namespace

const std::vector<VersionName>& SchemaFiles::Versions() {
  static const std::vector<VersionName> versions = AllVersions();
  return versions;
}

std::vector<VersionName> SchemaFiles::VersionsOf(std::string_view model) {
  std::vector<VersionName> versions;
  std::ranges::copy_if(Versions(), std::back_inserter(versions),
                       [&](const VersionName& version) { return version.model == model; });
  return versions;
}

const VersionName& SchemaFiles::VersionOf(std::string_view text) {
  const auto found = std::ranges::find(Versions(), text, &VersionName::Text);
  if (found == Versions().end()) RaiseUnknownVersion(text);
  return *found;
}

SchemaFiles::VersionRange SchemaFiles::RangeOf(const TabbedFile& file, std::size_t first, std::size_t last) {
  const VersionRange every;
  const VersionRange range{file.Integer(first, every.first), file.Integer(last, every.last)};
  if (range.first > range.last) file.Fail(last, "less than the first version");
  return range;
}

void SchemaFiles::ReadTables() {
  using namespace table_columns;
  TabbedFile file(tablesFile_, kNames);
  while (file.NextRow()) {
    const TableRow row{TableOfRow(file), RangeOf(file, kFirst, kLast), file.Line()};
    auto& rows = rowsOfTable_[row.table.number];
    for (const std::size_t other : rows) {
      if (tables_[other].versions.Overlaps(row.versions)) {
        file.Fail(kTable, "described for the same versions in line " + std::to_string(tables_[other].line));
      }
    }
    rows.push_back(tables_.size());
    tables_.push_back(row);
  }
}

void SchemaFiles::ReadFields() {
  using namespace field_columns;
  TabbedFile file(fieldsFile_, kNames);
  while (file.NextRow()) {
    FieldRow row{FieldOfRow(file), RangeOf(file, kFirst, kLast), file.Line()};
    if (!HasTable(row.field.table, row.versions))
      file.Fail(kTable, "no such table in each version of the field");
    fields_.push_back(std::move(row));
  }
  CheckNames();
}

bool SchemaFiles::HasTable(std::int32_t number, const VersionRange& versions) const {
  const auto found = rowsOfTable_.find(number);
  if (found == rowsOfTable_.end()) return false;
  return std::ranges::all_of(kNumbers, [&](std::int32_t version) {
    return !versions.Holds(version) || std::ranges::any_of(found->second, [&](std::size_t table) {
      return tables_[table].versions.Holds(version);
    });
  });
}

bool SchemaFiles::IsStored(std::string_view id, const VersionRange& versions) const {
  const auto found = rowsOfName_.find(id);
  if (found == rowsOfName_.end()) return false;
  return std::ranges::all_of(kNumbers, [&](std::int32_t version) {
    return !versions.Holds(version) || std::ranges::any_of(found->second, [&](const FieldRow* row) {
      return row->versions.Holds(version) && row->field.IsRaw() && row->field.id == id;
    });
  });
}

void SchemaFiles::CheckNames() {
  const auto check = [&](std::string_view name, FieldRow& row) {
    auto& rows = rowsOfName_[name];
    for (const FieldRow* other : rows) {
      if (!other->versions.Overlaps(row.versions)) continue;
      throw FileError(fieldsFile_, row.line, std::string(name),
                      "the name is taken for the same versions in line " + std::to_string(other->line));
    }
    rows.push_back(&row);
  };
  constexpr std::size_t kNamesPerField = 2;
  rowsOfName_.reserve(fields_.size() * kNamesPerField);
  for (FieldRow& row : fields_) {
    check(row.field.id, row);
    for (const std::string& uiid : row.field.uiids) check(uiid, row);
  }
}

void SchemaFiles::ReadWords() {
  using namespace words_columns;
  TabbedFile file(wordsFile_, kNames);
  while (file.NextRow()) {
    const WordsRow row{std::make_shared<const CodeWords>(CodeWords::Read(file, kWords)),
                       RangeOf(file, kFirst, kLast), file.Line()};
    for (const std::string& name : SplitNames(file.Cell(kField))) {
      std::vector<FieldRow*> meant;
      if (const auto found = rowsOfName_.find(name); found != rowsOfName_.end()) meant = found->second;
      std::erase_if(meant, [&](const FieldRow* field) { return !field->versions.Overlaps(row.versions); });
      if (meant.empty()) file.Fail(kField, "no version of the row has a field " + name);
      GiveWords(file, meant, row);
    }
  }
}

void SchemaFiles::GiveWords(const TabbedFile& file, std::span<FieldRow* const> fields, const WordsRow& row) {
  using namespace words_columns;
  const std::string& id = fields.front()->field.id;
  for (FieldRow* field : fields) {
    const std::string refusal = WordsRefusal(field->field, *row.words);
    if (!refusal.empty()) file.Fail(kField, std::string(id).append(" ").append(refusal));
    for (const WordsRow& other : field->words) {
      if (!other.versions.Overlaps(row.versions)) continue;
      file.Fail(kField, id + " has words for the same versions in line " + std::to_string(other.line));
    }
    field->words.push_back(row);
  }
  for (const CodeWords::Entry& entry : row.words->Entries()) {
    const bool isKnown = std::ranges::any_of(
        fields, [&](const FieldRow* field) { return IsWithin(field->field, entry.code); });
    if (!isKnown) {
      file.Fail(kWords, "code " + std::to_string(entry.code) + " is outside the limits of " + id);
    }
  }
}

SchemaFiles::LayoutRow SchemaFiles::LayoutOfRow(const TabbedFile& file) const {
  using namespace layout_columns;
  LayoutRow row{file.Integer(kTable), LayoutOf(file), RangeOf(file, kFirst, kLast)};
  const SchemaLayout& layout = row.layout;
  if (!HasTable(row.table, row.versions)) file.Fail(kTable, "no such table in each version of the row");
  if (layout.owner != 0 && !HasTable(layout.owner, row.versions))
    file.Fail(kOwner, "no such table in each version of the row");
  for (const std::string& field : layout.key) {
    if (!IsStored(field, row.versions)) file.Fail(kKey, field + " is not stored in each version of the row");
  }
  if (!layout.number.empty() && !IsStored(layout.number, row.versions))
    file.Fail(kNumber, layout.number + " is not stored in each version of the row");
  for (const LayoutRow& other : layouts_) {
    if (other.table == row.table && other.versions.Overlaps(row.versions))
      file.Fail(kTable, "described for the same versions in a row before");
  }
  return row;
}

void SchemaFiles::ReadLayouts() {
  TabbedFile file(layoutsFile_, layout_columns::kNames);
  while (file.NextRow()) layouts_.push_back(LayoutOfRow(file));
}

SchemaFiles::ReferenceRow SchemaFiles::ReferenceOfRow(const TabbedFile& file) const {
  using namespace reference_columns;
  ReferenceRow row{std::string(file.Cell(kField)), {}, RangeOf(file, kFirst, kLast)};
  SchemaReference& reference = row.reference;
  reference.table = file.Integer(kTable);
  reference.counts = static_cast<Counts>(file.Choice(kCounts, kCounting, kRequired));
  reference.selector = file.Cell(kSelector);
  if (!reference.selector.empty()) reference.selected = file.Integer(kSelected);
  if (!IsStored(row.field, row.versions)) file.Fail(kField, "not stored in each version of the row");
  if (!HasTable(reference.table, row.versions)) file.Fail(kTable, "no such table in each version of the row");
  const auto tableOf = [](const std::string& id) { return id.substr(0, id.find('.')); };
  const bool isOfRecord =
      IsStored(reference.selector, row.versions) && tableOf(reference.selector) == tableOf(row.field);
  if (!reference.selector.empty() && !isOfRecord)
    file.Fail(kSelector, "not stored beside the field in each version of the row");
  const auto hasNumber = [&](const LayoutRow& layout) {
    return layout.table == reference.table && !layout.layout.number.empty();
  };
  if (reference.IsByNumber() && std::ranges::none_of(layouts_, hasNumber))
    file.Fail(kCounts, "the table has no number in " + layoutsFile_);
  return row;
}

void SchemaFiles::ReadReferences() {
  TabbedFile file(referencesFile_, reference_columns::kNames);
  while (file.NextRow()) references_.push_back(ReferenceOfRow(file));
}

std::shared_ptr<const SchemaFiles> SchemaFiles::Read(const std::string& folder) {
  auto files = std::make_shared<SchemaFiles>();
  files->tablesFile_ = System::PathIn(folder, "tables.tsv");
  files->fieldsFile_ = System::PathIn(folder, "fields.tsv");
  files->wordsFile_ = System::PathIn(folder, "words.tsv");
  files->layoutsFile_ = System::PathIn(folder, "layouts.tsv");
  files->referencesFile_ = System::PathIn(folder, "references.tsv");
  files->ReadTables();
  files->ReadFields();
  files->ReadWords();
  files->ReadLayouts();
  files->ReadReferences();
  return files;
}

std::shared_ptr<const Schema> SchemaFiles::At(std::string_view version) const {
  if (const auto found = made_.find(version); found != made_.end()) return found->second;
  auto schema = Make(VersionOf(version));
  made_.emplace(version, schema);
  return schema;
}

std::shared_ptr<const Schema> SchemaFiles::Make(const VersionName& version) const {
  std::vector<SchemaTable> tables;
  std::vector<SchemaField> fields;
  std::unordered_map<std::int32_t, std::vector<const FieldRow*>> fieldsOfTable;
  for (const FieldRow& row : fields_) {
    if (row.versions.Holds(version.number)) fieldsOfTable[row.field.table].push_back(&row);
  }
  for (const TableRow& row : tables_) {
    if (!row.versions.Holds(version.number)) continue;
    SchemaTable& table = tables.emplace_back(row.table);
    table.index = tables.size() - 1;
    table.firstField = fields.size();
    for (const FieldRow* fieldRow : fieldsOfTable[table.number]) {
      SchemaField& field = fields.emplace_back(fieldRow->field);
      field.index = fields.size() - 1;
      field.tableIndex = table.index;
      field.column = field.index - table.firstField;
      for (const WordsRow& words : fieldRow->words) {
        if (words.versions.Holds(version.number)) field.words = WordsFor(field, words.words);
      }
    }
    table.fieldCount = fields.size() - table.firstField;
  }
  Link(version.number, tables, fields);
  return std::make_shared<const Schema>(version, std::move(tables), std::move(fields));
}

void SchemaFiles::Link(std::int32_t version, std::vector<SchemaTable>& tables,
                       std::vector<SchemaField>& fields) const {
  for (const LayoutRow& row : layouts_) {
    if (!row.versions.Holds(version)) continue;
    std::ranges::find(tables, row.table, &SchemaTable::number)->layout = row.layout;
  }
  std::unordered_map<std::string_view, SchemaField*> fieldOf;
  for (SchemaField& field : fields) fieldOf.emplace(field.id, &field);
  for (const ReferenceRow& row : references_) {
    if (row.versions.Holds(version)) fieldOf.at(row.field)->references.push_back(row.reference);
  }
}
