#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "platform/Status.h"
#include "workbench/trace/Interfaces.h"
#include "workbench/trace/Values.h"

/// What the objects on both sides of the border talk through when a trace is made or played again.
namespace Trace {

class Objects;

/// A call on its way across the border.
class BorderCall {
 public:
  BorderCall(std::string_view interface, std::string_view operation, Side side, std::int32_t object)
      : interface_(interface), operation_(operation), side_(side), object_(object) {}
  BorderCall(const BorderCall&) = delete;
  BorderCall& operator=(const BorderCall&) = delete;

  /// "Ifield.Value"
  std::string Operation() const { return std::string(interface_).append(".").append(operation_); }
  /// Whose object is called.
  Side Callee() const { return side_; }
  std::int32_t Object() const { return object_; }

  /// The arguments before the call. Those that bring a result are among them when the tier is called: it may
  /// read what they hold.
  virtual Json Arguments() = 0;
  /// Calls the object itself; a result that is an object is kept back until TakeResults.
  virtual Status Run() = 0;
  /// The results after a Run that succeeded.
  virtual Json Results() = 0;
  virtual void TakeResults() = 0;
  /// Takes the results from a trace, without a Run. Raises a BadValue, with nothing taken or a part.
  virtual void ReadResults(const Json& results) = 0;

 protected:
  ~BorderCall() = default;

 private:
  std::string_view interface_;
  std::string_view operation_;
  Side side_;
  std::int32_t object_;
};

/// The one way across the border for all traced objects.
class Channel : public std::enable_shared_from_this<Channel> {
 public:
  virtual ~Channel() = default;
  virtual Status Carry(BorderCall& call) noexcept = 0;
  /// The host has let go its last hold on an object of the tier.
  virtual void Release(std::int32_t number) noexcept = 0;
  virtual Objects& KnownObjects() = 0;
};

/// Channel and number of a traced object.
struct Place {
  std::shared_ptr<Channel> channel;
  std::int32_t number = 0;
};

/// Stands for an object on the other side of the border and sends its calls through the channel.
template <Interface I>
class Traced : public I {
 public:
  Traced(Place place, std::shared_ptr<I> real) : place_(std::move(place)), real_(std::move(real)) {}
  ~Traced() override {
    if constexpr (Contract<I>::kSide == Side::Tier) place_.channel->Release(place_.number);
  }
  Traced(const Traced&) = delete;
  Traced& operator=(const Traced&) = delete;

  const Channel* Way() const { return place_.channel.get(); }
  std::int32_t Number() const { return place_.number; }
  /// Null for an object of the host that exists in the trace alone.
  const std::shared_ptr<I>& Real() const { return real_; }

 protected:
  /// Defined in TracedCall.h.
  template <auto Member, typename... Arguments>
  Status Call(Arguments&&... arguments);

 private:
  Place place_;
  std::shared_ptr<I> real_;
};

// The traced counterpart of an object; of none for one of the host that exists in the trace alone.
std::shared_ptr<Ifield> MakeTraced(Place place, std::shared_ptr<Ifield> real);
std::shared_ptr<Ifields> MakeTraced(Place place, std::shared_ptr<Ifields> real);
std::shared_ptr<IvalueList> MakeTraced(Place place, std::shared_ptr<IvalueList> real);
std::shared_ptr<Itable> MakeTraced(Place place, std::shared_ptr<Itable> real);
std::shared_ptr<Itables> MakeTraced(Place place, std::shared_ptr<Itables> real);
std::shared_ptr<Iprovider> MakeTraced(Place place, std::shared_ptr<Iprovider> real);
std::shared_ptr<IprovInfo> MakeTraced(Place place, std::shared_ptr<IprovInfo> real);
std::shared_ptr<Imessenger> MakeTraced(Place place, std::shared_ptr<Imessenger> real);
std::shared_ptr<IvalidatorHost> MakeTraced(Place place, std::shared_ptr<IvalidatorHost> real);
std::shared_ptr<IhostServices> MakeTraced(Place place, std::shared_ptr<IhostServices> real);
std::shared_ptr<IentryPoints> MakeTraced(Place place, std::shared_ptr<IentryPoints> real);
std::shared_ptr<IclassFactory> MakeTraced(Place place, std::shared_ptr<IclassFactory> real);
std::shared_ptr<Itier> MakeTraced(Place place, std::shared_ptr<Itier> real);
std::shared_ptr<Iterminator> MakeTraced(Place place, std::shared_ptr<Iterminator> real);
std::shared_ptr<ItierSchema> MakeTraced(Place place, std::shared_ptr<ItierSchema> real);
std::shared_ptr<IcolProvInfo> MakeTraced(Place place, std::shared_ptr<IcolProvInfo> real);
std::shared_ptr<ItierUserInterface> MakeTraced(Place place, std::shared_ptr<ItierUserInterface> real);
std::shared_ptr<IproviderOwner> MakeTraced(Place place, std::shared_ptr<IproviderOwner> real);
/// Offers the reasons of enablement when the real one does.
std::shared_ptr<ItierValidator> MakeTraced(Place place, std::shared_ptr<ItierValidator> real);

}  // namespace Trace
