#include "workbench/trace/TracedCall.h"

#include <algorithm>

namespace Trace {

Json CallOfCrossings::Arguments() {
  Json list = Json::array();
  for (const auto& [crossing, isResult] : arguments_) {
    if (Callee() == Side::Tier || !isResult) list.push_back(crossing->Argument(objects_));
  }
  return list;
}

Json CallOfCrossings::Results() {
  Json list = Json::array();
  for (const auto& [crossing, isResult] : arguments_) {
    if (isResult) list.push_back(crossing->Result(objects_));
  }
  return list;
}

void CallOfCrossings::TakeResults() {
  for (const auto& [crossing, isResult] : arguments_) {
    if (isResult) crossing->Take(objects_);
  }
}

void CallOfCrossings::ReadResults(const Json& results) {
  const auto count = std::ranges::count_if(arguments_, &Argument::isResult);
  auto next = List(results, static_cast<std::size_t>(count)).begin();
  for (const auto& [crossing, isResult] : arguments_) {
    if (isResult) crossing->Read(*next++, objects_);
  }
}

}  // namespace Trace
