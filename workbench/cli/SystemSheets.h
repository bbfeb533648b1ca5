#pragma once

#include <string_view>
#include <vector>

#include "platform/Types.h"

class Session;
class Workplace;

/// The systems of DTMF, of two tones and of MDC1200 as a technician reads them: what they send and decode, in
/// hertz and milliseconds, and who uses them.
namespace SystemSheets {

/// "dtmf", "two-tone", "mdc1200"
std::vector<std::string_view> Kinds();
bool IsKind(std::string_view what);
/// Of a kind: one system by its record, all for 0; `all` with presets that are empty. A record that is not
/// there is a UsageError. The session is on its forms.
void Show(std::string_view what, RecordNr system, bool all, Session& session, Workplace& workplace);

}  // namespace SystemSheets
