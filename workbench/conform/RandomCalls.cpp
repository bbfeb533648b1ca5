#include "workbench/conform/RandomCalls.h"

#include <array>
#include <exception>
#include <memory>
#include <optional>
#include <stdexcept>

#include "host/IenablementReasons.h"
#include "platform/CaseText.h"
#include "platform/XArrayDBObject.h"
#include "workbench/host/HostObjects.h"
#include "workbench/host/Messengers.h"
#include "workbench/jobs/Forms.h"
#include "workbench/jobs/RecordEdits.h"
#include "workbench/jobs/Session.h"
#include "workbench/personality/PersonalityFile.h"
#include "workbench/store/Journal.h"
#include "workbench/store/Provider.h"
#include "workbench/store/ValueText.h"

namespace {

using namespace std::string_literals;

constexpr Boolean kUnwritten = 5;

/// What ends the session: the tier did what none may do.
class Trouble : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

class ChoosingMessenger final : public RecordingMessenger {
 public:
  explicit ChoosingMessenger(Choices& choices) : choices_(choices) {}

 protected:
  Button Answer(const Shown& question) override {
    constexpr Button kButtons[] = {Button::Yes, Button::No, Button::Cancel};
    return kButtons[choices_.Below(question.style == MessageStyle::kYesNoCancel ? 3 : 2)];
  }

 private:
  Choices& choices_;
};

/// A record of a table, as a call names it.
struct Place {
  RecordNr record = 0;
  bool exists = false;
};

/// The host, while it makes calls at random.
class RandomHost {
 public:
  RandomHost(const HostParts& parts, const Provider& onForms, Choices& choices, RandomSession& told)
      : parts_(parts), choices_(choices), told_(told) {
    Open(onForms.Copy());
  }

  /// Makes one of the calls.
  void Step();
  /// What is saved reads back as it was written.
  void Save();

 private:
  void Open(std::shared_ptr<Provider> content);

  // The calls.
  void Edit();
  void AskRule();
  void AskState();
  void AskList();
  void Convert();
  void TurnForm();
  void LeaveForm();
  void AddRecord();
  void DeleteRecord();
  void AskForRecord();
  void AskMetadata();
  void AskBands();
  void CheckAll();

  /// Makes a call, whose answer `call` takes; keeps what it wrote only of a legal one.
  template <typename Operation>
  void Call(std::string text, bool isLegal, Operation call);
  void Judge(const Status& status, Boolean result, bool isLegal);
  /// What a host does by several calls, all of them legal. False when the tier does not have one of them.
  template <typename Work>
  bool Do(std::string text, Work work);
  template <typename Work>
  void ChangeRecords(std::string text, Work work);

  Provider& Content() { return session_->Content(); }
  const Schema& GetSchema() { return Content().GetSchema(); }
  TierHost& Host() { return session_->Host(); }
  const std::shared_ptr<Provider>& Store() { return session_->SharedContent(); }

  bool IsOdd() { return choices_.OneIn(4); }
  const SchemaField& AnyControl();
  /// The UIID of the field, or a name that is none.
  std::string AnyUIID(const SchemaField& field);
  Place AnyPlace(std::int32_t table);
  /// What a user may type into the control of the field.
  std::string Typed(const SchemaField& field, const std::string& uiid, RecordNr record);
  /// An item of the field's list; none for a field without one.
  std::optional<std::string> ListedItem(const std::string& uiid, RecordNr record);

