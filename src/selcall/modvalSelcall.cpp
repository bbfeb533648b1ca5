#include "selcall/modvalSelcall.h"

#include <algorithm>
#include <vector>

#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/StoredValues.h"
#include "common/modCommonGlobals.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "selcall/modvalControlStatus.h"

namespace modvalSelcall {
namespace {
using modCommonGlobals::FormatCount;
using modCommonGlobals::FormatRuns;

constexpr std::int32_t kLongestStatus = 2;
constexpr std::int32_t kLongestGap = 8;
constexpr std::int32_t kLongestBurst = 12;

/// A format with its runs.
struct Format {
  std::string_view text, alphabet;
  FormatRuns runs;

  Format(std::string_view format, std::string_view letters)
      : text(format), alphabet(letters), runs(FormatCount(format, letters)) {}

  /// The place of a letter among the runs; 0, where all strangers stand, for one that the alphabet lacks.
  std::size_t Place(char letter) const { return alphabet.find(letter) + 1; }
  std::int32_t LongestRun(char letter) const {
    const std::size_t place = Place(letter);
    return place == 0 ? 0 : runs.longestRuns[place];
  }
  bool Has(char letter) const { return LongestRun(letter) > 0; }
};

bool HasOneRunOfEach(const ValidatorRef& validator, const Format& format) {
  for (const char letter : format.alphabet) {
    if (letter == '-' || format.runs.runCounts[format.Place(letter)] <= 1) continue;
    return Refuse(validator, "You can only have one burst of type '%0:S' in the Tx or Rx Format.",
                  {std::string(1, letter)});
  }
  return true;
}

/// Between two gaps, before the first and behind the last.
bool AreBurstsShort(const ValidatorRef& validator, const Format& format) {
  std::int32_t length = 0;
  for (const char letter : format.text) {
    length = letter == '-' ? 0 : length + 1;
    if (length > kLongestBurst) {
      return Refuse(validator, "A burst in the Tx or Rx Format must be no longer than 12 characters.");
    }
  }
  return true;
}

bool AreRunsShort(const ValidatorRef& validator, const Format& format, std::string_view label,
                  std::int32_t longestS) {
  for (const char letter : format.alphabet) {
    const std::int32_t run = format.LongestRun(letter);
    if (letter == 'S' && run > longestS) {
      return Refuse(validator,
                    "The maximum length allowed for a burst of 'S' in the Tx or Rx format is 2 characters.");
    }
    if (letter == '-' && run > kLongestGap) {
      return Refuse(validator,
                    "The maximum length allowed for a gap in the Tx or Rx format is 8 characters.");
    }
    if (run > kLongestBurst) {
      return Refuse(
          validator,
          "The maximum length allowed for a burst of '%0:S' in the Tx or Rx format is 12 characters.",
          {std::string(1, letter), label});
    }
  }
  return true;
}

bool AreBurstsInPlace(const ValidatorRef& validator, const Format& format) {
  if (format.Has('B') && !format.text.starts_with('B')) {
    return Refuse(validator, "The repeater 'B' burst must be at the beginning of the format.");
  }
  if (format.Has('S') && !format.text.ends_with('S')) {
    return Refuse(validator, "The status 'S' burst must be at the end of the format.");
  }
  if (format.text.starts_with('-') || format.text.ends_with('-')) {
    return Refuse(validator, "The format must not start or end with a gap.");
  }
  return true;
}

/// A format without status leaves the statuses to the other one.
bool AreStatusesInRange(const ValidatorRef& validator, const Format& format, std::string_view other,
                        RecordNr system) {
  const std::string checked = format.Has('S') ? std::string(format.text)
                                              : CStr(StoredValue(validator.CurrentProvider(), other, system));
  return modvalControlStatus::ValidateControlStatusTone(validator, checked, system, nullptr);
}

void EndThirdToneReset(FieldEdit& edit, const ProviderRef& provider, std::string_view format) {
  constexpr std::string_view kReset = "ThirdToneReset_k6k";
  if (!edit.Holds(kReset, kOn, edit.record) || ThirdToneResetValid(provider, edit.record, format)) return;
  Warn(edit.validator,
       "Third Tone Monitor Reset requires at least 4 'R's in the Rx Format.  Third Tone Monitor Reset will "
       "now be unchecked.");
  edit.writes.Set(kReset, edit.record, kOff);
}

bool MayDeleteStatuses(const ValidatorRef& validator, const ProviderRef& provider) {
  if (provider.Field("1115.ValueTracker").RecordCount() == 0) return true;
  if (AskYesNo(validator,
               "Removing the 'S' burst will cause all control status values for this signalling system to be "
               "deleted. Do you wish to continue?") != Button::Yes) {
    return false;
  }
  modvalControlStatus::DeleteCurrentSystemControlStatuses(provider);
  return true;
}

bool HasGroupTone(const ProviderRef& provider, std::string_view field) {
  const std::vector<Variant> texts = provider.Field(field).Values();
  return std::ranges::any_of(texts,
                             [](const Variant& text) { return CStr(text).find('G') != std::string::npos; });
}
}  // namespace

bool ValidateSelcallFormat6000(const ValidatorRef& validator, std::string_view text, std::string_view label,
                               std::string_view alphabet, std::int32_t longestS) {
  return Procedure("ValidateSelcallFormat6000", true, [&] {
    const Format format(text, alphabet);
    return HasOneRunOfEach(validator, format) && AreBurstsShort(validator, format) &&
           AreRunsShort(validator, format, label, longestS) && AreBurstsInPlace(validator, format);
  });
}

bool ValidateTxFormat6000(const ValidatorRef& validator, FormWrites& writes, std::string_view text,
                          RecordNr system, bool checkSequences) {
  return Procedure("ValidateTxFormat6000", true, [&] {
    const ProviderRef provider = validator.CurrentProvider();
    const std::string alphabet = provider.Field(kTxFormat).Validation();
    if (!ValidateSelcallFormat6000(validator, text, validator.LabelOf(kTxFormat), alphabet, kLongestStatus)) {
      return false;
    }
    const Format format(text, alphabet);
    if (!format.Has('R')) {
      return Refuse(validator, "You must have at least one burst of type 'R' in the Tx Format.");
    }
    if (checkSequences && !TxSequencesValid(validator, writes, text, kCurrentSystem)) return false;
    return AreStatusesInRange(validator, format, kRxFormat, system);
  });
}

bool ValidateTxFormat(FieldEdit& edit) {
  return ValidateTxFormat6000(edit.validator, edit.writes, CStr(edit.value), edit.record, true);
}

bool ValidateRxFormat6000(FieldEdit& edit) {
  return Procedure("ValidateRxFormat6000", true, [&] {
    const ValidatorRef& validator = edit.validator;
    const ProviderRef provider = validator.CurrentProvider();
    const std::string text = CStr(edit.value);
    const std::string alphabet = provider.Field(kRxFormat).Validation();
    if (!ValidateSelcallFormat6000(validator, text, validator.LabelOf(kRxFormat), alphabet, kLongestStatus)) {
      return false;
    }
    const Format format(text, alphabet);
    if (!format.Has('R')) {
      return Refuse(validator, "You must have at least one burst of type 'R' in the Rx Format.");
    }
    EndThirdToneReset(edit, provider, text);
    static_cast<void>(RxSequencesValid(validator, text, kCurrentSystem));
    if (!format.Has('S') && !MayDeleteStatuses(validator, provider)) return false;
    return AreStatusesInRange(validator, format, kTxFormat, edit.record);
  });
}

bool ValidateThirdToneReset(FieldEdit& edit) {
  if (!edit.Is(kOn) || ThirdToneResetValid(edit.validator.CurrentProvider(), edit.record, {})) return true;
  return Refuse(edit.validator, "Third Tone Monitor Reset requires at least 4 'R's in the Rx Format.");
}

bool ThirdToneResetValid(const ProviderRef& provider, RecordNr system, std::string_view format) {
  constexpr std::int32_t kFewestTones = 4;
  const std::string stored =
      format.empty() ? CStr(StoredValue(provider, kRxFormat, system)) : std::string(format);
  return modCommonGlobals::CharCount(stored, 'R') >= kFewestTones;  // of all bursts
}

bool ValidateGroupFormat(FieldEdit& edit) {
  ValidateGroupFormat(edit.validator, edit.value);
  return true;
}

void ValidateGroupFormat(const ValidatorRef& validator, const Variant& format) {
  Procedure("ValidateGroupFormat", [&] {
    const ProviderRef provider = validator.CurrentProvider();
    if (IsCode(format, GroupFormat::kOther)) return;
    if (!HasGroupTone(provider, "UGBurstSeq") && !HasGroupTone(provider, "FreeFormSequence")) return;
    Warn(validator,
         "Please be aware for the 'Sigtec' group format: when a group tone 'G' is used in a sequence all "
         "remaining tones of the burst must also be group tones.");
  });
}

RecordNr SystemShown(const ProviderRef& provider, RecordNr system) {
  return system == kCurrentSystem ? CurrentSelcallSystem(provider) : system;
}

std::string ToneDigit(const ProviderRef& provider, std::string_view tone, RecordNr system) {
  const Variant code = StoredValue(provider, tone, system);
  return code.IsEmpty() ? std::string() : modCommonGlobals::ConvertToneToString(CLng(code));
}

std::int32_t TxBurstLength(const ProviderRef& provider, std::string_view format, char letter) {
  const std::string alphabet = provider.Field(kTxFormat).Validation();
  return Format(format, alphabet).LongestRun(letter);
}

std::string ReplaceGroupToneWithG(std::string text, char from, char to) {
  if (UpperChar(from) == UpperChar(to)) return text;
  std::ranges::replace_if(
      text, [&](char c) { return UpperChar(c) == UpperChar(from); }, to);
  return text;
}
}  // namespace modvalSelcall
