#pragma once

#include <memory>

#include "host/Itier.h"
#include "platform/Border.h"

/// The time of a tier, from Initialize to Terminate or to the end of the object: a token that is let go then.
struct TierTime {};

/// Base of the objects that work for a tier. A host may let go of anything in any callback, so an operation
/// keeps its object and the tier alive until it returns; and it may keep a child longer than the tier, which
/// answers 91 from then on.
class TierChild : public std::enable_shared_from_this<TierChild> {
 public:
  /// Made by the class factory: of no tier until it is bound.
  TierChild() = default;
  /// Made by a tier, for its time alone, whatever tier it is bound to.
  explicit TierChild(const std::shared_ptr<const TierTime>& time) : hasMaker_(true), maker_(time) {}

 protected:
  ~TierChild() = default;

  /// Null for none. A tier that gives no Terminator is not noticed when it goes.
  void Bind(Itier* tier);
  /// The time of the tier that made it is over, or the tier that it was bound to is gone.
  bool IsOver() const;

  /// An operation of the child: `work` takes the tier, null for none. Raises 91 when the time is over.
  template <typename Work>
  Status Call(Work work) {
    return Border([&] {
      const auto self = weak_from_this().lock();
      const auto life = Keep();
      work(tier_);
    });
  }

 private:
  std::shared_ptr<Iterminator> Keep() const;

  bool hasMaker_ = false;
  std::weak_ptr<const TierTime> maker_;
  Itier* tier_ = nullptr;
  bool isNoticed_ = false;
  std::weak_ptr<Iterminator> life_;  // the tier itself, as its Terminator
};
