#pragma once

class VersionStep;

/// The steps between the versions 0029 to 0054. False stops the conversion; the user has been told.
namespace modStepsTo0054 {
bool Up0029To0051(const VersionStep& step);
bool Down0051To0029(const VersionStep& step);
bool Up0051To0052(const VersionStep& step);
bool Down0052To0051(const VersionStep& step);
bool Up0053To0054(const VersionStep& step);
bool Down0054To0053(const VersionStep& step);
}  // namespace modStepsTo0054
