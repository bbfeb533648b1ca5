#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/KeyedCollection.h"

class DataFile;

/// How a form shows one field.
struct clsUserField {
  std::int16_t FactAccessLevel = 0;   ///< the lowest level that sees it in factory mode
  bool FactButCustVis = false;        ///< a factory field that a customer sees all the same
  std::int16_t CustAccessLevel = 40;  ///< the lowest level that sees it in customer mode
  std::string SpclRestrictions;       ///< stays empty: its column is read into CustAccessLevel
  std::int32_t UIWidth = 0;
  std::string Units = "units";
  std::int32_t HelpID = 0;
  std::string Label;
  std::string NavLabel;
  std::string UIID;                 ///< as the file spells it
  std::int32_t UIWidthDefault = 0;  ///< stays 0: its column is read into UIWidth
  std::string ATGridID;
  bool DecimalSymbol = false;
};

/// The description of all fields, by UIID.
class colUserFields {
 public:
  /// Raises 457 for a UIID that is there already.
  void Add(clsUserField field);
  /// Raises 5 for an unknown UIID.
  const clsUserField& Item(std::string_view uiid) const { return fields_.Item(uiid); }
  bool Exists(std::string_view uiid) const { return fields_.Exists(uiid); }
  std::int32_t Count() const { return fields_.Count(); }
  void Remove(std::string_view uiid) { fields_.Remove(uiid); }
  void RemoveAll() { fields_.RemoveAll(); }
  auto begin() const { return fields_.begin(); }
  auto end() const { return fields_.end(); }
  /// Adds the rows of a data file. False after an error, which has ended the application.
  bool ReadInDataFromTextFile(const std::string& path);

 private:
  void AddRows(const DataFile& file);

  KeyedCollection<clsUserField> fields_;
};
