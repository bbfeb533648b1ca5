#pragma once

#include <string_view>

class Session;
class Workplace;

/// What the radio sounds, as a technician reads it: which indicators sound, the cadences of the calls, and
/// how each network alerts of them.
namespace SoundSheet {

inline constexpr std::string_view kName = "sounds";
/// The session is on its forms.
void Show(const Session& session, Workplace& workplace);

}  // namespace SoundSheet
