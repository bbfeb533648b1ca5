#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

#include "common/ChannelNetworks.h"
#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/StoredValues.h"
#include "common/SystemNetworks.h"
#include "common/modProjectGlobals.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "platform/DecimalText.h"
#include "selcall/BurstSlots.h"
#include "selcall/modvalBursts.h"
#include "selcall/modvalSelcall.h"

/// What a radio sends: the bursts of a Tx format, the ANI.
namespace modvalSelcall {
namespace {
/// The bursts of one system while a Tx format is held against them.
struct SentBursts {
  FinalReport& report;  // of an edit, too
  FormWrites& writes;
  const ProviderRef provider;
  std::string_view format;
  Variant identity;
  std::array<std::int32_t, kBurstKinds> lengths;  // by kind; 0 for one that the format lacks

  std::string Label(std::size_t kind) const { return report.Validator().LabelOf(kBurstFields[kind].uiid); }
};

/// One of them, a record of table 30.
FinalPlace PlaceOf(RecordNr burst) { return {"UGBurstSeq", burst}; }

/// The highest that has one hexadecimal digit.
constexpr double kHighestTone = 15;

bool IsWrong(std::size_t kind, const std::string& text, std::int32_t length) {
  if (static_cast<Burst>(kind) != Burst::Status) return !std::cmp_equal(CharacterCount(text), length);
  if (text == "V" || text == "VV" || length != 1) return false;  // of two tones any status fits
  return !IsWholeNumberUpTo(text, kHighestTone);
}

/// Whether the kind, which the format lacks, may go; it is gone then.
bool RemoveKind(const SentBursts& sent, RecordNr burst, std::size_t kind) {
  if (sent.report.AskYesNo(
          PlaceOf(burst),
          "There are one or more %0:s for signalling system %1:s. The format (%2:s) does not contain "
          "any %0:s. Continuing will clear all references to these bursts. Do you wish to continue?",
          {sent.Label(kind), CStr(sent.identity), sent.format}) != Button::Yes) {
    return false;
  }
  CleanupRemovedBurstType(sent.writes, sent.provider, static_cast<std::int32_t>(kind), sent.identity);
  return true;
}

void TellWrong(const SentBursts& sent, RecordNr burst, std::size_t kind, bool isFinal) {
  constexpr std::string_view kText =
      "The length of one or more %0:s for signalling system %1:s is different from the number of '%2:s's "
      "specified in the Tx Format. The Tx Format is '%3:s'";
  const std::string label = sent.Label(kind);
  const std::string identity = CStr(sent.identity);
  const std::string letter(1, kBurstFields[kind].letter);
  const Parameters parameters = {label, identity, letter, sent.format};
  if (isFinal) {
    sent.report.Refuse(PlaceOf(burst), kText, parameters);
  } else {
    sent.report.Warn(PlaceOf(burst), kText, parameters);
  }
}

enum class Walk { GoOn, Refused, Wrong };
Walk Judge(const SentBursts& sent, RecordNr burst, const Variant& type, const Variant& stored) {
  if (EqualsIgnoringCase(CStr(stored), kUndefined) || !IsNumeric(type)) return Walk::GoOn;
  const std::int32_t code = CLng(type);
  if (code < 0 || code > static_cast<std::int32_t>(Burst::Status)) return Walk::GoOn;
  const auto kind = static_cast<std::size_t>(code);
  std::string text = CStr(stored);
  std::erase(text, '|');
  if (text.empty()) return Walk::GoOn;
  if (sent.lengths[kind] == 0) return RemoveKind(sent, burst, kind) ? Walk::GoOn : Walk::Refused;
  return IsWrong(kind, text, sent.lengths[kind]) ? Walk::Wrong : Walk::GoOn;
}

SentBursts SentBy(FinalReport& report, FormWrites& writes, std::string_view format, RecordNr system) {
  const ProviderRef provider = report.Provider();
  SentBursts sent{report, writes, provider, format, StoredValue(provider, "SignalSystemId_k6k", system), {}};
  for (std::size_t kind = 0; kind < kBurstKinds; ++kind) {
    const char letter = kBurstFields[kind].letter;
    if (letter != '\0') sent.lengths[kind] = TxBurstLength(provider, format, letter);
  }
  return sent;
}

void CheckSent(FinalReport& report, FormWrites& writes, std::string_view format, RecordNr system,
               bool isFinal) {
  Procedure("TxSequencesValid", [&] {
    const ProviderRef provider = report.Provider();
    const SentBursts sent = SentBy(report, writes, format, system);
    const FieldRef owners = provider.Field("30.FixedFormatSigSystemID");
    const FieldRef types = provider.Field("UGBurstType");
    const FieldRef bursts = provider.Field("UGBurstSeq");
    for (const RecordNr record : owners.Records()) {
      if (!SameValue(owners.Value(record), sent.identity)) continue;
      const Variant type = types.Value(record);
      const Walk walk = Judge(sent, record, type, bursts.Value(record));
      if (walk == Walk::Wrong) TellWrong(sent, record, static_cast<std::size_t>(CLng(type)), isFinal);
      if (walk != Walk::GoOn && !report.LooksOn()) return;
    }
  });
}
}  // namespace

bool TxSequencesValid(const ValidatorRef& validator, FormWrites& writes, std::string_view format,
                      RecordNr system) {
  FinalReport report(validator, FinalReport::Scope::FirstFinding);
  CheckSent(report, writes, format, SystemShown(validator.CurrentProvider(), system), false);
  return report.HasPassed();
}

void TxSequencesValid(FinalReport& report, FormWrites& writes, std::string_view format, RecordNr system) {
  CheckSent(report, writes, format, system, true);
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
    const BurstUser& user = ChannelBurst(static_cast<Burst>(type));
    const std::vector<RecordNr> users = SystemNetworks::Of(provider, SignallingType::kSelcall, identity);
    const ChannelNetworks networks(provider);
    for (const RecordNr channel : provider.Table("5").Records()) {
      const bool isUser = std::ranges::binary_search(users, networks.FindNetworkOf(channel));
      if (isUser) writes.Set(user.form, user.uiid, channel, kNone);
    }
    const RecordNr current = CurrentSelcallSystem(provider);
    const bool isShown = SameValue(StoredValue(provider, "SignalSystemId_k6k", current), identity);
    if (isShown) modvalBursts::UpdateFilteredGridsTest(writes, provider, current);
  });
}

bool ValidateANISequence(FieldEdit& edit) {
  return Procedure("ValidateANISequence", true, [&] {
    if (!CStr(edit.value).empty()) return true;
    const Variant identity = StoredValue(edit.validator.CurrentProvider(), "29.SignalSystemId", edit.record);
    return SystemNetworks::AllowEmptyANI(edit.validator, SignallingType::kSelcall, identity);
  });
}
}  // namespace modvalSelcall
