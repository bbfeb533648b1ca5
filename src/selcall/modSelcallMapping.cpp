#include "selcall/modSelcallMapping.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <memory>
#include <vector>

#include "common/LibraryArray.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/modCommonErrorHandler.h"
#include "common/modCommonGlobals.h"
#include "common/modProjectGlobals.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "platform/Error.h"
#include "selcall/BurstSlots.h"

namespace modSelcallMapping {
namespace {
using modCommonErrorHandler::ShowMessageBox;

/// The characters of the codes from 0.
constexpr std::string_view kTones = "0123456789ABCDEF-GV";
constexpr std::string_view kFormatLetters = "RCS-B";

constexpr std::string_view kVariable = "V";
constexpr std::string_view kVariableOfTwoDigits = "VV";
constexpr std::string_view kTwoDigits = "49.FreeForm2DigitStatus";

/// By character; a negative one for a character that is no tone.
constexpr auto kToneCodes = [] {
  std::array<std::int32_t, 128> codes{};
  codes.fill(-1);
  for (std::size_t code = 0; code < kTones.size(); ++code) {
    codes[static_cast<unsigned char>(kTones[code])] = static_cast<std::int32_t>(code);
  }
  return codes;
}();

std::int32_t ToneCode(std::string_view tone) {
  const std::size_t character = static_cast<unsigned char>(tone.front());
  // Bytes that continue no character may follow a tone.
  const bool isTone = tone.size() == 1 && character < kToneCodes.size() && kToneCodes[character] >= 0;
  if (!isTone) RaiseTypeMismatch();
  return kToneCodes[character];
}

void AppendTone(std::string& text, std::int32_t code) {
  if (code >= 0 && code < std::ssize(kTones)) {
    text += kTones[static_cast<std::size_t>(code)];
  } else {
    text += std::to_string(code);
  }
}

/// A raw array of a code a character.
template <typename CodeOf>
ArrayObject Coded(std::string_view text, CodeOf codeOf) {
  std::vector<Variant> cells;
  cells.reserve(text.size() + 1);
  cells.emplace_back();  // row 0 is unused
  while (!text.empty()) {
    const std::string_view character = FirstCharacter(text);
    cells.emplace_back(codeOf(character));
    text.remove_prefix(character.size());
  }
  auto raw = std::make_shared<LibraryArray>();
  raw->TakeColumn(std::move(cells));
  return raw;
}

/// The text of a raw array; an empty value has none.
template <typename Append>
void Decode(const Variant& array, std::string& text, Append append) {
  if (array.IsEmpty()) return;
  const XArrayDBObject& codes = CArray(array);
  for (std::int32_t row = 1, last = codes.UpperBound(1); row <= last; ++row) {
    append(text, CLng(codes.GetValue(row, 0)));
  }
}

// Formats

struct FormatField {
  std::string_view form, raw;
};
constexpr FormatField kFormats[] = {{"29.DerivedTxFormat", "29.TxFormat"},
                                    {"29.DerivedRxFormat", "29.RxFormat"}};

/// Null, and the user is told, for a field that is no format.
const FormatField* FindFormat(std::string_view fieldId, std::string_view mapping) {
  const auto* found = std::ranges::find_if(
      kFormats, [&](const FormatField& field) { return EqualsIgnoringCase(field.form, fieldId); });
  if (found != std::end(kFormats)) return found;
  ShowMessageBox("Field " + std::string(fieldId) + " not found during " + std::string(mapping) + " mapping",
                 MessageStyle::kCritical, "Unknown Error");
  return nullptr;
}

void AppendFormatLetter(std::string& text, std::int32_t code) {
  if (code >= 0 && code < std::ssize(kFormatLetters)) {
    text += kFormatLetters[static_cast<std::size_t>(code)];
  } else {
    ShowMessageBox("Invalid Selcall format " + std::to_string(code), MessageStyle::kCritical,
                   "Unknown Error");
  }
}

/// The code of the letter; of a letter that is none, which the user is told, `before`.
std::int32_t FormatCode(std::string_view letter, std::int32_t before) {
  const std::size_t code = kFormatLetters.find(letter);
  if (code != std::string_view::npos) return static_cast<std::int32_t>(code);
  ShowMessageBox("Character  " + std::string(letter) + " is not valid character for SelcallFormat.");
  return before;
}

// Sequences

/// The tones of a status of one tone, a decimal number on the form: "12" is "C".
std::string StatusTones(std::string_view number) { return modCommonGlobals::Hex(CLng(std::string(number))); }
std::string StatusNumber(std::string_view tones) { return std::to_string(CLng("&H" + std::string(tones))); }

bool HasOneStatusTone(std::string_view format) { return std::ranges::count(format, 'S') == 1; }

/// Writes the double-digit box. A status of no tones ticks it too; wanted so.
std::string FreeStatusToForm(const FieldRef& twoDigits, RecordNr record, const std::string& tones) {
  const bool ticked = tones.empty() || tones.size() == 2;
  twoDigits.SetValue(record, ticked ? kOn : kOff);
  if (tones == kVariableOfTwoDigits) return std::string(kVariable);
  return tones.size() == 1 && tones != kVariable ? StatusNumber(tones) : tones;
}

std::string FreeStatusFromForm(const Variant& twoDigits, const std::string& text) {
  if (text == kVariable) return std::string(IsTicked(twoDigits) ? kVariableOfTwoDigits : kVariable);
  return !text.empty() && IsCode(twoDigits, kOff) ? StatusTones(text) : text;
}

/// The tones of a burst's form text. Whatever its slot, "V" is two tones where the format has them.
std::string BurstFromForm(const ProviderRef& provider, RecordNr burst, std::string_view shown) {
  const BurstLayout& layout = BurstLayoutOf(provider);
  const RecordNr system = layout.SystemOf(burst);
  const std::string_view text = MapBurstFromUI(provider, system, shown);
  if (text.empty()) return {};
  const bool isStatus = layout.KindOf(layout.SlotOf(burst)) == Burst::Status;
  if (text != kVariable) {
    const bool isNumber = isStatus && HasOneStatusTone(TxFormatOf(provider, system));
    return isNumber ? StatusTones(text) : std::string(text);
  }
  const bool hasTwoTones = TxFormatOf(provider, system).find("SS") != std::string::npos;
  return std::string(hasTwoTones ? kVariableOfTwoDigits : text);
}

enum class Tones { Plain, Burst, FreeStatus };
struct ToneField {
  std::string_view form, raw;
  Tones kind = Tones::Plain;
};
constexpr ToneField kToneFields[] = {
    {"29.DerivedRxDecode1", "29.RxSeqOne"},
    {"29.DerivedRxDecode2", "29.RxSeqTwo"},
    {"29.DerivedRMRBurst", "29.RMRBurst"},
    {"30.UGBurstSeq", "30.FixedFormatBurstSeq", Tones::Burst},
    {"49.FreeFormBurstB_UI", "49.FreeFormBurstB"},
    {"49.FreeFormBurstR1_UI", "49.FreeFormBurstR1"},
    {"49.FreeFormBurstR2_UI", "49.FreeFormBurstR2"},
    {"49.FreeFormBurstR3_UI", "49.FreeFormBurstR3"},
    {"49.FreeFormStatus_UI", "49.FreeFormStatus", Tones::FreeStatus},
};
/// Null for a field that holds no sequence of its own.
const ToneField* FindToneField(std::string_view fieldId) {
  const auto* found = std::ranges::find_if(
      kToneFields, [&](const ToneField& field) { return EqualsIgnoringCase(field.form, fieldId); });
  return found == std::end(kToneFields) ? nullptr : found;
}

std::string ToForm(const ProviderRef& provider, const ToneField& field, RecordNr record) {
  if (field.kind == Tones::Burst) return BurstToForm(provider, BurstLayoutOf(provider), record);
  std::string text = NumarrayToString(provider.Field(field.raw).Value(record));
  return field.kind == Tones::FreeStatus ? FreeStatusToForm(provider.Field(kTwoDigits), record, text) : text;
}

std::string FromForm(const ProviderRef& provider, const ToneField& field, RecordNr record) {
  std::string text = SequenceText(provider.Field(field.form).Value(record));
  switch (field.kind) {
    case Tones::Burst:
      return BurstFromForm(provider, record, text);
    case Tones::FreeStatus:
      return FreeStatusFromForm(provider.Field(kTwoDigits).Value(record), text);
    case Tones::Plain:
      break;
  }
  return text;
}

// Grids

/// Shows the burst of the first system in a row of a grid. False for a field that is none of a grid.
bool ShowInGrid(const ProviderRef& provider, std::string_view fieldId, RecordNr row) {
  const auto* grid = std::ranges::find_if(
      kBurstFields, [&](const BurstFields& fields) { return EqualsIgnoringCase(fields.sequence, fieldId); });
  if (grid == kBurstFields.end()) return false;
  const auto kind = static_cast<Burst>(grid - kBurstFields.begin());
  const FieldRef bursts = provider.Field("30.UGBurstSeq");
  if (row > bursts.RecordCount()) return true;  // nor is there one behind the slots before
  const RecordNr burst = BurstLayoutOf(provider).OffsetOf(kind) + row + 1;
  if (!bursts.HasRecord(burst)) return true;
  provider.Field(grid->sequence).SetValue(row, bursts.Value(burst));
  provider.Field(grid->number).SetValue(row, row);
  return true;
}

/// Up to the slots of the last system; records behind them belong to nobody.
void NameSlots(const ProviderRef& provider) {
  const BurstLayout& layout = BurstLayoutOf(provider);
  const FieldRef identities = provider.Field("29.SignalSystemId");
  const FieldRef owners = provider.Field("30.FixedFormatSigSystemID");
  const FieldRef numbers = provider.Field("30.FixedFormatBurstID");
  const FieldRef kinds = provider.Field("30.FixedFormatBurstType");
  const RecordNr last = owners.RecordCount();
  RecordNr burst = 2;
  for (const RecordNr system : identities.Records()) {
    const Variant identity = identities.Value(system);
    for (RecordNr slot = 1; slot <= layout.SlotsPerSystem() && burst <= last; ++slot, ++burst) {
      owners.SetValue(burst, identity);
      numbers.SetValue(burst, slot);
      kinds.SetValue(burst, static_cast<std::int32_t>(layout.KindOf(slot)));
    }
  }
}
}  // namespace

std::string SequenceText(const Variant& shown) {
  std::string text = CStr(shown);
  if (EqualsIgnoringCase(text, kNone) || EqualsIgnoringCase(text, kUndefined)) text.clear();
  return text;
}

ArrayObject StringToNumarray(std::string_view text) {
  ArrayObject codes = Procedure("StringToNumarray", ArrayObject(), [&] { return Coded(text, ToneCode); });
  return codes != nullptr ? codes : std::make_shared<LibraryArray>();  // none: the application is being ended
}

std::string NumarrayToString(const Variant& sequence) {
  std::string text;
  Procedure("NumarrayToString", [&] { Decode(sequence, text, AppendTone); });
  return text;
}

ArrayObject FormatCodes(std::string_view format) {
  std::int32_t code = 0;
  return Coded(format, [&](std::string_view letter) { return code = FormatCode(letter, code); });
}

std::string FormatText(const Variant& codes) {
  std::string text;
  Decode(codes, text, AppendFormatLetter);
  return text;
}

std::string_view MapBurstToUI(const ProviderRef&, RecordNr system, std::string_view text) {
  return system == 0 ? std::string_view() : text;
}

std::string_view MapBurstFromUI(const ProviderRef& provider, RecordNr system, std::string_view text) {
  return MapBurstToUI(provider, system, text);
}

std::int32_t PeriodMs(const Variant& period) {
  constexpr std::int32_t kMilliseconds[] = {20, 33, 40, 50, 60, 70, 100};
  const std::int32_t code = CLng(period);
  return code >= 1 && code <= std::ssize(kMilliseconds) ? kMilliseconds[code - 1] : code;
}

std::string TxFormatOf(const ProviderRef& provider, RecordNr system) {
  const FieldRef format = provider.Field("TxFormat_k6k");
  return format.HasRecord(system) ? CStr(format.Value(system)) : std::string();
}

std::string BurstToForm(const ProviderRef& provider, const BurstLayout& layout, RecordNr burst) {
  const RecordNr system = layout.SystemOf(burst);
  const std::string tones = NumarrayToString(provider.Field("30.FixedFormatBurstSeq").Value(burst));
  const std::string_view text = MapBurstToUI(provider, system, tones);
  if (text == kVariableOfTwoDigits) return std::string(kVariable);
  const bool isStatus = layout.KindOf(layout.SlotOf(burst)) == Burst::Status;
  const bool isNumber =
      isStatus && !text.empty() && text != kVariable && HasOneStatusTone(TxFormatOf(provider, system));
  return isNumber ? StatusNumber(text) : std::string(text);
}

void GetSelcallFormat(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetSelcallFormat", [&] {
    std::string text;
    const FormatField* field = FindFormat(fieldId, "GetSelcallFormat");
    if (field != nullptr) text = FormatText(provider.Field(field->raw).Value(record));
    provider.Field(fieldId).SetValue(record, text);
  });
}

