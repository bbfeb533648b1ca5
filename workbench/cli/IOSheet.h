#pragma once

#include <string_view>

class Session;
class Workplace;

/// The programmable I/O as a technician reads it: the digital lines, those of flow control, the parameters of
/// the actions in use, the audio paths. The session is on its forms.
namespace IOSheet {

inline constexpr std::string_view kName = "io";
void Show(Session& session, Workplace& workplace);

}  // namespace IOSheet
