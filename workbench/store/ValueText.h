#pragma once

#include <string>
#include <string_view>

#include "platform/Types.h"
#include "platform/Variant.h"

class Provider;
struct SchemaField;

/// Values as a person reads them.
namespace ValueText {

/// An array as "[1, 2, 3]", its rows from 1. Characters that no terminal should get are shown as "\x00".
std::string Of(const Variant& value);

/// The value of a field by name; "" for a name that the version does not have, and for a record that is not
/// there.
std::string At(const Provider& content, std::string_view name, RecordNr record);

/// Whether a person reads the two as the same value of the field: a number in hexadecimal without the zeros
/// at its head; tones by each character, for "012" is not "12".
bool ReadsTheSame(const SchemaField& field, const Variant& a, const Variant& b);

}  // namespace ValueText
