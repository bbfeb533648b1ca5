#include <gmock/gmock.h>

#include <random>
#include <set>

#include "platform/CaseText.h"
#include "tests/channels/ChannelFixture.h"
#include "validation/ConditionReader.h"
#include "validation/modvalEnablement.h"
#include "validation/modvalFields.h"
#include "validation/modvalSwitches.h"
#include "workbench/store/Journal.h"

/// The states that edits give to controls, beside what the controls' own conditions say then.
namespace {
using testing::UnorderedElementsAreArray;
using Pairs = std::set<std::string>;

std::string PairOf(std::string_view edited, std::string_view control) {
  return UpperCase(edited) + " > " + UpperCase(control);
}

class Switches : public ChannelFixture {
 protected:
  using ChannelFixture::ChannelFixture;
  void SetUp() override {
    ChannelFixture::SetUp();
    GiveNetworks({0, 1, 2, 3, 4});
    GiveChannels({11, 12});
    provider.SetCount(16, 1);
    provider.SetCount(37, 1);
    for (const auto& row : modvalEnablement::Rows()) AddFields(*row.enabledWhen);
    for (const auto& row : modvalSwitches::Rows()) {
      if (row.wanted != nullptr) AddFields(*row.wanted);
    }
  }
  void AddFields(const Condition& condition) {
    for (const Condition* part : condition.parts) AddFields(*part);
    const SchemaField* field = provider.GetSchema().Find(condition.field);
    if (field != nullptr) read_.insert(field);
  }
  std::int32_t Draw(std::int32_t lowest, std::int32_t highest) {
    return std::uniform_int_distribution(lowest, highest)(random_);
  }
  /// A value of the field's own kind, mostly one that conditions ask for.
  Variant DrawValue(const SchemaField& field) {
    if (FindIgnoringCase(field.id, "FreqUI") != std::string::npos)
      return Draw(0, 1) == 0 ? "000.000000" : "150.500000";
    if (field.id == "53.ChannelIDTracker") return Draw(0, 1) == 0 ? "None" : "11";
    if (field.id == "75.SIBTEnabled") return Draw(-1, 1);  // a tick that is on may be -1
    if (field.type == FieldType::Text) return Draw(0, 1) == 0 ? "None" : "C67.0";
    return Draw(std::max(field.minimum, 0), std::min(field.maximum, std::max(field.minimum, 0) + 4));
  }
  void DrawState() {
    for (const SchemaField* field : read_) {
      const bool isNumberOrPointer = field->isIdentity || field->table == 1107 || field->table == 1108 ||
                                     field->id == "5.ChannelNetworkIdUI";
      if (isNumberOrPointer) continue;
      for (RecordNr record = 1; record <= provider.Count(field->table); ++record) {
        provider.Set(*field, record, DrawValue(*field));
      }
    }
    provider.Set("CurrentNetworkNr", 1, Draw(1, 5));
  }
  bool IsEnabled(std::string_view uiid, RecordNr record) {
    Boolean enabled = kFalse;
    EXPECT_TRUE(Validator()->GetEnabledStatebyUIID(uiid, record, enabled).Ok());
    return enabled != kFalse;
  }
  RecordNr RecordOf(const SchemaField& field) const {
    const bool isOfNetwork = field.table == 21 || field.table == 53 || field.table == 75 || field.table == 78;
    return isOfNetwork ? CLng(provider.Get("CurrentNetworkNr")) : 1;
  }
  std::string Outcome(std::string_view uiid, const Variant& value, RecordNr record, Button answer);
  /// The pairs whose state was not that of the control's own condition, with the value stored.
  void Edit(std::string_view uiid, Pairs& different) {
    const SchemaField& field = provider.FieldOf(uiid);
    const RecordNr record = RecordOf(field);
    const Variant value = DrawValue(field);
    messenger.Clear();
    if (!Validate(uiid, value, record)) return;
    provider.Set(field, record, validated);
    for (const auto& [control, enabled] : messenger.EnabledStates()) {
      if (enabled != IsEnabled(control, record)) different.insert(PairOf(uiid, control));
    }
  }

  /// The pairs of the version that the table wants to differ.
  Pairs Wanted() const {
    Pairs wanted;
    for (const auto& row : modvalSwitches::Rows()) {
      const bool isThere = provider.GetSchema().Find(row.edited) != nullptr;
      if (row.wanted != nullptr && isThere) wanted.insert(PairOf(row.edited, row.control));
    }
    return wanted;
  }
  /// Those that differ in one of many random personalities.
  Pairs Different() {
    Pairs different;
    std::set<std::string_view> edited;
    for (const auto& row : modvalSwitches::Rows()) {
      if (provider.GetSchema().Find(row.edited) != nullptr) edited.insert(row.edited);
    }
    messenger.AlwaysAnswer(Button::Yes);
    for (int round = 0; round < 150; ++round) {
      for (const std::string_view uiid : edited) {
        DrawState();
        Edit(uiid, different);
      }
    }
    return different;
  }

