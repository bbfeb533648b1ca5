#include "radioui/modvalPTT.h"

#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/StoredValues.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"

namespace modvalPTT {
namespace {
/// The form fields of one source, and its record in the table of audio paths. Given by the maintainers'
/// reference, like all that ARCHITECTURE lists as given.
struct Source {
  std::string_view transmission, inhibitedOnHook, mic, priority;
  RecordNr audioPath;
  std::string_view withoutTap;  ///< what is wrong when its tap is missing
};
constexpr Source kSources[] = {
    {"PTTTransmissionType1_k6k", "PTTInhibitedByMicOnHook1_k6k", "MicSelect1_k6k", "PTTPriority1_k6k", 2,
     "The PTT audio source is set to 'Audio Tap In' but the programmable I/O Mic PTT tap in is set to "
     "'None'.  You must change the setting for the PTT audio source, or set the programmable I/O Mic PTT tap "
     "in."},
    {"PTTTransmissionType2_k6k", "PTTInhibitedByMicOnHook2_k6k", "MicSelect2_k6k", "PTTPriority2_k6k", 3,
     "The External PTT (1) audio source is set to 'Audio Tap In' but the programmable I/O EPTT1 tap in is "
     "set to 'None'.  You must change the setting for the External PTT (1) audio source, or set the "
     "programmable I/O EPTT1 tap in."},
    {"PTTTransmissionType3_k6k", "PTTInhibitedByMicOnHook3_k6k", "MicSelect3_k6k", "PTTPriority3_k6k", 4,
     "The External PTT (2) audio source is set to 'Audio Tap In' but the programmable I/O EPTT2 tap in is "
     "set to 'None'.  You must change the setting for the External PTT (2) audio source, or set the "
     "programmable I/O EPTT2 tap in."},
};

bool RefuseSamePriority(const ValidatorRef& validator) {
  return Refuse(validator, "The same PTT Priority has been assigned to more than one PTT.");
}

void CheckTap(FinalReport& report, const Source& source) {
  constexpr std::int32_t kNoTap = 0;
  const ProviderRef provider = report.Provider();
  const bool lacksTap = HoldsCode(provider, source.transmission, PTTTransmission::kVoice, kOnly) &&
                        HoldsCode(provider, source.mic, MicSource::kAudioTapIn, kOnly) &&
                        HoldsCode(provider, "AudioIOTapIn", kNoTap, source.audioPath);
  if (lacksTap) report.Refuse({std::string(source.mic), kOnly}, source.withoutTap);
}

void ReloadFieldsOf(FieldEdit& edit) {
  for (const Source& source : kSources) {
    if (!EqualsIgnoringCase(edit.uiid, source.transmission)) continue;
    for (const std::string_view uiid : {source.inhibitedOnHook, source.mic, source.priority}) {
      edit.writes.Reload(uiid);
    }
  }
}
}  // namespace

bool PTTPrioritiesAreUnique(const ValidatorRef& validator) {
  return Procedure("PTTPrioritiesAreUnique", true, [&] {
    const ProviderRef provider = validator.CurrentProvider();
    if (!provider.Field(kSources[0].priority).HasRecord(kOnly)) return true;
    const auto priority = [&](const Source& source) {
      return CLng(provider.Field(source.priority).Value(kOnly));
    };
    const std::int32_t mic = priority(kSources[0]), first = priority(kSources[1]),
                       second = priority(kSources[2]);
    return mic != first && mic != second && first != second;
  });
}

bool ValidatePTTTransmissionType(FieldEdit& edit) {
  return Procedure("ValidatePTTTransmissionType", true, [&] {
    // Whoever talks may share a priority; only who gives up talking is asked for it.
    if (edit.Is(PTTTransmission::kNone) && !PTTPrioritiesAreUnique(edit.validator)) {
      return RefuseSamePriority(edit.validator);
    }
    ReloadFieldsOf(edit);
    return true;
  });
}

bool FormIsValid(const ValidatorRef& validator) {
  return Procedure("FormIsValid", true,
                   [&] { return PTTPrioritiesAreUnique(validator) || RefuseSamePriority(validator); });
}

void CheckMicTap(FinalReport& report) { CheckTap(report, kSources[0]); }
void CheckExternalTap1(FinalReport& report) { CheckTap(report, kSources[1]); }
void CheckExternalTap2(FinalReport& report) { CheckTap(report, kSources[2]); }
}  // namespace modvalPTT
