#include "channels/modChannels.h"

#include <algorithm>
#include <string>
#include <vector>

#include "channels/modBandLimits.h"
#include "common/Procedure.h"
#include "common/StoredValues.h"
#include "common/modCommonErrorHandler.h"
#include "common/modCommonGlobals.h"
#include "common/modProjectGlobals.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "platform/DecimalText.h"

namespace modChannels {
namespace {

void HertzToForm(const ProviderRef& provider, std::string_view rawField, std::string_view fieldId,
                 RecordNr record) {
  const double hertz = CDbl(provider.Field(rawField).Value(record));
  provider.Field(fieldId).SetValue(record, FormatFixed(hertz / kHertzPerMHz, 3, 6));
}

/// Whole hertz: six decimals of a megahertz lose nothing, and the product sheds its binary residue.
void FormToHertz(const ProviderRef& provider, std::string_view rawField, std::string_view fieldId,
                 RecordNr record) {
  const double megahertz = modCommonGlobals::CDblLocal(CStr(provider.Field(fieldId).Value(record)));
  const double hertz = modCommonGlobals::RoundHalfAway(megahertz * kHertzPerMHz, 0);
  provider.Field(rawField).SetValue(record, hertz);
}

/// The kinds of sub-audible signalling, as stored.
enum class Subaudible : std::int32_t { None = 0, CTCSS = 1, DCS = 2 };

/// One direction of a channel: the form field and the raw fields behind it.
struct SubaudibleFields {
  std::string_view form, type, index;
};
constexpr SubaudibleFields kSubaudibleFields[] = {
    {"5.TxSignallingUI", "5.TxSubaudibleType", "5.TxSubaudibleIndex"},
    {"5.RxSignallingUI", "5.RxSubaudibleType", "5.RxSubaudibleIndex"},
};

/// The fields of the direction; without one the user is told.
const SubaudibleFields* FindDirection(std::string_view fieldId) {
  for (const SubaudibleFields& fields : kSubaudibleFields) {
    if (EqualsIgnoringCase(fields.form, fieldId)) return &fields;
  }
  modCommonErrorHandler::ShowMessageBox("field " + std::string(fieldId) +
                                        " not found during SubAudSignalling mapping");
  return nullptr;
}

/// The text of the code that the index points at; "None" for an index outside the table.
std::string CodeText(const ProviderRef& provider, std::string_view codeField, std::int32_t index,
                     std::string (*toText)(std::int32_t)) {
  const Variant code = ValueAtIndex(provider.Field(codeField), index);
  return code.IsEmpty() ? std::string(kNone) : toText(CLng(code));
}

struct SubaudiblePointer {
  Subaudible type;
  std::int32_t index;  ///< from 0
};

SubaudiblePointer AppendCode(const ProviderRef& provider, Subaudible type, std::string_view tableId,
                             std::string_view codeField, std::int32_t code) {
  const RecordNr added = provider.Table(tableId).AppendRecord();
  provider.Field(codeField).SetValue(added, code);
  return {type, added - 1};
}

/// Stores the code of a text where the radio looks it up. A text of no kind points at nothing: index -1.
SubaudiblePointer StoreCode(const ProviderRef& provider, const std::string& text) {
  using namespace modProjectGlobals;
  switch (text.empty() ? '\0' : text.front()) {
    case 'C':
      return AppendCode(provider, Subaudible::CTCSS, "50", "50.CTCSSfreq", ConvertCTCSSstringToLong(text));
    case 'D':
      return AppendCode(provider, Subaudible::DCS, "61", "61.DCScodeword", ConvertDCSstringToLong(text));
    case 'N':
      return {Subaudible::None, 0};
    default:
      return {Subaudible::None, -1};
  }
}

/// The raw field behind a form field that holds a network's number; "" for another field.
std::string_view NetworkIndexField(std::string_view fieldId) {
  if (EqualsIgnoringCase(fieldId, "5.ChannelNetworkIdUI")) return "5.ChannelNetworkId";
  if (EqualsIgnoringCase(fieldId, "53.NetworkIDTracker")) return "53.NetworkID";
  return {};
}

/// The preset of the channel's DTMF system with that text, as index; 0 for none. Record 1 of table 65
/// is no preset.
std::int32_t FindDTMFPreset(const ProviderRef& provider, RecordNr network, const std::string& text) {
  const Variant system = provider.Field("21.NetworkSignallingID").Value(network);
  const FieldRef systems = provider.Field("65.DTMFChannelPresetSeqSigSysID");
  const FieldRef sequences = provider.Field("65.DTMFChannelPresetSequenceUI");
  for (RecordNr preset = 2, last = systems.RecordCount(); preset <= last; ++preset) {
    if (SameValue(systems.Value(preset), system) && CStr(sequences.Value(preset)) == text) return preset - 1;
  }
  return 0;
}
}  // namespace

void GetChannelID(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetChannelID", [&] {
    const FieldRef number = provider.Field("7.CibChannelID");
    if (record > number.RecordCount()) return;  // a new channel, before SetChannelID has added its record
    provider.Field(fieldId).SetValue(record, CLng(number.Value(record)));
  });
}

void SetChannelID(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetChannelID", [&] {
    const std::int32_t number = CLng(provider.Field(fieldId).Value(record));
    const TableRef indexBlocks = provider.Table("7");
    if (indexBlocks.RecordCount() > provider.Table("5").RecordCount()) provider.ClearTable("7");
    if (indexBlocks.RecordCount() < record) indexBlocks.AppendRecord();
    provider.Field("7.CibChannelRec").SetValue(record, record - 1);
    provider.Field("7.CibChannelID").SetValue(record, number);
    provider.Field("7.CibChannelBlockRec").SetValue(record, 0);
    provider.Field("5.HiddenChannel").SetValue(record, 0);
  });
}

