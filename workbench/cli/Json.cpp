#include "workbench/cli/Json.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <ostream>

struct Json::Library {
  using Value = nlohmann::ordered_json;

  static Value Of(const Json& json) {
    switch (json.kind_) {
      case Kind::Null:
        return nullptr;
      case Kind::Flag:
        return json.integer_ != 0;
      case Kind::Integer:
        return json.integer_;
      case Kind::Number:
        return OfNumber(json.number_);
      case Kind::Text:
        return json.text_;
      case Kind::List: {
        Value list = Value::array();
        for (const Json& item : json.items_) list.push_back(Of(item));
        return list;
      }
      case Kind::Object: {
        Value object = Value::object();
        for (std::size_t i = 0; i < json.names_.size(); ++i) object[json.names_[i]] = Of(json.items_[i]);
        return object;
      }
    }
    return nullptr;
  }

  static Value OfNumber(double number) {
    constexpr double kExactIntegers = 1LL << 53;
    const bool isWhole = std::trunc(number) == number && std::abs(number) <= kExactIntegers;
    return isWhole ? Value(static_cast<std::int64_t>(number)) : Value(number);
  }

  static void Write(const Json& json, int indent, std::ostream& out) {
    out << Of(json).dump(indent, ' ', false, Value::error_handler_t::replace) << '\n';
  }

  static Json From(const Value& value) {
    if (value.is_boolean()) return value.get<bool>();
    if (value.is_number_integer()) return value.get<std::int64_t>();
    if (value.is_number()) return value.get<double>();
    if (value.is_string()) return value.get<std::string>();
    if (value.is_null()) return nullptr;
    Json json(value.is_array() ? Kind::List : Kind::Object);
    for (const auto& [name, item] : value.items()) {
      if (value.is_object()) json.names_.push_back(name);
      json.items_.push_back(From(item));
    }
    return json;
  }
};

Json::Json(std::initializer_list<Json> items) : kind_(Kind::List), items_(items) {
  if (items_.empty() || !std::ranges::all_of(items_, &Json::IsNamed)) return;
  kind_ = Kind::Object;
  for (Json& item : items_) {
    names_.push_back(std::move(item.items_[0].text_));
    item = Json(std::move(item.items_[1]));
  }
}

Json Json::Parse(std::string_view document) { return Library::From(Library::Value::parse(document)); }

Json& Json::operator[](std::string_view name) {
  kind_ = Kind::Object;
  const auto known = std::ranges::find(names_, name);
  if (known != names_.end()) return items_[static_cast<std::size_t>(known - names_.begin())];
  names_.emplace_back(name);
  return items_.emplace_back();
}

void Json::Lead(std::string_view name, Json value) {
  kind_ = Kind::Object;
  names_.emplace(names_.begin(), name);
  items_.insert(items_.begin(), std::move(value));
}

void Json::Print(std::ostream& out) const { Library::Write(*this, 2, out); }
void Json::PrintLine(std::ostream& out) const { Library::Write(*this, -1, out); }
