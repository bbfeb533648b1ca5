#include <algorithm>
#include <string>
#include <utility>

#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/StoredValues.h"
#include "common/modCommonGlobals.h"
#include "common/modProjectGlobals.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "platform/DecimalText.h"
#include "selcall/modSelcallMapping.h"
#include "selcall/modvalSelcall.h"

/// What a radio receives: the sequences that it decodes.
namespace modvalSelcall {
namespace {
/// A received sequence, taken apart.
struct Sequence {
  std::string_view text, burst, status;
  bool hasGap;

  explicit Sequence(std::string_view whole)
      : text(whole),
        burst(whole.substr(0, whole.find('-'))),
        status(whole.substr(std::min(burst.size() + 1, whole.size()))),
        hasGap(burst.size() < whole.size()) {}
};

/// What it is held against, and how a refusal is told.
struct Received {
  const ValidatorRef& validator;
  std::string format, formatLabel, label;
  std::int32_t tones, statusTones;
  bool isSigtec;

  bool Refuse(std::string_view message) const { return ::Refuse(validator, message); }
  bool RefuseWithFormat(std::string_view message) const {
    return ::Refuse(validator, message, {kLineBreak, format});
  }
};

std::int32_t GroupBursts(std::string_view text) {
  std::int32_t bursts = 0;
  for (std::size_t i = 0; i < text.size(); ++i)
    bursts += text[i] == 'G' && (i == 0 || text[i - 1] != 'G') ? 1 : 0;
  return bursts;
}

bool HasGapInPlace(const Received& rx, const Sequence& sequence) {
  if (sequence.text.starts_with('-') || sequence.text.ends_with('-')) {
    return Refuse(rx.validator, "The first and last characters of the %0:S must not be gap characters.",
                  {rx.label});
  }
  if (std::ranges::count(sequence.text, '-') > 1) return rx.Refuse("The sequence must have only one gap.");
  if (rx.statusTones > 0 || !sequence.hasGap) return true;
  return rx.RefuseWithFormat(
      "There must not be a gap '-' character in the sequence if a status is not specified in the Rx Format. "
      "%0:SThe Rx Format is '%1:S'.");
}

/// In the Sigtec format the group tones of a sequence stand together, first or last.
bool HasGroupsInPlace(const Received& rx, const Sequence& sequence) {
  const std::int32_t bursts = rx.isSigtec ? GroupBursts(sequence.text) : 0;
  if (bursts > 1) {
    return rx.Refuse("When the Group format type is Sigtec, only one 'G' burst is allowed in the sequence.");
  }
  const bool isInPlace = bursts == 0 || sequence.text.starts_with('G') || sequence.burst.ends_with('G');
  return isInPlace ||
         rx.Refuse(
             "When the Group format type is Sigtec all of the 'G's in the sequence must be first or last.");
}

bool HasLength(const Received& rx, const Sequence& sequence) {
  return std::cmp_equal(sequence.burst.size(), rx.tones) ||
         rx.RefuseWithFormat(
             "The sequence length is different from the number of 'R's specified in the Rx Format. %0:SThe "
             "Rx Format  is '%1:S'.");
}

bool IsStatusInRange(const Received& rx, std::string_view status) {
  constexpr std::int32_t kHighestOfOne = 15, kHighestOfTwo = 99;
  const std::int32_t value = CLng(status);
  if (rx.statusTones == 1) {
    return value <= kHighestOfOne || rx.RefuseWithFormat(
                                         "The status number for the sequence must be in the range 0-15 %0:S "
                                         "when there is one 'S' in the Rx Format. The Rx Format is '%1:S'.");
  }
  return value <= kHighestOfTwo || rx.RefuseWithFormat(
                                       "The status number for the sequence must be in the range 0-99 %0:S "
                                       "when there are two 'S's in the Tx Format. The Tx Format is '%1:S'.");
}

bool HasStatus(const Received& rx, std::string_view status) {
  constexpr std::size_t kMostTones = 2;
  if (status.size() > kMostTones) {
    return Refuse(
        rx.validator,
        "The status number does not match the number of 'S's in the Rx Format. %0:SEnter from 0 to 15 if "
        "there is one 'S' in the Rx Format, or from 0 to 99 if there are 2 'S's in the Rx Format.",
        {kLineBreak});
  }
  if (status.empty()) return true;
  if (rx.statusTones == 0) {
    return Refuse(
        rx.validator,
        "A status in the %0:S matching the number of 'S's in the %1:S is required.  The %1:S is '%2:S'.",
        {rx.label, rx.formatLabel, rx.format});
  }
  if (status.find('V') != std::string_view::npos) {
    return status.size() == 1 ||
           rx.Refuse(
               "The variable status in the sequence is not valid. A variable status can only be one 'V'.");
  }
  if (!IsDigits(status)) {
    return rx.Refuse("The status number for the sequence must be variable (V) or numeric.");
  }
  return IsStatusInRange(rx, status);
}

bool ValidateSelcallSequence6000(const Received& rx, std::string_view text) {
  return Procedure("ValidateSelcallSequence6000", true, [&] {
    const Sequence sequence(text);
    return HasGapInPlace(rx, sequence) && HasGroupsInPlace(rx, sequence) && HasLength(rx, sequence) &&
           HasStatus(rx, sequence.status);
  });
}

Received ReceivedBy(FieldEdit& edit, const ProviderRef& provider, const std::string& alphabet) {
  const RecordNr system = CurrentSelcallSystem(provider);
  const std::string format = CStr(StoredValue(provider, kRxFormat, system));
  const char receiver = alphabet.find('R') == std::string::npos ? 'A' : 'R';
  return {.validator = edit.validator,
          .format = format,
          .formatLabel = edit.validator.LabelOf(kRxFormat),
          .label = edit.validator.LabelOf(edit.uiid),
          .tones = modCommonGlobals::CharCount(format, receiver),
          .statusTones = modCommonGlobals::CharCount(format, 'S'),
          .isSigtec = HoldsCode(provider, "GroupFormat", GroupFormat::kSigtec, system)};
}

}  // namespace

bool ValidateRxDecodeRMRSeq6000(FieldEdit& edit) {
  return Procedure("ValidateRxDecodeRMRSeq6000", true, [&] {
    const ProviderRef provider = edit.validator.CurrentProvider();
    const std::string text = modSelcallMapping::SequenceText(edit.value);
    if (text.empty()) return true;  // not set: an empty sequence has no length to be wrong
    const std::string alphabet = provider.Field(kRxFormat).Validation();
    if (alphabet.empty()) {
      Refuse(edit.validator,
             "The 'Validation' string for this field is not defined in the schema.  A selcall sequence "
             "validation can not be performed on this field");
      return true;
    }
    if (!ValidateSelcallSequence6000(ReceivedBy(edit, provider, alphabet), text)) return false;
    const std::string digit = ToneDigit(provider, "RepeatTone", CurrentSelcallSystem(provider));
    return digit.empty() || text.find(digit) == std::string::npos ||
           Refuse(edit.validator, "You must not use the repeat tone '%0:S' in this sequence.", {digit});
  });
}

bool RxSequencesValid(const ValidatorRef& validator, std::string_view format, RecordNr system) {
  return Procedure("RxSequencesValid", true, [&] {
    const ProviderRef provider = validator.CurrentProvider();
    const std::int32_t tones = modCommonGlobals::CharCount(format, 'R');
    std::string labels;
    for (const std::string_view uiid : kRxSequences) {
      const std::string text = CStr(StoredValue(provider, uiid, SystemShown(provider, system)));
      if (text.empty() || text == kNone || std::cmp_equal(CharacterCount(text), tones)) continue;
      labels += (labels.empty() ? "" : ", ") + validator.LabelOf(uiid);
    }
    if (labels.empty()) return true;
    Warn(validator,
         "The length of the %0:s sequence(s) is different from the number of 'R's specified in the Rx "
         "Format. The Rx Format is '%1:s'",
         {labels, format});
    return false;
  });
}
}  // namespace modvalSelcall
