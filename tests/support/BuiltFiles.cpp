#include "tests/support/BuiltFiles.h"

// The build gives them, for each executable anew.
const char* const kTierLibrary = TIER_LIBRARY;
const char* const kWorkbench = WORKBENCH;
const char* const kBrokenTier = BROKEN_TIER;
const char* const kTalkativeTier = TALKATIVE_TIER;
