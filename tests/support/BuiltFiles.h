#pragma once

/// What was built together with the running test executable; each executable is linked with paths of its own.
extern const char* const kTierLibrary;  ///< the plug-in
extern const char* const kWorkbench;    ///< the command line
/// A plug-in that breaks the promise which the environment variable KD4410_BROKEN names, and one that exports
/// more than its entry points.
extern const char* const kBrokenTier;
extern const char* const kTalkativeTier;
