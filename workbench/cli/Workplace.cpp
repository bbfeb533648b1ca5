#include "workbench/cli/Workplace.h"

#include <ostream>

#include "workbench/cli/TextTable.h"
#include "workbench/host/TierLoader.h"
#include "workbench/personality/PersonalityFile.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"

namespace {

std::shared_ptr<Provider> ReadContent(AtomicFile& file, const SchemaFiles& schemas, bool factoryMode) {
  auto content = PersonalityFile::Parse(file.Name(), file.Read(), schemas);
  content->SetFactoryMode(factoryMode);
  return content;
}

}  // namespace

void Workplace::Emit(Json data) {
  if (collected_ != nullptr) {
    *collected_ = std::move(data);
  } else {
    data.Print(*out_);
  }
}

void Workplace::Tell(Json list, const TextTable& table) {
  Tell([&] { return std::move(list); }, [&](std::ostream& out) { table.Print(out); });
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
                       std::shared_ptr<RecordingMessenger> messenger)
    : schemas_(workplace.Parts().schemas),
      file_(path),
      session_(workplace.Parts(), ReadContent(file_, *schemas_, workplace.options.factory),
               std::move(messenger)) {
  session_.SetFileName(file_.Name());
}

OpenedFile::OpenedFile(Workplace& workplace, AtomicFile file, std::shared_ptr<Provider> content,
                       std::shared_ptr<RecordingMessenger> messenger)
    : schemas_(workplace.Parts().schemas),
      file_(std::move(file)),
      session_(workplace.Parts(), std::move(content), std::move(messenger)) {
  session_.SetFileName(file_.Name());
}

std::string OpenedFile::Document() {
  return PersonalityFile::Format(file_.Name(), *session_.ConvertedToRaw());
}

ComparedPersonality OpenedFile::Reopened(const std::string& document) {
  const std::shared_ptr<Provider> stored = PersonalityFile::Parse(file_.Name(), document, *schemas_);
  return {stored, session_.FormsOf(*stored)};
}
