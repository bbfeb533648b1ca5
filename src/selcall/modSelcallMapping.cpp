#include "selcall/modSelcallMapping.h"

#include <iterator>
#include <memory>

#include "common/LibraryArray.h"
#include "common/Procedure.h"
#include "common/modProjectGlobals.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "platform/Error.h"

namespace modSelcallMapping {
namespace {
/// The characters of the codes 0 to 18.
constexpr std::string_view kTones = "0123456789ABCDEF-GV";

std::int32_t ToneCode(char tone) {
  const std::size_t code = kTones.find(tone);
  if (code == std::string_view::npos) RaiseTypeMismatch();
  return static_cast<std::int32_t>(code);
}

/// A code that is no tone stands there in decimal.
void AppendTone(std::string& text, std::int32_t code) {
  if (code >= 0 && code < std::ssize(kTones)) {
    text += kTones[static_cast<std::size_t>(code)];
  } else {
    text += std::to_string(code);
  }
}
}  // namespace

std::string SequenceText(const Variant& shown) {
  std::string text = CStr(shown);
  return EqualsIgnoringCase(text, kNone) || EqualsIgnoringCase(text, kUndefined) ? std::string() : text;
}

ArrayObject StringToNumarray(std::string_view text) {
  const auto sequence = std::make_shared<LibraryArray>();
  Procedure("StringToNumarray", [&] {
    const auto tones = static_cast<std::int32_t>(text.size());
    sequence->Redim(0, tones, 0, 0);
    for (std::int32_t row = 1; row <= tones; ++row) {
      sequence->SetValue(row, 0, ToneCode(text[static_cast<std::size_t>(row - 1)]));
    }
  });
  return sequence;
}

std::string NumarrayToString(const Variant& sequence) {
  return Procedure("NumarrayToString", std::string(), [&](std::string& text) {
    if (sequence.IsEmpty()) return;
    const XArrayDBObject& codes = CArray(sequence);
    for (std::int32_t row = 1, last = codes.UpperBound(1); row <= last; ++row) {
      AppendTone(text, CLng(codes.GetValue(row, 0)));
    }
  });
}

std::string MapBurstToUI(const ProviderRef&, RecordNr system, const std::string& text) {
  return system == 0 ? std::string() : text;
}

std::string MapBurstFromUI(const ProviderRef& provider, RecordNr system, const std::string& text) {
  return MapBurstToUI(provider, system, text);
}

RecordNr GetSigSysRecNrForFixedFormBurst(RecordNr burst) {
  return burst < 2 ? 0 : (burst - 2) / kBurstsPerSystem + 1;
}

std::int32_t PeriodMs(const Variant& period) {
  constexpr std::int32_t kMilliseconds[] = {20, 33, 40, 50, 60, 70, 100};
  const std::int32_t code = CLng(period);
  return code >= 1 && code <= std::ssize(kMilliseconds) ? kMilliseconds[code - 1] : code;
}
}  // namespace modSelcallMapping
