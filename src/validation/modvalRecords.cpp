#include "validation/modvalRecords.h"

#include "common/Messages.h"
#include "common/Procedure.h"
#include "provider/GridRecords.h"

namespace modvalRecords {
bool AddRecord(const ValidatorRef& validator, std::string_view gridName, const ProviderRef& provider) {
  return Procedure("AddRecord", true, [&] {
    const GridRecords* grid = GridRecords::Find(gridName);
    if (grid == nullptr) return true;
    if (grid->hasRoom != nullptr && !grid->hasRoom(provider)) {
      Warn(validator, grid->noRoom);
      return false;
    }
    if (grid->prepare != nullptr) grid->prepare(validator, provider);
    return true;
  });
}

bool DeleteRecord(const ValidatorRef& validator, std::string_view gridName, RecordNr record) {
  return Procedure("DeleteRecord", true, [&] {
    const GridRecords* grid = GridRecords::Find(gridName);
    return grid == nullptr || grid->mayDelete == nullptr || grid->mayDelete(validator, record);
  });
}
}  // namespace modvalRecords
