#include "common/Lookup.h"
#include "validation/EnablementRows.h"

namespace modvalEnablement {
namespace {
constexpr NameIndex kIndex(kRows, &EnablementRow::uiid);
}  // namespace

std::span<const EnablementRow> Rows() { return kRows; }

const Condition* FindCondition(std::string_view uiid) {
  const EnablementRow* row = kIndex.Find(uiid);
  return row == nullptr ? nullptr : row->enabledWhen;
}
}  // namespace modvalEnablement
