#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>

#include "workbench/cli/Json.h"
#include "workbench/cli/StoredFile.h"
#include "workbench/files/AtomicFile.h"
#include "workbench/host/Messengers.h"
#include "workbench/jobs/Session.h"
#include "workbench/store/RecordKeys.h"

class TextTable;

/// How a command ends. Of several commands the highest counts.
enum class ExitCode : int {
  Done = 0,
  No = 1,        // refused, findings
  CouldNot = 2,  // wrong use, a file that can not be used, nothing to work on
  Fault = 3,     // a fault of the tier
};

/// The options that every command has.
struct Options {
  bool json = false;
  std::string tier;
  std::string data;
  std::string answer;
  bool factory = false;
  std::int64_t patience = 5;  ///< seconds that a command waits for a file that another process is saving
  std::map<std::string_view, std::string>
      shown;  ///< the record that the forms show, by the words of Forms::Currents
};

/// What the commands of one process share: options, output and what is costly to make twice.
class Workplace {
 public:
  explicit Workplace(std::ostream& out) : out_(&out) {}

  Options options;
  std::string prefix;  ///< of each message on standard error
  /// The first damage of a file that the command in hand has read; null for none. A fault of the tier is then
  /// the file's.
  std::shared_ptr<const FileError> damaged;

  /// Data for people. With --json a command calls Emit instead, once.
  std::ostream& Out() const { return *out_; }
  /// Prints an object, whose first member tells the format of all that is emitted.
  void Emit(Json data);
  /// The same for one of many files: each on a line of its own.
  void EmitLine(Json data);
  /// Whether the command under way has printed its object; one that starts has not.
  bool HasEmitted() const { return hasEmitted_; }
  void StartCommand() {
    hasEmitted_ = false;
    damaged = nullptr;
  }
  /// The data as the user wants them: what `makeJson` returns, or what `print` writes to the stream that it
  /// is handed, of which no control character comes out but line breaks.
  template <typename MakeJson, typename Print>
  void Tell(MakeJson makeJson, Print print) {
    if (options.json) {
      Emit(makeJson());
    } else {
      std::ostringstream text;
      print(text);
      TellPeople(text.str());
    }
  }
  /// A list by its name, and the table of the same rows.
  void Tell(std::string_view name, Json list, const TextTable& table);
  /// What is emitted from now on is kept, that of many files as a list; `CollectNothing` goes back to
  /// printing.
  void CollectIn(Json& data) { collected_ = &data; }
  void CollectNothing() { collected_ = nullptr; }

  /// A file that the user names, to be read.
  AtomicFile FileAt(const std::string& path) const;
  /// One that is to be saved: it is kept from other processes as long as it lives. A UsageError for standard
  /// input.
  AtomicFile FileToSave(const std::string& path) const;
  /// Writes it, or leaves it to the stage. False for the latter.
  bool Save(AtomicFile& file, std::string_view content);
  /// What is saved from now on goes there, all or nothing; null: to the files.
  void StageIn(FileStage* stage) { stage_ = stage; }
  void NoteSaved(std::size_t files) { saved_ += files; }
  /// How many files have been saved by all commands.
  std::size_t SavedCount() const { return saved_; }

  /// The file that the word FILE stands for in a script; empty for none.
  std::string fileMeant;

  /// From now on every tier that is opened is recorded; null: none is.
  void RecordBy(std::shared_ptr<Trace::Recorder> recorder) { recorder_ = std::move(recorder); }
  bool IsRecorded() const { return recorder_ != nullptr; }

  HostParts Parts();
  const SchemaFiles& Schemas() { return *Parts().schemas; }
  Answers GivenAnswers() const;
  /// Prints messages on standard error. The same for all commands, so that answers go on in turn.
  std::shared_ptr<RecordingMessenger> Messenger();

 private:
  void TellPeople(std::string_view text);

  std::ostream* out_;
  Json* collected_ = nullptr;
  bool hasEmitted_ = false;
  FileStage* stage_ = nullptr;
  std::size_t saved_ = 0;
  std::shared_ptr<Trace::Recorder> recorder_;
  std::string schemaFolder_;
  std::shared_ptr<const SchemaFiles> schemas_;
  std::string messengerAnswer_;
  std::shared_ptr<RecordingMessenger> messenger_;
};

/// What a command is going to do with a personality file.
enum class Purpose { Read, Save };

/// A personality file and the session that works on its content.
class OpenedFile {
 public:
  /// Reads the file; the content is as the file holds it until it is converted for the forms.
  OpenedFile(Workplace& workplace, const std::string& path, std::shared_ptr<RecordingMessenger> messenger,
             Purpose purpose = Purpose::Read, OnDamage onDamage = OnDamage::Warn);
  /// Content that is to go into the file.
  OpenedFile(Workplace& workplace, AtomicFile file, std::shared_ptr<Provider> content,
             std::shared_ptr<RecordingMessenger> messenger);

  /// The document that a save writes.
  std::string Document();
  /// What a session finds that opens the document instead of the file.
  ComparedPersonality Reopened(const std::string& document);
  /// False when the file is written later, with the others of a script.
  bool Save() { return Save(Document()); }
  bool Save(const std::string& document) { return workplace_.Save(file_, document); }

  /// What follows the opening: the content as the forms show it, turned to the records that the options name.
  /// What the forms did not take of the file is told on standard error. A UsageError for a record that is not
  /// there. A file that the tier fails on is a FileError.
  void ShowForms();

  const StoredFile& Stored() const { return stored_; }
  Session& GetSession() { return session_; }
  Provider& Content() { return session_.Content(); }

 private:
  Workplace& workplace_;
  std::shared_ptr<const SchemaFiles> schemas_;
  AtomicFile file_;
  StoredFile stored_;
  Session session_;
};
