#include "validation/modvalFields.h"

#include "channels/modvalBandLimits.h"
#include "channels/modvalChannels.h"
#include "platform/CaseText.h"
#include "tier/Lookup.h"
#include "tier/Procedure.h"

namespace modvalFields {
namespace {
struct FieldRule {
  std::string_view uiid;  ///< in upper case
  bool (*rule)(FieldEdit&);
};

// clang-format off
constexpr FieldRule kRules[] = {
    {"CHANNELID_K6K",        modvalChannels::ValidateChannelID},
    {"CHANNELNETWORKID_K6K", modvalChannels::ValidateChannelID},
    {"RXFREQ_K6K",           modvalChannels::ValidateFrequency},
    {"TXFREQ_K6K",           modvalChannels::ValidateFrequency},
    {"TXPOWER_K6K",          modvalChannels::ValidateTxPower},
    {"BAND_K6K",             modvalBandLimits::ValidateBand},
};
// clang-format on

constexpr auto kByUIID = SortedBy(kRules, &FieldRule::uiid);
static_assert(AllUnique(kByUIID, &FieldRule::uiid));

const FieldRule* FindRule(std::string_view uiid) {
  const auto isBelow = [](std::string_view a, std::string_view b) { return CompareIgnoringCase(a, b) < 0; };
  const auto* found = std::ranges::lower_bound(kByUIID, uiid, isBelow, &FieldRule::uiid);
  return found != kByUIID.end() && EqualsIgnoringCase(found->uiid, uiid) ? found : nullptr;
}
}  // namespace

bool ValidateByUIID(const ValidatorRef& validator, std::string_view uiid, Variant& value, RecordNr record) {
  return Procedure("ValidateByUIID", true, [&](bool& result) {
    const FieldRule* row = FindRule(uiid);
    if (row == nullptr) return;
    FieldEdit edit{validator, row->uiid, value, record, FormWrites(validator, row->uiid)};
    result = row->rule(edit);
    if (result) edit.writes.Accept();
  });
}
}  // namespace modvalFields
