#include "workbench/cli/Workplace.h"

#include <chrono>
#include <iostream>
#include <optional>
#include <utility>

#include "workbench/cli/TextTable.h"
#include "workbench/files/FileError.h"
#include "workbench/files/FileStage.h"
#include "workbench/files/Printable.h"
#include "workbench/files/TabbedFile.h"
#include "workbench/host/TierLoader.h"
#include "workbench/jobs/Forms.h"
#include "workbench/personality/PersonalityFile.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/TypedNames.h"

namespace {
constexpr int kJsonFormat = 1;  // counts up when a member goes or means something else
}  // namespace

void Workplace::Emit(Json data) {
  hasEmitted_ = true;
  data.Lead("format", kJsonFormat);
  if (collected_ != nullptr) {
    *collected_ = std::move(data);
  } else {
    data.Print(*out_);
  }
}

void Workplace::TellPeople(std::string_view text) { *out_ << Printable::Lines(text); }

void Workplace::EmitLine(Json data) {
  const bool isFirst = !std::exchange(hasEmitted_, true);
  data.Lead("format", kJsonFormat);
  if (collected_ == nullptr) {
    data.PrintLine(*out_);
    return;
  }
  if (isFirst) *collected_ = Json::List();
  collected_->Add(std::move(data));
}

void Workplace::Tell(std::string_view name, Json list, const TextTable& table) {
  Tell(
      [&] {
        Json data = Json::Object();
        data[name] = std::move(list);
        return data;
      },
      [&](std::ostream& out) { table.Print(out); });
}

AtomicFile Workplace::FileAt(const std::string& path) const {
  return AtomicFile(path, FileLayer::OfSystem(), stage_);
}

AtomicFile Workplace::FileToSave(const std::string& path) const {
  if (AtomicFile::IsStandardInput(path)) {
    throw UsageError("standard input can only be read: name the file that is to be saved");
  }
  AtomicFile file = FileAt(path);
  file.Lock(std::chrono::seconds(options.patience));
  return file;
}

bool Workplace::Save(AtomicFile& file, std::string_view content) {
  file.Write(content);
  if (stage_ == nullptr) NoteSaved(1);
  return stage_ == nullptr;
}

HostParts Workplace::Parts() {
  const std::string folder = FindDataFolder(options.data);
  if (schemas_ == nullptr || folder != schemaFolder_) {
    schemas_ = SchemaFiles::Read(folder + "/schema");
    schemaFolder_ = folder;
  }
  return {schemas_, FindTierLibrary(options.tier), folder, recorder_};
}

Answers Workplace::GivenAnswers() const {
  return options.answer.empty() ? Answers() : Answers::Of(options.answer);
}

std::shared_ptr<RecordingMessenger> Workplace::Messenger() {
  if (messenger_ == nullptr || messengerAnswer_ != options.answer) {
    messenger_ = TerminalMessenger::OnStandardStreams(GivenAnswers());
    messengerAnswer_ = options.answer;
  }
  messenger_->Clear();
  return messenger_;
}

OpenedFile::OpenedFile(Workplace& workplace, const std::string& path,
                       std::shared_ptr<RecordingMessenger> messenger, Purpose purpose, OnDamage onDamage)
    : workplace_(workplace),
      schemas_(workplace.Parts().schemas),
      file_(purpose == Purpose::Save ? workplace.FileToSave(path) : workplace.FileAt(path)),
      stored_(workplace, file_, onDamage, messenger),
      session_(workplace.Parts(), stored_.Content(), std::move(messenger)) {
  session_.SetFileName(file_.Name());
}

OpenedFile::OpenedFile(Workplace& workplace, AtomicFile file, std::shared_ptr<Provider> content,
                       std::shared_ptr<RecordingMessenger> messenger)
    : workplace_(workplace),
      schemas_(workplace.Parts().schemas),
      file_(std::move(file)),
      stored_(std::move(content)),
      session_(workplace.Parts(), stored_.Content(), std::move(messenger)) {
  session_.SetFileName(file_.Name());
}

void OpenedFile::ShowForms() {
  stored_.Opening([&] { session_.ConvertToForms(); });
  const Session::NotTaken& leftOut = session_.LeftOut();
  if (leftOut.first != 0) {
    std::cerr << workplace_.prefix << FileError(file_.Name(), 0, leftOut.where, leftOut.reason).what()
              << '\n';
  }
  const Schema& schema = Content().GetSchema();
  for (const Forms::Current& current : Forms::Currents()) {
    const auto given = workplace_.options.shown.find(current.word);
    if (given == workplace_.options.shown.end() || given->second.empty()) continue;
    const SchemaTable& table = *schema.FindTable(current.tables.front());
    const std::optional<std::int32_t> record = ParseInteger(given->second);
    const RecordNr count = Content().Count(table);
    if (!record || *record < 1 || *record > count) {
      throw UsageError("--" + std::string(current.word) + " " + Printable::Shortened(given->second) +
                       ": there is no such record; table " + std::to_string(table.number) + " (" +
                       table.title + ") has " + std::to_string(count));
    }
    if (!Forms::TurnTo(session_, table.number, *record)) {
      throw UsageError("the tier refuses to show record " + given->second + " of " + table.title);
    }
  }
}

std::string OpenedFile::Document() {
  return PersonalityFile::Format(file_.Name(), *session_.ConvertedToRaw());
}

ComparedPersonality OpenedFile::Reopened(const std::string& document) {
  const std::shared_ptr<Provider> stored = PersonalityFile::Parse(file_.Name(), document, *schemas_);
  return {stored, session_.FormsOf(*stored)};
}
