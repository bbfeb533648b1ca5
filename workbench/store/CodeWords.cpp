#include "workbench/store/CodeWords.h"

#include <algorithm>

#include "platform/CaseText.h"
#include "platform/Conversions.h"

namespace CodeWords {
namespace {

using Words = std::span<const std::string_view>;

constexpr std::string_view kPowers[] = {"Off", "Very Low", "Low", "Medium", "High"};
constexpr std::string_view kSignallingTypes[] = {"None", "Selcall", "DTMF", "Two-tone", "MDC1200"};
constexpr std::string_view kGroupTypes[] = {"Scan", "Vote"};
constexpr std::string_view kScanTypes[] = {"Standard", "Background", "VornAx"};
constexpr std::string_view kDisplays[] = {"SC", "Group ID", "Tx Channel"};
constexpr std::string_view kCallChannels[] = {"Preset", "Last Captured", "Last Free", "Next Free",
                                              "Selected"};
constexpr std::string_view kRespondOn[] = {"Captured", "Default"};
constexpr std::string_view kPriorityScans[] = {"Disabled", "Enabled", "Selected"};
constexpr std::string_view kNoYes[] = {"No", "Yes"};
constexpr std::string_view kToneFormats[] = {"MOT", "CNE"};
constexpr std::string_view kAlertTypes[] = {"None", "Ring", "Beep"};
constexpr std::string_view kTransmissions[] = {"None", "Voice", "Data"};
constexpr std::string_view kMicSources[] = {"Audio Tap In", "Control Head", "Auxiliary"};

constexpr struct {
  std::string_view uiid;
  Words words;
} kFields[] = {
    {"TxPower_k6k", kPowers},
    {"SignallingType", kSignallingTypes},
    {"GroupType_k6k", kGroupTypes},
    {"ScanType_k6k", kScanTypes},
    {"ScanGroupDisplayIndicator_k6k", kDisplays},
    {"ScanDefaultTxChannel_k6k", kCallChannels},
    {"ScanTxChannelSelect_k6k", kRespondOn},
    {"PriorityScan_k6k", kPriorityScans},
    {"HiddenChannels_k6k", kNoYes},
    {"T99TableFormat_k6k", kToneFormats},
    {"T99Custom_k6k", kNoYes},
    {"AudibleIndicators_k6k", kNoYes},  // its ticks
    {"1117.EnabledFlag", kNoYes},
    {"Sequence1AlertType", kAlertTypes},
    {"Sequence2AlertType", kAlertTypes},
    {"GroupCallAlertType", kAlertTypes},
    {"AllCallAlertType", kAlertTypes},
    {"PriorityCallAlertType", kAlertTypes},
    {"EmergencyCallAlertType", kAlertTypes},
    {"PTTTransmissionType1_k6k", kTransmissions},
    {"PTTTransmissionType2_k6k", kTransmissions},
    {"PTTTransmissionType3_k6k", kTransmissions},
    {"MicSelect1_k6k", kMicSources},
    {"MicSelect2_k6k", kMicSources},
    {"MicSelect3_k6k", kMicSources},
};

}  // namespace

Words Of(std::string_view uiid) {
  const auto* field =
      std::ranges::find_if(kFields, [&](const auto& one) { return EqualsIgnoringCase(one.uiid, uiid); });
  return field == std::end(kFields) ? Words() : field->words;
}

std::string Worded(std::string_view uiid, std::string text) {
  const Words words = Of(uiid);
  if (words.empty() || !IsNumeric(text)) return text;
  const auto code = static_cast<std::size_t>(CLng(text));
  return code < words.size() ? std::string(words[code]) : text;
}

std::optional<std::int32_t> CodeOf(std::string_view uiid, std::string_view word) {
  const Words words = Of(uiid);
  const auto found =
      std::ranges::find_if(words, [&](std::string_view one) { return EqualsIgnoringCase(one, word); });
  if (found == words.end()) return {};
  return static_cast<std::int32_t>(found - words.begin());
}

}  // namespace CodeWords
