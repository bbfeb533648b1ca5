#include <algorithm>
#include <cstdint>

#include "fuzz/Invariant.h"
#include "workbench/files/FileError.h"
#include "workbench/personality/PersonalityFile.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"

/// Any bytes as a personality file. What can be read is written, and reads back as the same; what can not is
/// refused with the file, a line of it and a reason.
namespace {
constexpr char kFile[] = "input";

std::shared_ptr<Provider> Parse(std::string_view document) {
  static const std::shared_ptr<const SchemaFiles> schemas = SchemaFiles::Read(SCHEMA_FOLDER);
  return PersonalityFile::Parse(kFile, document, *schemas);
}

void CheckRefusal(const FileError& error, std::string_view document) {
  const auto lines = 1 + std::count(document.begin(), document.end(), '\n');
  Require(error.File() == kFile && !error.Reason().empty(), "a refusal without file or reason");
  Require(error.Line() >= 1 && error.Line() <= lines, std::string("no such line: ") + error.what());
}

std::shared_ptr<Provider> ParseOrRefuse(std::string_view document) {
  try {
    return Parse(document);
  } catch (const FileError& error) {
    CheckRefusal(error, document);
    return nullptr;
  }
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view document(reinterpret_cast<const char*>(data), size);
  const std::shared_ptr<Provider> provider = ParseOrRefuse(document);
  if (provider == nullptr) return 0;
  const std::string written = PersonalityFile::Format(kFile, *provider);
  Require(PersonalityFile::Format(kFile, *Parse(written)) == written, "a round trip changes the file");
  return 0;
}
