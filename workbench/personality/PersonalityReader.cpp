#include <algorithm>
#include <charconv>
#include <map>
#include <nlohmann/json.hpp>
#include <tuple>
#include <vector>

#include "platform/XArrayDBObject.h"
#include "workbench/files/FileError.h"
#include "workbench/files/JsonReading.h"
#include "workbench/files/Printable.h"
#include "workbench/personality/PersonalityFile.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"

namespace {

/// Where tables, records and cells begin in a document: the number of the table, the record, the name of the
/// field.
using PlaceLines = std::map<std::tuple<std::int32_t, RecordNr, std::string>, int>;

/// Takes the parser's events and fills a provider. Every level of the document opens only where the format
/// has it, so that a nesting deeper than the format's ends the reading at once.
class Reader {
 public:
  Reader(const std::string& file, std::string_view document, const SchemaFiles& schemas)
      : file_(file), document_(document), schemas_(schemas), reached_(document.data()) {}

  std::shared_ptr<Provider> Read() {
    if (document_.find_first_not_of(" \t\r\n") == std::string_view::npos) Refuse("the file is empty");
    const char* end = document_.data() + document_.size();
    nlohmann::json::sax_parse(JsonCursor(document_.data(), end, &reached_), JsonCursor(end, end, &reached_),
                              this);
    return provider_;
  }

  /// Has the reading note in which lines these places stand, which `lines` has as keys.
  void Note(PlaceLines& lines) { lines_ = &lines; }

  // The events; each is true to go on. A refusal leaves by an exception.

  bool start_object(std::size_t) {
    switch (level_) {
      case Level::Start:
        level_ = Level::Document;
        return true;
      case Level::Document:
        if (key_ != "tables") Mismatch("an object");
        level_ = Level::Tables;
        return true;
      case Level::Records:
        StartRecord();
        return true;
      default:
        Mismatch("an object");
    }
  }

  bool start_array(std::size_t) {
    if (level_ == Level::Tables) {
      level_ = Level::Records;
    } else if (level_ == Level::Record && field_->type == FieldType::Array) {
      level_ = Level::Array;
      array_ = std::make_shared<XArrayDBObject>();
      array_->Redim(0, 0, 0, 0);
    } else {
      Mismatch("an array");
    }
    return true;
  }

  bool key(std::string& name) {
    key_ = name;
    switch (level_) {
      case Level::Document:
        CheckDocumentKey();
        break;
      case Level::Tables:
        SelectTable();
        break;
      default:
        SelectField();
    }
    return true;
  }

  bool end_array() {
    if (level_ == Level::Array) {
      Store(ArrayObject(std::move(array_)));
      level_ = Level::Record;
      return true;
    }
    if (record_ < table_->minimum) {
      Refuse("the table has " + std::to_string(record_) + " records, it needs at least " +
             std::to_string(table_->minimum));
    }
    table_ = nullptr;
    level_ = Level::Tables;
    return true;
  }

  bool end_object() {
    switch (level_) {
      case Level::Record:
        field_ = nullptr;
        level_ = Level::Records;
        return true;
      case Level::Tables:
        level_ = Level::Document;
        return true;
      default:
        key_.clear();
        for (const char* name : {"format", "version", "tables"}) {
          if (std::ranges::find(documentKeys_, name) == documentKeys_.end()) {
            Refuse("\"" + std::string(name) + "\" is missing");
          }
        }
        return true;
    }
  }

  bool null() { Mismatch("null"); }

  bool boolean(bool value) {
    if (level_ != Level::Record || field_->type != FieldType::Flag) Mismatch(value ? "true" : "false");
    return Store(value);
  }

  bool number_integer(std::int64_t value) { return Integer(value, value < INT32_MIN); }
  bool number_unsigned(std::uint64_t value) {
    return Integer(static_cast<std::int64_t>(value), value > INT32_MAX);
  }

  bool number_float(double value, const std::string& text) {
    if (level_ != Level::Record || field_->type != FieldType::Number) Mismatch("the number " + text);
    return Store(value);
  }

