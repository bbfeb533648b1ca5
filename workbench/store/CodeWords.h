#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

/// Words for the codes of fields whose lists are the same for all radios: a word's place is its code.
namespace CodeWords {

/// None for a field without words.
std::span<const std::string_view> Of(std::string_view uiid);
/// A value of the field by its word; one that has none as it is.
std::string Worded(std::string_view uiid, std::string text);
/// The code of a word of the field, whatever its case.
std::optional<std::int32_t> CodeOf(std::string_view uiid, std::string_view word);

}  // namespace CodeWords
