#include "radioui/modFunctionKeyLists.h"

#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/StoredValues.h"
#include "common/modProjectGlobals.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "radioui/FunctionKeyActions.h"
#include "radioui/ItemLists.h"

namespace modFunctionKeyLists {
namespace {
using namespace ItemLists;

using FunctionKeyActions::Parameter;

/// What the field, the parameter of a key, names: the key's action tells.
Parameter ParameterOf(const ProviderRef& provider, std::string_view uiid) {
  for (const FunctionKey& key : kFunctionKeys) {
    if (!EqualsIgnoringCase(key.parameter1, uiid)) continue;
    const Variant action = StoredValue(provider, key.action, kOnly);
    if (IsNumeric(action)) return FunctionKeyActions::Of(CLng(action)).parameter;
  }
  return Parameter::None;
}

void OfferParameters(XArrayDBObject& items, const ProviderRef& provider, Parameter parameter) {
  switch (parameter) {
    case Parameter::None:
      return OfferOnly(items, kNone);
    case Parameter::Group:
      return OfferValues(items, provider.Field("16.GroupIDTracker"));
    case Parameter::Channel:
      return OfferUsedChannels(items, provider);
    default:
      return Offer(items, FunctionKeyActions::TextsOf(parameter));
  }
}
}  // namespace

void GetK6000FunctionKeyItems(const ProviderRef&, std::string_view, RecordNr, XArrayDBObject& items) {
  Procedure("GetK6000FunctionKeyItems", [&] {
    ItemList list(items);
    for (const FunctionKeyActions::Action& action : FunctionKeyActions::kActions) list.Add(action.name);
  });
}

void GetK6000FKParameter1(const ProviderRef& provider, std::string_view uiid, RecordNr,
                          XArrayDBObject& items) {
  Procedure("GetK6000FKParameter1", [&] { OfferParameters(items, provider, ParameterOf(provider, uiid)); });
}
}  // namespace modFunctionKeyLists