  std::set<const SchemaField*> read_;
  std::mt19937 random_{20};
};

/// Whoever changes a push or a condition so that they part has to say why in the table, and takes the reason
/// away when they agree again.
TEST_F(Switches, GiveTheStateOfTheControlsConditionWhereNoOtherIsWanted) {
  EXPECT_THAT(Different(), UnorderedElementsAreArray(Wanted()));
}

/// Some fields went with that version.
class OldSwitches : public Switches {
 protected:
  OldSwitches() : Switches("KD4410.0081") {}
};

TEST_F(OldSwitches, DifferForAReasonAlone) {
  const Pairs wanted = Wanted();
  EXPECT_TRUE(wanted.contains("DATASDMAUTOACK > DATASDMAUTOACKDELAY"));
  EXPECT_THAT(Different(), testing::IsSubsetOf(wanted));
}

/// Whose questions only a No declines; a box closed without an answer lets the edit go on.
const std::set<std::string_view> kOnlyNoDeclines = {"EMCYCLINGTYPE", "TXPOWER_K6K"};

/// What an edit came to, with every question answered so, and nothing kept.
std::string Switches::Outcome(std::string_view uiid, const Variant& value, RecordNr record, Button answer) {
  Journal journal(provider);
  messenger.AlwaysAnswer(answer);
  StartTrail();
  std::string outcome = (Validate(uiid, value, record) ? "passes: " : "is refused: ") + Trail();
  journal.Rollback();
  return outcome;
}

/// What rules ask about beside the fields of conditions.
constexpr const char* kAskedAbout[] = {
    "ChannelCompanding", "ChannelANR",         "ChannelEncryption",    "TrailingANI_k6k",
    "TxPower_k6k",       "ThirdToneReset_k6k", "MonitorOverrides_k6k", "HookswitchMonitorOverrides_k6k",
    "DataTMFlowControl", "DataCCDIPort"};

TEST_F(Switches, AQuestionClosedWithoutAnAnswerIsANoUnlessOnlyANoDeclines) {
  for (const char* field : kAskedAbout) read_.insert(&provider.FieldOf(field));
  std::set<std::string_view> asked;
  for (int round = 0; round < 150; ++round) {
    for (const std::string_view uiid : modvalFields::UIIDs()) {
      if (provider.GetSchema().Find(uiid) == nullptr) continue;
      DrawState();
      provider.Set("5.TXCallBurstSeq", 1, Draw(0, 1) == 0 ? "None" : "12");
      const SchemaField& field = provider.FieldOf(uiid);
      const Variant value = DrawValue(field);
      const RecordNr record = RecordOf(field);
      const std::string closed = Outcome(uiid, value, record, Button::Cancel);
      if (messenger.Questions().empty()) continue;
      asked.insert(uiid);
      const Button asIf = kOnlyNoDeclines.contains(uiid) ? Button::Yes : Button::No;
      EXPECT_EQ(closed, Outcome(uiid, value, record, asIf)) << uiid;
    }
  }
  EXPECT_GE(asked.size(), 14U) << testing::PrintToString(asked);
}

TEST_F(Switches, AreWhatTheConditionsOfSignallingReadBesideTheNamedOnes) {
  std::set<std::string> pushed;
  provider.Set("CurrentNetworkNr", 1, 2);
  provider.Fill("37.T99NetworkID", {4});
  for (const int type : {0, 3}) {
    messenger.Clear();
    EXPECT_TRUE(Validate("SignallingType", type, 2));
    for (const auto& [control, enabled] : messenger.EnabledStates()) {
      EXPECT_TRUE(pushed.insert(UpperCase(control) + (type == 0 ? "" : "3")).second) << control << " twice";
      EXPECT_EQ(enabled, IsEnabled(control, 2)) << control << " of type " << type;
    }
  }
  for (const char* control :
       {"NetworkSignallingID", "AutoAckDelay", "InhibitPTTWhenCallInactive_k6k",
        "InhibitEPTT1WhenCallInactive_k6k", "InhibitEPTT2WhenCallInactive_k6k", "AlertRingPattern1",
        "T99AllCallAlertDuration", "ExternalAlertPtrAll_k6k", "EmCyclingANI", "EmCalloutNumber"}) {
    EXPECT_TRUE(pushed.contains(UpperCase(control))) << control;
  }
  EXPECT_FALSE(pushed.contains("NOACKRETRYNUMBER")) << "its condition reads another field";
}
}  // namespace
