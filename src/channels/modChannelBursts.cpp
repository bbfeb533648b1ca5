#include <algorithm>
#include <optional>
#include <string>

#include "channels/modChannels.h"
#include "common/Procedure.h"
#include "common/modCommonErrorHandler.h"
#include "common/modCommonGlobals.h"
#include "common/modProjectGlobals.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "selcall/BurstSlots.h"
#include "selcall/modSelcallMapping.h"

namespace modChannels {
namespace {
/// The row of a form field, whatever its case; none for another field.
const BurstUser* FindBurstField(std::string_view fieldId) {
  for (const BurstUser& field : kBurstUsers) {
    if (EqualsIgnoringCase(field.form, fieldId)) return &field;
  }
  return nullptr;
}

bool IsBurstTable(std::string_view fieldId) {
  const auto table = modCommonGlobals::SplitFieldId(fieldId).first;
  return table == "5" || table == "76";
}

/// The burst that the index points at: a status as its system shows it, any other by its tones. An index that
/// is 0 or lies outside the table points at nothing.
std::string BurstText(const ProviderRef& provider, std::int32_t index) {
  using namespace modSelcallMapping;
  const FieldRef bursts = provider.Field("30.FixedFormatBurstSeq");
  if (index <= 0 || index >= bursts.RecordCount()) return std::string(kNone);
  const RecordNr burst = index + 1;
  const BurstLayout& layout = BurstLayoutOf(provider);
  if (layout.KindOf(layout.SlotOf(burst)) == Burst::Status) return BurstToForm(provider, layout, burst);
  return std::string(MapBurstToUI(provider, layout.SystemOf(burst), NumarrayToString(bursts.Value(burst))));
}

/// The record of table 5 that the field's record belongs to; table 76 names it by its record number.
RecordNr ChannelOf(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  if (modCommonGlobals::SplitFieldId(fieldId).first == "5") return record;
  return CLng(provider.Field("76.DSDBM_PRESET_CALL_CHANNEL_REF").Value(record));
}

/// Puts the channel on the first network and says so. The text names the channel of record 1, whichever
/// channel is in hand; both are wanted so. 0 when there is no network.
RecordNr FallBackToFirstNetwork(const ProviderRef& provider, RecordNr channel, const std::string& number) {
  const FieldRef networkNumbers = provider.Field("21.NetworkPointer");
  if (networkNumbers.RecordCount() == 0) return 0;
  const Variant first = networkNumbers.Value(1);
  const std::string text = "Error processing channel " + CStr(provider.Field("5.ChannelIDTracker").Value(1)) +
                           ").TempValue( network " + number + " not found.\r\nUsing network " + CStr(first) +
                           " for this channel";
  modCommonErrorHandler::ShowMessageBox(text, MessageStyle::kCritical, "Unknown Error");
  provider.Field("5.ChannelNetworkIdUI").SetValue(channel, first);
  return 1;
}

/// The network of the channel, by its number as text.
RecordNr NetworkOf(const ProviderRef& provider, RecordNr channel) {
  const std::string number = CStr(provider.Field("5.ChannelNetworkIdUI").Value(channel));
  const FieldRef numbers = provider.Field("21.NetworkIDTracker");
  for (const RecordNr network : numbers.Records()) {
    if (ReadsAs(numbers.Value(network), number)) return network;
  }
  return FallBackToFirstNetwork(provider, channel, number);
}

/// The records of the system's bursts of one kind, as far as the table has them.
struct BurstRecords {
  RecordNr first, last;
};
BurstRecords RecordsOf(const ProviderRef& provider, const FieldRef& bursts, RecordNr system, Burst kind) {
  const BurstLayout& layout = BurstLayoutOf(provider);
  const RecordNr before = layout.RecordOf(system, layout.OffsetOf(kind));
  return {before + 1, std::min(before + layout.CountOf(kind), bursts.RecordCount())};
}

/// The record of the system's burst with that text among those of its kind; 0 for none.
RecordNr FindBurst(const ProviderRef& provider, RecordNr system, Burst kind, const std::string& text) {
  const FieldRef bursts = provider.Field("30.UGBurstSeq");
  const auto [first, last] = RecordsOf(provider, bursts, system, kind);
  for (RecordNr burst = first; burst <= last; ++burst) {
    if (ReadsAs(bursts.Value(burst), text)) return burst;
  }
  return 0;
}

std::vector<std::string> TextsInRange(const ProviderRef& provider, RecordNr system, Burst kind) {
  const FieldRef bursts = provider.Field("30.UGBurstSeq");
  const auto [first, last] = RecordsOf(provider, bursts, system, kind);
  std::vector<std::string> texts;
  for (RecordNr burst = first; burst <= last; ++burst) {
    std::string text = CStr(bursts.Value(burst));
    if (!text.empty()) texts.push_back(std::move(text));
  }
  return texts;
}

/// The index that the text stands for on this channel; none when the stored one is to be kept.
std::optional<std::int32_t> BurstIndex(const ProviderRef& provider, RecordNr channel, Burst kind,
                                       const std::string& text) {
  const RecordNr network = NetworkOf(provider, channel);
  if (network == 0) return 0;
  if (CLng(provider.Field("21.SignallingType").Value(network)) != SignallingType::kSelcall) return 0;
  const Variant identity = provider.Field("21.NetworkSignallingID").Value(network);
  const RecordNr system =
      modProjectGlobals::SigSysRecordNr(provider, SignallingType::kSelcall, identity, true);
  const RecordNr burst = system == 0 ? 0 : FindBurst(provider, system, kind, text);
  if (burst == 0) return std::nullopt;
  return burst - 1;
}
}  // namespace

void GetPresetSelcallIndex(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetPresetSelcallIndex", [&] {
    if (!IsBurstTable(fieldId)) return;
    const BurstUser* field = FindBurstField(fieldId);
    const std::int32_t index = field == nullptr ? 0 : CLng(provider.Field(field->pointer).Value(record));
    provider.Field(fieldId).SetValue(record, BurstText(provider, index));
  });
}

