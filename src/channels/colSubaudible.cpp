#include "channels/colSubaudible.h"

#include "common/DataFile.h"
#include "common/Procedure.h"
#include "common/modCommonGlobals.h"
#include "common/modProjectGlobals.h"

namespace {
constexpr std::string_view kNoneId = "127";
}

void colSubaudible::Add(std::int32_t id, const std::string& value) {
  values_.Add(value, std::to_string(id));
  ids_.Add(id, value);
}

std::string colSubaudible::Decode(std::string_view id) const {
  return id == kNoneId ? std::string(kNone) : values_.Item(id);
}

bool colSubaudible::ReadInDataFromTextFile(const std::string& path) {
  return Procedure("ReadInDataFromTextFile", false, [&] {
    AddRows(DataFile(path));
    return true;
  });
}

/// An empty piece keeps the id or text of the row before, which then is a double key.
void colSubaudible::AddRows(const DataFile& file) {
  std::int32_t id = 0;
  std::string value;
  for (const DataFile::Row& row : file.Rows()) {
    for (std::size_t column = 0; column < row.pieces.size(); ++column) {
      const std::string& piece = row.pieces[column];
      if (piece.empty()) continue;
      if (file.Columns()[column] == idColumn_) id = file.Long(row, column);
      if (file.Columns()[column] == valueColumn_)
        value = valuesAreNumbers_ ? modCommonGlobals::LocalizeString(piece) : piece;
    }
    if (ids_.Exists(value) || values_.Exists(std::to_string(id))) {
      file.Raise(ErrorNumber::kDoubleKey, row, "the id or the value stands in an earlier row");
    }
    Add(id, value);
  }
}
