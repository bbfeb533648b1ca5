#pragma once

#include <array>
#include <span>
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

/// An argument on its way across the border. What follows from its type alone is behind this class: an
/// operation that is traced is compiled once more for its call and for nothing else.
class Crossing {
 public:
  virtual Json Argument(Objects& objects) const = 0;
  // Of those that bring a result.
  virtual Json Result(Objects&) const { return {}; }
  virtual void Take(Objects&) {}
  virtual void Read(const Json&, Objects&) {}

 protected:
  ~Crossing() = default;
};

/// How an argument of type P crosses the border: here one that goes in alone.
template <typename P>
class Passage final : public Crossing {
 public:
  explicit Passage(P given) : given_(given) {}
  Json Argument(Objects&) const override { return ToJson(given_); }
  P Passed(Objects&) const { return given_; }

 private:
  P given_;
};

/// A value that the callee writes.
template <typename T>
requires(kIsResult<T&> && !kHoldsObjects<T>) class Passage<T&> final : public Crossing {
 public:
  explicit Passage(T& given) : given_(given) {}
  Json Argument(Objects&) const override { return ToJson(given_); }
  T& Passed(Objects&) const { return given_; }
  Json Result(Objects&) const override { return ToJson(given_); }
  void Read(const Json& json, Objects&) override { FromJson(json, given_); }

 private:
  T& given_;
};

template <Interface I>
class Passage<std::shared_ptr<I>> final : public Crossing {
 public:
  explicit Passage(std::shared_ptr<I> given) : given_(std::move(given)) {}
  Json Argument(Objects& objects) const override { return objects.Reference(given_); }
  std::shared_ptr<I> Passed(Objects& objects) const { return objects.Cross(given_); }

 private:
  std::shared_ptr<I> given_;
};

/// One object or many that the callee hands out.
template <typename T>
requires kHoldsObjects<T>
class Passage<T&> final : public Crossing {
 public:
  explicit Passage(T& given) : given_(given) {}
  Json Argument(Objects& objects) const override { return objects.Reference(given_); }
  T& Passed(Objects& objects) {
    handedOut_ = objects.Cross(given_);
    return handedOut_;
  }
  Json Result(Objects& objects) const override { return objects.Reference(handedOut_); }
  void Take(Objects& objects) override { given_ = objects.Cross(handedOut_); }
  void Read(const Json& json, Objects& objects) override { objects.Read(json, given_); }

 private:
  T& given_;
  T handedOut_;
};

template <Interface I>
class Passage<I*> final : public Crossing {
 public:
  explicit Passage(I* given) : given_(given) {}
  Json Argument(Objects& objects) const override { return objects.Reference(given_); }
  I* Passed(Objects& objects) const { return objects.Cross(given_); }

 private:
  I* given_;
};

template <Interface I>
class Passage<I&> final : public Crossing {
 public:
  explicit Passage(I& given) : given_(given) {}
  Json Argument(Objects& objects) const override { return objects.Reference(&given_); }
  I& Passed(Objects& objects) const { return *objects.Cross(&given_); }

 private:
  I& given_;
};

/// What all calls have in common: their arguments, one after the other.
class CallOfCrossings : public BorderCall {
 public:
  struct Argument {
    Crossing* crossing;
    bool isResult;
  };

  Json Arguments() final;
  Json Results() final;
  void TakeResults() final;
  void ReadResults(const Json& results) final;

 protected:
  CallOfCrossings(std::string_view interface, std::string_view operation, Side side, std::int32_t object,
                  Objects& objects)
      : BorderCall(interface, operation, side, object), objects_(objects) {}
  ~CallOfCrossings() = default;

  void SetArguments(std::span<const Argument> arguments) { arguments_ = arguments; }
  Objects& KnownObjects() const { return objects_; }

 private:
  Objects& objects_;
  std::span<const Argument> arguments_;
};

template <auto Member, typename Signature = decltype(Member)>
class TracedCall;

/// A call of the operation `Member`.
template <auto Member, typename I, typename... Parameters>
class TracedCall<Member, Status (I::*)(Parameters...)> final : public CallOfCrossings {
 public:
  TracedCall(Objects& objects, std::int32_t number, I* real, Parameters... given)
      : CallOfCrossings(Contract<I>::kName, kNameOf<Member>, Contract<I>::kSide, number, objects),
        real_(real),
        passages_(static_cast<Parameters>(given)...),
        arguments_(std::apply(
            [](auto&... passage) {
              return std::array<Argument, sizeof...(Parameters)>{
                  Argument{&passage, kIsResult<Parameters>}...};
            },
            passages_)) {
    SetArguments(arguments_);
  }

  Status Run() override {
    return std::apply([&](auto&... passage) { return (real_->*Member)(passage.Passed(KnownObjects())...); },
                      passages_);
  }

 private:
  I* real_;
  std::tuple<Passage<Parameters>...> passages_;
  std::array<Argument, sizeof...(Parameters)> arguments_;
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

template <typename Counterpart, typename I>
std::shared_ptr<I> Make(Place& place, std::shared_ptr<I>& real) {
  return std::make_shared<Counterpart>(std::move(place), std::move(real));
}

}  // namespace Trace
