#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/host/Messengers.h"
#include "workbench/host/TierHost.h"
#include "workbench/jobs/Obstacles.h"
#include "workbench/store/Journal.h"

class Session;
struct VersionName;

/// What a version can not hold of a personality.
struct Loss {
  const SchemaTable* table;             // both of the version that is left
  const SchemaField* field = nullptr;   // null: records beyond the capacity that the table has there
  RecordNr record = 0;                  // the record of the value, or the first of those records
  RecordNr last = 0;                    // the last of them
  Variant value;                        // of the field, other than its default
  std::vector<std::string> identities;  // of those records, where they have one
  std::string place;                    // of a burst, which a person does not know by its record; else empty
};

/// A stored value that the version left did allow and the new one does not.
struct OutsideValue {
  const SchemaField* field;  // of the new version
  RecordNr record;
  Variant value;
};

/// One step between neighbouring versions. Tables and fields are those of the schemas, which the schema files
/// keep.
struct Hop {
  std::string from;  // "KD4410.0094"
  std::string to;
  bool accepted = false;
  std::vector<Shown> messages;
  std::vector<Obstacle> obstacles;  // after a refusal
  std::vector<Loss> losses;
  /// The tables that got records because the version demands them, then the stored cells that the step
  /// changed, after what both versions share had been copied. A record that it added changes from the
  /// defaults. A burst that has only moved, with what points at it, has not changed. None after a refusal.
  std::vector<Change> changes;
  /// Kept as they are, unless a later step changes them. None after a refusal.
  std::vector<OutsideValue> outside;
};

/// What a step works with. The tier's current personality is `source`.
struct ConversionPair {
  std::shared_ptr<Provider> source;  // converted for the forms where a step reads them
  std::string from;
  /// What both versions share, as the radio stores it; its forms hold their defaults. What the step writes to
  /// a form field of a record is converted for the radio afterwards.
  std::shared_ptr<Provider> destination;
  std::string to;
};

/// A new personality of the version with all that it can hold of what is stored in the source: what a host
/// copies before the tier is asked for its step.
std::shared_ptr<Provider> SharedContent(const SchemaFiles& schemas, const Provider& source,
                                        std::string_view version);

/// Runs the step of a pair; false stops the conversion, and the user has been told why.
using ConversionStep = std::function<bool(TierHost& host, const ConversionPair& pair)>;
bool StepOfTier(TierHost& host, const ConversionPair& pair);

struct Conversion {
  std::vector<Hop> hops;             // to the one that refused, if one did
  std::shared_ptr<Provider> result;  // as a file holds it; null after a refusal
};

/// Takes personalities from version to version, on copies. One tier at a time serves a library: none may be
/// open elsewhere meanwhile. A fault of the tier leaves by a TierFault.
class Converter {
 public:
  Converter(HostParts parts, std::shared_ptr<RecordingMessenger> messenger, ConversionStep step = StepOfTier);
  ~Converter();

  /// `content` as its file holds it, which stays so. `way` are the versions from the one of the content to
  /// the one wanted, neighbours in turn.
  Conversion Convert(const std::shared_ptr<Provider>& content, const std::vector<std::string>& way);

 private:
  std::shared_ptr<Provider> Take(const Provider& content, Hop& hop);
  /// Whether the step reads the forms of its source, or the report does for the numbers of records that are
  /// lost. Another step than the tier's may read what it likes.
  bool NeedsForms(const Hop& hop) const;
  void AskTier(TierHost& host, const std::shared_ptr<Provider>& source,
               const std::shared_ptr<Provider>& destination, Hop& hop);
  std::unique_ptr<Session> OpenOnForms(const std::shared_ptr<Provider>& content);
  bool RunStep(const Provider& content, const std::shared_ptr<Provider>& destination, Hop& hop);
  std::shared_ptr<Provider> WithForms(const std::shared_ptr<Provider>& content,
                                      const std::vector<Change>& written);

  HostParts parts_;
  std::shared_ptr<RecordingMessenger> messenger_;
  ConversionStep step_;
  std::unique_ptr<TierHost> host_;  // of the steps that read no forms, while a conversion runs
};

/// The versions of the model, oldest first, as the tier tells them. `host` has a personality of it open.
std::vector<std::string> VersionPath(TierHost& host, const VersionName& version);
/// The part of the path between two of its versions, both among them, in the order of the conversion; empty
/// when one of them is not on it.
std::vector<std::string> WayBetween(const std::vector<std::string>& path, const std::string& from,
                                    const std::string& to);
/// "KD4410.0054" for the key "0054.KD4410" of the tier's version list.
std::string VersionOfKey(std::string_view key);
