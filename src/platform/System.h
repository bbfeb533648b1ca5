#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// What the tier asks of the operating system itself.
namespace System {
/// A message box where no host serves one: the text goes to standard error, the answer is OK (1).
std::int32_t ShowMessageBox(std::string_view text, std::int32_t style, std::string_view title);

/// The full path of the file that holds this library's code, and its folder.
std::string LibraryPath();
std::string LibraryFolder();

/// The file by which a host finds the library, in the folder that the environment names
/// (KD4410_REGISTRATION_DIR), else in the user's data folder. Empty when neither is known.
std::string RegistrationFile();

/// The folder and name joined by the platform's separator.
std::string PathIn(std::string_view folder, std::string_view name);
}  // namespace System
