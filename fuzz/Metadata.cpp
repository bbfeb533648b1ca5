#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <sstream>

#include "channels/colSubaudible.h"
#include "fuzz/Invariant.h"
#include "platform/Error.h"
#include "ui/colUserFields.h"

/// Any bytes as a data file of the tier. The first byte chooses the file and whether the rest is what lies
/// behind the mark of a scrambled file; else the rest is read plain and, scrambled by us, once more.
namespace {
constexpr std::string_view kScrambledMark = "PCA Set";
constexpr std::uint8_t kIsScrambled = 0x80;

/// A file in memory, with a path.
class MemoryFile {
 public:
  MemoryFile() : path_("/proc/self/fd/" + std::to_string(file_)) {}
  const std::string& Write(std::string_view content) const {
    Require(::ftruncate(file_, 0) == 0, "ftruncate");
    const auto written = ::pwrite(file_, content.data(), content.size(), 0);
    Require(written == static_cast<ssize_t>(content.size()), "pwrite");
    return path_;
  }

 private:
  int file_ = ::memfd_create("data", 0);
  std::string path_;
};

/// The opposite of the tier's unscrambling.
std::string ScrambledLine(std::string_view line) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text;
  std::size_t place = 0;
  for (const char c : line) {
    const std::size_t shifted = (static_cast<unsigned char>(c) + ++place) % 256;
    text += {kDigits[shifted / 16], kDigits[shifted % 16]};
  }
  return text.empty() ? text : text.back() + text.substr(0, text.size() - 1);
}

std::string Scrambled(const std::string& plain) {
  std::istringstream lines(plain);
  std::string text = std::string(kScrambledMark) + "\r\n";
  for (std::string line; std::getline(lines, line);) {
    if (line.ends_with('\r')) line.pop_back();
    text += ScrambledLine(line) + "\r\n";
  }
  return text;
}

std::string ContentOf(const colUserFields& fields) {
  std::ostringstream text;
  for (const clsUserField& field : fields) {
    Require(fields.Exists(field.UIID) || field.UIID.empty(), "a field is not found by its UIID");
    text << field.UIID << '\t' << field.Label << '\t' << field.HelpID << '\t' << field.Units << '\t'
         << field.UIWidth << '\t' << field.FactAccessLevel << '\t' << field.FactButCustVis << '\t'
         << field.CustAccessLevel << '\t' << field.ATGridID << '\t' << field.DecimalSymbol << '\t'
         << field.NavLabel << '\n';
  }
  return text.str();
}

std::string ContentOf(const colSubaudible& codes) {
  std::string text;
  for (const std::string& value : codes.NewEnum()) {
    if (!value.empty()) text += value + '\t' + std::to_string(codes.Encode(value)) + '\n';  // "" is no key
  }
  return text;
}

/// What the file holds, or the number of the error that it gives.
template <typename Table>
std::string Read(const std::string& path) {
  Table table;
  try {
    Require(table.ReadInDataFromTextFile(path), "no error and no success");
  } catch (const Error& error) {
    Require(std::string_view(error.what()).find(path) != std::string_view::npos, "an error without its file");
    constexpr std::array kNumbers = {ErrorNumber::kOverflow, ErrorNumber::kSubscript,
                                     ErrorNumber::kTypeMismatch, ErrorNumber::kFileNotFound,
                                     ErrorNumber::kDoubleKey};
    const bool isKnown = std::find(kNumbers.begin(), kNumbers.end(), error.Number()) != kNumbers.end();
    Require(isKnown, "error " + std::to_string(error.Number()) + ": " + error.what());
    return "error " + std::to_string(error.Number());
  }
  return ContentOf(table);
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const MemoryFile file;
  if (size == 0) return 0;
  constexpr std::array kReaders = {Read<colUserFields>, Read<colCTCSS>, Read<colDCS>};
  const auto read = kReaders[data[0] % kReaders.size()];
  const std::string rest(reinterpret_cast<const char*>(data + 1), size - 1);
  if ((data[0] & kIsScrambled) != 0) {
    read(file.Write(std::string(kScrambledMark) + "\n" + rest));
  } else {
    const std::string plain = read(file.Write(rest));
    const bool isScrambled = rest.starts_with(kScrambledMark);
    Require(isScrambled || read(file.Write(Scrambled(rest))) == plain, "scrambled and plain differ");
  }
  return 0;
}
