#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <memory>

#include "common/HostServices.h"
#include "fuzz/Invariant.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "platform/Error.h"
#include "platform/XArrayDBObject.h"
#include "selcall/modSelcallMapping.h"
#include "workbench/host/HostObjects.h"
#include "workbench/schema/Schema.h"

/// Selcall sequences and formats between their texts and the codes of the radio, of any texts and codes.
namespace {
using namespace modSelcallMapping;

constexpr std::string_view kTones = "0123456789ABCDEF-GV";
constexpr std::string_view kLetters = "RCS-B";

bool IsOf(std::string_view alphabet, std::string_view text) {
  return text.find_first_not_of(alphabet) == std::string_view::npos;
}

/// Also of bytes that are no UTF-8.
std::size_t Characters(std::string_view text) {
  std::size_t count = 0;
  for (; !text.empty(); ++count) text.remove_prefix(FirstCharacter(text).size());
  return count;
}

/// Boxes go nowhere.
std::shared_ptr<IhostServices> SilentServices() {
  static const auto schemas = SchemaFiles::Read(SCHEMA_FOLDER);
  return std::make_shared<ApplicationServices>(
      std::make_shared<OpenPersonality>(schemas), DATA_FOLDER,
      [](const ApplicationServices::Box&) { return std::int32_t{1}; });
}

void CheckTones(const std::string& text) {
  try {
    const ArrayObject codes = StringToNumarray(text);
    Require(IsOf(kTones, text), "what is no tone has a code");
    Require(NumarrayToString(codes) == text, "a sequence changes on its way");
  } catch (const Error& error) {
    Require(error.Number() == ErrorNumber::kTypeMismatch && !IsOf(kTones, text), "a sequence is refused");
  }
}

ArrayObject Codes(FuzzedDataProvider& data) {
  auto codes = std::make_shared<XArrayDBObject>();
  const auto rows = data.ConsumeIntegralInRange<std::int32_t>(0, 40);
  codes->Redim(0, rows, 0, 0);
  const bool areTones = data.ConsumeBool();
  for (std::int32_t row = 1; row <= rows; ++row) {
    codes->SetValue(row, 0,
                    areTones ? data.ConsumeIntegralInRange(0, 18) : data.ConsumeIntegral<std::int32_t>());
  }
  return codes;
}

void CheckCodes(const ArrayObject& codes) {
  const std::string text = NumarrayToString(codes);
  bool areTones = true;
  for (std::int32_t row = 1; row <= codes->UpperBound(1); ++row) {
    const std::int32_t code = CLng(codes->GetValue(row, 0));
    areTones = areTones && code >= 0 && code <= 18;
  }
  if (!areTones) return;
  const ArrayObject again = StringToNumarray(text);
  Require(again->UpperBound(1) == codes->UpperBound(1), "a sequence has another length");
  for (std::int32_t row = 1; row <= again->UpperBound(1); ++row) {
    Require(SameValue(again->GetValue(row, 0), codes->GetValue(row, 0)), "a code changes on its way");
  }
}

void CheckFormat(const std::string& text, const ArrayObject& codes) {
  const ArrayObject stored = FormatCodes(text);
  const std::string shown = FormatText(stored);
  Require(shown.size() == Characters(text) && IsOf(kLetters, shown), "a letter is lost");
  Require(!IsOf(kLetters, text) || shown == text, "a format changes on its way");
  Require(FormatText(FormatCodes(shown)) == shown, "the normal form of a format is none");
  Require(IsOf(kLetters, FormatText(codes)), "what is no letter is shown");
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  FuzzedDataProvider data(bytes, size);
  HostServices::Set(SilentServices());
  const ArrayObject codes = Codes(data);
  const std::string text = data.ConsumeRemainingBytesAsString();
  CheckTones(text);
  CheckCodes(codes);
  CheckFormat(text, codes);
  return 0;
}