  const HostParts& parts_;
  Choices& choices_;
  RandomSession& told_;
  std::unique_ptr<Session> session_;
};

void RandomHost::Open(std::shared_ptr<Provider> content) {
  session_.reset();  // one tier at a time serves the library
  session_ =
      std::make_unique<Session>(parts_, std::move(content), std::make_shared<ChoosingMessenger>(choices_));
}

template <typename Operation>
void RandomHost::Call(std::string text, bool isLegal, Operation call) {
  told_.calls.push_back(std::move(text));
  const bool isAutoUpdating = choices_.Below(2) == 0;
  RaiseIfFailed(Content().SetAutoUpdate(ToBoolean(isAutoUpdating)));
  Journal journal(Content());
  Boolean result = kUnwritten;
  const Status status = call(result);
  if (Content().IsAutoUpdating() != isAutoUpdating) throw Trouble("AutoUpdate is not what it was");
  Judge(status, result, isLegal);
  if (!isLegal || !status.Ok()) journal.Rollback();
}

void RandomHost::Judge(const Status& status, Boolean result, bool isLegal) {
  const std::vector<std::string> boxes = Host().Services().BoxTexts();
  const int terminations = Host().Services().Terminations();
  Host().Services().Clear();
  std::string& line = told_.calls.back();
  for (const std::string& box : boxes) line += " -> box: " + box;
  // A grid without completion is told by a box alone.
  if (boxes.size() < static_cast<std::size_t>(terminations)) {
    throw Trouble("the application was ended without a word");
  }
  if (isLegal && !boxes.empty()) throw Trouble("a legal call ended the application");
  if (status.Ok()) {
    line += " -> " + std::to_string(result);
    if (result != kTrue && result != kFalse) throw Trouble("the result is no flag");
    return;
  }
  const Fault& fault = status.Reason();
  line += " -> error " + std::to_string(fault.number) + ": " + fault.description;
  if (isLegal) throw Trouble("a legal call failed");
}

template <typename Work>
bool RandomHost::Do(std::string text, Work work) {
  told_.calls.push_back(std::move(text));
  const bool wasAutoUpdating = Content().IsAutoUpdating();
  ApplicationServices& services = Host().Services();
  bool isSupported = true;
  try {
    told_.calls.back() += " -> " + std::string(work());
  } catch (const UnsupportedByTier& error) {
    told_.calls.back() += " -> "s + error.what();
    isSupported = false;
  } catch (const TierFault& error) {
    throw Trouble(error.what() + (services.Boxes().empty() ? ""s : ": " + services.Boxes().front().text));
  }
  // The host itself may have switched it on.
  if (wasAutoUpdating && !Content().IsAutoUpdating()) throw Trouble("AutoUpdate is not what it was");
  services.Clear();
  return isSupported;
}

// --- the arguments

const SchemaField& RandomHost::AnyControl() {
  const std::vector<SchemaField>& fields = GetSchema().Fields();
  const std::size_t start = choices_.Below(fields.size());
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const SchemaField& field = fields[(start + i) % fields.size()];
    if (!field.uiids.empty()) return field;
  }
  return fields[start];
}

std::string RandomHost::AnyUIID(const SchemaField& field) {
  return IsOdd() ? choices_.OddText() : choices_.InAnyCase(choices_.OneOf(field.uiids));
}

Place RandomHost::AnyPlace(std::int32_t table) {
  const RecordNr count = Content().Count(table);
  const RecordNr record = count == 0 || IsOdd() ? choices_.OddRecord(count) : choices_.Record(count);
  return {record, record >= 1 && record <= count};
}

std::optional<std::string> RandomHost::ListedItem(const std::string& uiid, RecordNr record) {
  std::shared_ptr<XArrayDBObject> items;
  Boolean has = kFalse;
  const bool isSupported = Do("list of " + uiid + " " + std::to_string(record), [&] {
    Host().Require(Host().Owner().GetComboItemsByUIID(Store(), uiid, record, items, has));
    return has == kFalse ? "none" : "listed";
  });
  if (isSupported && (has == kFalse || items == nullptr)) return {};
  if (!isSupported || items->Count(1) == 0) return ValueText::Of(Content().Get(uiid, record));  // no choice
  const auto row = static_cast<std::int32_t>(choices_.Below(static_cast<std::size_t>(items->Count(1))));
  return ValueText::Of(items->GetValue(items->LowerBound(1) + row, 0));
}

std::string RandomHost::Typed(const SchemaField& field, const std::string& uiid, RecordNr record) {
  if (field.type == FieldType::Text) {
    if (auto item = ListedItem(uiid, record)) return *item;
  }
  constexpr std::size_t kNearby = 65'536;
  switch (choices_.Below(6)) {
    case 0:
      return std::to_string(field.minimum);
    case 1:
      return std::to_string(field.maximum);
    case 2:
      return std::to_string(field.minimum + static_cast<std::int64_t>(choices_.Below(kNearby)));
    case 3:
      return ValueText::Of(Content().Get(field, choices_.Record(Content().Count(field.table))));
    case 4:
      return choices_.OneIn(2) ? "1" : "0";
    default:
      return choices_.OddText();
  }
}

// --- the calls

void RandomHost::Edit() {
  const SchemaField& field = AnyControl();
  if (Content().Count(field.table) == 0) return;
  const RecordNr record = choices_.Record(Content().Count(field.table));
  const std::string& uiid = choices_.OneOf(field.uiids);
  Do("turn to record " + std::to_string(record) + " of table " + std::to_string(field.table),
     [&] { return Forms::TurnTo(*session_, field.table, record) ? "turned" : "refused"; });
  const std::string typed = Typed(field, uiid, record);
  Do("edit " + uiid + " " + std::to_string(record) + " \"" + typed + '"', [&] {
    const EditResult result = session_->Edit(field, uiid, record, typed);
    return result.accepted ? "accepted"s : "refused " + result.refusal;
  });
}

