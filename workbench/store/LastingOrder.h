#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "platform/Types.h"

class Provider;
class Schema;
class Variant;
struct SchemaField;
struct SchemaTable;

/// Records whose order changes when a form is turned, so that no change of it is an edit. The control
/// statuses of all systems are such: the tier puts those of the system behind the others each time that it is
/// shown, and a save goes by the systems. Within a system their order is that of the form, and lasts.
namespace LastingOrder {

/// The field by whose values the records of the table belong together; null where they stand as they last.
const SchemaField* GroupingOf(const Schema& schema, const SchemaTable& table);
/// The places from 0 of the values of such a field, by group, each group in the order in which it stands.
std::vector<std::size_t> Of(std::span<const Variant> groups);
/// The record of `to` that stands where the record of `from` does, by that order; 0 for none.
RecordNr SamePlace(const Provider& from, RecordNr record, const Provider& to, const SchemaTable& table);

}  // namespace LastingOrder
