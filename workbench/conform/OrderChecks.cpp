#include <algorithm>
#include <iterator>
#include <map>
#include <optional>
#include <string>

#include "host/IproviderOwner.h"
#include "workbench/conform/Calls.h"
#include "workbench/conform/Check.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"

/// The order in which a whole personality is converted, proved from the calls that the tier makes.
namespace Conform {
namespace {

constexpr RecordNr kAllRecords = 0;

/// A cell that a call on the host is about, told by the call's name.
struct Access {
  bool isWrite = false;
  std::string fieldId;
  RecordNr record = kAllRecords;
};

/// None for a call that is about no cell.
std::optional<Access> AccessOf(std::string_view call) {
  constexpr std::string_view kReadAll = "Ifield.Values ";
  constexpr std::string_view kRead = "Ifield.Value ";
  constexpr std::string_view kWrite = "Ifield.SetValue ";
  if (call.starts_with(kReadAll)) return Access{false, std::string(call.substr(kReadAll.size()))};
  const bool isWrite = call.starts_with(kWrite);
  if (!isWrite && !call.starts_with(kRead)) return {};
  const std::string_view cell = call.substr(isWrite ? kWrite.size() : kRead.size());
  const std::size_t bracket = cell.find('[');
  return Access{isWrite, std::string(cell.substr(0, bracket)),
                std::stoi(std::string(cell.substr(bracket + 1)))};
}

/// The conversions of one pass over a personality, in their order, and who has read which cell so far.
class Pass {
 public:
  /// `filled`: the kind of fields that the pass is to fill.
  Pass(const Schema& schema, StorageKind filled) : schema_(schema), filled_(filled) {}

  /// Takes the calls of one conversion; what is wrong with one of them, empty for nothing.
  std::string Take(const SchemaField& converted, RecordNr record, const std::vector<std::string>& calls) {
    const std::string conversion =
        std::to_string(converted.transform) + " of " + converted.id + " record " + std::to_string(record);
    std::string trouble;
    for (const std::string& call : calls) {
      const auto access = AccessOf(call);
      if (!access || schema_.Find(access->fieldId)->kind != filled_) continue;
      if (!access->isWrite) {
        readers_[access->fieldId].try_emplace(access->record, conversion);
      } else if (const std::string* reader = EarlierReader(*access, conversion); reader != nullptr) {
        trouble = "fills " + access->fieldId + ", which was read before by " + *reader;
      }
    }
    return trouble;
  }

 private:
  /// Null when no conversion before this one has read the cell.
  const std::string* EarlierReader(const Access& write, const std::string& conversion) const {
    const auto readers = readers_.find(write.fieldId);
    if (readers == readers_.end()) return nullptr;
    for (const RecordNr record : {write.record, kAllRecords}) {
      const auto reader = readers->second.find(record);
      if (reader != readers->second.end() && reader->second != conversion) return &reader->second;
    }
    return nullptr;
  }

