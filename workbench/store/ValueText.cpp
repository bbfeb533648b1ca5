#include "workbench/store/ValueText.h"

#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "platform/XArrayDBObject.h"
#include "workbench/files/Printable.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Journal.h"
#include "workbench/store/Provider.h"

namespace {

/// Of a text that is a number in hexadecimal: without the zeros at its head. No text is no number.
std::string_view WithoutZeros(std::string_view hex) {
  while (hex.size() > 1 && hex.front() == '0') hex.remove_prefix(1);
  return hex;
}

}  // namespace

namespace ValueText {

std::string Of(const Variant& value) {
  if (!value.IsArray()) return Printable::Text(CStr(value));
  std::string text = "[";
  const XArrayDBObject& array = CArray(value);
  for (std::int32_t row = 1; row <= array.UpperBound(1); ++row) {
    text += (row > 1 ? ", " : "") + Printable::Text(CStr(array.GetValue(row, 0)));
  }
  return text + "]";
}

std::string At(const Provider& content, std::string_view name, RecordNr record) {
  const SchemaField* field = content.GetSchema().Find(name);
  return field == nullptr || record > content.Count(field->table) ? "" : Of(content.Get(*field, record));
}

bool ReadsTheSame(const SchemaField& field, const Variant& a, const Variant& b) {
  if (field.validation.empty()) return SameCell(a, b);
  if (field.IsHexadecimal()) return EqualsIgnoringCase(WithoutZeros(CStr(a)), WithoutZeros(CStr(b)));
  return CStr(a) == CStr(b);  // tones: "012" is not "12"
}

}  // namespace ValueText
