#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/KeyedCollection.h"

class DataFile;

/// The sub-audible codes of one kind that the radio offers, as id and text. Texts ignore case.
class colSubaudible {
 public:
  /// Raises 457 for an id or a text that is there already.
  void Add(std::int32_t id, const std::string& value);
  /// The id of a text; raises 5 for an unknown one.
  std::int32_t Encode(std::string_view value) const { return ids_.Item(value); }
  /// The text of an id in decimal; "127" is "None" without being in the list. Raises 5 for an unknown id.
  std::string Decode(std::string_view id) const;
  std::int32_t Count() const { return values_.Count(); }
  /// The texts in the order of adding.
  const KeyedCollection<std::string>& NewEnum() const { return values_; }
  /// Adds the rows of a data file. False after an error, which has ended the application.
  bool ReadInDataFromTextFile(const std::string& path);

 protected:
  colSubaudible(std::string_view idColumn, std::string_view valueColumn, bool valuesAreNumbers)
      : idColumn_(idColumn), valueColumn_(valueColumn), valuesAreNumbers_(valuesAreNumbers) {}

 private:
  void AddRows(const DataFile& file);

  std::string_view idColumn_, valueColumn_;
  bool valuesAreNumbers_;  ///< kept with the user's decimal symbol
  KeyedCollection<std::int32_t> ids_;
  KeyedCollection<std::string> values_;
};

/// CTCSS tones in hertz: "67.0", with the user's decimal symbol.
class colCTCSS : public colSubaudible {
 public:
  colCTCSS() : colSubaudible("CTCSSID", "CTCSSVALUE", true) {}
};

/// DCS codes, three octal digits: "023".
class colDCS : public colSubaudible {
 public:
  colDCS() : colSubaudible("DCSID", "DCSVALUE", false) {}
};
