#pragma once

#include <cstdint>
#include <iosfwd>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Types.h"
#include "platform/Variant.h"

class Provider;
class Schema;
class Session;
class TextTable;
struct Change;
struct SchemaField;
struct SchemaTable;
struct Shown;

/// How values, fields and changes appear in the output, and how names on the command line are found.
namespace Report {

using Json = nlohmann::ordered_json;

/// A value for a person; an array as "[1, 2, 3]", its rows from 1.
std::string TextOf(const Variant& value);
Json JsonOf(const Variant& value);

/// The value of a field by name; "" for a name that the version does not have.
std::string TextAt(const Provider& content, std::string_view name, RecordNr record);

/// "TxFreq_k6k" or, for a field without UIID, its FieldId.
const std::string& NameOf(const SchemaField& field);

/// A line for each changed cell: name, label, record, value before, value now.
TextTable ChangeTable(const Session& session, const std::vector<Change>& changes);
Json JsonOf(const Session& session, const std::vector<Change>& changes);
Json JsonOf(const std::vector<Shown>& boxes);

/// How a command that edits a file ended.
struct Outcome {
  bool accepted = false;  // by the rules
  bool granted = false;   // by the rules, and nothing else stood in the way
  bool saved = false;
  const std::vector<Change>& others;  // what else changed, or what had been written before the refusal
};
void Print(const Outcome& outcome, const Session& session, std::ostream& out);
/// Adds to the data what else changed and the boxes that were shown.
void AddTo(Json& data, const Outcome& outcome, const Session& session, const std::vector<Shown>& boxes);

/// "; did you mean A, B?" with those of the names that are spelled like `typed` or contain it, the nearest
/// first; empty when none does.
std::string Suggestion(std::string_view typed, std::vector<std::string> names);
/// The field that a name on the command line means. An unknown one is a UsageError that suggests names
/// that are spelled alike.
const SchemaField& FieldNamed(const Schema& schema, std::string_view name);
/// A UsageError for a record that the field's table does not have.
void RequireRecord(const Provider& content, const SchemaField& field, RecordNr record);
void RequireRecord(const Provider& content, const SchemaTable& table, RecordNr record);

}  // namespace Report
