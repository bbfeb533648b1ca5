#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Types.h"

class Provider;
class Schema;
struct SchemaField;
struct SchemaTable;

/// What a user asks for can not be done as it was given.
class UsageError : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// What names and records mean that a user has typed.
namespace TypedNames {

/// "; did you mean A, B?" with those of the names that are spelled like `typed` or contain it, the nearest
/// first; empty when none does.
std::string Suggestion(std::string_view typed, std::vector<std::string> names);
/// The field that a name on the command line means. An unknown one is a UsageError that suggests names
/// that are spelled alike.
const SchemaField& FieldNamed(const Schema& schema, std::string_view name);
/// A UsageError for a record that the field's table does not have.
void RequireRecord(const Provider& content, const SchemaField& field, RecordNr record);
void RequireRecord(const Provider& content, const SchemaTable& table, RecordNr record);

}  // namespace TypedNames
