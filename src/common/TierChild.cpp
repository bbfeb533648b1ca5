#include "common/TierChild.h"

#include "common/Handles.h"

void TierChild::Bind(Itier* tier) {
  std::shared_ptr<Iterminator> terminator;
  if (tier != nullptr) RaiseIfFailed(tier->Terminator(terminator));
  tier_ = tier;
  isNoticed_ = terminator != nullptr;
  life_ = terminator;
}

bool TierChild::IsOver() const { return (hasMaker_ && maker_.expired()) || (isNoticed_ && life_.expired()); }

std::shared_ptr<Iterminator> TierChild::Keep() const {
  if (IsOver()) RaiseNothing("Itier");
  return life_.lock();
}
