#include "workbench/jobs/Session.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "platform/Conversions.h"
#include "workbench/files/FileError.h"
#include "workbench/files/Printable.h"
#include "workbench/jobs/Control.h"
#include "workbench/jobs/Forms.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/ValueText.h"

namespace {
/// The radio may hold a number that the form shows and that ends the application on its way back; the base
/// set of a user's tones is as much of that way as their own number.
constexpr std::string_view kNotAllComeBack[] = {"48.DerivedSelcallToneSet", "48.BasedOnToneSet"};

bool ComesBack(const Provider& content, const SchemaField& field, RecordNr record) {
  const Variant& value = content.Get(field, record);
  return IsNumeric(value) && LimitsOf(field).Hold(CDbl(value));
}

PersonalityFile::Place PlaceOf(const Provider& content, const SchemaField& field, RecordNr record) {
  return {&content.GetSchema().TableOf(field), record, &field};
}

void RequireConvertible(const Provider& content, const std::string& fileName) {
  for (const std::string_view name : kNotAllComeBack) {
    const SchemaField& field = content.FieldOf(name);
    for (RecordNr record = 1; record <= content.Count(field.table); ++record) {
      if (ComesBack(content, field, record)) continue;
      throw ValueError(fileName, field.CommonName(), PlaceOf(content, field, record),
                       Printable::Quoted(CStr(content.Get(field, record))) +
                           " is shown but can not be saved, which takes " + CStr(field.minimum) + " to " +
                           CStr(field.maximum));
    }
  }
}

/// A digital line has a row on the forms by its pin. The tier takes an input without one for a fault of its
/// own, and a save loses an output without one. Pins 22 to 24 are inputs only.
struct Line {
  const char *pin, *use;  ///< an unused line has 0 there, and may have no pin
  std::int32_t firstPin;
  const char* refusal;
};
constexpr Line kLines[] = {
    {"55.DigitalIOInputPinID", "55.DigitalIOInputDirection", 22, "is no pin, and the line has a direction"},
    {"56.DigitalIOOutputPinID", "56.DigitalIOOutputAction", 25,
     "is no pin for an output, and it has an action"},
};

void RequirePins(const Provider& content, const std::string& fileName) {
  constexpr std::int32_t kLastPin = 36;
  for (const Line& line : kLines) {
    const SchemaField& pin = content.FieldOf(line.pin);
    const SchemaField& use = content.FieldOf(line.use);
    for (RecordNr record = 1; record <= content.Count(pin.table); ++record) {
      const Variant& id = content.Get(pin, record);
      const bool isPin = IsNumeric(id) && CDbl(id) >= line.firstPin && CDbl(id) <= kLastPin;
      if (isPin || IsCode(content.Get(use, record), 0)) continue;
      throw ValueError(fileName, pin.id, PlaceOf(content, pin, record),
                       Printable::Quoted(CStr(id)) + " " + line.refusal);
    }
  }
}

/// The forms take the control statuses in order, up to one that they can not take.
Session::NotTaken LeftOutOf(const Provider& content) {
  const SchemaField& system = content.FieldOf("32.SignalSystemId");
  const RecordNr first = content.Count(content.FieldOf("1111.SelcallID").table) + 1;
  const RecordNr last = content.Count(system.table);
  if (first > last) return {};
  const std::string records = first == last
                                  ? "the control status is"
                                  : "the control statuses up to record " + std::to_string(last) + " are";
  return {first, system.id + ", record " + std::to_string(first),
          "there is no Selcall system " + CStr(content.Get(system, first)) + "; " + records +
              " not on the forms"};
}

/// A field that is converted from others, so that a write of one of those brings it to the radio or shows it
/// anew.
struct Dependent {
  std::string_view on, field;
};
/// The radio's frequencies are an array, the forms have a field for each.
constexpr std::string_view kFrequencies = "48.CustomFrequencies";
constexpr std::int32_t kToneSets = 48;
constexpr Dependent kShownAgain[] = {{"31.GroupTone", "48.DerivedSelcallToneSet"},
                                     {"31.RepeatTone", "48.DerivedSelcallToneSet"}};

/// Conversions to the radio that lay their table out anew with the first record.
constexpr std::int32_t kEmptiesItsTable[] = {573, 588};

/// Whether a change brings the field to the radio. What is converted in place stands as it is shown until the
/// save.
bool Brings(const Provider& content, const SchemaField& field, const Change& change) {
  if (field.isInPlace) return false;
  if (change.field == nullptr || change.record > content.Count(change.field->table)) return false;
  if (change.field == &field) return true;
  if (field.id != kFrequencies || change.field->table != kToneSets) return false;
  return std::ranges::all_of(kNotAllComeBack, [&](std::string_view name) {
    return ComesBack(content, content.FieldOf(name), change.record);
  });
}
}  // namespace

bool EditResult::IsOther(const SchemaField& field) const {
  // A rule spells tones anew, "G" for the group tone, "V" for "VV": they are the same tones.
  const Variant& meant = field.validation.empty() ? asked : left;
  return accepted && !ValueText::ReadsTheSame(field, now, meant);
}

