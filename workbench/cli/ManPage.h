#pragma once

#include <string>

#include "workbench/cli/Manual.h"

/// The manual page kd4410(1), in the language of man.
std::string ManPageOf(const Manual& manual);