  bool string(std::string& text) {
    if (level_ == Level::Document) return DocumentText(text);
    if (level_ != Level::Record || field_->type != FieldType::Text) Mismatch("a text");
    return Store(std::move(text));
  }

  bool binary(nlohmann::json::binary_t&) { Mismatch("binary data"); }

  bool parse_error(std::size_t, const std::string&, const nlohmann::json::exception& error) {
    Refuse(ReadableJsonError(error.what()));
  }

 private:
  enum class Level { Start, Document, Tables, Records, Record, Array };

  void CheckDocumentKey() {
    if (key_ != "format" && key_ != "version" && key_ != "tables") Refuse("unknown name");
    if (std::ranges::find(documentKeys_, key_) != documentKeys_.end()) Refuse("given twice");
    documentKeys_.push_back(key_);
    if (key_ == "tables" && provider_ == nullptr) Refuse("\"version\" has to stand before the tables");
  }

  bool DocumentText(const std::string& text) {
    if (key_ == "format") {
      if (text != PersonalityFile::kFormat) {
        Refuse(Printable::Quoted(text) + " is not \"" + std::string(PersonalityFile::kFormat) + "\"");
      }
    } else if (key_ == "version") {
      MakeProvider(text);
    } else {
      Mismatch("a text");
    }
    return true;
  }

  void MakeProvider(const std::string& version) {
    try {
      provider_ = std::make_shared<Provider>(schemas_.At(version));
    } catch (const FileError& error) {
      Refuse(error.Reason());
    }
    tableSeen_.resize(provider_->GetSchema().Tables().size());
    fieldSeen_.resize(provider_->GetSchema().Fields().size());
  }

  void SelectTable() {
    const Schema& schema = provider_->GetSchema();
    std::int32_t number = -1;
    const char* end = key_.data() + key_.size();
    const auto [stop, error] = std::from_chars(key_.data(), end, number);
    const bool isNumber = error == std::errc() && stop == end && std::to_string(number) == key_;
    const SchemaTable* table = isNumber ? schema.FindTable(number) : nullptr;
    if (table == nullptr) Refuse("version " + schema.Version() + " has no such table");
    if (!table->IsRaw()) Refuse("the table is one of the forms and is not stored");
    if (tableSeen_[table->index]) Refuse("given twice");
    tableSeen_[table->index] = true;
    table_ = table;
    record_ = 0;
    if (lines_ != nullptr) NoteLine("");
  }

  void StartRecord() {
    ++record_;
    if (record_ > table_->maximum) {
      Refuse("the table holds at most " + std::to_string(table_->maximum) + " records");
    }
    if (record_ > provider_->Count(*table_)) provider_->SetCount(table_->number, record_);
    std::fill_n(fieldSeen_.begin() + static_cast<std::ptrdiff_t>(table_->firstField), table_->fieldCount,
                false);
    nextField_ = 0;
    level_ = Level::Record;
    if (lines_ != nullptr) NoteLine("");
  }

  void NoteLine(const std::string& field) {
    const auto wanted = lines_->find({table_->number, record_, field});
    if (wanted != lines_->end()) wanted->second = LineReached(document_, reached_);
  }

  /// Fields mostly come in the schema's order, so the search starts behind the last one.
  void SelectField() {
    const auto fields = provider_->GetSchema().FieldsOf(*table_);
    const SchemaField* found = nullptr;
    for (std::size_t i = 0; i < fields.size() && found == nullptr; ++i) {
      const SchemaField& field = fields[(nextField_ + i) % fields.size()];
      if (field.Name() == key_) found = &field;
    }
    if (found == nullptr)
      Refuse("the table has no such field in version " + provider_->GetSchema().Version());
    if (!found->IsRaw()) Refuse("the field is one of the forms and is not stored");
    if (fieldSeen_[found->index]) Refuse("given twice");
    fieldSeen_[found->index] = true;
    nextField_ = found->column + 1;
    field_ = found;
    if (lines_ != nullptr) NoteLine(key_);
  }

