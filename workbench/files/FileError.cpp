#include "workbench/files/FileError.h"

#include "workbench/files/Printable.h"

std::string FileError::Text(const std::string& file, int line, const std::string& where,
                            const std::string& reason) {
  std::string text = Printable::Text(file);
  if (line > 0) text.append(":").append(std::to_string(line));
  if (!text.empty()) text.append(": ");
  if (!where.empty()) text.append(Printable::Shortened(where)).append(": ");
  return text.append(Printable::Text(reason));
}
