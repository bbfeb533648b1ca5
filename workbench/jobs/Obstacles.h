#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Types.h"
#include "platform/Variant.h"

class Provider;
struct SchemaField;

/// A value that a step to another version refuses to take along.
struct Obstacle {
  const SchemaField* field;  // of the version that is left
  RecordNr record;
  Variant value;      // as the forms show it
  std::string where;  // a digital line; empty for another record
  std::string way;    // what else is to be done; empty for nothing
};

/// What of the personality, which is on its forms, made the step to a version refuse with that text. Empty
/// where nothing single did: there are too few or too many records.
std::vector<Obstacle> ObstaclesTo(std::string_view version, std::string_view text, const Provider& forms);
