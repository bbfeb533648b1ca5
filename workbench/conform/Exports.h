#pragma once

#include <string>
#include <vector>

namespace Conform {

/// The names that a shared library (ELF, 64 bits) defines for others, sorted. Throws a FileError for a file
/// that is none.
std::vector<std::string> ExportedNames(const std::string& path);

}  // namespace Conform
