#include "selcall/modvalFreeFormat.h"

#include <algorithm>
#include <array>

#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/StoredValues.h"
#include "common/modCommonGlobals.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "platform/DecimalText.h"
#include "selcall/modFreeFormat.h"
#include "selcall/modvalSelcall.h"

namespace modvalFreeFormat {
namespace {
using modFreeFormat::kParts;
using modFreeFormat::Part;

constexpr std::string_view kStatus = "FreeFormStatus";
constexpr std::string_view kTwoDigits = "FreeForm2DigitStatus";
constexpr std::string_view kSequence = "FreeFormSequence";
constexpr double kHighestOfOneTone = 15;
/// Where a system shows its sequences, by their place.
constexpr std::array<std::string_view, 7> kMirrors = {
    "FreeFormSequence1", "FreeFormSequence2", "FreeFormSequence3", "FreeFormSequence4",
    "FreeFormSequence5", "FreeFormSequence6", "FreeFormSequence7"};
std::string_view MirrorOf(RecordNr record) {
  return kMirrors[static_cast<std::size_t>(modFreeFormat::GetSequenceID(record))];
}

/// Of the system that the forms show, whichever the sequence belongs to.
std::string Digit(const ProviderRef& provider, std::string_view tone) {
  return modvalSelcall::ToneDigit(provider, tone, CurrentSelcallSystem(provider));
}

bool IsDigit(const std::string& text) { return text.size() == 1 && IsDigits(text); }

/// What is no number is above all of them.
bool IsAboveOneTone(const std::string& status) { return !IsWholeNumberUpTo(status, kHighestOfOneTone); }

bool IsWithout(const FieldEdit& edit, const std::string& repeatTone) {
  if (repeatTone.empty() || CStr(edit.value).find(repeatTone) == std::string::npos) return true;
  return Refuse(edit.validator, "You must not use the repeat tone '%0:S' in this sequence.", {repeatTone});
}

bool IsStatus(FieldEdit& edit) {
  std::string status = CStr(edit.value);
  if (status == "VV") edit.value = status = "V";
  if (status.size() == 2 && std::ranges::count(status, 'V') == 1) {
    return Refuse(edit.validator,
                  "You have a 'V' with another character in the status burst.  If a 'V' is defined it must "
                  "be the only character in this field.");
  }
  if (status == "V" || status.empty()) return true;
  if (edit.Holds(kTwoDigits, kOff, edit.record) && IsAboveOneTone(status)) {
    return Refuse(edit.validator,
                  "The Status is 2 digits.  The Double Digit Status box must be ticked first before a double "
                  "digit status can be entered.");
  }
  if (edit.Holds(kTwoDigits, kOn, edit.record) && IsDigit(status)) edit.value = "0" + status;
  return true;
}

/// Ticked, a digit gets a 0 before it; cleared, it loses one.
bool IsDoubleDigitBox(FieldEdit& edit) {
  const std::string status = CStr(edit.Stored(kStatus, edit.record));
  if (edit.Is(kOn)) {
    if (IsDigit(status)) edit.writes.Set(kStatus, edit.record, "0" + status);
    return true;
  }
  if (status.size() != 2) return true;
  if (status[0] == '0') {
    edit.writes.Set(kStatus, edit.record, status.substr(1));
    return true;
  }
  if (!IsAboveOneTone(status)) return true;
  return Refuse(edit.validator,
                "The Status value is higher than 15, the limit for one digit statuses.  Please change the "
                "status first.");
}

// The sequence as a whole

/// The sequence that the form shows.
struct Shown {
  const ValidatorRef& validator;
  const ProviderRef provider;
  RecordNr record;
  std::string text;

