#include "selcall/modvalBursts.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "common/ChannelNetworks.h"
#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/StoredValues.h"
#include "common/modCommonGlobals.h"
#include "common/modProjectGlobals.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "platform/DecimalText.h"
#include "selcall/BurstSlots.h"
#include "selcall/modSelcallMapping.h"
#include "selcall/modvalControlStatus.h"
#include "selcall/modvalSelcall.h"

namespace modvalBursts {
namespace {
using modSelcallMapping::TxFormatOf;

constexpr std::string_view kBursts = "UGBurstSeq";

/// The edit of a burst: which slot of which system it is.
struct BurstEdit {
  FieldEdit& edit;
  const ProviderRef provider;
  Burst kind;
  RecordNr system;
  RecordNr record;  // of table 30
  std::string format;

  const BurstFields& Fields() const { return FieldsOf(kind); }
  std::string Value() const { return CStr(edit.value); }
  /// What the slot holds before the edit; empty for an unused one.
  std::string OldValue() const {
    return modSelcallMapping::SequenceText(provider.Field(kBursts).Value(record));
  }
  std::string Digit(std::string_view tone) const { return modvalSelcall::ToneDigit(provider, tone, system); }
  bool Refuse(std::string_view text) const {
    return ::Refuse(edit.validator, text, {kLineBreak, std::to_string(system), format});
  }
};

Burst KindOf(std::string_view uiid) {
  const auto* fields = std::ranges::find_if(
      kBurstFields, [&](const BurstFields& one) { return EqualsIgnoringCase(one.uiid, uiid); });
  return static_cast<Burst>(fields - kBurstFields.begin());
}

// The burst by itself

/// What is told of a burst whose kind the format does not have, or has with another length.
struct LengthTexts {
  std::string_view none, other;
};
constexpr LengthTexts kRepeaterTexts = {
    "A Repeater value is only valid if you have a repeater 'B' burst in the Tx Format. %0:SThe Tx Format for "
    "System %1:S is '%2:S'.",
    "The length of the burst is different to the number of 'B's in the Tx Format. %0:SThe Tx Format for "
    "System %1:S is '%2:S'."};
constexpr LengthTexts kCallerIdTexts = {
    "A Caller ID is only valid if you have a Caller ID 'C' burst in the Tx Format. %0:SThe Tx Format for "
    "System %1:S is '%2:S'.",
    "The length of the burst is different to the number of 'C's in the Tx Format. %0:SThe Tx Format for "
    "System %1:S is '%2:S'."};
/// A format has always a receiver.
constexpr LengthTexts kTxCallTexts = {{},
                                      "The length of the burst is different to the number of 'R's in the Tx "
                                      "Format. %0:SThe Tx Format for System %1:S is '%2:S'."};

bool HasTheLength(const BurstEdit& burst, const LengthTexts& texts) {
  const std::int32_t length =
      modvalSelcall::TxBurstLength(burst.provider, burst.format, burst.Fields().letter);
  if (length == 0 && !texts.none.empty()) return burst.Refuse(texts.none);
  return std::cmp_equal(CharacterCount(burst.Value()), length) || burst.Refuse(texts.other);
}

bool IsStatusOfOneTone(const BurstEdit& burst) {
  const std::string status = burst.Value();
  if (status.find('V') != std::string::npos) {
    burst.edit.value = "V";
    return true;
  }
  if (IsWholeNumberUpTo(status, 15)) return true;
  return Refuse(burst.edit.validator,
                "There is only 1 'S' in the Tx Format, so the Status value must be 0-15 or V.");
}

bool IsStatusOfTwoTones(const BurstEdit& burst) {
  const std::string status = burst.Value();
  if (status == "V") return true;
  if (!IsWholeNumberUpTo(status, 99)) {
    return burst.Refuse(
        "There are 2 'S's in the Tx Format, so the value must be between 0 and 99 or V. %0:SThe Tx Format "
        "for System %1:S is '%2:S'.");
  }
  if (status.size() == 1) burst.edit.value = "0" + status;
  return true;
}

bool IsStatus(const BurstEdit& burst) {
  switch (modvalSelcall::TxBurstLength(burst.provider, burst.format, burst.Fields().letter)) {
    case 0:
      return burst.Refuse(
          "There is no 'S' burst in the Tx Format, so you may not specify a Status burst.%0:SThe Tx Format "
          "for System %1:S is '%2:S'.");
    case 1:
      return IsStatusOfOneTone(burst);
    case 2:
      return IsStatusOfTwoTones(burst);
    default:
      return true;
  }
}

bool FitsTheFormat(const BurstEdit& burst) {
  switch (burst.kind) {
    case Burst::Repeater:
      return HasTheLength(burst, kRepeaterTexts);
    case Burst::CallerId:
      return HasTheLength(burst, kCallerIdTexts);
    case Burst::TxCall:
      return HasTheLength(burst, kTxCallTexts);
    case Burst::Status:
      return IsStatus(burst);
    case Burst::AccessTone:
    case Burst::LeadIn:
      break;
  }
  return true;
}

/// The radio sends the repeat tone where a tone follows itself.
bool IsWithoutRepeatTone(const BurstEdit& burst) {
  if (burst.kind == Burst::Status) return true;
  const std::string repeatTone = burst.Digit("RepeatTone");
  if (repeatTone.empty() || burst.Value().find(repeatTone) == std::string::npos) return true;
  return Refuse(burst.edit.validator, "You must not use the repeat tone '%0:S' in this sequence.",
                {repeatTone});
}

// The channels that use it

/// By network record, from index 0: whether its channels signal by the system. The number of the system is
/// compared with the identity of the network's, wanted so; systems whose numbers are not their places are
/// told apart by the place too, else an edit of one would reach the channels of another.
std::vector<bool> NetworksOf(const BurstEdit& burst, const ChannelNetworks& networks, bool byIdentity) {
  std::vector<bool> uses = networks.OfSelcallSystem(burst.system);
  const FieldRef identities = burst.provider.Field("NetworkSignallingID");
  for (std::size_t i = 0; byIdentity && i < uses.size(); ++i) {
    uses[i] = uses[i] && SameValue(identities.Value(static_cast<RecordNr>(i) + 1), burst.system);
  }
  return uses;
}

/// Gives `text` to the channels of the networks that use the old burst, after a question. False for another
/// answer than Yes.
bool ChangeChannels(const BurstEdit& burst, bool byIdentity, std::string_view text, std::string_view question,
                    Parameters parameters) {
  const std::string old = burst.OldValue();
  if (old.empty()) return true;  // a channel without burst does not use an empty one
  const ChannelNetworks networks(burst.provider);
  const std::vector<bool> uses = NetworksOf(burst, networks, byIdentity);
  const BurstUser& user = ChannelBurst(burst.kind);
  const FieldRef bursts = burst.provider.Field(user.form);
  bool hasAsked = false;
  for (const RecordNr channel : bursts.Records()) {
    if (!ReadsAs(bursts.Value(channel), old)) continue;
    const RecordNr network = networks.NetworkOf(channel);
    if (network == 0 || !uses[static_cast<std::size_t>(network - 1)]) continue;
    if (!hasAsked && AskYesNo(burst.edit.validator, question, parameters) != Button::Yes) return false;
    hasAsked = true;
    burst.edit.writes.Set(user.form, user.uiid, channel, text);
  }
  return true;
}

// What is stored

void TurnGroupToneToG(const BurstEdit& burst) {
  const std::string groupTone = CallsGroups(burst.kind) ? burst.Digit("GroupTone") : std::string();
  if (groupTone.empty()) return;
  burst.edit.value = modvalSelcall::ReplaceGroupToneWithG(burst.Value(), groupTone.front(), 'G');
}

/// In the Sigtec format a group tone stands at the end of a burst; the edit stands all the same.
void WarnOfGroups(const BurstEdit& burst) {
  if (!HoldsCode(burst.provider, "GroupFormat", GroupFormat::kSigtec, burst.system)) return;
  if (modvalSelcall::HasGroupsLast(burst.Value())) return;
  Warn(burst.edit.validator,
       "This is an invalid 'G' tone sequence for the Sigtec Group Format.  You must correct this burst by "
       "placing all 'G's at the end of the burst before saving.");
}

/// Also against the row in hand: the present value, typed once more, is refused; wanted so.
bool IsUnique(const BurstEdit& burst) {
  const std::string value = burst.Value();
  const FieldRef rows = burst.provider.Field(burst.Fields().sequence);
  for (const RecordNr row : rows.Records()) {
    if (!ReadsAs(rows.Value(row), value)) continue;
    return Refuse(burst.edit.validator, "The Burst must be unique in relation to the other %0:s.",
                  {burst.edit.validator.LabelOf(burst.Fields().uiid)});
  }
  return true;
}

bool Store(const BurstEdit& burst) {
  burst.edit.writes.Set(kBursts, burst.record, burst.edit.value);
  return true;
}

bool Remove(const BurstEdit& burst) {
  const bool mayGo =
      ChangeChannels(burst, false, kNone,
                     "This sequence is being used by one or more Channels. Removing this sequence will "
                     "affect all of those Channels using it. Do you still want to remove the sequence?",
                     {});
  if (!mayGo) return false;
  burst.edit.value = "";
  return Store(burst);
}

/// The channels take the burst as it was typed, before the group tone becomes a "G"; this order is wanted.
bool Replace(const BurstEdit& burst) {
  if (!FitsTheFormat(burst) || !IsWithoutRepeatTone(burst)) return false;
  const bool mayChange =
      ChangeChannels(burst, true, burst.Value(),
                     "One or more channels use this sequence. Changing this sequence will %0:S update all of "
                     "those channels using it. Do you still want to change the sequence?",
                     {kLineBreak});
  if (!mayChange) return false;
  TurnGroupToneToG(burst);
  WarnOfGroups(burst);
  return IsUnique(burst) && Store(burst);
}

/// The rows of a grid, filled one after the other.
struct Grid {
  FieldRef sequence;
  RecordNr rows;
  RecordNr filled = 0;

