#include "workbench/trace/Values.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "workbench/files/Printable.h"
#include "workbench/files/Utf8.h"

namespace Trace {
namespace {

constexpr const char* kBytes = "bytes";

template <typename... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

Json Tagged(const char* type, Json value) {
  Json json = Json::object();
  json[type] = std::move(value);
  return json;
}

std::string HexOf(const std::string& bytes) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string hex;
  for (const char byte : bytes) {
    const auto code = static_cast<unsigned char>(byte);
    hex += kDigits[code / 16];
    hex += kDigits[code % 16];
  }
  return hex;
}

std::string BytesOf(const std::string& hex) {
  std::string bytes;
  for (std::size_t at = 0; at < hex.size(); at += 2) {
    unsigned code = 0;
    const char* const end = hex.data() + std::min(at + 2, hex.size());
    const auto [stop, problem] = std::from_chars(hex.data() + at, end, code, 16);
    if (problem != std::errc() || stop != hex.data() + at + 2) throw BadValue("no bytes: " + hex);
    bytes += static_cast<char>(code);
  }
  return bytes;
}

/// Gives every text that is no UTF-8 as its bytes.
void MakePrintable(Json& json) {
  if (json.is_string() && !Utf8::IsValid(json.get_ref<const std::string&>())) {
    json = Tagged(kBytes, HexOf(json.get_ref<const std::string&>()));
  } else if (json.is_structured()) {
    for (Json& one : json) MakePrintable(one);
  }
}

Json NumberToJson(double value) {
  if (std::isfinite(value)) return value;
  return std::isnan(value) ? "nan" : value > 0 ? "inf" : "-inf";
}

double NumberFromJson(const Json& json) {
  if (json.is_number()) return json.get<double>();
  if (json == "nan") return std::numeric_limits<double>::quiet_NaN();
  if (json == "inf") return std::numeric_limits<double>::infinity();
  if (json == "-inf") return -std::numeric_limits<double>::infinity();
  throw BadValue("no number: " + LineOf(json));
}

template <typename Integer>
Integer IntegerFromJson(const Json& json) {
  constexpr auto kLargest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  const bool isInteger =
      json.is_number_integer() && !(json.is_number_unsigned() && json.get<std::uint64_t>() > kLargest);
  const auto value = isInteger ? json.get<std::int64_t>() : 0;
  if (!isInteger || value < std::numeric_limits<Integer>::min() ||
      value > std::numeric_limits<Integer>::max()) {
    throw BadValue("no whole number of " + std::to_string(8 * sizeof(Integer)) + " bits: " + LineOf(json));
  }
  return static_cast<Integer>(value);
}

Variant TaggedFromJson(const Json& json) {
  if (!json.is_object() || json.size() != 1) throw BadValue("no value: " + LineOf(json));
  const std::string& type = json.begin().key();
  const Json& value = json.begin().value();
  if (type == "short") return IntegerFromJson<std::int16_t>(value);
  if (type == "single") return static_cast<float>(NumberFromJson(value));
  if (type == "double") return NumberFromJson(value);
  if (type == "currency") return Currency{IntegerFromJson<std::int64_t>(value)};
  if (type == "date") return Date{NumberFromJson(value)};
  if (type == kBytes) {
    std::string text;
    FromJson(json, text);
    return text;
  }
  if (type == "array") {
    std::shared_ptr<XArrayDBObject> array;
    FromJson(value, array);
    return ArrayObject(std::move(array));
  }
  throw BadValue("unknown type of a value: " + type);
}

/// The last number of `count` that begin with `first`; one below it for none.
std::int32_t LastOf(std::int32_t first, std::size_t count) {
  const auto last = static_cast<std::int64_t>(first) + static_cast<std::int64_t>(count) - 1;
  if (last > std::numeric_limits<std::int32_t>::max() || last < std::numeric_limits<std::int32_t>::min()) {
    throw BadValue("bounds of an array: " + std::to_string(last));
  }
  return static_cast<std::int32_t>(last);
}

void ReplaceIn(std::string& text, const std::string& from, const std::string& to) {
  for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos;) {
    const std::size_t behind = at + from.size();
    const bool isFolder = behind == text.size() || text[behind] == '/';
    if (isFolder) text.replace(at, from.size(), to);
    at += isFolder ? to.size() : from.size();
  }
}

}  // namespace

