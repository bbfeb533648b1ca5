#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/StoredValues.h"
#include "common/modCommonGlobals.h"
#include "common/modProjectGlobals.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "selcall/BurstSlots.h"
#include "selcall/modSelcallMapping.h"
#include "selcall/modvalBursts.h"
#include "selcall/modvalSelcall.h"

namespace modvalSelcall {
namespace {
constexpr std::string_view kRxSequences[] = {"RxDecodeSeq1_k6k", "RxDecodeSeq2_k6k", "RMRBurst_k6k"};

RecordNr CurrentSystem(const ProviderRef& provider) {
  return CLng(StoredValue(provider, "CurrentSelcallNumber", kOnly));
}
RecordNr SystemOf(const ProviderRef& provider, RecordNr system) {
  return system == kCurrentSystem ? CurrentSystem(provider) : system;
}

// What is received

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
      "%0:SThe Rx "
      "Format is '%1:S'.");
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
             "Rx Format  is "
             "'%1:S'.");
}

bool IsStatusInRange(const Received& rx, std::string_view status) {
  constexpr std::int32_t kHighestOfOne = 15, kHighestOfTwo = 99;
  const std::int32_t value = CLng(status);
  if (rx.statusTones == 1) {
    return value <= kHighestOfOne || rx.RefuseWithFormat(
                                         "The status number for the sequence must be in the range 0-15 %0:S "
                                         "when there is one 'S' in the Rx Format. "
                                         "The Rx Format is '%1:S'.");
  }
  return value <= kHighestOfTwo || rx.RefuseWithFormat(
                                       "The status number for the sequence must be in the range 0-99 %0:S "
                                       "when there are two 'S's in the Tx Format. "
                                       "The Tx Format is '%1:S'.");
}

bool HasStatus(const Received& rx, std::string_view status) {
  constexpr std::size_t kMostTones = 2;
  if (status.size() > kMostTones) {
    return Refuse(rx.validator,
                  "The status number does not match the number of 'S's in the Rx Format. %0:SEnter from 0 to "
                  "15 if there "
                  "is one 'S' in the Rx Format, or from 0 to 99 if there are 2 'S's in the Rx Format.",
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
  if (status.find_first_not_of("0123456789") != std::string_view::npos) {
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
  const RecordNr system = CurrentSystem(provider);
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

// What is sent

/// The bursts of one system while a Tx format is held against them.
struct SentBursts {
  const ValidatorRef& validator;
  FormWrites& writes;
  const ProviderRef provider;
  std::string_view format;
  Variant identity;
  std::array<std::int32_t, kBurstKinds> lengths;  // by kind; 0 for one that the format lacks

  std::string Label(std::size_t kind) const { return validator.LabelOf(kBurstFields[kind].uiid); }
};

bool IsWrong(std::size_t kind, const std::string& text, std::int32_t length) {
  if (static_cast<Burst>(kind) != Burst::Status) return !std::cmp_equal(CharacterCount(text), length);
  if (text == "V" || text == "VV" || length != 1) return false;  // of two tones any status fits
  const bool isNumber = text.find_first_not_of("0123456789") == std::string::npos;
  return !isNumber || modCommonGlobals::Hex(CLng(text)).size() > 1;
}

/// Whether the kind, which the format lacks, may go; it is gone then.
bool RemoveKind(const SentBursts& sent, std::size_t kind) {
  if (AskYesNo(sent.validator,
               "There are one or more %0:s for signalling system %1:s. The format (%2:s) does not contain "
               "any %0:s. "
               "Continuing will clear all references to these bursts. Do you wish to continue?",
               {sent.Label(kind), CStr(sent.identity), sent.format}) != Button::Yes) {
    return false;
  }
  CleanupRemovedBurstType(sent.writes, sent.provider, static_cast<std::int32_t>(kind), sent.identity);
  return true;
}

void TellWrong(const SentBursts& sent, std::size_t kind, bool isFinal) {
  constexpr std::string_view kText =
      "The length of one or more %0:s for signalling system %1:s is different from the number of '%2:s's "
      "specified in the "
      "Tx Format. The Tx Format is '%3:s'";
  const std::string label = sent.Label(kind);
  const std::string identity = CStr(sent.identity);
  const std::string letter(1, kBurstFields[kind].letter);
  const Parameters parameters = {label, identity, letter, sent.format};
  if (isFinal) {
    Refuse(sent.validator, kText, parameters);
  } else {
    Warn(sent.validator, kText, parameters);
  }
}

enum class Walk { GoOn, Refused, Wrong };
Walk Judge(const SentBursts& sent, const Variant& type, const Variant& stored) {
  if (EqualsIgnoringCase(CStr(stored), kUndefined) || !IsNumeric(type)) return Walk::GoOn;
  const std::int32_t code = CLng(type);
  if (code < 0 || code > static_cast<std::int32_t>(Burst::Status)) return Walk::GoOn;
  const auto kind = static_cast<std::size_t>(code);
  std::string text = CStr(stored);
  std::erase(text, '|');
  if (text.empty()) return Walk::GoOn;
  if (sent.lengths[kind] == 0) return RemoveKind(sent, kind) ? Walk::GoOn : Walk::Refused;
  return IsWrong(kind, text, sent.lengths[kind]) ? Walk::Wrong : Walk::GoOn;
}

SentBursts SentBy(const ValidatorRef& validator, FormWrites& writes, std::string_view format,
                  RecordNr system) {
  const ProviderRef provider = validator.CurrentProvider();
  SentBursts sent{validator, writes, provider, format, StoredValue(provider, "SignalSystemId_k6k", system),
                  {}};
  for (std::size_t kind = 0; kind < kBurstKinds; ++kind) {
    const char letter = kBurstFields[kind].letter;
    if (letter != '\0') sent.lengths[kind] = TxBurstLength(provider, format, letter);
  }
  return sent;
}

/// By network record, from index 0: whether its channels signal by the system of that identity.
std::vector<bool> NetworksOf(const ProviderRef& provider, const Variant& identity) {
  const FieldRef types = provider.Field("21.SignallingType");
  const FieldRef identities = provider.Field("21.NetworkSignallingID");
  std::vector<bool> uses;
  for (const RecordNr network : types.Records()) {
    uses.push_back(SameValue(types.Value(network), SignallingType::kSelcall) &&
                   SameValue(identities.Value(network), identity));
  }
  return uses;
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
             "validation can not "
             "be performed on this field");
      return true;
    }
    if (!ValidateSelcallSequence6000(ReceivedBy(edit, provider, alphabet), text)) return false;
    const Variant repeatTone = StoredValue(provider, "RepeatTone", CurrentSystem(provider));
    if (repeatTone.IsEmpty()) return true;
    const std::string digit = modCommonGlobals::ConvertToneToString(CLng(repeatTone));
    return text.find(digit) == std::string::npos ||
           Refuse(edit.validator, "You must not use the repeat tone '%0:S' in this sequence.", {digit});
  });
}