Limits LimitsOf(const SchemaField& field) {
  return {static_cast<double>(field.minimum), static_cast<double>(field.maximum)};
}

Limits StoredLimitsOf(const SchemaField& field) {
  const Limits shown = LimitsOf(field);
  const auto scale = static_cast<double>(field.scale.tenThousandths);
  constexpr double kUnscaled = 10000;
  // What is shown as a limit may be stored as the whole number beside it.
  return {std::floor(shown.lowest * scale / kUnscaled), std::ceil(shown.highest * scale / kUnscaled)};
}

bool IsWithinLimits(const SchemaField& field, const Variant& stored) {
  const bool isNumber = field.type == FieldType::Integer || field.type == FieldType::Number;
  if (!field.IsRaw() || !isNumber) return true;
  // The default of an identity lies outside its limits on purpose: the record has not got one yet.
  return StoredLimitsOf(field).Hold(CDbl(stored)) || (field.isIdentity && SameCell(stored, field.standard));
}

bool HasConversion(const Provider& content, const SchemaField& field, RecordNr record) {
  const bool actsOnTable = field.scope == FieldScope::Table;
  return record <= (actsOnTable ? 1 : content.Count(content.GetSchema().TableOf(field)));
}

Session::Session(const HostParts& parts, std::shared_ptr<Provider> provider,
                 std::shared_ptr<Imessenger> messenger)
    : provider_(provider), host_(parts, std::move(provider), std::move(messenger)) {}

void Session::ConvertToForms() {
  ConvertToForms(provider_);
  leftOut_ = LeftOutOf(*provider_);
  // A view is loaded before it is used.
  for (const Forms::Current& current : Forms::Currents()) {
    if (!current.views.empty()) Forms::FillViews(*this, current);
  }
}

void Session::ConvertToForms(const std::shared_ptr<Provider>& provider) {
  RequirePins(*provider, fileName_);
  provider->SetOnForms(true);
  host_.Require(host_.Owner().PostReadProcessing(provider, Variant()));
  for (const SchemaField* field : provider->GetSchema().ConvertedToForms()) {
    for (RecordNr record = 1; HasConversion(*provider, *field, record); ++record) {
      ConvertToForm(provider, *field, record);
    }
  }
}

EditResult Session::Edit(const SchemaField& field, std::string_view uiid, RecordNr record,
                         std::string_view typed) {
  EditResult result;
  result.before = provider_->Get(field, record);
  result.now = result.before;
  Entry entry = EnteredIn(*this, field, uiid, record, typed);
  result.refusal = std::move(entry.refusal);
  if (!result.refusal.empty()) return result;

  Journal journal(*provider_);
  host_.Require(provider_->SetAutoUpdate(kTrue));
  Variant value(std::move(entry.value));
  result.asked = value;
  Boolean accepted = kFalse;
  host_.Require(host_.Validator().ValidateByUIID(uiid, value, record, accepted));
  result.accepted = accepted != kFalse;
  result.left = value;
  if (result.accepted) {
    provider_->Set(field, record, std::move(value));
    const Forms::Current* view = Forms::ViewedBy(field.table);
    if (view != nullptr) Forms::FillViews(*this, *view);  // what is typed there is stored behind it
    std::vector<Change> written = journal.Changes();
    Change& own =
        written.emplace_back(provider_->GetSchema().TableOf(field));  // where it stays the same, too
    own.field = &field;
    own.record = record;
    ConvertWritten(written);
    if (view == nullptr) ShowAgain(field, record);
  }

  // A rule may have changed the number of records of the field's own table.
  if (record <= provider_->Count(field.table)) result.now = provider_->Get(field, record);
  for (Change& change : journal.Changes()) {
    if (change.field == &field && change.record == record && result.accepted) continue;
    result.others.push_back(std::move(change));
  }
  return result;
}

void Session::Store(const SchemaField& field, RecordNr record, Variant value) {
  provider_->Set(field, record, std::move(value));
  if (!field.isInPlace) ConvertToRaw(provider_, field, record);
  ShowAgain(field, record);
}

void Session::IndexChannels() {
  const SchemaField& number = provider_->FieldOf("5.ChannelIDTracker");
  for (RecordNr channel = 1; channel <= provider_->Count(number.table); ++channel) {
    ConvertToRaw(provider_, number, channel);
  }
}

void Session::ConvertWritten(const std::vector<Change>& changes) {
  for (const SchemaField* field : provider_->GetSchema().ConvertedToRadio()) {
    std::set<RecordNr> records;
    for (const Change& change : changes) {
      if (Brings(*provider_, *field, change)) records.insert(change.record);
    }
    const bool emptiesItsTable =
        std::ranges::find(kEmptiesItsTable, field->transform) != std::end(kEmptiesItsTable);
    for (RecordNr record = 2;
         emptiesItsTable && records.contains(1) && record <= provider_->Count(field->table); ++record) {
      records.insert(record);
    }
    for (const RecordNr record : records) ConvertToRaw(provider_, *field, record);
  }
  for (const Dependent& dependent : kShownAgain) {
    const SchemaField& field = provider_->FieldOf(dependent.field);
    for (const Change& change : changes) {
      const bool isOn = change.field != nullptr && change.field->id == dependent.on;
      if (isOn && change.record <= provider_->Count(field.table))
        ConvertToForm(provider_, field, change.record);
    }
  }
}

