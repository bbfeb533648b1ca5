#include <algorithm>
#include <map>

#include "host/IenablementReasons.h"
#include "tests/channels/ChannelFixture.h"
#include "tests/workbench/FileHelpers.h"
#include "validation/ConditionWords.h"
#include "validation/modvalEnablement.h"
#include "workbench/schema/Schema.h"

namespace {
using Settings = std::vector<std::pair<const char*, Variant>>;

class Enablement : public ChannelFixture {
 protected:
  void SetUp() override {
    ChannelFixture::SetUp();
    GiveNetworks({0, 1, 2, 3, 4});
    GiveChannels({11, 12});
    provider.SetCount(16, 2);
    provider.SetCount(29, 2);
    provider.SetCount(37, 2);
    provider.SetCount(48, 2);
  }
  bool IsEnabled(std::string_view uiid, RecordNr record = 1) {
    Boolean enabled = kFalse;
    EXPECT_TRUE(Validator()->GetEnabledStatebyUIID(uiid, record, enabled).Ok());
    return enabled != kFalse;
  }
  EnablementReason ReasonOf(std::string_view uiid, RecordNr record = 1) {
    EnablementReason reason;
    EXPECT_TRUE(
        std::dynamic_pointer_cast<IenablementReasons>(Validator())->ReasonByUIID(uiid, record, reason).Ok());
    return reason;
  }
};

/// Settings add up within a group; the fields are those of record 1, pointers choose the rest.
TEST_F(Enablement, FollowsTheFieldsThatARuleNames) {
  const struct {
    Settings given;
    const char* uiid;
    bool enabled;
  } cases[] = {
      {{{"CurrentNetworkNr", 2}}, "SelcallRMRAlert", true},
      {{{"CurrentNetworkNr", 3}}, "SelcallRMRAlert", false},
      {{}, "SignallingOnPTTPress_k6k", true},
      {{{"CurrentNetworkNr", 4}}, "SignallingOnPTTPress_k6k", false},
      {{}, "ALERTRINGPATTERNALL", false},
      {{}, "T99AllCallRxCadence", false},
      {{}, "MonitorCallReceived_k6k", true},  // two-tone needs no sequence
      {{{"CurrentNetworkNr", 1}}, "NetworkSignallingID", false},
      // The time fields are on when they are not 0, a tick at 1 alone.
      {{{"TxDurationTimer", 30}}, "TxLockoutTimer", true},
      {{{"TxDurationTimer", 0}}, "TxLockoutTimer", false},
      {{{"ToneBlankingTimer", 2}}, "NetworkToneBlanking", false},
      {{{"EmergencyEnabled", 1}, {"53.SignallingTypeUI", "None"}, {"EmCalloutType", 2}},
       "EmCalloutNumber",
       false},
      {{{"53.SignallingTypeUI", "DTMF"}}, "EmCalloutNumber", true},
      {{{"EmCalloutNumber", 1}}, "EmCalloutRepeatInterval", false},
      {{{"EmCalloutNumber", 2}}, "EmCalloutRepeatInterval", true},
      {{{"EmCalloutType", 0}}, "EmCalloutRepeatInterval", false},
      {{{"EmCalloutType", 1}, {"EmCalloutNumber", 1}}, "EmCalloutRepeatInterval", true},
      {{{"EmergencyEnabled", 1}}, "StealthIndicator", false},  // never
      {{{"RxSignalling_k6k", "None"}, {"TxSignalling_k6k", "None"}, {"SIBTEnabled_k6k", 1}},
       "ChannelSIBTEnabled_k6k",
       true},
      {{{"TxSignalling_k6k", "C67.0"}}, "ChannelSIBTEnabled_k6k", false},
      {{{"RxFreq_k6k", "000.000000"}}, "TxInhibit_k6k", false},
      {{{"RxFreq_k6k", "450.000000"}}, "TxInhibit_k6k", true},
      {{{"Band_k6k", 2}}, "NoiseBlanker_k6k", true},
      {{{"Band_k6k", 3}}, "NoiseBlanker_k6k", false},
      {{{"Band_k6k", 8}}, "RFCompliance", true},
      {{{"GroupType_k6k", 0}, {"ScanType_k6k", 1}}, "ScanTxChannelSelect_k6k", true},
      {{{"ScanType_k6k", 0}}, "ScanTxChannelSelect_k6k", false},
      {{}, "ScanPresetTxChannel_k6k", true},
      {{{"ScanType_k6k", 2}}, "ScanPresetTxChannel_k6k", false},
      {{{"T99Custom_k6k", 0}, {"T99TableFormat_k6k", 1}}, "T99ToneD_k6k", true},
      {{}, "T99MaxAllCallTonePeriod_k6k", false},
      {{{"ToneSet", 9}}, "CustomFrequenciesA", true},
      {{{"CurrentSelcallNumber", 2}}, "CustomFrequenciesA", false},
      {{{"FunctionKey2", 21}}, "FK2Parameter2", true},
      {{{"FunctionKey2", 20}}, "FK2Parameter1", false},
      {{{"1108.Action", "Alarm Status"}}, "AlarmStunned", true},
      {{{"1108.Action", "alarm status"}}, "AlarmStunned", false},
      {{}, "ActionParamPresetGroup", false},
      {{}, "ChannelNetworkID_k6k", true},
  };
  for (const auto& row : cases) {
    for (const auto& [field, value] : row.given) provider.Set(field, 1, value);
    EXPECT_EQ(IsEnabled(row.uiid), row.enabled)
        << row.uiid << (row.given.empty() ? "" : row.given.back().first);
  }
}

TEST_F(Enablement, ReadsTheRecordThatTheRuleMeans) {
  provider.Set("ChannelNetworkID_k6k", 2, 3);
  EXPECT_FALSE(IsEnabled("DTMFPresetCallSequence", 1));
  EXPECT_TRUE(IsEnabled("DTMFPresetCallSequence", 2)) << "the network of the channel that is drawn";
  provider.Fill("GroupType_k6k", {0, 1});
  provider.Fill("PriorityScan_k6k", {0, 1});
  provider.Set("CurrentScanGroupNr", 1, 2);
  EXPECT_TRUE(IsEnabled("GroupVote", 1)) << "the current group";
  EXPECT_FALSE(IsEnabled("Priority1Channel_k6k", 1)) << "the group that is drawn";
  EXPECT_TRUE(IsEnabled("Priority1Channel_k6k", 2));
}

TEST_F(Enablement, AControlWithoutItsRecordsIsEnabled) {
  EXPECT_TRUE(IsEnabled("TxInhibit_k6k", 3));  // drawn before its channel exists
  EXPECT_TRUE(IsEnabled("DTMFPresetCallSequence", 3));
  EXPECT_TRUE(IsEnabled("TxInhibit_k6k", 0));
  provider.Set("CurrentNetworkNr", 1, 6);
  EXPECT_TRUE(IsEnabled("SelcallRMRAlert"));
  provider.SetCount(1107, 0);  // no current records at all
  for (const char* uiid : {"SelcallRMRAlert", "GroupVote", "CustomFrequencies0", "EmCyclingNumber"}) {
    EXPECT_TRUE(IsEnabled(uiid)) << uiid;
  }
  EXPECT_FALSE(IsEnabled("StealthIndicator"));
}

/// Each code that a condition can ask for is called as it is where values are shown and typed.
TEST_F(Enablement, CallsCodesAsTheyAreTyped) {
  const ValidatorRef validator(Tier().get());
  const ConditionWords words(validator);
  int named = 0;
  for (const SchemaField& field : ProjectSchemas()->At("KD4410.0094")->Fields()) {
    if (field.type != FieldType::Integer || field.uiids.empty()) continue;
    for (std::int32_t code = field.minimum; code <= std::min(field.maximum, 20); ++code) {
      const std::int32_t codes[] = {code};
      const std::string told =
          words.Of({.kind = Condition::Kind::OneOf, .field = field.uiids.front(), .codes = codes});
      const auto typed = field.words == nullptr ? std::nullopt : field.words->WordOf(code);
      const std::string name = told.substr(told.rfind(" is ") + 4);
      if (name == std::to_string(code)) continue;
      ++named;
      EXPECT_EQ(name, typed.value_or("nothing")) << field.id << " " << code;
    }
  }
  EXPECT_GT(named, 20);
}

/// All conditions as a technician reads them, with the records that they ask: network 3, group 4 and Selcall
/// system 2 are current, channel 5 is drawn, which is of network 1. What changes a condition changes a line
/// of the file.
TEST_F(Enablement, IsWhatTheListOfConditionsTells) {
  provider.Set("CurrentNetworkNr", 1, 3);
  provider.Set("CurrentScanGroupNr", 1, 4);
  provider.Set("CurrentSelcallNumber", 1, 2);
  for (const std::int32_t table : {29, 37, 48}) provider.SetCount(table, 4);
  provider.SetCount(16, 5);
  provider.SetCount(5, 5);
  std::map<std::string, std::string> controls;
  for (const auto& row : modvalEnablement::Rows()) {
    const EnablementReason reason = ReasonOf(row.uiid, 5);
    std::string words = reason.condition;
    for (const EnablementReading& reading : reason.readings)
      words += " [" + std::to_string(reading.record) + "]";
    controls[words] += " " + std::string(row.uiid);
  }
  std::string told;
  for (const auto& [words, names] : controls) told += words + ":" + names + "\n";
  EXPECT_EQ(told, ContentOf(SOURCE_FOLDER "/../tests/validation/conditions.txt"));
}

TEST_F(Enablement, SaysWhyInTheWordsOfTheForms) {
  provider.Set("CurrentNetworkNr", 1, 3);
  provider.Set("EmergencyEnabled", 3, 1);
  const EnablementReason toggle = ReasonOf("stealthtogglecycling");
  EXPECT_EQ(toggle.enabled, kFalse);
  EXPECT_EQ(toggle.condition, "Emergency Enabled is on and Signalling Type is Selcall");
  EXPECT_EQ(toggle.missing, "Signalling Type is Selcall");
  ASSERT_EQ(toggle.readings.size(), 2U);
  EXPECT_EQ(toggle.readings[1].record, 3);
  EXPECT_EQ(CStr(toggle.readings[1].value), "2");

  const EnablementReason monitor = ReasonOf("MonitorCallReceived_k6k");
  EXPECT_NE(monitor.condition.find(" or (Signalling Type is Selcall and ("), std::string::npos)
      << monitor.condition;
  provider.Set("CurrentNetworkNr", 1, 4);
  EXPECT_EQ(ReasonOf("MonitorCallReceived_k6k").missing, "");
  EXPECT_EQ(ReasonOf("TxInhibit_k6k", 9).readings[0].exists, kFalse);
  EXPECT_EQ(ReasonOf("TxFreq_k6k").condition, "");
  EXPECT_EQ(ReasonOf("StealthIndicator").missing, "never");
}
}  // namespace
