#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Types.h"

class Provider;
class SchemaFiles;
struct SchemaField;
struct SchemaTable;

/// The personality file: one JSON document with the version and the raw tables. Tables stand in numeric
/// order, fields in the schema's; what an array of JSON holds are rows 1 to n of an array value (its row 0
/// is unused). Reading and writing an unchanged personality gives the same bytes.
namespace PersonalityFile {

inline constexpr std::string_view kFormat = "KD4410 personality";

/// A place of what is stored: a cell, a record, or a table.
struct Place {
  const SchemaTable* table;
  RecordNr record = 0;                 // 0: the table
  const SchemaField* field = nullptr;  // null: the record
  /// "tables.5[3].ChannelTxFreq", records from 1
  std::string Path() const;
};

/// The personality of a document. A field that a record leaves out has its default, a table left out its
/// minimum of records. All else that deviates from the schema is a FileError that names line and place
/// ("tables.5[3].ChannelTxFreq", records from 1); `file` is the name it gives.
std::shared_ptr<Provider> Parse(const std::string& file, std::string_view document,
                                const SchemaFiles& schemas);

/// The lines, from 1, in which the places stand in a document that Parse has read; of what it leaves out, the
/// line of the record, else of the table, else 0.
std::vector<int> LinesOf(const std::string& file, std::string_view document, const SchemaFiles& schemas,
                         std::span<const Place> places);

/// The document of a personality. Values are converted to the types of their fields: the tier may have
/// stored a number as text. Throws a FileError for a value that has no such form.
std::string Format(const std::string& file, const Provider& provider);

}  // namespace PersonalityFile
