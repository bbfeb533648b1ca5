#include "workbench/store/ValueLists.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <string_view>

#include "platform/Border.h"
#include "platform/Conversions.h"

namespace {
constexpr std::string_view kOneNumberSet[] = {"5.ChannelIDTracker", "16.GroupIDTracker"};

void CheckIndex(std::int32_t index, std::int32_t count) {
  if (index < 0 || index >= count) RaiseSubscript("IvalueList");
}
}  // namespace

UsedValueList::UsedValueList(const Records& records, const SchemaField& field) {
  const auto& values = records.Values(field);
  texts_.reserve(values.size());
  for (const Variant& value : values) texts_.push_back(CStr(value));
}

Status UsedValueList::Item(std::int32_t index, std::string& out) {
  return Border([&] {
    CheckIndex(index, static_cast<std::int32_t>(texts_.size()));
    out = texts_[static_cast<std::size_t>(index)];
  });
}

Status UsedValueList::Count(std::int32_t& out) {
  out = static_cast<std::int32_t>(texts_.size());
  return {};
}

std::vector<const SchemaField*> NumberSetOf(const Schema& schema, const SchemaField& field) {
  std::vector<const SchemaField*> set = {&field};
  if (std::ranges::find(kOneNumberSet, field.id) == std::end(kOneNumberSet)) return set;
  for (const std::string_view id : kOneNumberSet) {
    const SchemaField* other = schema.Find(id);
    if (other != nullptr && other != &field) set.push_back(other);
  }
  return set;
}

FreeValueList::FreeValueList(const Records& records, const SchemaField& field)
    : minimum_(field.minimum), maximum_(field.maximum) {
  for (const SchemaField* one : NumberSetOf(records.GetSchema(), field)) AddUsed(records, *one);
  std::ranges::sort(used_);
  used_.erase(std::unique(used_.begin(), used_.end()), used_.end());
}

void FreeValueList::AddUsed(const Records& records, const SchemaField& field) {
  for (const Variant& value : records.Values(field)) {
    if (!IsNumeric(value)) continue;
    const double number = CDbl(value);
    if (number < minimum_ || number > maximum_ || number != std::floor(number)) continue;
    used_.push_back(static_cast<std::int32_t>(number));
  }
}

std::int32_t FreeValueList::Size() const {
  const std::int64_t legal = std::int64_t{maximum_} - minimum_ + 1;
  const std::int64_t free = legal - static_cast<std::int64_t>(used_.size());
  return static_cast<std::int32_t>(std::min<std::int64_t>(free, std::numeric_limits<std::int32_t>::max()));
}

std::int32_t FreeValueList::At(std::int32_t index) const {
  CheckIndex(index, Size());
  // So many free values lie below a used one as it is above the minimum, less the used ones before it.
  const auto isPassed = [&](const std::int32_t& used) {
    return std::int64_t{used} - minimum_ - (&used - used_.data()) <= index;
  };
  const auto passed = std::partition_point(used_.begin(), used_.end(), isPassed) - used_.begin();
  return static_cast<std::int32_t>(std::int64_t{minimum_} + index + passed);
}

Status FreeValueList::Item(std::int32_t index, std::string& out) {
  return Border([&] { out = std::to_string(At(index)); });
}

Status FreeValueList::Count(std::int32_t& out) {
  out = Size();
  return {};
}
