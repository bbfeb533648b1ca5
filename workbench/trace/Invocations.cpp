#include "workbench/trace/Invocations.h"

#include <array>
#include <map>
#include <span>

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

/// An argument of a recorded call, whatever its type.
class Held {
 public:
  virtual void Read(const Json& json, Objects& objects) = 0;
  virtual Json Write(Objects& objects) const = 0;

 protected:
  ~Held() = default;
};

template <typename Holder>
class HeldAs final : public Held {
 public:
  Holder value{};

  void Read(const Json& json, Objects& objects) override {
    if constexpr (Reference<Holder>) {
      objects.Read(json, value);
    } else {
      FromJson(json, value);
    }
  }
  Json Write(Objects& objects) const override {
    if constexpr (Reference<Holder>) {
      return objects.Reference(value);
    } else {
      return ToJson(value);
    }
  }
};

struct Argument {
  Held* held;
  bool isResult;
};

void ReadAll(const Json& arguments, std::span<const Argument> held, Objects& objects) {
  auto next = List(arguments, held.size()).begin();
  for (const Argument& one : held) one.held->Read(*next++, objects);
}

Answer AnswerWith(Status status, std::span<const Argument> held, Objects& objects) {
  Answer answer{std::move(status), {}};
  if (!answer.status.Ok()) return answer;
  answer.results = Json::array();
  for (const Argument& one : held) {
    if (one.isResult) answer.results.push_back(one.held->Write(objects));
  }
  return answer;
}

/// Null when the object does not have the interface.
template <typename I>
std::shared_ptr<I> ObjectOf(std::int32_t number, const Objects& objects) {
  if constexpr (std::is_same_v<I, IenablementReasons> || std::is_same_v<I, IfinalRules>) {
    return std::dynamic_pointer_cast<I>(objects.OfTier<ItierValidator>(number));
  } else {
    return objects.OfTier<I>(number);
  }
}

template <typename I, typename... Parameters>
std::optional<Answer> InvokeMember(Status (I::*member)(Parameters...), std::int32_t number,
                                   const Json& arguments, Objects& objects) {
  const std::shared_ptr<I> object = ObjectOf<I>(number, objects);
  if (object == nullptr) return {};
  std::tuple<HeldAs<typename HolderOf<Parameters>::Type>...> holders;
  const auto held = std::apply(
      [](auto&... holder) {
        return std::array<Argument, sizeof...(Parameters)>{Argument{&holder, kIsResult<Parameters>}...};
      },
      holders);
  ReadAll(arguments, held, objects);
  Status status = std::apply(
      [&](auto&... holder) { return (object.get()->*member)(static_cast<Parameters>(holder.value)...); },
      holders);
  return AnswerWith(std::move(status), held, objects);
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
                 ItierUserInterface, IproviderOwner, ItierValidator, IenablementReasons, IfinalRules>();
  const auto found = kInvokers.find(operation);
  if (found == kInvokers.end()) throw BadValue("the tier has no operation " + operation);
  return found->second(number, arguments, objects);
}

}  // namespace Trace
