#include "workbench/cli/StoredFile.h"

#include <algorithm>
#include <iostream>

#include "workbench/cli/Workplace.h"
#include "workbench/files/AtomicFile.h"
#include "workbench/files/FileError.h"
#include "workbench/files/Printable.h"
#include "workbench/jobs/FiledEdit.h"
#include "workbench/personality/PersonalityFile.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/ValueText.h"

namespace {

std::string CountOf(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " finding" : " findings");
}

/// The damage itself: its value, and what is wrong.
std::string ReasonOf(const Damage& damage) {
  return (damage.place.field == nullptr ? "" : Printable::Quoted(ValueText::Of(damage.value)) + ": ") +
         damage.text;
}

FileError ErrorOf(const std::string& file, const Damage& damage, const std::string& more) {
  return {file, damage.line, damage.place.Path(), ReasonOf(damage) + more};
}

}  // namespace

StoredFile::StoredFile(Workplace& workplace, AtomicFile& file, OnDamage onDamage,
                       const std::shared_ptr<RecordingMessenger>& messenger)
    : name_(file.Name()),
      document_(file.Read()),
      schemas_(workplace.Parts().schemas),
      content_(PersonalityFile::Parse(name_, document_, *schemas_)),
      damages_(DamagesOf(*content_)) {
  content_->SetFactoryMode(workplace.options.factory);
  if (damages_.empty()) return;
  Locate();
  workplace.damaged = std::make_shared<const FileError>(ErrorOf(name_, damages_.front(), ""));
  if (onDamage == OnDamage::Warn) std::cerr << workplace.prefix << WarningText(file.Word()) << '\n';
  if (onDamage == OnDamage::Refuse) Refuse();
  if (onDamage == OnDamage::Repair) RepairBy(workplace, messenger);
}

void StoredFile::Locate() {
  std::vector<PersonalityFile::Place> places;
  for (const Damage& damage : damages_) places.push_back(damage.place);
  const std::vector<int> lines = PersonalityFile::LinesOf(name_, document_, *schemas_, places);
  for (std::size_t i = 0; i < lines.size(); ++i) damages_[i].line = lines[i];
}

std::string StoredFile::WarningText(const std::string& word) const {
  const Damage& first = damages_.front();
  return Printable::Text(name_) + ": damaged: " + CountOf(damages_.size()) + ", the first at line " +
         std::to_string(first.line) + ", " + first.place.Path() + "; see kd4410 check " +
         Printable::Text(word);
}

void StoredFile::Refuse() const {
  constexpr std::size_t kNamed = 3;
  std::string more;
  for (std::size_t i = 1; i < std::min(damages_.size(), kNamed); ++i) {
    const Damage& damage = damages_[i];
    more += "; line " + std::to_string(damage.line) + ": " + damage.place.Path() + ": " + ReasonOf(damage);
  }
  if (damages_.size() > kNamed) more += "; and " + CountOf(damages_.size() - kNamed) + " more";
  throw ErrorOf(
      name_, damages_.front(),
      more +
          "; a save writes what opening makes of such a file: --repair has it do so and lists what that "
          "mends and what stays damaged, as kd4410 check tells before");
}

void StoredFile::RaiseNotOpened(const TierFault& fault) const {
  const auto* conversion = dynamic_cast<const ConversionFault*>(&fault);
  const std::string reason =
      "the tier can not open the file: " + (conversion == nullptr ? fault.what() : conversion->Reason());
  if (damages_.empty() && conversion == nullptr) throw FileError(name_, 0, "", reason);
  if (damages_.empty()) {
    PersonalityFile::Place place = conversion->Where();
    if (!place.field->IsRaw()) place.field = nullptr;
    if (!place.table->IsRaw()) throw FileError(name_, 0, "", reason);
    throw FileError(name_, LineOf(place), place.Path(), reason);
  }
  const auto isNear = [&](const Damage& damage) {
    return conversion != nullptr && damage.place.table == conversion->Where().table &&
           damage.place.record == conversion->Where().record;
  };
  const auto near = std::ranges::find_if(damages_, isNear);
  throw ErrorOf(name_, near == damages_.end() ? damages_.front() : *near, "; " + reason);
}

void StoredFile::RaiseLocated(const ValueError& error) const {
  if (document_.empty() || !error.Place().field->IsRaw()) throw error;
  throw FileError(name_, LineOf(error.Place()), error.Place().Path(), error.Reason());
}

int StoredFile::LineOf(const PersonalityFile::Place& place) const {
  return PersonalityFile::LinesOf(name_, document_, *schemas_, {&place, 1}).front();
}

void StoredFile::RepairBy(Workplace& workplace, const std::shared_ptr<RecordingMessenger>& messenger) {
  const std::shared_ptr<Provider> forms = content_->Copy();
  Session session(workplace.Parts(), forms, messenger);
  session.SetFileName(name_);
  const auto saved = Opening([&] {
    session.ConvertToForms();
    return session.ConvertedToRaw();
  });
  const std::shared_ptr<Provider> repaired =
      PersonalityFile::Parse(name_, PersonalityFile::Format(name_, *saved), *schemas_);
  repaired->SetFactoryMode(workplace.options.factory);
  repair_ =
      Repair{ChangedCells(*content_, *repaired), LaidOutAnew(*content_, *repaired), DamagesOf(*repaired)};
  content_ = repaired;
  if (repair_->left.empty()) workplace.damaged = nullptr;
}
