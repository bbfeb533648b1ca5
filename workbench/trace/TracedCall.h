#pragma once

#include <tuple>
#include <type_traits>
#include <utility>

#include "workbench/trace/Objects.h"

/// Calls across the border, made of the signatures of the operations. Included by who defines traced objects.
namespace Trace {

template <typename T>
inline constexpr bool kHoldsObjects = false;
template <Interface I>
inline constexpr bool kHoldsObjects<std::shared_ptr<I>> = true;
template <Interface I>
inline constexpr bool kHoldsObjects<std::vector<std::shared_ptr<I>>> = true;

/// A parameter that the callee writes.
template <typename P>
inline constexpr bool kIsResult =
    std::is_lvalue_reference_v<P> && !std::is_const_v<std::remove_reference_t<P>> &&
    !Interface<std::remove_reference_t<P>>;

/// How an argument of type P crosses the border: here one that goes in alone.
template <typename P>
class Passage {
 public:
  explicit Passage(P given) : given_(given) {}
  Json Argument(Objects&) const { return ToJson(given_); }
  P Passed(Objects&) const { return given_; }

 private:
  P given_;
};

/// A value that the callee writes.
template <typename T>
requires(kIsResult<T&> && !kHoldsObjects<T>) class Passage<T&> {
 public:
  explicit Passage(T& given) : given_(given) {}
  Json Argument(Objects&) const { return ToJson(given_); }
  T& Passed(Objects&) const { return given_; }
  Json Result(Objects&) const { return ToJson(given_); }
  void Take(Objects&) const {}
  void Read(const Json& json, Objects&) const { FromJson(json, given_); }

 private:
  T& given_;
};

template <Interface I>
class Passage<std::shared_ptr<I>> {
 public:
  explicit Passage(std::shared_ptr<I> given) : given_(std::move(given)) {}
  Json Argument(Objects& objects) const { return objects.Reference(given_); }
  std::shared_ptr<I> Passed(Objects& objects) const { return objects.Cross(given_); }

 private:
  std::shared_ptr<I> given_;
};

/// One object or many that the callee hands out.
template <typename T>
requires kHoldsObjects<T>
class Passage<T&> {
 public:
  explicit Passage(T& given) : given_(given) {}
  Json Argument(Objects& objects) const { return objects.Reference(given_); }
  T& Passed(Objects& objects) {
    handedOut_ = objects.Cross(given_);
    return handedOut_;
  }
  Json Result(Objects& objects) const { return objects.Reference(handedOut_); }
  void Take(Objects& objects) const { given_ = objects.Cross(handedOut_); }
  void Read(const Json& json, Objects& objects) const { objects.Read(json, given_); }

 private:
  T& given_;
  T handedOut_;
};

template <Interface I>
class Passage<I*> {
 public:
  explicit Passage(I* given) : given_(given) {}
  Json Argument(Objects& objects) const { return objects.Reference(given_); }
  I* Passed(Objects& objects) const { return objects.Cross(given_); }

 private:
  I* given_;
};

template <Interface I>
class Passage<I&> {
 public:
  explicit Passage(I& given) : given_(given) {}
  Json Argument(Objects& objects) const { return objects.Reference(&given_); }
  I& Passed(Objects& objects) const { return *objects.Cross(&given_); }

 private:
  I& given_;
};

template <auto Member, typename Signature = decltype(Member)>
class TracedCall;

/// A call of the operation `Member`.
template <auto Member, typename I, typename... Parameters>
class TracedCall<Member, Status (I::*)(Parameters...)> final : public BorderCall {
 public:
  TracedCall(Objects& objects, std::int32_t number, I* real, Parameters... given)
      : BorderCall(Contract<I>::kName, kNameOf<Member>, Contract<I>::kSide, number),
        objects_(objects),
        real_(real),
        passages_(static_cast<Parameters>(given)...) {}

  Json Arguments() override {
    Json list = Json::array();
    Each([&]<typename P>(Passage<P>& passage) {
      if (Contract<I>::kSide == Side::Tier || !kIsResult<P>) list.push_back(passage.Argument(objects_));
    });
    return list;
  }

  Status Run() override {
    return std::apply([&](auto&... passage) { return (real_->*Member)(passage.Passed(objects_)...); },
                      passages_);
  }

  Json Results() override {
    Json list = Json::array();
    EachResult([&](auto& passage) { list.push_back(passage.Result(objects_)); });
    return list;
  }

  void TakeResults() override {
    EachResult([&](auto& passage) { passage.Take(objects_); });
  }

  void ReadResults(const Json& results) override {
    std::size_t count = 0;
    EachResult([&](auto&) { ++count; });
    auto next = List(results, count).begin();
    EachResult([&](auto& passage) { passage.Read(*next++, objects_); });
  }

 private:
  template <typename Work>
  void Each(Work work) {
    std::apply([&](auto&... passage) { (work(passage), ...); }, passages_);
  }
  template <typename Work>
  void EachResult(Work work) {
    Each([&]<typename P>(Passage<P>& passage) {
      if constexpr (kIsResult<P>) work(passage);
    });
  }

  Objects& objects_;
  I* real_;
  std::tuple<Passage<Parameters>...> passages_;
};

template <Interface I>
template <auto Member, typename... Arguments>
Status Traced<I>::Call(Arguments&&... arguments) {
  // An extra beside the interface is the same object.
  using Asked = InterfaceOf<Member>;
  Asked* real = nullptr;
  if constexpr (std::is_same_v<Asked, I>) {
    real = real_.get();
  } else {
    real = dynamic_cast<Asked*>(real_.get());
  }
  TracedCall<Member> call(place_.channel->KnownObjects(), place_.number, real,
                          std::forward<Arguments>(arguments)...);
  return place_.channel->Carry(call);
}

}  // namespace Trace
