#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Types.h"
#include "platform/Variant.h"
#include "workbench/schema/CodeWords.h"

class Session;
class TierHost;
struct SchemaField;

/// Values by the words that people have for them: those of the schema and, where these are the tier's to
/// know, the names of the bands and the entries of its lists.
namespace Wording {

/// "B1 (136-174 MHz)" of each band, in the order of their positions, which begin with 0.
std::vector<std::string> BandNames(const TierHost& host);

/// The words that may be typed in a field: those of the schema, or the codes of the bands ("B1"). No entries
/// for a field without; a list of the tier is asked for by ListOffered.
CodeWords WordsOf(const TierHost& host, const SchemaField& field);

/// The word for a value as the session holds it, on its forms or as the radio stores it; no value where it
/// has none.
std::optional<std::string> WordOf(const Session& session, const SchemaField& field, RecordNr record,
                                  const Variant& value);
/// Whether the radio stores the codes of the forms.
bool IsShownAsStored(const SchemaField& field);
/// The word for a value as the radio stores it.
std::optional<std::string> WordOfStored(const SchemaField& field, const Variant& value);

/// The same, else the value as ValueText tells it.
std::string TextOf(const Session& session, const SchemaField& field, RecordNr record, const Variant& value);
/// The same of what stands in a field; "" for a name that the version does not have, and for a record that is
/// not there.
std::string TextAt(const Session& session, std::string_view name, RecordNr record);

}  // namespace Wording