bool RxSequencesValid(const ValidatorRef& validator, std::string_view format, RecordNr system) {
  return Procedure("RxSequencesValid", true, [&] {
    const ProviderRef provider = validator.CurrentProvider();
    const std::int32_t tones = modCommonGlobals::CharCount(format, 'R');
    std::string labels;
    for (const std::string_view uiid : kRxSequences) {
      const std::string text = CStr(StoredValue(provider, uiid, SystemOf(provider, system)));
      if (text.empty() || text == kNone || std::cmp_equal(CharacterCount(text), tones)) continue;
      labels += (labels.empty() ? "" : ", ") + validator.LabelOf(uiid);
    }
    if (labels.empty()) return true;
    Warn(validator,
         "The length of the %0:s sequence(s) is different from the number of 'R's specified in the Rx "
         "Format. The Rx "
         "Format is '%1:s'",
         {labels, format});
    return false;
  });
}

bool TxSequencesValid(const ValidatorRef& validator, FormWrites& writes, std::string_view format,
                      RecordNr system, bool isFinal) {
  return Procedure("TxSequencesValid", true, [&] {
    const ProviderRef provider = validator.CurrentProvider();
    const SentBursts sent = SentBy(validator, writes, format, SystemOf(provider, system));
    const FieldRef owners = provider.Field("30.FixedFormatSigSystemID");
    const FieldRef types = provider.Field("UGBurstType");
    const FieldRef bursts = provider.Field("UGBurstSeq");
    for (const RecordNr record : owners.Records()) {
      if (!SameValue(owners.Value(record), sent.identity)) continue;
      const Variant type = types.Value(record);
      const Walk walk = Judge(sent, type, bursts.Value(record));
      if (walk == Walk::GoOn) continue;
      if (walk == Walk::Refused) return false;
      TellWrong(sent, static_cast<std::size_t>(CLng(type)), isFinal);
      return !isFinal;
    }
    return true;
  });
}

void CleanupRemovedBurstType(FormWrites& writes, const ProviderRef& provider, std::int32_t type,
                             const Variant& identity) {
  Procedure("CleanupRemovedBurstType", [&] {
    const FieldRef owners = provider.Field("30.FixedFormatSigSystemID");
    const FieldRef types = provider.Field("UGBurstType");
    for (const RecordNr record : owners.Records()) {
      const bool isOfKind = SameValue(types.Value(record), type) && SameValue(owners.Value(record), identity);
      if (isOfKind) writes.Set("UGBurstSeq", record, kUndefined);
    }
    const BurstFields& fields = kBurstFields[static_cast<std::size_t>(type)];
    const std::vector<bool> uses = NetworksOf(provider, identity);
    const FieldRef networkOfChannel = provider.Field("ChannelNetworkId_k6k");
    const std::vector<Variant> numbers = provider.Field("NetworkID").Values();
    for (const RecordNr channel : networkOfChannel.Records()) {
      const Variant number = networkOfChannel.Value(channel);
      const auto network =
          std::ranges::find_if(numbers, [&](const Variant& one) { return SameValue(one, number); });
      const bool isUser = IsNumeric(number) && network != numbers.end() &&
                          uses[static_cast<std::size_t>(network - numbers.begin())];
      if (isUser) writes.Set(fields.channel, fields.channelUiid, channel, kNone);
    }
    const RecordNr current = CurrentSystem(provider);
    const bool isShown = SameValue(StoredValue(provider, "SignalSystemId_k6k", current), identity);
    if (isShown) modvalBursts::UpdateFilteredGridsTest(writes, provider, current);
  });
}

bool ValidateANISequence(FieldEdit& edit) {
  return Procedure("ValidateANISequence", true, [&] {
    if (!CStr(edit.value).empty()) return true;
    const ProviderRef provider = edit.validator.CurrentProvider();
    const std::vector<bool> uses =
        NetworksOf(provider, StoredValue(provider, "29.SignalSystemId", edit.record));
    for (std::size_t i = 0; i < uses.size(); ++i) {
      if (!uses[i] || !HoldsCode(provider, "EmCyclingANI", kOn, static_cast<RecordNr>(i) + 1)) continue;
      return Refuse(edit.validator,
                    "If you wish to have an empty ANI sequence you must first disable Emergency ANI.");
    }
    return true;
  });
}
}  // namespace modvalSelcall