  void Add(const std::string& text) {
    ++filled;
    if (filled <= rows) sequence.SetValue(filled, text);
  }
  void EmptyTheRest() {
    while (filled < rows) Add("");
  }
};

std::vector<Grid> GridsOf(const ProviderRef& provider) {
  std::vector<Grid> grids;
  for (const BurstFields& fields : kBurstFields) {
    const FieldRef sequence = provider.Field(fields.sequence);
    grids.push_back({sequence, sequence.RecordCount()});
  }
  return grids;
}

void FillGrids(const ProviderRef& provider, RecordNr system) {
  std::vector<Grid> grids = GridsOf(provider);
  const FieldRef bursts = provider.Field(kBursts);
  const FieldRef kinds = provider.Field("UGBurstType");
  const BurstLayout& layout = BurstLayoutOf(provider);
  const bool exists = provider.Table("29").HasRecord(system);
  const RecordNr last = exists ? std::min(layout.RecordOf(system + 1, 0), bursts.RecordCount()) : 0;
  for (RecordNr record = exists ? layout.RecordOf(system, 1) : 1; record <= last; ++record) {
    const std::int32_t kind = CLng(kinds.Value(record));
    if (kind < 0 || std::cmp_greater_equal(kind, grids.size())) continue;
    const std::string text = CStr(bursts.Value(record));
    grids[static_cast<std::size_t>(kind)].Add(text == kUndefined ? std::string() : text);
  }
  for (Grid& grid : grids) grid.EmptyTheRest();
}
}  // namespace

bool ValidateBurstSequence(FieldEdit& edit) {
  return Procedure("ValidateBurstSequence", true, [&] {
    const ProviderRef provider = edit.validator.CurrentProvider();
    const Burst kind = KindOf(edit.uiid);
    const BurstLayout& layout = BurstLayoutOf(provider);
    const RecordNr system = CurrentSelcallSystem(provider);
    const bool isSlot = edit.record >= 1 && edit.record <= layout.CountOf(kind);
    if (!isSlot || !provider.Table("29").HasRecord(system)) return edit.PassUnchanged();
    const RecordNr record = layout.RecordOf(system, layout.OffsetOf(kind) + edit.record);
    if (!provider.Field(kBursts).HasRecord(record)) return edit.PassUnchanged();

    const BurstEdit burst{edit, provider, kind, system, record, TxFormatOf(provider, system)};
    if (!modvalSelcall::ValidateTxFormat6000(edit.validator, edit.writes, burst.format, system, false))
      return false;
    return Trim(burst.Value()).empty() ? Remove(burst) : Replace(burst);
  });
}

bool ValidateCurrentSelcallNumber(FieldEdit& edit) {
  const ProviderRef provider = edit.validator.CurrentProvider();
  const RecordNr system = CLng(edit.value);
  UpdateFilteredGridsTest(edit.writes, provider, system);
  modvalControlStatus::UpdateFilteredGrid(edit.writes, provider, system);
  return true;
}

bool UpdateFilteredGridsTest(FormWrites& writes, const ProviderRef& provider, RecordNr system) {
  return Procedure("UpdateFilteredGridsTest", true, [&] {
    {
      const ScopedAutoUpdate silent(provider, false);  // that the grids are filled is nobody's edit
      FillGrids(provider, system);
    }
    for (const BurstFields& fields : kBurstFields) writes.Reload(fields.uiid);
    return true;
  });
}
}  // namespace modvalBursts