  bool Has(std::string_view uiid) const { return !CStr(provider.Field(uiid).Value(record)).empty(); }
  bool HasReceiver() const {
    return Has("FreeFormBurstR1") || Has("FreeFormBurstR2") || Has("FreeFormBurstR3");
  }
  bool Refuse(std::string_view message) const { return ::Refuse(validator, message); }
};

/// A lone repeater burst becomes the receiver's on consent; nothing else is asked of the sequence then.
bool BecomesReceiver(const Shown& shown) {
  const bool isLone = shown.Has("FreeFormBurstB") && !shown.HasReceiver() &&
                      CLng(shown.provider.Field("FreeFormGap1").Value(shown.record)) == 0;
  if (!isLone || AskYesNo(shown.validator,
                          "At least one receiver identity burst must be set. Do you want to use this "
                          "repeater burst as a receiver identity burst?") != Button::Yes) {
    return false;
  }
  FormWrites writes(shown.validator);
  writes.Set("FreeFormBurstR1", shown.record, shown.provider.Field("FreeFormBurstB").Value(shown.record));
  writes.Set("FreeFormBurstB", shown.record, "");
  writes.Follow(true);
  return true;
}

/// The longest run of characters between gaps.
std::size_t LongestBurst(std::string_view text) {
  std::size_t longest = 0, length = 0;
  for (const char tone : text) {
    length = tone == '-' ? 0 : length + 1;
    longest = std::max(longest, length);
  }
  return longest;
}

bool HoldsTogether(const Shown& shown) {
  constexpr std::size_t kLongestSequence = 60, kLongestBurst = 12;
  constexpr std::string_view kTooLongGap = "---------";
  if (!shown.HasReceiver()) return shown.Refuse("At least one receiver identity burst must be set.");
  if (shown.text.starts_with('-')) return shown.Refuse("The sequence cannot start with a gap.");
  if (shown.text.ends_with('-')) return shown.Refuse("The sequence cannot end with a gap.");
  if (shown.text.size() > kLongestSequence) {
    return shown.Refuse("The sequence is too long.  It must be no more than 60 characters");
  }
  if (shown.text.find(kTooLongGap) != std::string::npos) {
    return shown.Refuse(
        "The sequence has at least two gap bursts without another burst between them.  They are combined "
        "resulting in a gap burst longer than 8 characters.  Please reduce their combined length to 8 or "
        "less.");
  }
  if (LongestBurst(shown.text) <= kLongestBurst) return true;
  return shown.Refuse(
      "The sequence has at least 2 bursts joined without a gap burst exceeding 12 characters.  The maximum "
      "burst length between gaps is 12 characters.");
}

void WarnOfGroups(const Shown& shown) {
  if (!HoldsCode(shown.provider, "GroupFormat", GroupFormat::kSigtec, CurrentSelcallSystem(shown.provider)))
    return;
  if (modvalSelcall::FindBurstWithoutGroupsLast(shown.text).empty()) return;
  Warn(shown.validator,
       "This Burst '%0:S' has an invalid 'G' tone sequence and should follow the Sigtec Group Format by "
       "placing 'G's at the end of the burst they occur in.",
       {shown.text});
}
}  // namespace

bool ValidateFreeFormatBurst(FieldEdit& edit) { return ValidateFreeFormatBurst(edit, {}); }

bool ValidateFreeFormatBurst(FieldEdit& edit, std::string_view repeatTone) {
  return Procedure("ValidateFreeFormatBurst", true, [&] {
    const ProviderRef provider = edit.validator.CurrentProvider();
    if (!provider.Field(kSequence).HasRecord(edit.record)) return edit.PassUnchanged();
    const auto is = [&](std::string_view uiid) { return EqualsIgnoringCase(edit.uiid, uiid); };
    const auto passes = [&] {
      if (is(kStatus)) return IsStatus(edit);
      if (is(kTwoDigits)) return IsDoubleDigitBox(edit);
      return IsWithout(edit, repeatTone.empty() ? Digit(provider, "RepeatTone") : std::string(repeatTone));
    };
    if (!passes()) return false;
    ShowSequence(edit.writes, provider, edit.record, edit.uiid, edit.value);
    return true;
  });
}

std::string GetFreeFormatSequenceFromBursts(const ProviderRef& provider, RecordNr record,
                                            std::string_view uiid, Variant& value) {
  return Procedure("GetFreeFormatSequenceFromBursts", std::string(), [&] {
    std::string sequence;
    for (const Part& part : kParts) {
      const bool isStatus = part.IsStatus();
      if (EqualsIgnoringCase(part.uiid, uiid)) {
        const std::string groupTone = isStatus ? std::string() : Digit(provider, "GroupTone");
        if (!groupTone.empty())
          value = modvalSelcall::ReplaceGroupToneWithG(CStr(value), groupTone.front(), 'G');
        sequence += CStr(value);
      } else {
        sequence += CStr(provider.Field(part.form).Value(record));
      }
      if (isStatus) continue;
      const bool isGapInHand = EqualsIgnoringCase(part.gapUiid, uiid);
      sequence += modFreeFormat::Gap(isGapInHand ? value : provider.Field(part.gap).Value(record));
    }
    return sequence;
  });
}

void ShowSequence(FormWrites& writes, const ProviderRef& provider, RecordNr record, std::string_view uiid,
                  Variant& value) {
  const std::string sequence = GetFreeFormatSequenceFromBursts(provider, record, uiid, value);
  const RecordNr system = modFreeFormat::GetSelcallRecordFromFreeFormatRecord(record);
  const std::string_view mirror = MirrorOf(record);
  {
    const ScopedAutoUpdate silent(provider, false);
    provider.Field(kSequence).SetValue(record, sequence);
    if (provider.Field(mirror).HasRecord(system)) provider.Field(mirror).SetValue(system, sequence);
  }
  writes.Reload(kSequence);
  writes.Reload(mirror);
}

bool ValidateCurrentSequence(const ValidatorRef& validator) {
  return Procedure("ValidateCurrentSequence", true, [&] {
    const ProviderRef provider = validator.CurrentProvider();
    const RecordNr record = CLng(StoredValue(provider, "CurrentFreeFormRecordNr", kOnly));
    if (!provider.Field(kSequence).HasRecord(record)) return true;
    const Shown shown{validator, provider, record, CStr(provider.Field(kSequence).Value(record))};
    if (!shown.text.empty() && !BecomesReceiver(shown) && !HoldsTogether(shown)) return false;
    WarnOfGroups(shown);
    const RecordNr system = modFreeFormat::GetSelcallRecordFromFreeFormatRecord(record);
    if (system != CurrentSelcallSystem(provider)) return true;
    Variant value = shown.text;
    return validator.Accepts(MirrorOf(record), value, system);
  });
}
}  // namespace modvalFreeFormat
