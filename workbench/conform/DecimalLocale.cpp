#include "workbench/conform/DecimalLocale.h"

#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <locale>
#include <stdexcept>

#include "platform/Locale.h"

namespace Conform {
namespace {

constexpr const char* kName = "kd4410-decimal";

/// The category of numbers of a compiled locale of the GNU C library: a magic word, the number of items, the
/// place of each, then the items: decimal symbol and separator of thousands as texts, the grouping, both
/// symbols as characters, the character set.
std::string NumericCategory(char symbol) {
  constexpr std::uint32_t kMagic = 0x20031115U ^ static_cast<std::uint32_t>(LC_NUMERIC);
  constexpr std::uint32_t kItems = 6;
  constexpr std::uint32_t kStart = (2 + kItems) * 4;
  const auto word = [](std::uint32_t number) {
    return std::string(reinterpret_cast<const char*>(&number), 4);
  };
  std::string items = std::string{symbol, '\0'} + std::string(1, '\0') + std::string(1, '\177');
  const std::uint32_t places[kItems] = {0, 2, 3, 4, 8, 12};
  items += word(static_cast<unsigned char>(symbol)) + word(0) + std::string("UTF-8\0", 6);
  std::string file = word(kMagic) + word(kItems);
  for (const std::uint32_t place : places) file += word(kStart + place);
  return file + items;
}

}  // namespace

DecimalLocale::DecimalLocale(char symbol) : symbol_(symbol) {
  const std::string replaced(6, 'X');  // by mkdtemp
  std::string pattern = std::filesystem::temp_directory_path() / ("kd4410-locale-" + replaced);
  if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error(pattern + ": can not be made");
  folder_ = pattern;
  const std::filesystem::path locale = std::filesystem::path(folder_) / kName;
  std::filesystem::create_directory(locale);
  std::ofstream(locale / "LC_NUMERIC", std::ios::binary) << NumericCategory(symbol);
  ::setenv("LOCPATH", folder_.c_str(), 1);
  ::unsetenv("LC_ALL");
  ::setenv("LANG", "C", 1);
  ::setenv("LC_NUMERIC", kName, 1);
  SetDecimalSymbol(symbol);  // the host's own
}

DecimalLocale::~DecimalLocale() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

bool DecimalLocale::IsInForce() const {
  try {
    return std::use_facet<std::numpunct<char>>(std::locale("")).decimal_point() == symbol_;
  } catch (const std::runtime_error&) {
    return false;
  }
}

}  // namespace Conform
