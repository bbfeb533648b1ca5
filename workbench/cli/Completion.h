#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/cli/Manual.h"
#include "workbench/cli/Words.h"

/// Scripts by which a shell completes the words of kd4410: commands, their options, and what each word is by
/// its kind, files and UIIDs among them. The UIIDs are asked of the program (kd4410 fields --names).
namespace Completion {

inline constexpr std::array<std::string_view, 3> kShells = {"bash", "zsh", "fish"};

/// For one of kShells.
std::string ScriptFor(std::string_view shell, const Manual& manual);

// For each shell.

std::string ForBash(const Manual& manual);
std::string ForZsh(const Manual& manual);
std::string ForFish(const Manual& manual);

/// What a shell may offer for a word.
struct Offer {
  bool files = false, folders = false;
  bool fields = false;  ///< the UIIDs
  bool commands = false;
  std::vector<std::string> words = {};
};
Offer OfferFor(const Manual& manual, const Word& word);
/// Whether another command begins with the word.
bool IsNested(const Word& word);
/// "--help" and "-h" of "-h,--help", the long one first.
std::vector<std::string> NamesOf(const Word& option);
/// The text with `escape` before each of those characters.
std::string Escaped(std::string_view text, std::string_view characters, std::string_view escape);
/// As one word of bash or zsh.
std::string Quoted(std::string_view text);

}  // namespace Completion
