#pragma once

#include <cstddef>
#include <string>

#include "workbench/cli/Manual.h"

/// The help as a terminal of that width shows it.
namespace HelpText {

/// The program: its commands, a line each, and the options that all of them take.
std::string Of(const Manual& manual, std::size_t width);
/// A command: its words, its options, those of all commands by their names, examples.
std::string Of(const Manual& manual, const Manual::Command& command, std::size_t width);
/// Both, of all commands.
std::string OfAll(const Manual& manual, std::size_t width);

/// "[OPTIONS] FILE [RECORD]"
std::string UsageOf(const Manual::Command& command);
/// "--out FILE"
std::string NameOf(const Word& word);

}  // namespace HelpText