  bool Integer(std::int64_t value, bool outside) {
    const bool isElement = level_ == Level::Array;
    const bool isValue = level_ == Level::Record && field_->type != FieldType::Text &&
                         field_->type != FieldType::Flag && field_->type != FieldType::Array;
    if (!isElement && !isValue) Mismatch("a number");
    if (isValue && field_->type == FieldType::Number) return Store(static_cast<double>(value));
    if (outside) Refuse("the number lies outside 32 bits");
    if (isValue) return Store(static_cast<std::int32_t>(value));
    const std::int32_t row = array_->UpperBound(1) + 1;
    array_->AppendRows(1, 1);
    array_->SetValue(row, 0, static_cast<std::int32_t>(value));
    return true;
  }

  bool Store(Variant value) {
    provider_->Set(*field_, record_, std::move(value));
    return true;
  }

  std::string Expected() const {
    switch (level_) {
      case Level::Start:
        return "an object";
      case Level::Document:
        return key_ == "tables" ? "an object" : "a text";
      case Level::Tables:
        return "an array of records";
      case Level::Records:
        return "an object";
      case Level::Array:
        return "an integer";
      case Level::Record:
        break;
    }
    switch (field_->type) {
      case FieldType::Integer:
        return "an integer";
      case FieldType::Number:
        return "a number";
      case FieldType::Text:
        return "a text";
      case FieldType::Flag:
        return "true or false";
      case FieldType::Array:
        return "an array of integers";
    }
    return {};
  }

  [[noreturn]] void Mismatch(const std::string& found) const {
    Refuse(Expected() + " is expected here, not " + found);
  }

  std::string Place() const {
    if (level_ == Level::Start || level_ == Level::Document) return key_;
    if (table_ == nullptr) return "tables." + key_;
    std::string place = "tables." + std::to_string(table_->number);
    if (record_ > 0) place += "[" + std::to_string(record_) + "]";
    if (level_ == Level::Record || level_ == Level::Array) place += "." + key_;
    return place;
  }

  /// The line of the last character that belongs to the event in hand; behind a number the parser has read
  /// one more.
  [[noreturn]] void Refuse(const std::string& reason) const {
    throw FileError(file_, LineReached(document_, reached_), Place(), reason);
  }

  const std::string& file_;
  std::string_view document_;
  const SchemaFiles& schemas_;
  const char* reached_;
  PlaceLines* lines_ = nullptr;
  std::shared_ptr<Provider> provider_;
  Level level_ = Level::Start;
  std::string key_;
  std::vector<std::string> documentKeys_;
  std::vector<bool> tableSeen_;
  std::vector<bool> fieldSeen_;  // by the field's index, for the record in hand
  const SchemaTable* table_ = nullptr;
  RecordNr record_ = 0;
  const SchemaField* field_ = nullptr;
  std::size_t nextField_ = 0;
  std::shared_ptr<XArrayDBObject> array_;
};

}  // namespace

std::shared_ptr<Provider> PersonalityFile::Parse(const std::string& file, std::string_view document,
                                                 const SchemaFiles& schemas) {
  return Reader(file, document, schemas).Read();
}

std::vector<int> PersonalityFile::LinesOf(const std::string& file, std::string_view document,
                                          const SchemaFiles& schemas, std::span<const Place> places) {
  PlaceLines lines;
  for (const Place& place : places) {
    lines[{place.table->number, 0, ""}] = 0;
    lines[{place.table->number, place.record, ""}] = 0;
    if (place.field != nullptr)
      lines[{place.table->number, place.record, std::string(place.field->Name())}] = 0;
  }
  Reader reader(file, document, schemas);
  reader.Note(lines);
  reader.Read();
  std::vector<int> found;
  for (const Place& place : places) {
    const std::string field(place.field == nullptr ? "" : place.field->Name());
    int line = lines[{place.table->number, place.record, field}];
    if (line == 0) line = lines[{place.table->number, place.record, ""}];
    found.push_back(line == 0 ? lines[{place.table->number, 0, ""}] : line);
  }
  return found;
}