void Session::ShowAgain(const SchemaField& field, RecordNr record) {
  if (field.isInPlace) return;
  if (const Forms::Current* shown = Forms::ViewedBy(field.table)) {
    Forms::FillViews(*this, *shown);  // a conversion would show what belongs to the first record
  } else {
    ConvertToForm(provider_, field, record);
  }
}

bool Session::KeepsRecords(const SchemaTable& table) {
  const std::shared_ptr<Provider> reopened = FormsOf(*ConvertedToRaw());
  const RecordNr count = provider_->Count(table);
  if (reopened->Count(table) != count) return false;
  const SchemaField* identity = provider_->GetSchema().IdentityOf(table);
  for (RecordNr record = 1; identity != nullptr && record <= count; ++record) {
    if (!SameCell(reopened->Get(*identity, record), provider_->Get(*identity, record))) return false;
  }
  return true;
}

std::shared_ptr<Provider> Session::FormsOf(const Provider& stored) {
  std::shared_ptr<Provider> forms = stored.StoredCopy();
  host_.UseStore(forms);
  ConvertToForms(forms);
  Forms::Show(host_, *forms, Forms::Shown(*provider_));
  host_.UseStore(provider_);
  return forms;
}

std::shared_ptr<Provider> Session::ConvertedToRaw() {
  RequireConvertible(*provider_, fileName_);
  if (leftOut_.first != 0) {
    const SchemaField& system = provider_->FieldOf("32.SignalSystemId");
    throw ValueError(fileName_, system.id, PlaceOf(*provider_, system, leftOut_.first),
                     leftOut_.reason + ", so that a save would lose what is left out");
  }
  std::shared_ptr<Provider> copy = provider_->Copy();
  copy->SetMonitor(provider_->SharedMonitor());  // a save is part of the session
  host_.UseStore(copy);
  host_.Require(copy->SetAutoUpdate(kTrue));
  for (const SchemaField* field : copy->GetSchema().ConvertedToRadio()) {
    for (RecordNr record = 1; HasConversion(*copy, *field, record); ++record) {
      ConvertToRaw(copy, *field, record);
    }
  }
  // The forms have the polarities of table 36 in the opposite sense to the radio; inverting a second time
  // brings them back.
  host_.Require(host_.Owner().PostReadProcessing(copy, Variant()));
  copy->SetOnForms(false);
  host_.UseStore(provider_);
  return copy;
}

std::string Session::LabelOf(std::string_view uiid) const {
  std::string label;
  Boolean known = kFalse;
  host_.Require(host_.UserInterface().GetLabelByUIID(uiid, label, known));
  return known == kFalse || label.empty() ? std::string(uiid) : label;
}

std::string Session::LabelOf(const SchemaField& field) const {
  return field.uiids.empty() ? field.id : LabelOf(field.uiids.front());
}

void Session::ConvertToForm(const std::shared_ptr<Provider>& provider, const SchemaField& field,
                            RecordNr record) {
  Boolean converted = kFalse;  // false: the field has no conversion, its value serves as it is
  RequireConverted(host_.Owner().TransformToUI(provider, field.id, record, converted), field, record,
                   "to the forms");
}

void Session::ConvertToRaw(const std::shared_ptr<Provider>& provider, const SchemaField& field,
                           RecordNr record) {
  Boolean converted = kFalse;
  RequireConverted(host_.Owner().TransformFromUI(provider, field.id, record, converted), field, record,
                   "to the radio");
}

void Session::RequireConverted(const Status& status, const SchemaField& field, RecordNr record,
                               const char* way) const {
  try {
    host_.Require(status);
  } catch (const TierFault& fault) {
    throw ConversionFault(fileName_, PlaceOf(*provider_, field, record),
                          field.id + ", record " + std::to_string(record) + ", " + way + ": " + fault.what());
  }
}

namespace {
/// Those of the networks that a personality has from the start.
void AddAlerts(Provider& content) {
  constexpr RecordNr kPerNetwork = 6;
  const SchemaField& number = content.FieldOf("51.CallAlertID");
  content.SetCount(number.table, kPerNetwork * content.Count(content.FieldOf("21.SignallingType").table));
  for (RecordNr alert = 1; alert <= content.Count(number.table); ++alert)
    content.Set(number, alert, alert - 1);
}
}  // namespace

std::shared_ptr<Provider> NewPersonality(const SchemaFiles& schemas, std::string_view version) {
  auto provider = std::make_shared<Provider>(schemas.At(version));
  const Schema& schema = provider->GetSchema();
  const auto fill = [&](std::string_view name, Variant value) {
    const SchemaField* field = schema.Find(name);
    if (field == nullptr) return;
    if (provider->Count(field->table) == 0) provider->SetCount(field->table, 1);
    provider->Set(*field, 1, std::move(value));
  };
  fill("0.RadioTier", schema.Model());
  fill("39.Databaseversion", schema.Number());
  AddAlerts(*provider);
  return provider;
}
