#include "workbench/store/LastingOrder.h"

#include <algorithm>
#include <numeric>

#include "platform/Conversions.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"

namespace {
constexpr std::int32_t kAllStatuses = 1111;

std::vector<std::size_t> OrderIn(const Provider& content, const SchemaField& grouping) {
  std::vector<Variant> groups;
  for (RecordNr record = 1; record <= content.Count(grouping.table); ++record) {
    groups.push_back(content.Get(grouping, record));
  }
  return LastingOrder::Of(groups);
}
}  // namespace

namespace LastingOrder {

const SchemaField* GroupingOf(const Schema& schema, const SchemaTable& table) {
  return table.number == kAllStatuses ? schema.Find("1111.SelcallID") : nullptr;
}

std::vector<std::size_t> Of(std::span<const Variant> groups) {
  std::vector<std::size_t> places(groups.size());
  std::iota(places.begin(), places.end(), std::size_t{0});
  std::ranges::stable_sort(places, {}, [&](std::size_t place) { return CLng(groups[place]); });
  return places;
}

RecordNr SamePlace(const Provider& from, RecordNr record, const Provider& to, const SchemaTable& table) {
  const RecordNr count = to.Count(table);
  const SchemaField* grouping = GroupingOf(from.GetSchema(), table);
  if (grouping == nullptr) return record <= count ? record : 0;
  const std::vector<std::size_t> order = OrderIn(from, *grouping);
  const auto rank = std::ranges::find(order, static_cast<std::size_t>(record - 1)) - order.begin();
  return rank < count ? static_cast<RecordNr>(OrderIn(to, *grouping)[static_cast<std::size_t>(rank)]) + 1 : 0;
}

}  // namespace LastingOrder