std::string LineOf(const Json& json) {
  try {
    return json.dump();
  } catch (const Json::type_error&) {
    Json printable = json;
    MakePrintable(printable);
    return printable.dump();
  }
}

Json ToJson(std::int16_t value) { return value; }
Json ToJson(std::int32_t value) { return value; }
Json ToJson(std::string_view value) { return value; }
Json ToJson(const std::string& value) { return value; }
Json ToJson(Currency value) { return value.tenThousandths; }

Json ToJson(const Variant& value) {
  const Overloaded toJson{
      [](Empty) { return Json(); },
      [](bool flag) { return Json(flag); },
      [](std::int16_t number) { return Tagged("short", number); },
      [](std::int32_t number) { return Json(number); },
      [](float number) { return Tagged("single", NumberToJson(number)); },
      [](double number) {
        return std::isfinite(number) ? Json(number) : Tagged("double", NumberToJson(number));
      },
      [](Currency amount) { return Tagged("currency", amount.tenThousandths); },
      [](Date date) { return Tagged("date", NumberToJson(date.days)); },
      [](const std::string& text) { return Json(text); },
      [](const ArrayObject& array) { return Tagged("array", array == nullptr ? Json() : ToJson(*array)); },
  };
  return std::visit(toJson, static_cast<const VariantBase&>(value));
}

Json ToJson(const XArrayDBObject& value) {
  Json rows = Json::array();
  for (std::int32_t row = value.LowerBound(1); row <= value.UpperBound(1); ++row) {
    Json cells = Json::array();
    for (std::int32_t column = value.LowerBound(2); column <= value.UpperBound(2); ++column) {
      cells.push_back(ToJson(value.GetValue(row, column)));
    }
    rows.push_back(std::move(cells));
  }
  return {{"firstRow", value.LowerBound(1)},
          {"firstColumn", value.LowerBound(2)},
          {"columns", value.Count(2)},
          {"rows", std::move(rows)}};
}

Json ToJson(const std::shared_ptr<XArrayDBObject>& value) {
  return value == nullptr ? Json() : ToJson(*value);
}

Json ToJson(const EnablementReading& value) {
  return {{"field", value.field},         {"test", value.test},     {"record", value.record},
          {"value", ToJson(value.value)}, {"exists", value.exists}, {"holds", value.holds}};
}

Json ToJson(const EnablementReason& value) {
  return {{"enabled", value.enabled},
          {"condition", value.condition},
          {"readings", ToJson(value.readings)},
          {"missing", value.missing}};
}

Json ToJson(const FinalPlace& value) { return {{"uiid", value.uiid}, {"record", value.record}}; }

Json ToJson(const FinalOutcome& value) {
  return {{"name", value.name}, {"passed", value.passed}, {"places", ToJson(value.places)}};
}

Json ToJson(const Fault& value) {
  return {{"number", value.number}, {"source", value.source}, {"description", value.description}};
}

Json ToJson(const std::array<std::string, 8>& values) {
  return ToJson(std::vector<std::string>(values.begin(), values.end()));
}

void FromJson(const Json& json, std::int16_t& out) { out = IntegerFromJson<std::int16_t>(json); }
void FromJson(const Json& json, std::int32_t& out) { out = IntegerFromJson<std::int32_t>(json); }

void FromJson(const Json& json, std::string& out) {
  const auto bytes = json.is_object() ? json.find(kBytes) : json.end();
  if (json.is_string()) {
    out = json.get<std::string>();
  } else if (bytes != json.end() && bytes->is_string()) {
    out = BytesOf(bytes->get<std::string>());
  } else {
    throw BadValue("no text: " + LineOf(json));
  }
}

void FromJson(const Json& json, Currency& out) { out = {IntegerFromJson<std::int64_t>(json)}; }

