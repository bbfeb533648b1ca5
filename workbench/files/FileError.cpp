#include "workbench/files/FileError.h"

std::string FileError::Text(const std::string& file, int line, const std::string& where,
                            const std::string& reason) {
  std::string text = file;
  if (line > 0) text.append(":").append(std::to_string(line));
  if (!text.empty()) text.append(": ");
  if (!where.empty()) text.append(where).append(": ");
  return text.append(reason);
}