void RandomHost::AskRule() {
  const SchemaField& field = AnyControl();
  const std::string uiid = AnyUIID(field);
  const Place place = AnyPlace(field.table);
  Variant value = choices_.OddValue();
  const bool isKnown = GetSchema().Find(uiid) != nullptr;
  Call("ValidateByUIID " + uiid + " " + std::to_string(place.record) + " " + ValueText::Of(value), !isKnown,
       [&](Boolean& result) { return Host().Validator().ValidateByUIID(uiid, value, place.record, result); });
}

void RandomHost::AskState() {
  const SchemaField& field = AnyControl();
  const std::string uiid = AnyUIID(field);
  const RecordNr record = AnyPlace(field.table).record;
  Boolean state = kUnwritten;
  Call("GetEnabledStatebyUIID " + uiid + " " + std::to_string(record), true, [&](Boolean& result) {
    Status status = Host().Validator().GetEnabledStatebyUIID(uiid, record, result);
    state = result;
    return status;
  });
  auto* reasons = dynamic_cast<IenablementReasons*>(&Host().Validator());
  if (reasons == nullptr) return;
  Call("ReasonByUIID " + uiid + " " + std::to_string(record), true, [&](Boolean& result) {
    EnablementReason reason;
    Status status = reasons->ReasonByUIID(uiid, record, reason);
    result = reason.enabled;
    if (status.Ok() && result != state) throw Trouble("the reason is of another state");
    return status;
  });
}

void RandomHost::AskList() {
  const SchemaField& field = AnyControl();
  const std::string uiid = AnyUIID(field);
  const Place place = AnyPlace(field.table);
  Call("GetComboItemsByUIID " + uiid + " " + std::to_string(place.record),
       place.exists && GetSchema().Find(uiid) == &field, [&](Boolean& result) {
         std::shared_ptr<XArrayDBObject> items;
         return Host().Owner().GetComboItemsByUIID(Store(), uiid, place.record, items, result);
       });
}

void RandomHost::Convert() {
  const SchemaField& field = choices_.OneOf(GetSchema().Fields());
  const bool isOdd = IsOdd();
  const std::string name = isOdd ? choices_.OddText() : field.id;  // as the schema spells it
  const Place place = AnyPlace(field.table);
  const bool toForms = choices_.Below(2) == 0;
  const auto operation = toForms ? &IproviderOwner::TransformToUI : &IproviderOwner::TransformFromUI;
  Call((toForms ? "TransformToUI " : "TransformFromUI ") + name + " " + std::to_string(place.record),
       place.exists && !isOdd,
       [&](Boolean& result) { return (Host().Owner().*operation)(Store(), name, place.record, result); });
}

void RandomHost::TurnForm() {
  const Form& form = choices_.OneOf(Forms::All());
  const RecordNr count = Forms::RecordCount(Content(), form);
  if (count == 0) return;
  const auto record = choices_.Record(count);
  Do("turn to record " + std::to_string(record) + " of table " + std::to_string(form.subject),
     [&] { return Forms::TurnTo(*session_, form.subject, record) ? "turned" : "refused"; });
}

void RandomHost::LeaveForm() {
  const Form& form = choices_.OneOf(Forms::All());
  const bool isOdd = IsOdd();
  const std::string name =
      isOdd ? choices_.OddText() : choices_.InAnyCase(std::string(form.NameFor(GetSchema().Model())));
  const Boolean refresh = ToBoolean(choices_.Below(2) == 0);
  Call("FormValidationByFormName " + name, true,
       [&](Boolean& result) { return Host().Validator().FormValidationByFormName(name, refresh, result); });
}

template <typename Work>
void RandomHost::ChangeRecords(std::string text, Work work) {
  const std::shared_ptr<Provider> before = Content().Copy();
  RecordResult result;
  const bool isSupported = Do(std::move(text), [&] {
    result = work();
    return result.accepted ? "accepted"s : "refused: " + result.refusal;
  });
  // What was written before a refusal is not to be saved.
  if (!isSupported || !result.accepted) Open(before);
}

void RandomHost::AddRecord() {
  const Grid& grid = choices_.OneOf(Grids::All());
  if (GetSchema().FindTable(grid.table) == nullptr) return;
  ChangeRecords("add a record to " + std::string(grid.name),
                [&] { return RecordEdits(*session_, grid).Add(); });
}

void RandomHost::DeleteRecord() {
  const Grid& grid = choices_.OneOf(Grids::All());
  const SchemaTable* table = GetSchema().FindTable(grid.table);
  if (table == nullptr || Content().Count(*table) == 0) return;
  const auto record = choices_.Record(Content().Count(*table));
  ChangeRecords("delete record " + std::to_string(record) + " of " + std::string(grid.name),
                [&] { return RecordEdits(*session_, grid).Delete(record); });
}

