#include <array>
#include <cstdint>
#include <fstream>
#include <iterator>

#include "fuzz/Invariant.h"
#include "workbench/conform/RandomCalls.h"
#include "workbench/host/Messengers.h"
#include "workbench/host/TierLoader.h"
#include "workbench/jobs/Session.h"
#include "workbench/personality/PersonalityFile.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"

/// A session of legal and illegal calls on the built plug-in, as the input chooses them. The first byte
/// chooses the personality.
namespace {
constexpr int kMostSteps = 30;
constexpr std::uint8_t kIsFull = 0x80;

const HostParts& Parts() {
  static const HostParts parts{SchemaFiles::Read(SCHEMA_FOLDER), TIER_LIBRARY, DATA_FOLDER};
  return parts;
}

std::shared_ptr<Provider> OnForms(const std::string& sample) {
  const std::string path = std::string(SAMPLES_FOLDER) + "/" + sample;
  std::ifstream file(path, std::ios::binary);
  const std::string document{std::istreambuf_iterator<char>(file), {}};
  const auto content = PersonalityFile::Parse(path, document, *Parts().schemas);
  Session session(Parts(), content, std::make_shared<RecordingMessenger>());
  session.ConvertToForms();
  return content;
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const auto library = TierLibrary::Load(TIER_LIBRARY);  // stays loaded: the fuzzer holds its counters
  static const std::array samples = {OnForms("minimal.json"), OnForms("full.json")};
  if (size == 0) return 0;
  Choices choices(std::span(data + 1, size - 1));
  const RandomSession session =
      RunRandomCalls(Parts(), *samples[(data[0] & kIsFull) != 0 ? 1 : 0], choices, kMostSteps);
  Require(session.trouble.empty(), '\n' + session.Text());
  return 0;
}
