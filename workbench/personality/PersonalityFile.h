#pragma once

#include <memory>
#include <string>
#include <string_view>

class Provider;
class SchemaFiles;

/// The personality file: one JSON document with the version and the raw tables. Tables stand in numeric
/// order, fields in the schema's; what an array of JSON holds are rows 1 to n of an array value (its row 0
/// is unused). Reading and writing an unchanged personality gives the same bytes.
namespace PersonalityFile {

inline constexpr std::string_view kFormat = "KD4410 personality";

/// The personality of a document. A field that a record leaves out has its default, a table left out its
/// minimum of records. All else that deviates from the schema is a FileError that names line and place
/// ("tables.5[3].ChannelTxFreq", records from 1); `file` is the name it gives.
std::shared_ptr<Provider> Parse(const std::string& file, std::string_view document,
                                const SchemaFiles& schemas);

/// The document of a personality. Values are converted to the types of their fields: the tier may have
/// stored a number as text. Throws a FileError for a value that has no such form.
std::string Format(const std::string& file, const Provider& provider);

}  // namespace PersonalityFile
