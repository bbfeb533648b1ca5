#pragma once

class VersionStep;

/// The steps from version 0087 on, of all three models. False stops the conversion; the user has been told.
namespace modStepsFrom0087 {
bool Up0087To0088(const VersionStep& step);
bool Down0088To0087(const VersionStep& step);
bool Up0088To0089(const VersionStep& step);
bool Down0089To0088(const VersionStep& step);
bool Up0089To0090(const VersionStep& step);
bool Down0090To0089(const VersionStep& step);
bool Down0091To0090(const VersionStep& step);
bool Up0091To0093(const VersionStep& step);
bool Down0093To0091(const VersionStep& step);
bool Up0093To0094(const VersionStep& step);
bool Down0094To0093(const VersionStep& step);
}  // namespace modStepsFrom0087
