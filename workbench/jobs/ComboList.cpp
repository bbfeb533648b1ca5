#include "workbench/jobs/ComboList.h"

#include <memory>

#include "platform/Conversions.h"
#include "platform/XArrayDBObject.h"
#include "workbench/host/TierHost.h"
#include "workbench/store/Provider.h"

ComboList ComboListOf(const TierHost& host, const Provider& content, std::string_view uiid, RecordNr record) {
  constexpr std::int32_t kRows = 1;
  constexpr std::int32_t kColumns = 2;
  std::shared_ptr<XArrayDBObject> rows;
  Boolean done = kFalse;
  host.Require(host.Owner().GetComboItemsByUIID(content.Copy(), uiid, record, rows, done));
  ComboList list;
  list.hasCodes = rows->Count(kColumns) > 1;
  for (std::int32_t row = 0; row <= rows->UpperBound(kRows); ++row) {
    ComboItem& item = list.items.emplace_back(ComboItem{CStr(rows->GetValue(row, 0))});
    if (list.hasCodes) item.code = CLng(rows->GetValue(row, 1));
  }
  return list;
}

std::optional<ComboList> ListOffered(const TierHost& host, const Provider& content, std::string_view uiid,
                                     RecordNr record) {
  try {
    ComboList list = ComboListOf(host, content, uiid, record);
    if (!list.IsNone()) return list;
  } catch (const UnsupportedByTier&) {
    // What else is known of the field applies alone.
  }
  return {};
}

std::optional<std::string> EntryOf(const TierHost& host, const Provider& content, std::string_view uiid,
                                   RecordNr record, const Variant& value) {
  std::int32_t row = 0;
  for (const ComboItem& item : ComboListOf(host, content, uiid, record).items) {
    if (SameValue(value, item.code.value_or(row++))) return item.text;
  }
  return {};
}