void GetTxFrequency(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetTxFrequency", [&] { HertzToForm(provider, "5.ChannelTxFreq", fieldId, record); });
}

void SetTxFrequency(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetTxFrequency", [&] { FormToHertz(provider, "5.ChannelTxFreq", fieldId, record); });
}

void GetRxFrequency(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetRxFrequency", [&] { HertzToForm(provider, "5.ChannelRxFreq", fieldId, record); });
}

void SetRxFrequency(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetRxFrequency", [&] { FormToHertz(provider, "5.ChannelRxFreq", fieldId, record); });
}

void GetIsBirdieChannel(const ProviderRef&, std::string_view, RecordNr) {}

void SetIsBirdieChannel(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("SetIsBirdieChannel", [&] {
    using namespace modBandLimits;
    const std::int32_t position = GetComboBoxPositionByBandType(CLng(provider.Field("34.Band").Value(1)));
    const double rxMHz = CDbl(provider.Field("5.ChannelRxFreqUI").Value(record));
    const bool computed = IsBirdieChannel(rxMHz, position);
    const bool inverted = CBool(provider.Field("5.IsUserDefinedBirdieChannel").Value(record));
    provider.Field("5.IsBirdieChannel").SetValue(record, computed != inverted ? 1 : 0);
  });
}

void GetSubAudSignalling(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetSubAudSignalling", [&] {
    using namespace modProjectGlobals;
    const SubaudibleFields* fields = FindDirection(fieldId);
    if (fields == nullptr) return;
    const std::int32_t index = CLng(provider.Field(fields->index).Value(record));
    const auto type = static_cast<Subaudible>(CLng(provider.Field(fields->type).Value(record)));
    std::string text(kNone);
    if (type == Subaudible::CTCSS) text = CodeText(provider, "50.CTCSSfreq", index, ConvertLongToCTCSSstring);
    if (type == Subaudible::DCS) text = CodeText(provider, "61.DCScodeword", index, ConvertLongToDCSstring);
    provider.Field(fieldId).SetValue(record, text);
  });
}

void SetSubAudSignalling(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetSubAudSignalling", [&] {
    const SubaudiblePointer pointer = StoreCode(provider, CStr(provider.Field(fieldId).Value(record)));
    const SubaudibleFields* fields = FindDirection(fieldId);  // an unknown field keeps the code just added
    if (fields == nullptr) return;
    provider.Field(fields->index).SetValue(record, pointer.index);
    provider.Field(fields->type).SetValue(record, static_cast<std::int32_t>(pointer.type));
  });
}

void GetChannelNetworkID(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetChannelNetworkID", [&] {
    const std::string_view indexField = NetworkIndexField(fieldId);
    if (indexField.empty()) return;
    const FieldRef numbers = provider.Field("21.NetworkPointer");
    const RecordNr count = numbers.RecordCount();
    if (count == 0) return;
    const std::int32_t index = CLng(provider.Field(indexField).Value(record));
    const RecordNr network = index >= 0 && index < count ? index + 1 : 1;  // a stray index shows the first
    provider.Field(fieldId).SetValue(record, numbers.Value(network));
  });
}

void SetChannelNetworkID(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetChannelNetworkID", [&] {
    const std::string_view indexField = NetworkIndexField(fieldId);
    if (indexField.empty()) return;
    const Variant number = provider.Field(fieldId).Value(record);
    const std::vector<Variant> numbers = provider.Field("21.NetworkIDTracker").Values();
    const auto last = std::find_if(numbers.rbegin(), numbers.rend(),  // the last network of that number wins
                                   [&](const Variant& one) { return SameValue(one, number); });
    if (last == numbers.rend()) return;
    provider.Field(indexField).SetValue(record, static_cast<std::int32_t>(numbers.rend() - last) - 1);
  });
}

void GetCompanding(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("GetCompanding", [&] {
    const std::int32_t compression = CLng(provider.Field("5.TxCompression").Value(record));
    provider.Field("5.ChannelCompanding").SetValue(record, compression);
  });
}

void SetCompanding(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("SetCompanding", [&] {
    const std::int32_t companding = CLng(provider.Field("5.ChannelCompanding").Value(record));
    provider.Field("5.TxCompression").SetValue(record, companding);
    provider.Field("5.ReceptionExpansion").SetValue(record, companding);
  });
}

void GetDTMFPreset(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetDTMFPreset", [&] {
    const std::int32_t index = CLng(provider.Field("5.DTMFPresetCallPointer").Value(record));
    const FieldRef sequences = provider.Field("65.DTMFChannelPresetSequenceUI");
    const bool pointsAtPreset = index > 0 && index < sequences.RecordCount();
    provider.Field(fieldId).SetValue(record, pointsAtPreset ? sequences.Value(index + 1) : Variant(kNone));
  });
}

void SetDTMFPreset(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetDTMFPreset", [&] {
    std::int32_t index = 0;
    const RecordNr network = modProjectGlobals::GetChannelNetworkRecordNr(provider, record);
    const std::int32_t type =
        network == 0 ? SignallingType::kNone : CLng(provider.Field("21.SignallingType").Value(network));
    if (type == SignallingType::kDTMF && !CStr(provider.Field(fieldId).Value(record)).empty()) {
      const std::string text = CStr(provider.Field("5.DTMFPresetCallSequence").Value(record));
      index = FindDTMFPreset(provider, network, text);
    }
    provider.Field("5.DTMFPresetCallPointer").SetValue(record, index);
  });
}
}  // namespace modChannels
