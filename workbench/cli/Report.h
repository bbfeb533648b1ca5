#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Variant.h"
#include "workbench/cli/Json.h"

class Session;
class TextTable;
struct Change;
struct SchemaField;
struct Shown;

/// How values, changes and edits appear in the output.
namespace Report {

Json JsonOf(const Variant& value);
/// Adds a value and, behind it, the word for it where it has one: beside "value" as "word", beside "before"
/// as "beforeWord".
void AddValue(Json& object, std::string_view name, const Variant& value,
              const std::optional<std::string>& word);

/// The word of a value that the forms show of a stored field, or that is told as it is stored where they show
/// it under its own name.
std::optional<std::string> WordOfShown(const Session& session, const SchemaField& stored,
                                       const SchemaField& shownAs, const Variant& value);

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

}  // namespace Report
