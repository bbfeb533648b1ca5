#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "common/ChannelNetworks.h"
#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/StoredValues.h"
#include "common/modCommonGlobals.h"
#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"
#include "selcall/BurstSlots.h"
#include "selcall/modFreeFormat.h"
#include "selcall/modSelcallMapping.h"
#include "selcall/modvalFreeFormat.h"
#include "selcall/modvalSelcall.h"

/// The group tone, a "G" in all that is shown and stored, and the repeat tone, which no sequence but a status
/// may hold: what follows when one of them changes.
namespace modvalSelcall {
namespace {
using modFreeFormat::kParts;
using modFreeFormat::kSequencesPerSystem;
using modFreeFormat::Part;
using modSelcallMapping::SequenceText;

constexpr std::string_view kGroupTone = "GroupTone";
constexpr std::string_view kRepeatTone = "RepeatTone";

char DigitOf(std::int32_t tone) { return modCommonGlobals::ConvertToneToString(tone).front(); }

/// The channels that signal by a system, and the preset calls of these.
class SystemChannels {
 public:
  SystemChannels(const ProviderRef& provider, RecordNr system)
      : networks_(provider),
        uses_(networks_.OfSelcallSystem(system)),
        count_(provider.Table("5").RecordCount()),
        channelOfPreset_(provider.Field("76.DSDBM_PRESET_CALL_CHANNEL_REF")) {}

  /// Whether a record that says which burst is sent speaks for such a channel.
  bool Has(const BurstUser& user, RecordNr record) const {
    const bool isPreset = user.form.starts_with("76.");
    const RecordNr channel = isPreset ? CLng(channelOfPreset_.Value(record)) : record;
    if (channel < 1 || channel > count_) return false;
    const RecordNr network = networks_.NetworkOf(channel);
    return network != 0 && uses_[static_cast<std::size_t>(network - 1)];
  }

 private:
  ChannelNetworks networks_;
  std::vector<bool> uses_;  // by network, from index 0
  RecordNr count_;
  FieldRef channelOfPreset_;
};

/// Writes what `change` makes of the texts of the channels' bursts; one without burst stays so.
template <typename Change>
void RewriteChannels(FormWrites& writes, const ProviderRef& provider, RecordNr system, const Change& change) {
  const SystemChannels channels(provider, system);
  for (const BurstUser& user : kBurstUsers) {
    const FieldRef texts = provider.Field(user.form);
    for (const RecordNr record : texts.Records()) {
      const std::string text = SequenceText(texts.Value(record));
      if (text.empty()) continue;
      const std::string changed = change(user.kind, text);
      if (changed != text && channels.Has(user, record)) writes.Set(user.form, user.uiid, record, changed);
    }
  }
}

// The group tone

class GroupToneSwap {
 public:
  GroupToneSwap(FormWrites& writes, const ProviderRef& provider, RecordNr system, char old, char now,
                GroupSwap swap)
      : writes_(writes), provider_(provider), system_(system), old_(old), now_(now), swap_(swap) {}

  void Run() const {
    InBursts();
    for (const Burst kind : {Burst::Repeater, Burst::CallerId, Burst::TxCall}) InGrid(FieldsOf(kind));
    InFreeFormat();
    // A channel names its burst by the text: one left behind would find another burst, or none.
    RewriteChannels(writes_, provider_, system_, [&](Burst kind, const std::string& text) {
      return CallsGroups(kind) ? Swapped(text) : text;
    });
  }

 private:
  std::string Swapped(std::string text) const {
    if (swap_ != GroupSwap::ToneToG) text = ReplaceGroupToneWithG(std::move(text), 'G', old_);
    if (swap_ == GroupSwap::GToTone) return text;
    return ReplaceGroupToneWithG(std::move(text), swap_ == GroupSwap::Both ? now_ : old_, 'G');
  }

  /// Of one record; a word for none is no text.
  void SwapGroupToneAndG(const FieldRef& field, std::string_view id, std::string_view uiid,
                         RecordNr record) const {
    const std::string text = CStr(field.Value(record));
    const std::string swapped = Swapped(SequenceText(text));
    if (swapped != text) writes_.Set(id, uiid, record, swapped);
  }

