#include "ui/colUserFields.h"

#include <algorithm>
#include <vector>

#include "common/DataFile.h"
#include "common/Procedure.h"

namespace {
/// Stores one piece of a row.
using Setter = void (*)(clsUserField&, const DataFile&, const DataFile::Row&, std::size_t column);

template <auto Member>
void SetText(clsUserField& field, const DataFile&, const DataFile::Row& row, std::size_t column) {
  field.*Member = row.pieces[column];
}
template <auto Member>
void SetLong(clsUserField& field, const DataFile& file, const DataFile::Row& row, std::size_t column) {
  field.*Member = file.Long(row, column);
}
template <auto Member>
void SetInteger(clsUserField& field, const DataFile& file, const DataFile::Row& row, std::size_t column) {
  field.*Member = file.Integer(row, column);
}
template <auto Member>
void SetFlag(clsUserField& field, const DataFile& file, const DataFile::Row& row, std::size_t column) {
  field.*Member = file.Flag(row, column);
}
void SetFlagByNumber(clsUserField& field, const DataFile& file, const DataFile::Row& row,
                     std::size_t column) {
  field.FactButCustVis = file.Long(row, column) != 0;
}

/// Where a column goes. SPCLRESTRICTIONS lands in the customer access level on purpose: of the two columns
/// the later one in the file wins.
constexpr struct {
  std::string_view column;
  Setter set;
} kColumns[] = {
    {"UIID", SetText<&clsUserField::UIID>},
    {"LABEL", SetText<&clsUserField::Label>},
    {"HELPID", SetLong<&clsUserField::HelpID>},
    {"UNIT", SetText<&clsUserField::Units>},
    {"UIWIDTHDEFAULT", SetLong<&clsUserField::UIWidth>},
    {"FACTACCESSLEVEL", SetInteger<&clsUserField::FactAccessLevel>},
    {"FACTBUTCUSTVIS", SetFlagByNumber},
    {"CUSTACCESSLEVEL", SetInteger<&clsUserField::CustAccessLevel>},
    {"SPCLRESTRICTIONS", SetInteger<&clsUserField::CustAccessLevel>},
    {"ATGRIDID", SetText<&clsUserField::ATGridID>},
    {"DECIMALSYMBOL", SetFlag<&clsUserField::DecimalSymbol>},
    {"NAVLABEL", SetText<&clsUserField::NavLabel>},
};

void SkipColumn(clsUserField&, const DataFile&, const DataFile::Row&, std::size_t) {}

std::vector<Setter> SettersOf(const DataFile& file) {
  std::vector<Setter> setters;
  for (const std::string& name : file.Columns()) {
    const auto* found = std::ranges::find(kColumns, name, [](const auto& column) { return column.column; });
    setters.push_back(found == std::end(kColumns) ? SkipColumn : found->set);
  }
  return setters;
}
}  // namespace

void colUserFields::Add(clsUserField field) {
  const std::string key = field.UIID;
  fields_.Add(std::move(field), key);
}

bool colUserFields::ReadInDataFromTextFile(const std::string& path) {
  return Procedure("ReadInDataFromTextFile", false, [&] {
    AddRows(DataFile(path));
    return true;
  });
}

void colUserFields::AddRows(const DataFile& file) {
  const std::vector<Setter> setters = SettersOf(file);
  for (const DataFile::Row& row : file.Rows()) {
    clsUserField field;
    for (std::size_t column = 0; column < row.pieces.size(); ++column) {
      if (!row.pieces[column].empty()) setters[column](field, file, row, column);
    }
    if (Exists(field.UIID)) {
      file.Raise(ErrorNumber::kDoubleKey, row, "the UIID " + field.UIID + " stands in an earlier row");
    }
    Add(std::move(field));
  }
}
