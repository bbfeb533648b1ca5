#include "workbench/files/JsonReading.h"

#include <algorithm>

#include "workbench/files/Printable.h"

namespace {
std::string_view WithoutPosition(std::string_view message) {
  for (const std::string_view mark : {"column ", "at line "}) {
    const auto place = message.find(mark);
    const auto colon = message.find(": ", place == std::string_view::npos ? 0 : place);
    if (place != std::string_view::npos && colon != std::string_view::npos) {
      return message.substr(colon + 2);
    }
  }
  const auto bracket = message.find("] ");
  return bracket == std::string_view::npos ? message : message.substr(bracket + 2);
}
}  // namespace

int LineReached(std::string_view document, const char* reached) {
  const char* last = reached == document.data() ? reached : reached - 1;
  return 1 + static_cast<int>(std::count(document.data(), last, '\n'));
}

std::string ReadableJsonError(std::string_view message) {
  return Printable::Shortened(WithoutPosition(message));  // it repeats what was read
}
