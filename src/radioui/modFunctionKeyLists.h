#pragma once

#include <string_view>

#include "common/Handles.h"

class XArrayDBObject;

/// What the form of the function keys offers. The keys have one record; none is no fault.
namespace modFunctionKeyLists {
/// The actions of a key; an item's row is its value in the field.
void GetK6000FunctionKeyItems(const ProviderRef& provider, std::string_view uiid, RecordNr record,
                              XArrayDBObject& items);
/// The first parameter of the key in the name of the field, by the action that the key has; "None" for an
/// action without parameter.
void GetK6000FKParameter1(const ProviderRef& provider, std::string_view uiid, RecordNr record,
                          XArrayDBObject& items);
}  // namespace modFunctionKeyLists
