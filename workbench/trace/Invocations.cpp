#include "workbench/trace/Invocations.h"

#include <map>

#include "workbench/trace/TracedCall.h"

namespace Trace {
namespace {

/// What holds an argument of type P during a call.
template <typename P>
struct HolderOf {
  using Type = std::remove_cvref_t<P>;
};
template <>
struct HolderOf<std::string_view> {
  using Type = std::string;
};

template <typename Holder>
concept Reference = kHoldsObjects<Holder> || std::is_pointer_v<Holder>;

template <typename Holder>
void Read(const Json& json, Holder& out, Objects& objects) {
  if constexpr (Reference<Holder>) {
    objects.Read(json, out);
  } else {
    FromJson(json, out);
  }
}

template <typename Holder>
Json Write(const Holder& value, Objects& objects) {
  if constexpr (Reference<Holder>) {
    return objects.Reference(value);
  } else {
    return ToJson(value);
  }
}

/// Null when the object does not have the interface.
template <typename I>
std::shared_ptr<I> ObjectOf(std::int32_t number, const Objects& objects) {
  if constexpr (std::is_same_v<I, IenablementReasons>) {
    return std::dynamic_pointer_cast<IenablementReasons>(objects.OfTier<ItierValidator>(number));
  } else {
    return objects.OfTier<I>(number);
  }
}

template <typename I, typename... Parameters>
std::optional<Answer> InvokeMember(Status (I::*member)(Parameters...), std::int32_t number,
                                   const Json& arguments, Objects& objects) {
  const std::shared_ptr<I> object = ObjectOf<I>(number, objects);
  if (object == nullptr) return {};
  std::tuple<typename HolderOf<Parameters>::Type...> holders;
  auto next = List(arguments, sizeof...(Parameters)).begin();
  std::apply([&](auto&... holder) { (Read(*next++, holder, objects), ...); }, holders);

  Answer answer;
  answer.status = std::apply(
      [&](auto&... holder) { return (object.get()->*member)(static_cast<Parameters>(holder)...); }, holders);
  if (!answer.status.Ok()) return answer;
  answer.results = Json::array();
  const auto add = [&]<typename P>(std::type_identity<P>, const auto& holder) {
    if constexpr (kIsResult<P>) answer.results.push_back(Write(holder, objects));
  };
  std::apply([&](const auto&... holder) { (add(std::type_identity<Parameters>(), holder), ...); }, holders);
  return answer;
}

using Invoker = std::optional<Answer> (*)(std::int32_t number, const Json& arguments, Objects& objects);
using Invokers = std::map<std::string, Invoker, std::less<>>;

template <typename I>
void AddOperations(Invokers& invokers) {
  const auto add = [&]<auto Member>(const Named<Member>& operation) {
    invokers.emplace(std::string(Contract<I>::kName).append(".").append(operation.name),
                     [](std::int32_t number, const Json& arguments, Objects& objects) {
                       return InvokeMember(Member, number, arguments, objects);
                     });
  };
  std::apply([&](const auto&... operation) { (add(operation), ...); }, Contract<I>::kOperations);
}

template <typename... Interfaces>
Invokers InvokersOf() {
  Invokers invokers;
  (AddOperations<Interfaces>(invokers), ...);
  return invokers;
}

}  // namespace

std::optional<Answer> Invoke(const std::string& operation, std::int32_t number, const Json& arguments,
                             Objects& objects) {
  static const Invokers kInvokers =
      InvokersOf<IentryPoints, IclassFactory, Itier, Iterminator, ItierSchema, IcolProvInfo,
                 ItierUserInterface, IproviderOwner, ItierValidator, IenablementReasons>();
  const auto found = kInvokers.find(operation);
  if (found == kInvokers.end()) throw BadValue("the tier has no operation " + operation);
  return found->second(number, arguments, objects);
}

}  // namespace Trace
