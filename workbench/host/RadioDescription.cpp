#include "workbench/host/RadioDescription.h"

#include <algorithm>
#include <iterator>
#include <nlohmann/json.hpp>
#include <string_view>
#include <vector>

#include "workbench/files/AtomicFile.h"
#include "workbench/files/FileError.h"
#include "workbench/files/JsonReading.h"
#include "workbench/store/TypedNames.h"

namespace {

/// In the order of Imessenger.GetRadioInformation.
constexpr std::string_view kNames[] = {"model",       "databaseVersion",    "serialNumber",
                                       "firmware",    "hardware",           "band",
                                       "controlHead", "controlHeadFirmware"};

/// Takes the parser's events. A refusal leaves by an exception.
class Reader {
 public:
  Reader(const std::string& file, std::string_view document)
      : file_(file), document_(document), reached_(document.data()) {}

  RadioDescription Read() {
    const char* end = document_.data() + document_.size();
    nlohmann::json::sax_parse(JsonCursor(document_.data(), end, &reached_), JsonCursor(end, end, &reached_),
                              this);
    return radio_;
  }

  bool start_object(std::size_t) {
    if (isOpen_) NoText();
    isOpen_ = true;
    return true;
  }
  bool key(std::string& name) {
    const auto* known = std::ranges::find(kNames, name);
    key_ = name;
    if (known == std::end(kNames)) {
      Refuse("a radio has no such field" +
             TypedNames::Suggestion(name, {std::begin(kNames), std::end(kNames)}));
    }
    index_ = static_cast<std::size_t>(known - kNames);
    if (isGiven_[index_]) Refuse("given twice");
    isGiven_[index_] = true;
    return true;
  }
  bool string(std::string& text) {
    if (!isOpen_) NoText();
    radio_.information[index_] = text;
    return true;
  }
  bool end_object() { return true; }
  bool start_array(std::size_t) { NoText(); }
  bool end_array() { return true; }
  bool null() { NoText(); }
  bool boolean(bool) { NoText(); }
  bool number_integer(std::int64_t) { NoText(); }
  bool number_unsigned(std::uint64_t) { NoText(); }
  bool number_float(double, const std::string&) { NoText(); }
  bool binary(nlohmann::json::binary_t&) { NoText(); }
  bool parse_error(std::size_t, const std::string&, const nlohmann::json::exception& error) {
    Refuse(ReadableJsonError(error.what()));
  }

 private:
  [[noreturn]] void NoText() const {
    Refuse(isOpen_ ? "a text is expected" : "a radio is an object: {\"model\": \"KD4410\", ...}");
  }
  [[noreturn]] void Refuse(const std::string& reason) const {
    throw FileError(file_, LineReached(document_, reached_), key_, reason);
  }

  const std::string& file_;
  std::string_view document_;
  const char* reached_;
  RadioDescription radio_;
  bool isOpen_ = false;
  std::string key_;
  std::size_t index_ = 0;
  std::array<bool, std::size(kNames)> isGiven_{};
};

}  // namespace

RadioDescription RadioDescription::Read(const std::string& path) {
  const std::string document = AtomicFile(path).Read();
  return Reader(path, document).Read();
}
