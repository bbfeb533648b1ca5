#include "channels/modChannelIndex.h"

#include <algorithm>
#include <string>

#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/modCommonErrorHandler.h"
#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"

namespace modChannelIndex {
namespace {
constexpr std::string_view kEmergencyChannel = "53.ChannelIDTracker";
constexpr std::string_view kEmergencyIndex = "53.ChannelRecordNr";

/// The name is compared exactly.
bool IsKnown(std::string_view fieldId) {
  if (fieldId == kEmergencyChannel) return true;
  modCommonErrorHandler::ShowMessageBox("field " + std::string(fieldId) +
                                        " not found during Scan Group mapping");
  return false;
}

/// "None" counts as channel 0; a word is no number.
Variant NumberOf(const Variant& shown) { return CStr(shown) == kNone ? Variant(0) : WholeNumberOf(shown); }
}  // namespace

void GetChannelIndex(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetChannelIndex", [&] {
    if (!IsKnown(fieldId)) return;
    const FieldRef form = provider.Field(fieldId);
    if (IsCode(provider.Field("53.ChannelType").Value(record), ChannelType::kCurrent)) {
      return form.SetValue(record, kNone);
    }
    const FieldRef numbers = provider.Field("5.ChannelIDTracker");
    const std::int64_t stored = std::int64_t{CLng(provider.Field(kEmergencyIndex).Value(record))} + 1;
    const bool isThere = 1 <= stored && stored <= numbers.RecordCount();
    const RecordNr channel = isThere ? static_cast<RecordNr>(stored) : 1;
    if (numbers.HasRecord(channel)) form.SetValue(record, CStr(numbers.Value(channel)));
  });
}

void SetChannelIndex(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetChannelIndex", [&] {
    if (!IsKnown(fieldId)) return;
    const Variant number = NumberOf(provider.Field(fieldId).Value(record));
    const RecordNr channel = modProjectGlobals::ChannelRecordNr(provider, number);
    provider.Field(kEmergencyIndex).SetValue(record, std::max(channel - 1, 0));
  });
}
}  // namespace modChannelIndex
