#pragma once

class VersionStep;

/// The steps between the versions 0054 to 0083. False stops the conversion; the user has been told.
namespace modStepsTo0083 {
bool Up0054To0081(const VersionStep& step);
bool Down0081To0054(const VersionStep& step);
bool Up0081To0082(const VersionStep& step);
bool Down0082To0081(const VersionStep& step);
}  // namespace modStepsTo0083
