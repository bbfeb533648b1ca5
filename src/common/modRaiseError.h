#pragma once

#include "host/Iterminator.h"
#include "platform/Error.h"

namespace modRaiseError {
/// From here on, to the end of the process, an unexpected error is fatal: it ends the application through the
/// terminator that came last.
void InitRaiseError(Iterminator* terminator);

/// A tier that goes takes itself back; the one before it is in charge again.
void WithdrawTerminator(const Iterminator* terminator);

/// The way out of a fault, the first that applies: in a development environment, ask "Debug?" and raise
/// it again; once a terminator has come, a critical box and the end of the application, after which this
/// returns; else raise it again. Raised it is behind the box, too, when no terminator is left.
void RaiseError(const Fault& fault);
}  // namespace modRaiseError
