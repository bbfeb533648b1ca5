#pragma once

#include <array>
#include <memory>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "host/IenablementReasons.h"
#include "host/IfinalRules.h"
#include "platform/Status.h"
#include "platform/XArrayDBObject.h"

/// Values in a trace. Each comes back as what it was, its type, the last bit of a double and a text that is
/// no UTF-8 among it. A variant is null, true, 5 (32 bits), 5.0 (double), "text" or an object with one member
/// that names the type: short, single, currency (ten-thousandths), date (days), array, double (not finite).
/// A text that is no UTF-8 is {"bytes": "c3"}, in hexadecimal.
namespace Trace {

using Json = nlohmann::json;

/// A value that is not what it should be.
class BadValue : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// The JSON text; equal values have equal texts. Texts that are no UTF-8 appear as their bytes.
std::string LineOf(const Json& json);

Json ToJson(std::int16_t value);
Json ToJson(std::int32_t value);
Json ToJson(std::string_view value);
Json ToJson(const std::string& value);
Json ToJson(Currency value);
Json ToJson(const Variant& value);
Json ToJson(const XArrayDBObject& value);
Json ToJson(const std::shared_ptr<XArrayDBObject>& value);
Json ToJson(const EnablementReading& value);
Json ToJson(const EnablementReason& value);
Json ToJson(const FinalPlace& value);
Json ToJson(const FinalOutcome& value);
Json ToJson(const Fault& value);
template <typename Element>
Json ToJson(const std::vector<Element>& values);
Json ToJson(const std::array<std::string, 8>& values);

// Each raises a BadValue.
void FromJson(const Json& json, std::int16_t& out);
void FromJson(const Json& json, std::int32_t& out);
void FromJson(const Json& json, std::string& out);
void FromJson(const Json& json, Currency& out);
void FromJson(const Json& json, Variant& out);
void FromJson(const Json& json, XArrayDBObject& out);
void FromJson(const Json& json, std::shared_ptr<XArrayDBObject>& out);
void FromJson(const Json& json, EnablementReading& out);
void FromJson(const Json& json, EnablementReason& out);
void FromJson(const Json& json, FinalPlace& out);
void FromJson(const Json& json, FinalOutcome& out);
void FromJson(const Json& json, Fault& out);
template <typename Element>
void FromJson(const Json& json, std::vector<Element>& out);
void FromJson(const Json& json, std::array<std::string, 8>& out);

/// The list, of as many values as are expected, or of any number.
const Json& List(const Json& json);
const Json& List(const Json& json, std::size_t count);
/// The member of an object.
const Json& Member(const Json& json, const char* name);

/// In every text, `from` becomes `to` where it is all of the text or a slash follows.
void ReplaceFolder(Json& json, const std::string& from, const std::string& to);

template <typename Element>
Json ToJson(const std::vector<Element>& values) {
  Json list = Json::array();
  for (const Element& value : values) list.push_back(ToJson(value));
  return list;
}

template <typename Element>
void FromJson(const Json& json, std::vector<Element>& out) {
  std::vector<Element> values;
  for (const Json& one : List(json)) FromJson(one, values.emplace_back());
  out = std::move(values);
}

}  // namespace Trace
