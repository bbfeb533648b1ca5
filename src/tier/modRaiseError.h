#pragma once

#include "host/Iterminator.h"
#include "platform/Error.h"

namespace modRaiseError {
/// From here on an unexpected error is fatal: it ends the application through `terminator`.
void InitRaiseError(Iterminator* terminator);

/// A tier that goes takes itself back; errors are then raised to the caller again.
void WithdrawTerminator(const Iterminator* terminator);

/// The way out of a fault, the first that applies: in a development environment, ask "Debug?" and raise
/// it again; with a terminator, a critical box and the end of the application, after which this
/// returns; else raise it again.
void RaiseError(const Fault& fault);
}  // namespace modRaiseError