void SetSelcallFormat(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetSelcallFormat", [&] {
    const FormatField* field = FindFormat(fieldId, "SetSelcallFormat");
    if (field == nullptr) return;
    const std::string text = CStr(provider.Field(fieldId).Value(record));
    provider.Field(field->raw).SetValue(record, FormatCodes(text));
  });
}

void GetSelcallTone(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetSelcallTone", [&] {
    if (const ToneField* field = FindToneField(fieldId)) {
      provider.Field(field->form).SetValue(record, ToForm(provider, *field, record));
    } else if (!ShowInGrid(provider, fieldId, record)) {
      ShowMessageBox("Field " + std::string(fieldId) + " not found during SelcallTone mapping");
    }
  });
}

void SetSelcallTone(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetSelcallTone", [&] {
    const ToneField* field = FindToneField(fieldId);
    if (field == nullptr) return;
    provider.Field(field->raw).SetValue(record, StringToNumarray(FromForm(provider, *field, record)));
  });
}

void GetUnfilteredGridData(const ProviderRef& provider, std::string_view, RecordNr) {
  Procedure("GetUnfilteredGridData", [&] {
    for (const BurstFields& grid : kBurstFields) provider.Table(grid.uiid).FillToCapacity();
    provider.Field("30.FixedFormatBurstSeq").SetValue(1, StringToNumarray(""));
    provider.Field("30.UGBurstSeq").SetValue(1, "");
    NameSlots(provider);
  });
}
}  // namespace modSelcallMapping
