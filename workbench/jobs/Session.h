#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Conversions.h"
#include "workbench/files/FileError.h"
#include "workbench/host/TierHost.h"
#include "workbench/personality/PersonalityFile.h"
#include "workbench/store/Journal.h"

class Provider;

/// The values that a field may hold on its form. Equal limits are none.
struct Limits {
  double lowest = 0;
  double highest = 0;
  bool Hold(double value) const { return lowest >= highest || (lowest <= value && value <= highest); }
};
Limits LimitsOf(const SchemaField& field);

/// The same of what is stored, which has the unit of the radio.
Limits StoredLimitsOf(const SchemaField& field);

/// Whether the schema lets the field hold what is stored in it. It says nothing of texts and arrays.
bool IsWithinLimits(const SchemaField& field, const Variant& stored);

/// Whether a conversion of the field is called on the record: on each of its table, or on record 1 when it
/// acts on the table as a whole, even on an empty one. To be asked anew for each: one may rebuild its own
/// table.
bool HasConversion(const Provider& content, const SchemaField& field, RecordNr record);

/// What became of an edit.
struct EditResult {
  bool accepted = false;
  /// Why this host refused the value itself, without asking the tier; empty when it did not.
  std::string refusal;
  Variant before;
  /// The value that the rule was asked about.
  Variant asked;
  /// The value that the rule left to be stored.
  Variant left;
  /// The value that stands in the field now.
  Variant now;
  /// The value passed its rule, but the radio has no such value and the field reads as before.
  bool IsLost() const { return accepted && SameValue(now, before) && !SameValue(now, left); }
  /// The value passed its rule, but reads otherwise by now than it was asked for: rounded on its way to the
  /// radio and back, or made another by the rule.
  bool IsOther(const SchemaField& field) const;
  /// What else changed; after a refusal, what the rule had written before it refused.
  std::vector<Change> others;
};

/// A stored value with which a session can not be opened or saved.
class ValueError : public FileError {
 public:
  /// `name` is what the message calls the field.
  ValueError(const std::string& file, const std::string& name, PersonalityFile::Place place,
             const std::string& reason)
      : FileError(file, 0, name + ", record " + std::to_string(place.record), reason), place_(place) {}
  const PersonalityFile::Place& Place() const { return place_; }

 private:
  PersonalityFile::Place place_;
};

/// The tier failed in the conversion of a field.
class ConversionFault : public TierFault {
 public:
  ConversionFault(const std::string& file, PersonalityFile::Place place, const std::string& reason)
      : TierFault(file.empty() ? reason : file + ": " + reason), place_(place), reason_(reason) {}
  const PersonalityFile::Place& Where() const { return place_; }
  /// What failed, without the name of the file.
  const std::string& Reason() const { return reason_; }

 private:
  PersonalityFile::Place place_;
  std::string reason_;
};

/// An open personality as a host keeps it: converted for the forms, edited there, and converted back to be
/// saved. A fault of the tier leaves by a TierFault.
class Session {
 public:
  Session(const HostParts& parts, std::shared_ptr<Provider> provider, std::shared_ptr<Imessenger> messenger);

  /// What follows a read from the radio: the raw tables become what the forms show. To be called once:
  /// some fields are converted in place.
  void ConvertToForms();

  /// Walks the way of an edit: the rule of the field, the value that it left, the conversion to the radio
  /// and back to the form. The field has the UIID, the record exists.
  EditResult Edit(const SchemaField& field, std::string_view uiid, RecordNr record, std::string_view typed);
  /// Stores a form value and its conversion without asking the rules.
  void Store(const SchemaField& field, RecordNr record, Variant value);
  /// To be called when channels have come or gone. The radio's index of them takes one more record with each
  /// channel that is brought to the radio, so that all must be, in their order, before one can be alone.
  void IndexChannels();

  /// The content as the radio holds it, for the file: made on a copy, the forms stay as they are. A FileError
  /// names a value that the tier takes to the forms but not back; no conversion has begun by then.
  std::shared_ptr<Provider> ConvertedToRaw();
  /// A part of the file that the forms did not take: the control statuses behind one of a system that is not
  /// there. A save would drop them, so that it is refused as above.
  struct NotTaken {
    RecordNr first = 0;  // of table 32; 0: they took all
    std::string where, reason;
  };
  const NotTaken& LeftOut() const { return leftOut_; }
  /// What such an error calls the file.
  void SetFileName(std::string name) { fileName_ = std::move(name); }

  /// What a session shows that opens a file with this content.
  std::shared_ptr<Provider> FormsOf(const Provider& stored);

  /// Whether the records of a table, told apart by their identities, would come back from a file of the
  /// content as it stands now.
  bool KeepsRecords(const SchemaTable& table);

  Provider& Content() const { return *provider_; }
  /// The content as the tier is handed it.
  const std::shared_ptr<Provider>& SharedContent() const { return provider_; }
  TierHost& Host() { return host_; }
  const TierHost& Host() const { return host_; }

  /// The label of a UIID on the forms; the UIID itself where there is none.
  std::string LabelOf(std::string_view uiid) const;
  /// The label of the first UIID of the field; the FieldId for a field without one.
  std::string LabelOf(const SchemaField& field) const;

 private:
  void ConvertToForms(const std::shared_ptr<Provider>& provider);
  /// Brings what an edit has written to the radio, in the order of a save, and what depends on that back to
  /// the forms.
  void ConvertWritten(const std::vector<Change>& changes);
  void ShowAgain(const SchemaField& field, RecordNr record);
  void ConvertToForm(const std::shared_ptr<Provider>& provider, const SchemaField& field, RecordNr record);
  void ConvertToRaw(const std::shared_ptr<Provider>& provider, const SchemaField& field, RecordNr record);
  /// As Require of the host, with the place of a fault.
  void RequireConverted(const Status& status, const SchemaField& field, RecordNr record,
                        const char* way) const;

  std::shared_ptr<Provider> provider_;
  TierHost host_;
  std::string fileName_;
  NotTaken leftOut_;
};

/// A new personality: the schema's defaults, with its model and version written into it.
std::shared_ptr<Provider> NewPersonality(const SchemaFiles& schemas, std::string_view version);
