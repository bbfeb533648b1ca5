#pragma once

#include <iosfwd>
#include <optional>
#include <string>

#include "workbench/cli/Json.h"

class Session;
struct FiledChanges;
struct Repair;

/// How it is told what a command makes of a file.
namespace Report {

/// The stored values that an edit changes. Of many records that come or go a table's are one line; as data
/// each value is told.
void PrintFiled(const FiledChanges& filed, bool saved, const Session& session, std::ostream& out);
/// As "stored", "followed" and "laidOutAnew".
void AddFiled(Json& data, const FiledChanges& filed, const Session& session);

/// What the repair of a damaged file has changed, apart from the edit; nothing for no value.
void PrintRepair(const std::optional<Repair>& repair, bool saved, const Session& session, std::ostream& out);
/// As "repaired" and "leftDamaged".
void AddRepair(Json& data, const std::optional<Repair>& repair, const Session& session);

}  // namespace Report