  /// Of the kinds that may call a group: a status of 12 stays one when the group tone becomes 1.
  void InBursts() const {
    const BurstLayout& layout = BurstLayoutOf(provider_);
    const FieldRef bursts = provider_.Field("UGBurstSeq");
    const FieldRef kinds = provider_.Field("UGBurstType");
    const RecordNr last = std::min(layout.RecordOf(system_ + 1, 0), bursts.RecordCount());
    for (RecordNr record = layout.RecordOf(system_, 0); record <= last; ++record) {  // from that before it
      const Variant kind = kinds.Value(record);
      if (IsNumeric(kind) && CallsGroups(static_cast<Burst>(CLng(kind))))
        SwapGroupToneAndG(bursts, "UGBurstSeq", "UGBurstSeq", record);
    }
  }

  void InGrid(const BurstFields& grid) const {
    const FieldRef rows = provider_.Field(grid.sequence);
    for (const RecordNr row : rows.Records()) SwapGroupToneAndG(rows, grid.sequence, grid.uiid, row);
  }

  /// The sequences of the system by their place: by the number that they hold, system 1 could get those of
  /// system 2.
  void InFreeFormat() const {
    const RecordNr count = provider_.Table("49").RecordCount();
    const RecordNr last = std::min(system_ * kSequencesPerSystem, count);
    for (RecordNr record = (system_ - 1) * kSequencesPerSystem + 1; record <= last; ++record) {
      for (const Part& part : kParts) {
        if (!part.IsStatus()) SwapGroupToneAndG(provider_.Field(part.form), part.form, part.uiid, record);
      }
      Variant none;
      modvalFreeFormat::ShowSequence(writes_, provider_, record, {}, none);
    }
  }

  FormWrites& writes_;
  const ProviderRef& provider_;
  RecordNr system_;
  char old_, now_;
  GroupSwap swap_;
};

// The repeat tone

/// Gives what holds the new tone the old one. The question comes before the first write.
class RepeatToneSwap {
 public:
  RepeatToneSwap(FieldEdit& edit, const ProviderRef& provider, char old, char now)
      : edit_(edit), provider_(provider), system_(edit.record), old_(old), now_(now) {}

  /// False when the user does not want it.
  bool Run() { return InBursts() && InGrids() && InReceived() && InFreeFormat(); }

 private:
  /// In the case in which it stands: "None" holds no tone E.
  std::string Replaced(std::string text) const {
    std::ranges::replace(text, now_, old_);
    return text;
  }

  bool MayWrite() {
    if (agreed_) return true;
    const std::string now(1, now_);
    agreed_ = AskYesNo(edit_.validator,
                       "The repeat tone '%0:S' is contained in one or more sequences. If you continue, tone "
                       "'%0:S' will be replaced with the old repeat tone '%1:S' in these sequences. Do you "
                       "want to continue?",
                       {now, std::string(1, old_)}) == Button::Yes;
    return agreed_;
  }

  /// True where there is nothing to do, too.
  bool Rewrite(std::string_view id, std::string_view uiid, RecordNr record) {
    const std::string text = CStr(provider_.Field(id).Value(record));
    const std::string changed = Replaced(text);
    if (changed == text) return true;
    if (!MayWrite()) return false;
    edit_.writes.Set(id, uiid, record, changed);
    return true;
  }

  /// All of the block and the record before it. The slots left out are one off those of the statuses: the
  /// last Tx call is among them. A channel is told by the record's place in a block from 0, so that the last
  /// two slots and the record before the block count as repeaters; all of that is wanted so.
  bool InBursts() {
    const BurstLayout& layout = BurstLayoutOf(provider_);
    const RecordNr firstLeftOut = layout.OffsetOf(Burst::Status);
    const RecordNr lastLeftOut = firstLeftOut + layout.CountOf(Burst::Status);
    const FieldRef bursts = provider_.Field("UGBurstSeq");
    const RecordNr count = bursts.RecordCount();
    std::map<std::pair<Burst, std::string>, std::string> changes;
    for (RecordNr slot = 0; slot <= layout.SlotsPerSystem(); ++slot) {
      const RecordNr record = layout.RecordOf(system_, slot);
      if (record > count || (slot >= firstLeftOut && slot <= lastLeftOut)) continue;
      const std::string text = CStr(bursts.Value(record));
      std::string changed = Replaced(text);
      if (changed == text) continue;
      if (!MayWrite()) return false;
      edit_.writes.Set("UGBurstSeq", record, changed);
      const Burst kind = layout.KindOf(record % layout.SlotsPerSystem() - 1);
      changes.try_emplace({kind, text}, std::move(changed));
    }
    if (changes.empty()) return true;
    RewriteChannels(edit_.writes, provider_, system_, [&](Burst kind, const std::string& text) {
      const auto change = changes.find({kind, text});
      return change == changes.end() ? text : change->second;
    });
    return true;
  }