void SetPresetSelcallIndex(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetPresetSelcallIndex", [&] {
    const BurstUser* field = FindBurstField(fieldId);
    if (field == nullptr) return;
    const FieldRef pointer = provider.Field(field->pointer);
    const std::string text = CStr(provider.Field(fieldId).Value(record));
    if (text == kNone || text.empty()) {  // an empty text would match the first unused slot
      pointer.SetValue(record, 0);
      return;
    }
    const RecordNr channel = ChannelOf(provider, fieldId, record);
    if (!provider.Table("5").HasRecord(channel)) return;
    const auto index = BurstIndex(provider, channel, field->kind, text);
    if (index) pointer.SetValue(record, *index);
  });
}

std::optional<Variant> SystemOfChannel(const ProviderRef& provider, RecordNr channel,
                                       std::int32_t signallingType) {
  if (!provider.Table("5").HasRecord(channel)) return {};
  const RecordNr network = modProjectGlobals::GetChannelNetworkRecordNr(provider, channel);
  if (network == 0) return {};
  if (!SameValue(provider.Field("21.SignallingType").Value(network), signallingType)) return {};
  return provider.Field("21.NetworkSignallingID").Value(network);
}

std::vector<std::string> BurstsOnOffer(const ProviderRef& provider, std::string_view uiid, RecordNr record) {
  const FieldRef form = provider.Field(uiid);
  const std::string fieldId = std::to_string(form.TableNumber()) + "." + form.Name();
  const BurstUser* field = FindBurstField(fieldId);
  if (field == nullptr || !form.HasRecord(record)) return {};
  const auto identity =
      SystemOfChannel(provider, ChannelOf(provider, fieldId, record), SignallingType::kSelcall);
  if (!identity) return {};
  const RecordNr system =
      modProjectGlobals::SigSysRecordNr(provider, SignallingType::kSelcall, *identity, true);
  return system == 0 ? std::vector<std::string>() : TextsInRange(provider, system, field->kind);
}
}  // namespace modChannels