void FromJson(const Json& json, Variant& out) {
  switch (json.type()) {
    case Json::value_t::null:
      out = Variant();
      break;
    case Json::value_t::boolean:
      out = json.get<bool>();
      break;
    case Json::value_t::number_integer:
    case Json::value_t::number_unsigned:
      out = IntegerFromJson<std::int32_t>(json);
      break;
    case Json::value_t::number_float:
      out = json.get<double>();
      break;
    case Json::value_t::string:
      out = json.get<std::string>();
      break;
    default:
      out = TaggedFromJson(json);
  }
}

void FromJson(const Json& json, XArrayDBObject& out) {
  std::int32_t firstRow = 0;
  std::int32_t firstColumn = 0;
  std::int32_t columns = 0;
  FromJson(Member(json, "firstRow"), firstRow);
  FromJson(Member(json, "firstColumn"), firstColumn);
  FromJson(Member(json, "columns"), columns);
  if (columns < 0) throw BadValue("columns of an array: " + std::to_string(columns));
  const Json& rows = List(Member(json, "rows"));
  // Before there are cells: what is left of a damaged number must not take the memory.
  for (const Json& cells : rows) List(cells, static_cast<std::size_t>(columns));
  XArrayDBObject array;
  array.Redim(firstRow, LastOf(firstRow, rows.size()), firstColumn,
              LastOf(firstColumn, static_cast<std::size_t>(columns)));
  std::int32_t row = firstRow;
  for (const Json& cells : rows) {
    std::int32_t column = firstColumn;
    for (const Json& cell : cells) {
      Variant value;
      FromJson(cell, value);
      array.SetValue(row, column++, std::move(value));
    }
    ++row;
  }
  out = std::move(array);
}

void FromJson(const Json& json, std::shared_ptr<XArrayDBObject>& out) {
  std::shared_ptr<XArrayDBObject> array;
  if (!json.is_null()) {
    array = std::make_shared<XArrayDBObject>();
    FromJson(json, *array);
  }
  out = std::move(array);
}

void FromJson(const Json& json, EnablementReading& out) {
  FromJson(Member(json, "field"), out.field);
  FromJson(Member(json, "test"), out.test);
  FromJson(Member(json, "record"), out.record);
  FromJson(Member(json, "value"), out.value);
  FromJson(Member(json, "exists"), out.exists);
  FromJson(Member(json, "holds"), out.holds);
}

void FromJson(const Json& json, EnablementReason& out) {
  FromJson(Member(json, "enabled"), out.enabled);
  FromJson(Member(json, "condition"), out.condition);
  FromJson(Member(json, "readings"), out.readings);
  FromJson(Member(json, "missing"), out.missing);
}

void FromJson(const Json& json, FinalPlace& out) {
  FromJson(Member(json, "uiid"), out.uiid);
  FromJson(Member(json, "record"), out.record);
}

void FromJson(const Json& json, FinalOutcome& out) {
  FromJson(Member(json, "name"), out.name);
  FromJson(Member(json, "passed"), out.passed);
  FromJson(Member(json, "places"), out.places);
}

void FromJson(const Json& json, Fault& out) {
  FromJson(Member(json, "number"), out.number);
  FromJson(Member(json, "source"), out.source);
  FromJson(Member(json, "description"), out.description);
}

void FromJson(const Json& json, std::array<std::string, 8>& out) {
  List(json, out.size());
  for (std::size_t place = 0; place < out.size(); ++place) FromJson(json[place], out[place]);
}

const Json& List(const Json& json) {
  if (!json.is_array()) throw BadValue("no list: " + LineOf(json));
  return json;
}

const Json& List(const Json& json, std::size_t count) {
  if (List(json).size() != count) {
    throw BadValue(std::to_string(json.size()) + " values where there should be " + std::to_string(count));
  }
  return json;
}

const Json& Member(const Json& json, const char* name) {
  const auto found = json.is_object() ? json.find(name) : json.end();
  if (found == json.end())
    throw BadValue("no \"" + std::string(name) + "\" in " + Printable::Shortened(LineOf(json)));
  return *found;
}

void ReplaceFolder(Json& json, const std::string& from, const std::string& to) {
  if (json.is_string()) {
    ReplaceIn(json.get_ref<std::string&>(), from, to);
  } else if (json.is_structured()) {
    for (Json& one : json) ReplaceFolder(one, from, to);
  }
}

}  // namespace Trace
