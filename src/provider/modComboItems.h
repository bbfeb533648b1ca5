#pragma once

#include <memory>
#include <string_view>

#include "common/Handles.h"

class XArrayDBObject;

/// The lists of the combo boxes. What kind of list a field has tells its transformation number, so that a
/// list and the conversion of its field go together.
namespace modComboItems {
/// Fills `items` with what the field offers at the record, which may be one that is still to come: nothing is
/// its own then. An empty reference receives an array with the one item "Undefined". A field without
/// transformation and an unknown UIID leave the array as it is, a transformation without list makes it
/// "Undefined". The result is true.
bool GetComboItemsByUIID(const ProviderRef& provider, std::string_view uiid, RecordNr record,
                         std::shared_ptr<XArrayDBObject>& items);
}  // namespace modComboItems