/// The steps of adding and deleting, out of their order and with odd arguments.
void RandomHost::AskForRecord() {
  const Grid& grid = choices_.OneOf(Grids::All());
  const std::string name = IsOdd() ? choices_.OddText() : choices_.InAnyCase(std::string(grid.name));
  const RecordNr record = GetSchema().FindTable(grid.table) == nullptr ? 1 : AnyPlace(grid.table).record;
  const std::size_t which = choices_.Below(5);
  constexpr std::string_view kNames[] = {"AddRecord", "DeleteRecord", "PostAddProcessing",
                                         "PostInsertProcessing", "PostDeleteProcessing"};
  Call(std::string(kNames[which]) + " " + name + " " + std::to_string(record), false, [&](Boolean& result) {
    switch (which) {
      case 0:
        return Host().Validator().AddRecord(name, Store(), result);
      case 1:
        return Host().Validator().DeleteRecord(name, record, Store(), result);
      case 2:
        return Host().Owner().PostAddProcessing(Store(), name, result);
      case 3:
        return Host().Owner().PostInsertProcessing(Store(), name, record, result);
      default:
        return Host().Owner().PostDeleteProcessing(Store(), name, record, result);
    }
  });
}

void RandomHost::AskMetadata() {
  const std::string uiid = AnyUIID(AnyControl());
  const std::string unwritten = "as it was";
  Call("GetLabelByUIID " + uiid, true, [&](Boolean& result) {
    std::string label = unwritten;
    Status status = Host().UserInterface().GetLabelByUIID(uiid, label, result);
    if (result == kFalse && label != unwritten) throw Trouble("an unknown UIID has a label");
    return status;
  });
  Call("GetHelpIdByUIID " + uiid, true, [&](Boolean& result) {
    std::int32_t help = 0;
    return Host().UserInterface().GetHelpIdByUIID(uiid, help, result);
  });
}

void RandomHost::AskBands() {
  constexpr std::int32_t kLastBand = 11;
  const std::int32_t band =
      IsOdd() ? choices_.OddRecord(kLastBand) : static_cast<std::int32_t>(choices_.Below(kLastBand + 1));
  Call("GetFrequencyRanges " + std::to_string(band), band >= 0 && band <= kLastBand, [&](Boolean& result) {
    std::array<std::int32_t, 4> limits{};
    std::string steps;
    result = kTrue;  // it has none
    return Host().Owner().GetFrequencyRanges(band, limits[0], limits[1], limits[2], limits[3], steps);
  });
}

void RandomHost::CheckAll() {
  Call("RunFinalValidation", true,
       [&](Boolean& result) { return Host().Validator().RunFinalValidation(result); });
  Call("RunPreProgramValidation", true,
       [&](Boolean& result) { return Host().Validator().RunPreProgramValidation(result); });
}

void RandomHost::Save() {
  constexpr char kFile[] = "session";
  Do("save", [&] {
    const std::string saved = PersonalityFile::Format(kFile, *session_->ConvertedToRaw());
    const auto read = PersonalityFile::Parse(kFile, saved, *parts_.schemas);
    if (PersonalityFile::Format(kFile, *read) != saved) throw Trouble("what was saved reads back as another");
    return "saved";
  });
}

void RandomHost::Step() {
  constexpr struct {
    void (RandomHost::*call)();
    std::size_t weight;
  } kCalls[] = {
      {&RandomHost::Edit, 24},        {&RandomHost::AskRule, 12},    {&RandomHost::AskState, 6},
      {&RandomHost::AskList, 6},      {&RandomHost::Convert, 12},    {&RandomHost::TurnForm, 6},
      {&RandomHost::LeaveForm, 6},    {&RandomHost::AddRecord, 1},   {&RandomHost::DeleteRecord, 1},
      {&RandomHost::AskForRecord, 4}, {&RandomHost::AskMetadata, 2}, {&RandomHost::AskBands, 1},
      {&RandomHost::CheckAll, 1},
  };
  std::size_t all = 0;
  for (const auto& call : kCalls) all += call.weight;
  std::size_t chosen = choices_.Below(all);
  const auto* call = kCalls;
  for (; chosen >= call->weight; ++call) chosen -= call->weight;
  (this->*call->call)();
}

}  // namespace

std::string RandomSession::Text() const {
  std::string text;
  for (const std::string& call : calls) text += call + '\n';
  return trouble.empty() ? text : text + "TROUBLE: " + trouble + '\n';
}

RandomSession RunRandomCalls(const HostParts& parts, const Provider& onForms, Choices& choices, int steps) {
  RandomSession told;
  try {
    RandomHost host(parts, onForms, choices, told);
    for (int step = 0; step < steps && !choices.HasEnded(); ++step) host.Step();
    if (!choices.HasEnded()) host.Save();
  } catch (const std::exception& error) {
    told.trouble = error.what();
  }
  return told;
}
