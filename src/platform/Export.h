#pragma once

/// Marks what the shared library shows to the world; all else stays hidden.
#define KD4410_EXPORT __attribute__((visibility("default")))
