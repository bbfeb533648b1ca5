#include "radioui/modAudioIO.h"

#include <string>

#include "common/Procedure.h"
#include "platform/Conversions.h"
#include "radioui/modProgIO.h"

namespace modAudioIO {
namespace {
using namespace modProgIO;

constexpr RecordNr kPaths = kAudioPaths.size();

/// One side of a path.
struct Tap {
  std::string_view type, shownType, condition, shownCondition;
};
constexpr Tap kIn = {"59.AudioIOTapInType", "59.TapInType", "59.AudioIOTapInUnmuteCondition",
                     "59.TapInUnmuteCondition"};
constexpr Tap kOut = {"59.AudioIOTapOutType", "59.TapOutType", "59.AudioIOTapOutUnmuteCondition",
                      "59.TapOutUnmuteCondition"};

/// A path without tap out shows what the radio then does, whatever it holds.
std::int32_t ShownOutType(const ProviderRef& provider, RecordNr path) {
  if (CLng(provider.Field("59.AudioIOTapOut").Value(path)) != 0) {
    return CLng(provider.Field(kOut.type).Value(path));
  }
  return path == kReceiverPath ? TapType::kSplit : TapType::kBypassOut;
}

void ShowCondition(const ProviderRef& provider, const Tap& tap, RecordNr path) {
  const std::int32_t condition = CLng(provider.Field(tap.condition).Value(path));
  provider.Field(tap.shownCondition).SetValue(path, GetUnmuteConditionName(condition));
}

void StoreType(const ProviderRef& provider, const Tap& tap, RecordNr path) {
  const std::string type = CStr(provider.Field(tap.shownType).Value(path));
  provider.Field(tap.type).SetValue(path, GetAudioIOTapTypeID(type));
}

void StoreCondition(const ProviderRef& provider, const Tap& tap, RecordNr path) {
  const std::string condition = CStr(provider.Field(tap.shownCondition).Value(path));
  provider.Field(tap.condition).SetValue(path, GetUnmuteConditionID(condition));
}

/// The receiver's path has no microphone.
void StoreMicrophone(const ProviderRef& provider, RecordNr path) {
  const RecordNr ptt = path - 1;
  const Variant source = provider.Field("1096.MicSelect" + std::to_string(ptt)).Value(kOnly);
  provider.Field("59.AudioIOMicSource").SetValue(path, source);
  provider.Field("25.MicSelect").SetValue(ptt, source);
}
}  // namespace

void GetAudioIOMicSources(const ProviderRef& provider) {
  Procedure("GetAudioIOMicSources", [&] {
    const FieldRef labels = provider.Field("59.AudioIOMicLabels");
    RecordNr path = 0;
    for (const std::string_view label : kAudioPaths) labels.SetValue(++path, label);
  });
}

void GetAudioIO(const ProviderRef& provider) {
  Procedure("GetAudioIO", [&] {
    const TableRef paths = provider.Table("59");
    for (RecordNr count = paths.RecordCount(); count > kPaths; --count) paths.DeleteRecord(count);
    for (RecordNr path = 1; path <= kPaths; ++path) {
      const std::int32_t inType = CLng(provider.Field(kIn.type).Value(path));
      provider.Field(kIn.shownType).SetValue(path, GetAudioIOTapTypeName(inType));
      provider.Field(kOut.shownType).SetValue(path, GetAudioIOTapTypeName(ShownOutType(provider, path)));
      ShowCondition(provider, kIn, path);
      ShowCondition(provider, kOut, path);
    }
  });
}

void GetLabelsAndAudioIO(const ProviderRef& provider, std::string_view, RecordNr) {
  GetAudioIOMicSources(provider);
  GetAudioIO(provider);
}

void SetAudioIO(const ProviderRef& provider, std::string_view, RecordNr) {
  Procedure("SetAudioIO", [&] {
    for (RecordNr path = 1; path <= kPaths; ++path) {
      provider.Field("59.AudioIOLabel").SetValue(path, "");
      StoreType(provider, kIn, path);
      StoreType(provider, kOut, path);
      if (path != kReceiverPath) StoreMicrophone(provider, path);
      StoreCondition(provider, kIn, path);
      StoreCondition(provider, kOut, path);
    }
  });
}
}  // namespace modAudioIO
