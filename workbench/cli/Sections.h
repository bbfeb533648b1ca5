#pragma once

#include <string_view>
#include <vector>

/// What `show` shows beside tables, by the words of the command line.
std::vector<std::string_view> ShownSections();
