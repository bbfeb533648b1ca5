#include "channels/modChannelIndex.h"

#include <algorithm>
#include <string>
#include <vector>

#include "platform/Conversions.h"
#include "tier/Procedure.h"
#include "tier/RadioCodes.h"
#include "tier/modCommonErrorHandler.h"
#include "tier/modProjectGlobals.h"

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

/// A text that is no number names no channel.
std::int32_t IndexOf(const ProviderRef& provider, const Variant& number) {
  if (!IsNumeric(number)) return 0;
  const std::vector<Variant> numbers = provider.Field("5.ChannelIDTracker").Values();
  const auto isWanted = [wanted = Variant(CLng(number))](const Variant& value) {
    return SameValue(value, wanted);
  };
  const auto found = std::find_if(numbers.begin(), numbers.end(), isWanted);
  return found == numbers.end() ? 0 : static_cast<std::int32_t>(found - numbers.begin());
}
}  // namespace

void GetChannelIndex(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetChannelIndex", [&] {
    if (!IsKnown(fieldId)) return;
    const FieldRef form = provider.Field(fieldId);
    if (IsCode(provider.Field("53.ChannelType").Value(record), ChannelType::kCurrent)) {
      return form.SetValue(record, kNone);
    }
    const FieldRef numbers = provider.Field("5.ChannelIDTracker");
    const std::int32_t index = CLng(provider.Field(kEmergencyIndex).Value(record));
    const RecordNr channel = numbers.HasRecord(index + 1) ? index + 1 : 1;
    if (numbers.HasRecord(channel)) form.SetValue(record, CStr(numbers.Value(channel)));
  });
}

void SetChannelIndex(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetChannelIndex", [&] {
    if (!IsKnown(fieldId)) return;
    const Variant number = provider.Field(fieldId).Value(record);
    const bool isNone = CStr(number) == kNone;  // counts as channel 0
    provider.Field(kEmergencyIndex).SetValue(record, IndexOf(provider, isNone ? Variant(0) : number));
  });
}
}  // namespace modChannelIndex
