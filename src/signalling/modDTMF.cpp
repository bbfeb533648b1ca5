#include "signalling/modDTMF.h"

#include <algorithm>
#include <string>

#include "platform/Conversions.h"
#include "selcall/modSelcallMapping.h"
#include "tier/Procedure.h"

namespace modDTMF {
namespace {
std::string WithReplaced(std::string text, char first, char firstBecomes, char second, char secondBecomes) {
  std::replace(text.begin(), text.end(), first, firstBecomes);
  std::replace(text.begin(), text.end(), second, secondBecomes);
  return text;
}

std::string ToForm(std::string tones) { return WithReplaced(std::move(tones), 'F', '*', 'E', '#'); }
std::string FromForm(std::string keys) { return WithReplaced(std::move(keys), '*', 'F', '#', 'E'); }
}  // namespace

void GetChannelPreset(const ProviderRef& provider, std::string_view, RecordNr) {
  Procedure("GetChannelPreset", [&] {
    const FieldRef raw = provider.Field("65.DTMFChannelPresetSequence");
    const FieldRef form = provider.Field("65.DTMFChannelPresetSequenceUI");
    const FieldRef sortOrder = provider.Field("65.SortOrder");
    for (const RecordNr preset : raw.Records()) {
      form.SetValue(preset, ToForm(modSelcallMapping::NumarrayToString(raw.Value(preset))));
      sortOrder.SetValue(preset, preset);
    }
  });
}

void SetChannelPreset(const ProviderRef& provider, std::string_view, RecordNr) {
  Procedure("SetChannelPreset", [&] {
    const FieldRef raw = provider.Field("65.DTMFChannelPresetSequence");
    const FieldRef form = provider.Field("65.DTMFChannelPresetSequenceUI");
    for (const RecordNr preset : form.Records()) {
      raw.SetValue(preset, modSelcallMapping::StringToNumarray(FromForm(CStr(form.Value(preset)))));
    }
  });
}
}  // namespace modDTMF
