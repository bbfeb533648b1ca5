#include "workbench/files/FileStage.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <utility>

#include "workbench/files/FileError.h"

namespace {
std::string StagedPlace(const std::string& path) {
  std::error_code ignored;
  const std::filesystem::path place = std::filesystem::weakly_canonical(path, ignored);
  return place.empty() ? path : place.string();
}
}  // namespace

const std::string* FileStage::ContentOf(const std::string& path) const {
  const auto entry = std::ranges::find(entries_, StagedPlace(path), &Entry::place);
  return entry == entries_.end() || !entry->content ? nullptr : &*entry->content;
}

FileStage::Entry& FileStage::EntryOf(const AtomicFile& file) {
  std::string place = StagedPlace(file.path_);
  const auto known = std::ranges::find(entries_, place, &Entry::place);
  if (known != entries_.end()) return *known;
  return entries_.emplace_back(Entry{std::move(place), file.Unstaged(), {}});
}

void FileStage::Lock(const AtomicFile& file, std::chrono::milliseconds patience) {
  AtomicFile& staged = EntryOf(file).file;
  if (!staged.IsLocked()) staged.Lock(patience);
}

std::vector<std::string> FileStage::Publish() {
  std::vector<std::pair<AtomicFile*, std::shared_ptr<AtomicFile::SideFile>>> ready;
  for (Entry& entry : entries_) {
    if (entry.content) ready.emplace_back(&entry.file, entry.file.WriteBeside(*entry.content));
  }
  for (const auto& [file, side] : ready) file->RefuseIfChanged();
  std::vector<std::string> written;
  for (const auto& [file, side] : ready) {
    try {
      file->Replace(*side);
    } catch (const FileError& error) {
      std::string saved;
      for (const std::string& name : written) saved += (saved.empty() ? "; saved before it: " : ", ") + name;
      throw FileError(error.File(), error.Line(), error.Where(), error.Reason() + saved);
    }
    written.push_back(file->Name());
  }
  return written;
}
