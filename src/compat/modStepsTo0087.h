#pragma once

class VersionStep;

/// The steps between the versions 0083 to 0087. False stops the conversion; the user has been told.
namespace modStepsTo0087 {
bool Down0084To0083(const VersionStep& step);
bool Down0085To0084(const VersionStep& step);
bool Up0085To0086(const VersionStep& step);
bool Down0086To0085(const VersionStep& step);
}  // namespace modStepsTo0087
