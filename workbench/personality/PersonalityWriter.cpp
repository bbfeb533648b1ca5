#include <algorithm>
#include <charconv>
#include <cmath>
#include <nlohmann/json.hpp>
#include <vector>

#include "platform/Conversions.h"
#include "platform/XArrayDBObject.h"
#include "workbench/files/FileError.h"
#include "workbench/files/Printable.h"
#include "workbench/personality/PersonalityFile.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"

namespace {

constexpr std::size_t kLineWidth = 120;

std::string JsonText(const std::string& text) { return nlohmann::json(text).dump(); }

/// The shortest form that reads back as the same double; whole numbers without an exponent.
std::string JsonNumber(double value) {
  if (!std::isfinite(value)) throw Error(ErrorNumber::kOverflow, "JsonNumber", "it is not a finite number");
  constexpr double kExactIntegers = 1e15;
  const auto format =
      std::abs(value) < kExactIntegers ? std::chars_format::fixed : std::chars_format::general;
  char text[400];  // a fixed form below 1e15 has at most 15 + 1 + 340 characters
  const auto end = std::to_chars(std::begin(text), std::end(text), value + 0.0, format).ptr;
  return {text, end};
}

std::string JsonArray(const Variant& value) {
  std::string text = "[";
  if (value.IsEmpty()) return text + "]";
  const XArrayDBObject& array = CArray(value);
  for (std::int32_t row = 1; row <= array.UpperBound(1); ++row) {
    if (row > 1) text += ", ";
    text += std::to_string(CLng(array.GetValue(row, 0)));
  }
  return text + "]";
}

std::string JsonValue(const SchemaField& field, const Variant& value) {
  switch (field.type) {
    case FieldType::Integer:
      return std::to_string(CLng(value));
    case FieldType::Number:
      return JsonNumber(CDbl(value));
    case FieldType::Text:
      return JsonText(CStr(value));
    case FieldType::Flag:
      return CBool(value) ? "true" : "false";
    case FieldType::Array:
      return JsonArray(value);
  }
  return "null";
}

class Writer {
 public:
  Writer(const std::string& file, const Provider& provider) : file_(file), provider_(provider) {}

  std::string Document() {
    const Schema& schema = provider_.GetSchema();
    text_ = "{\n  \"format\": " + JsonText(std::string(PersonalityFile::kFormat)) +
            ",\n  \"version\": " + JsonText(schema.Version()) + ",\n  \"tables\": {";
    const char* separator = "\n";
    for (const SchemaTable* table : RawTables(schema)) {
      text_ += separator;
      AddTable(*table);
      separator = ",\n";
    }
    text_ += "\n  }\n}\n";
    return std::move(text_);
  }

 private:
  static std::vector<const SchemaTable*> RawTables(const Schema& schema) {
    std::vector<const SchemaTable*> tables;
    for (const SchemaTable& table : schema.Tables()) {
      if (table.IsRaw()) tables.push_back(&table);
    }
    std::ranges::sort(tables, {}, &SchemaTable::number);
    return tables;
  }

  void AddTable(const SchemaTable& table) {
    text_ += "    \"" + std::to_string(table.number) + "\": [";
    const RecordNr count = provider_.Count(table);
    for (RecordNr record = 1; record <= count; ++record) {
      text_ += record == 1 ? "\n" : ",\n";
      AddRecord(table, record);
    }
    text_ += count == 0 ? "]" : "\n    ]";
  }

  /// On one line where it fits, else a line for each field.
  void AddRecord(const SchemaTable& table, RecordNr record) {
    std::vector<std::string> members;
    std::size_t width = std::string_view("      {},").size();
    for (const SchemaField& field : provider_.GetSchema().FieldsOf(table)) {
      if (!field.IsRaw()) continue;
      members.push_back(JsonText(std::string(field.Name())) + ": " + Value(field, record));
      width += members.back().size() + (members.size() > 1 ? 2 : 0);
    }
    const bool fits = width <= kLineWidth;
    text_ += fits ? "      {" : "      {\n        ";
    for (std::size_t i = 0; i < members.size(); ++i) {
      if (i > 0) text_ += fits ? ", " : ",\n        ";
      text_ += members[i];
    }
    text_ += fits ? "}" : "\n      }";
  }

  std::string Value(const SchemaField& field, RecordNr record) const {
    const Variant& value = provider_.Get(field, record);
    try {
      return JsonValue(field, value);
    } catch (const Error& error) {
      Refuse(field, record,
             Printable::Quoted(value.IsArray() ? "an array" : CStr(value)) + ": " + error.what());
    } catch (const nlohmann::json::exception&) {
      Refuse(field, record, "the text is not valid UTF-8");
    }
  }

  [[noreturn]] void Refuse(const SchemaField& field, RecordNr record, const std::string& reason) const {
    const PersonalityFile::Place place{&provider_.GetSchema().TableOf(field), record, &field};
    throw FileError(file_, 0, place.Path(), "can not be saved: " + reason);
  }

  const std::string& file_;
  const Provider& provider_;
  std::string text_;
};

}  // namespace

std::string PersonalityFile::Place::Path() const {
  std::string path = "tables." + std::to_string(table->number);
  if (record > 0) path += "[" + std::to_string(record) + "]";
  return field == nullptr ? path : path + "." + std::string(field->Name());
}

std::string PersonalityFile::Format(const std::string& file, const Provider& provider) {
  return Writer(file, provider).Document();
}
