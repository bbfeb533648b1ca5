#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "workbench/host/TierHost.h"
#include "workbench/jobs/Integrity.h"
#include "workbench/jobs/Session.h"
#include "workbench/store/Journal.h"

class AtomicFile;
class Provider;
class RecordingMessenger;
class SchemaFiles;
class Workplace;

/// What becomes of a file whose content is damaged.
enum class OnDamage {
  Warn,    // a line on standard error: it is read alone
  Refuse,  // a FileError: a save would write what opening makes of the damage
  Repair,  // it is opened and saved before the verb sees it, and that is told
  Leave,   // the verb tells it
};

/// Of the option of the verbs that save.
inline constexpr const char* kRepairAbout =
    "Take a damaged file, too: what opening and saving alone changes is listed apart from the edit";

/// What opening and saving alone makes of a damaged file.
struct Repair {
  std::vector<Change> cells;
  std::vector<const SchemaTable*> laidOutAnew;
  std::vector<Damage> left;
};

/// What a personality file holds, judged before anything is made of it.
class StoredFile {
 public:
  /// Reads the file and does with damage as told.
  StoredFile(Workplace& workplace, AtomicFile& file, OnDamage onDamage,
             const std::shared_ptr<RecordingMessenger>& messenger);
  /// What has no file yet.
  explicit StoredFile(std::shared_ptr<Provider> content) : content_(std::move(content)) {}

  /// As the file holds it, or as its repair has left it.
  const std::shared_ptr<Provider>& Content() const { return content_; }
  /// As it was read.
  const std::string& Document() const { return document_; }
  /// Of the file.
  const std::vector<Damage>& Damages() const { return damages_; }
  /// No value for a sound file, and where no repair was asked for.
  const std::optional<Repair>& Repaired() const { return repair_; }

  /// Carries out what opens the content. Of a file that the tier fails on it makes a FileError, which names
  /// the damage that is the nearest to the fault, else the place of that.
  template <typename Work>
  auto Opening(Work work) const {
    try {
      return work();
    } catch (const TierFault& fault) {
      if (document_.empty()) throw;
      RaiseNotOpened(fault);
    } catch (const ValueError& error) {
      RaiseLocated(error);
    }
  }

 private:
  [[noreturn]] void RaiseNotOpened(const TierFault& fault) const;
  /// With line and path where the value is one of the file.
  [[noreturn]] void RaiseLocated(const ValueError& error) const;
  int LineOf(const PersonalityFile::Place& place) const;
  [[noreturn]] void Refuse() const;
  void Locate();
  std::string WarningText(const std::string& word) const;
  void RepairBy(Workplace& workplace, const std::shared_ptr<RecordingMessenger>& messenger);

  std::string name_;
  std::string document_;
  std::shared_ptr<const SchemaFiles> schemas_;
  std::shared_ptr<Provider> content_;
  std::vector<Damage> damages_;
  std::optional<Repair> repair_;
};
