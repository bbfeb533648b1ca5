#include "workbench/conform/Exports.h"

#include <elf.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <iterator>

#include "workbench/files/FileError.h"

namespace Conform {
namespace {

/// A file in memory; what lies outside it is a FileError.
class Image {
 public:
  Image(std::string path, std::string bytes) : path_(std::move(path)), bytes_(std::move(bytes)) {}

  template <typename Entry>
  std::vector<Entry> Entries(std::uint64_t offset, std::uint64_t count) const {
    if (offset > bytes_.size() || count > (bytes_.size() - offset) / sizeof(Entry)) Refuse();
    std::vector<Entry> entries(count);
    if (count > 0) std::memcpy(entries.data(), bytes_.data() + offset, count * sizeof(Entry));
    return entries;
  }
  /// The text that ends with a zero.
  std::string TextAt(std::uint64_t offset) const {
    const std::size_t end = offset < bytes_.size() ? bytes_.find('\0', offset) : std::string::npos;
    if (end == std::string::npos) Refuse();
    return bytes_.substr(offset, end - offset);
  }
  [[noreturn]] void Refuse() const { throw FileError(path_, 0, "load", "not a shared library of 64 bits"); }

 private:
  std::string path_;
  std::string bytes_;
};

bool IsExported(const Elf64_Sym& symbol) {
  const auto binding = ELF64_ST_BIND(symbol.st_info);
  const auto visibility = ELF64_ST_VISIBILITY(symbol.st_other);
  return symbol.st_shndx != SHN_UNDEF && symbol.st_name != 0 && binding != STB_LOCAL &&
         (visibility == STV_DEFAULT || visibility == STV_PROTECTED);
}

}  // namespace

std::vector<std::string> ExportedNames(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  const Image image(path, {std::istreambuf_iterator<char>(file), {}});
  const Elf64_Ehdr header = image.Entries<Elf64_Ehdr>(0, 1).front();
  if (std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0 || header.e_ident[EI_CLASS] != ELFCLASS64) {
    image.Refuse();
  }
  const auto sections = image.Entries<Elf64_Shdr>(header.e_shoff, header.e_shnum);
  std::vector<std::string> names;
  for (const Elf64_Shdr& section : sections) {
    if (section.sh_type != SHT_DYNSYM) continue;
    if (section.sh_link >= sections.size()) image.Refuse();
    const std::uint64_t texts = sections[section.sh_link].sh_offset;
    for (const Elf64_Sym& symbol :
         image.Entries<Elf64_Sym>(section.sh_offset, section.sh_size / sizeof(Elf64_Sym))) {
      if (IsExported(symbol)) names.push_back(image.TextAt(texts + symbol.st_name));
    }
  }
  std::ranges::sort(names);
  return names;
}

}  // namespace Conform