  const Schema& schema_;
  StorageKind filled_;
  std::map<std::string, std::map<RecordNr, std::string>> readers_;  // by field, then record: the first reader
};

using Conversion = Status (IproviderOwner::*)(std::shared_ptr<Iprovider>, std::string_view, RecordNr,
                                              Boolean&);

struct Direction {
  std::string_view name;
  const std::vector<const SchemaField*>& (Schema::*fields)() const;
  Conversion convert;
  StorageKind filled;
};
constexpr Direction kDirections[] = {
    {"to the forms", &Schema::ConvertedToForms, &IproviderOwner::TransformToUI, StorageKind::Form},
    {"to the radio", &Schema::ConvertedToRadio, &IproviderOwner::TransformFromUI, StorageKind::Raw},
};

/// Converts a whole personality; `judge` takes the calls of each conversion and tells what is wrong with
/// them.
template <typename Judge>
void Convert(CheckRun& run, std::string_view personality, Session& session, const Direction& direction,
             Judge judge) {
  const TierHost& host = session.Host();
  CallMonitor& monitor = session.Content().Monitor();
  for (const SchemaField* field : (session.Content().GetSchema().*direction.fields)()) {
    for (RecordNr record = 1; HasConversion(session.Content(), *field, record); ++record) {
      monitor.Clear();
      Boolean converted = kFalse;
      host.Require((host.Owner().*direction.convert)(session.SharedContent(), field->id, record, converted));
      const std::string at = std::string(personality) + ", " + std::string(direction.name) + ": " +
                             field->id + " record " + std::to_string(record);
      run.Judge(at, judge(*field, record, monitor.Calls()));
    }
  }
}

/// Both directions on each personality; `makeJudge` makes the judge of one.
template <typename MakeJudge>
void ConvertAll(CheckRun& run, MakeJudge makeJudge) {
  for (const Personality& personality : run.Personalities()) {
    Session session(run.Parts(), personality.stored->StoredCopy(), std::make_shared<WatchfulMessenger>());
    RaiseIfFailed(session.Content().SetAutoUpdate(kTrue));
    session.Content().Monitor().Record(true);
    session.Host().Require(session.Host().Owner().PostReadProcessing(session.SharedContent(), Variant()));
    for (const Direction& direction : kDirections) {
      Convert(run, personality.name, session, direction, makeJudge(session.Content().GetSchema(), direction));
    }
  }
}

void OrderOfConversions(CheckRun& run) {
  ConvertAll(run, [](const Schema& schema, const Direction& direction) {
    return [pass = Pass(schema, direction.filled)](const auto&... conversion) mutable {
      return pass.Take(conversion...);
    };
  });
}

/// What a conversion mends on the side that it reads.
constexpr std::string_view kMended[] = {
    "30.FixedFormatBurstSeq",     // of record 1, which is no system's burst
    "30.FixedFormatSigSystemID",  // what a burst slot is
    "30.FixedFormatBurstType", "30.FixedFormatBurstID",
    "18.GroupIDNumber",                              // the number of a member's group
    "49.FreeFormSeqID",                              // the place of a sequence in its system
    "51.CallAlertID",                                // the alerts of a network
    "51.CallAlertExternalAlert1Pointer",             // the radio's two external
    "51.CallAlertExternalAlert2Pointer",             // alerts, at which all point
    "4.EnabledFlag", "4.ProgIndex", "4.RepeatFlag",  // what the radio
    "60.AudibleIndicatorCadence",                    // sounds and has no choice about
    "60.TonesPerIndicator", "60.AudibleIndicatorFrequency1", "60.AudibleIndicatorFrequency2",
    "60.ToneDuration", "60.RemainingCadences", "21.Ind1CallAlertPtr", "21.Ind2CallAlertPtr",
    "21.GroupCallAlertPtr", "21.AllCallAlertPtr", "21.PriorityCallAlertPtr", "21.EmergencyCallAlertPtr",
    "75.SIBTNetworkID",            // the number of the tone's network
    "68.DTMFPatchSeqNetworkID",    // the number of the network that
    "72.DTMFPatchTonesNetworkID",  // the record belongs to
    // the control statuses that are shown go back among those of all,
    "1111.SelcallID", "1111.ValueTracker", "1111.Type", "1111.Rx", "1111.Tx",
    "32.ValueTracker"};  // these into the radio's order

/// A conversion whose directions are exchanged writes what it should read.
std::string WrongSide(const Schema& schema, StorageKind filled, const std::vector<std::string>& calls) {
  for (const std::string& call : calls) {
    const auto access = AccessOf(call);
    const bool isMended = access && std::ranges::find(kMended, access->fieldId) != std::end(kMended);
    if (!access || !access->isWrite || isMended) continue;
    const SchemaField& field = *schema.Find(access->fieldId);
    if (field.kind != filled && !field.isInPlace) return "writes to the other side: " + access->fieldId;
  }
  return {};
}

void SidesOfConversions(CheckRun& run) {
  ConvertAll(run, [](const Schema& schema, const Direction& direction) {
    return [&](const SchemaField&, RecordNr, const std::vector<std::string>& calls) {
      return WrongSide(schema, direction.filled, calls);
    };
  });
}

/// A conversion writes in one batch: silently for the host's follow-up work.
std::string LoudWrite(const std::vector<std::string>& calls) {
  bool isSilent = false;
  for (const std::string& call : calls) {
    if (call.starts_with("Iprovider.SetAutoUpdate")) isSilent = call.ends_with(" 0");
    const auto access = AccessOf(call);
    if (access && access->isWrite && !isSilent) return "writes while AutoUpdate is on: " + access->fieldId;
  }
  return {};
}

void SilentConversions(CheckRun& run) {
  ConvertAll(run, [](const Schema&, const Direction&) {
    return
        [](const SchemaField&, RecordNr, const std::vector<std::string>& calls) { return LoudWrite(calls); };
  });
}

// clang-format off
constexpr Check kOrderChecks[] = {
    {"silent-conversions", 4, "conversions write while AutoUpdate is off", SilentConversions},
    {"conversion-order", 5, "in the order of the contract no conversion reads what a later one fills",
     OrderOfConversions},
    {"conversion-sides", 5, "to the forms no stored field is written, to the radio none of the forms",
     SidesOfConversions},
};
// clang-format on

}  // namespace

std::span<const Check> OrderChecks() { return kOrderChecks; }

}  // namespace Conform
