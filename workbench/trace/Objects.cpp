#include "workbench/trace/Objects.h"

namespace Trace {

bool Objects::Release(std::int32_t number) {
  const auto found = keys_.find(number);
  if (found == keys_.end()) return false;
  const auto entry = entries_.extract(found->second);
  keys_.erase(found);
  return true;  // what was kept goes now, when the tables are in order
}

void Objects::Clear() {
  while (!keys_.empty()) Release(keys_.rbegin()->first);
  auto ofHost = std::move(ofHost_);
  ofHost_.clear();
}

/// Lists of values are made anew all the time.
void Objects::ForgetTheDead() {
  if (entries_.size() < manyEntries_) return;
  std::erase_if(entries_, [](const auto& one) { return one.second.life.expired(); });
  manyEntries_ = 2 * entries_.size() + 1000;
}

}  // namespace Trace