  bool InGrids() {
    for (const BurstFields& grid : kBurstFields) {
      if (&grid == &FieldsOf(Burst::Status)) continue;
      for (const RecordNr row : provider_.Field(grid.sequence).Records()) {
        if (!Rewrite(grid.sequence, grid.uiid, row)) return false;
      }
    }
    return true;
  }

  bool InReceived() {
    if (!provider_.Table("29").HasRecord(system_)) return true;
    return std::ranges::all_of(kRxSequences,
                               [&](std::string_view uiid) { return Rewrite(uiid, uiid, system_); });
  }

  /// Of all systems alike.
  bool InFreeFormat() {
    for (const RecordNr record : provider_.Table("49").Records()) {
      const bool holds = std::ranges::any_of(kParts, [&](const Part& part) {
        return !part.IsStatus() &&
               CStr(provider_.Field(part.form).Value(record)).find(now_) != std::string::npos;
      });
      if (!holds) continue;
      if (!MayWrite()) return false;
      for (const Part& part : kParts) {
        if (!part.IsStatus()) RewritePart(part, record);
      }
    }
    return true;
  }

  void RewritePart(const Part& part, RecordNr record) {
    Variant value = Replaced(CStr(provider_.Field(part.form).Value(record)));
    FieldEdit burst{edit_.validator, part.uiid, value, record, FormWrites(edit_.validator, part.uiid)};
    const bool passes = modvalFreeFormat::ValidateFreeFormatBurst(burst, std::string(1, now_));
    edit_.writes.ReloadAllOf(burst.writes);
    if (passes) edit_.writes.Set(part.form, part.uiid, record, value);
  }

  FieldEdit& edit_;
  const ProviderRef& provider_;
  RecordNr system_;
  char old_, now_;
  bool agreed_ = false;
};

/// The new tone as its code, which is what the host stores; false where it is the system's other tone.
bool DiffersFrom(FieldEdit& edit, std::string_view other, std::string_view refusal) {
  const std::int32_t tone = modCommonGlobals::ConvertToneToNumber(CStr(edit.value));
  edit.value = tone;
  return !edit.Holds(other, tone, edit.record) || Refuse(edit.validator, refusal);
}

bool HasTones(const FieldEdit& edit) {
  return edit.validator.CurrentProvider().Field(kGroupTone).HasRecord(edit.record);
}
}  // namespace

bool ValidateGroupTone(FieldEdit& edit) {
  constexpr std::string_view kBoth = "Both";  // of the swaps, not of the tones
  if (CStr(edit.value) == kBoth) return true;
  if (!HasTones(edit)) return edit.PassUnchanged();
  return DiffersFrom(edit, kRepeatTone,
                     "You can not make the Group Tone value the same as the Repeat Tone") &&
         GroupToneValidation(edit, CLng(edit.value), GroupSwap::Both);
}

bool ValidateRepeatTone(FieldEdit& edit) {
  if (!HasTones(edit)) return edit.PassUnchanged();
  return DiffersFrom(edit, kGroupTone, "You can not make the Repeat Tone value the same as the Group Tone") &&
         RepeatToneValidation(edit, CLng(edit.value));
}

bool GroupToneValidation(FieldEdit& edit, std::int32_t newTone, GroupSwap swap) {
  return Procedure("GroupToneValidation", true, [&] {
    const ProviderRef provider = edit.validator.CurrentProvider();
    const RecordNr system = CurrentSelcallSystem(provider);
    const std::string old = ToneDigit(provider, kGroupTone, system);
    if (old.empty()) return true;
    GroupToneSwap(edit.writes, provider, system, old.front(), DigitOf(newTone), swap).Run();
    ValidateGroupFormat(edit.validator, StoredValue(provider, "GroupFormat", system));
    return true;
  });
}

bool RepeatToneValidation(FieldEdit& edit, std::int32_t newTone) {
  return Procedure("RepeatToneValidation", true, [&] {
    const ProviderRef provider = edit.validator.CurrentProvider();
    const std::string old = ToneDigit(provider, kRepeatTone, edit.record);
    return old.empty() || RepeatToneSwap(edit, provider, old.front(), DigitOf(newTone)).Run();
  });
}
}  // namespace modvalSelcall
