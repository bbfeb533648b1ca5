#include "workbench/trace/TraceReader.h"

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "workbench/files/FileError.h"
#include "workbench/trace/Recorder.h"

namespace Trace {

TraceReader::TraceReader(std::string path) : path_(std::move(path)), file_(path_, std::ios::binary) {
  if (!file_) throw FileError(path_, 0, "trace", std::strerror(errno));
  if (std::filesystem::is_directory(path_)) throw FileError(path_, 0, "trace", "is a folder");
}

const Json* TraceReader::Peek() {
  if (!next_.is_null()) return &next_;
  std::string text;
  if (!std::getline(file_, text)) return nullptr;
  Json line = Json::parse(text, nullptr, false);
  const bool isCut = file_.eof() && line.is_discarded();
  if (isCut) return nullptr;
  if (!line.is_object()) throw FileError(path_, taken_ + 1, "trace", "the line is no JSON object");
  if (MayNameFolders(line)) ReplaceFolder(line, kApplicationFolder, folder_);
  next_ = std::move(line);
  return &next_;
}

Json TraceReader::Take() {
  Json line = std::move(next_);
  next_ = nullptr;
  ++taken_;
  return line;
}

}  // namespace Trace
