#pragma once

#include <string>
#include <string_view>

/// Texts as a terminal may get them: whatever a file, a name or a user holds, it moves no cursor, turns no
/// line round and looks like what it is. Control characters, bytes that are no UTF-8 and the characters that
/// change the direction of a line are shown by their codes ("\x1B", "\u202E"), line breaks and tabs as "\n",
/// "\r" and "\t".
namespace Printable {

/// On one line.
std::string Text(std::string_view text);
/// Its line breaks stay.
std::string Lines(std::string_view text);
/// On one line, for a message; of a text that is longer than a message its beginning and "... (1000
/// characters)".
std::string Shortened(std::string_view text);
/// Shortened, between quotes.
std::string Quoted(std::string_view text);

}  // namespace Printable
