#pragma once

#include <memory>

#include "common/LibraryObject.h"
#include "platform/XArrayDBObject.h"

/// An array that the tier makes and the host may keep: it counts as an object of the library, whose code
/// frees it.
class LibraryArray final : public XArrayDBObject, private LibraryObject {};
