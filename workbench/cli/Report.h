#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Types.h"
#include "platform/Variant.h"
#include "workbench/cli/Json.h"

class Provider;
class Session;
class TextTable;
struct Change;
struct SchemaField;
struct Shown;

/// How values, changes and edits appear in the output.
namespace Report {

Json JsonOf(const Variant& value);
/// Of a field of numbers also a value that was typed is a number.
Json JsonOf(const SchemaField& field, const Variant& value);
/// The value of a field by name; null for a name that the version does not have, and for a record that is not
/// there.
Json JsonAt(const Provider& content, std::string_view name, RecordNr record);
/// Adds a value and, behind it, the word for it where it has one: beside "value" as "word", beside "before"
/// as "beforeWord".
void AddValue(Json& object, std::string_view name, Json value, const std::optional<std::string>& word);
/// The same with what a person is shown in place of the plain value, where that is another text.
void AddWorded(Json& object, std::string_view name, Json value, const std::string& plain,
               const std::string& shown);
/// The word of a value that the forms show of a stored field, or that is told as it is stored where they show
/// it under its own name.
std::optional<std::string> WordOfShown(const Session& session, const SchemaField& stored,
                                       const SchemaField& shownAs, const Variant& value);
/// Of a number that a form has as a text: the number; null for "None" and no text; any other text as it is.
Json NumberOf(std::string_view text);
/// With "\n" for each line break.
std::string LinesOf(std::string_view text);

/// A line for each changed cell: name, label, record, value before, value now.
TextTable ChangeTable(const Session& session, const std::vector<Change>& changes);
Json JsonOf(const Session& session, const std::vector<Change>& changes);
Json JsonOf(const std::vector<Shown>& boxes);

/// Whether an edit has gone into the file. Of a script that saves all or nothing it is staged until its end.
enum class Filed { No, Staged, Saved };
inline Filed FiledBy(bool saved) { return saved ? Filed::Saved : Filed::Staged; }

/// How a command that edits a file ended.
struct Outcome {
  bool accepted = false;  // by the rules
  bool granted = false;   // by the rules, and nothing else stood in the way
  Filed filed = Filed::No;
  const std::vector<Change>& others;  // what else changed, or what had been written before the refusal
};
void Print(const Outcome& outcome, const Session& session, std::ostream& out);
/// Adds to the data what else changed and the boxes that were shown.
void AddTo(Json& data, const Outcome& outcome, const Session& session, const std::vector<Shown>& boxes);

}  // namespace Report
