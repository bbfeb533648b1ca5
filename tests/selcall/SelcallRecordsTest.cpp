#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>

#include "selcall/modControlStatus.h"
#include "selcall/modFreeFormat.h"
#include "selcall/modSelcallRecords.h"
#include "selcall/modvalControlStatus.h"
#include "tests/selcall/BurstFixture.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

/// Systems 2, 5 and 9, the second one on the forms; none is used by a network.
class SelcallRecords : public BurstFixture {
 protected:
  void SetUp() override {
    BurstFixture::SetUp();
    provider.Fill("21.NetworkSignallingID", {"None", "None", "None"});
    for (const std::int32_t table : {29, 31, 48}) provider.SetCount(table, 3);
    provider.SetCount(30, 1 + 3 * 141);
    provider.SetCount(49, 21);
    provider.Fill("29.SignalSystemId", {2, 5, 9});
    provider.Fill("29.SelcallID", {2, 5, 9});
    provider.Fill("RxFormat_k6k", {"RRRRR-SS", "RRRRR-SS", "RRRRR-SS"});
    provider.Fill("TxFormat_k6k", {"RRRRR-SS", "RRRRR-SS", "RRRRR-SS"});
    provider.Fill("31.SelcallToneSignalSystemId", {2, 5, 9});
    provider.Fill("31.ToneSetPointer", {0, 1, 2});
    EXPECT_TRUE(ToUI("30.FixedFormatBurstSeq"));
    messenger.Clear();
  }
  bool DeleteSystem(RecordNr system) {
    if (!Delete(system, "Selcall6000")) return false;
    ProviderRef(sharedProvider).Table("29").DeleteRecord(system);
    return true;
  }
  RecordNr Shown() const { return CLng(provider.Get("CurrentSelcallNumber")); }
  void GiveStatuses(const std::vector<std::array<int, 3>>& statuses) {
    RecordNr record = 0;
    provider.SetCount(32, static_cast<RecordNr>(statuses.size()));
    for (const auto& [identity, value, type] : statuses) {
      provider.Set("32.SignalSystemId", ++record, identity);
      provider.Set("32.Value", record, value);
      provider.Set("32.Type", record, type);
    }
    Open();
  }
  /// As a host reads and saves them.
  void Open() {
    for (const RecordNr record : RecordRange(provider.Count(32)))
      EXPECT_TRUE(ToUI("32.ValueTracker", record));
    EXPECT_TRUE(ToUI("32.Value"));
    provider.Set("CurrentSelcallNumber", 1, 1);
  }
  void Save() {
    EXPECT_TRUE(FromUI("1115.SelcallID"));
    for (const RecordNr record : RecordRange(provider.Count(32)))
      EXPECT_TRUE(FromUI("32.ValueTracker", record));
  }
  void AddStatus() { Add("ControlStatus6000", 1115); }
};

TEST_F(SelcallRecords, AStatusGoesToItsSystemUpToOneThatIsNotThere) {
  GiveStatuses({{9, 7, 1}, {2, 3, 2}, {2, 12, 3}, {4, 1, 4}, {2, 9, 5}});
  EXPECT_EQ(Column("1111.SelcallID") + "|" + Column("1111.ValueTracker"), "3 1 1|7 3 12");
  EXPECT_EQ(Column("1115.SelcallID") + "|" + Column("ControlStatusValue"), "1 1|3 12");
  Save();
  EXPECT_EQ(Column("32.SignalSystemId") + "|" + Column("32.Value") + "|" + Column("32.Type"),
            "2 2 9|3 12 7|2 3 1");
  provider.SetCount(32, 0);
  Open();
  EXPECT_EQ(provider.Count(1111) + provider.Count(1115), 0);
}

TEST_F(SelcallRecords, TheFormIsLeftSortedByNumberAndValue) {
  GiveStatuses({{9, 12, 0}, {9, 2, 1}, {2, 7, 2}});
  Show(3);
  EXPECT_TRUE(provider.SetAutoUpdate(kFalse).Ok());
  messenger.Clear();
  EXPECT_TRUE(LeaveForm("usrCtlControlStatusKE2210", false));
  EXPECT_EQ(Refreshed(), "ControlStatusValue");  // whatever the state was
  Boolean isLoud = kTrue;
  EXPECT_TRUE(provider.AutoUpdate(isLoud).Ok());
  EXPECT_EQ(isLoud, kFalse);
  EXPECT_EQ(Column("ControlStatusValue") + "|" + Column("32.SignalSystemId"), "2 12|2 9 9");
}

TEST_F(SelcallRecords, ATypeIsExchangedOnConsent) {
  GiveStatuses({{2, 3, 0}, {2, 4, 1}, {2, 5, 1}});
  messenger.Play({kYes, kNo});
  messenger.Clear();
  EXPECT_TRUE(Validate("ControlStatusType", "1", 1));
  const std::string question =
      "The Control Status Type must be unique, this type has been used by Control Status Value %0:S. %1:S Do "
      "you want to swap them?";
  EXPECT_THAT(Boxes(), ElementsAre(QuestionBox(question, "4|\r\n")));  // the first one counts
  EXPECT_EQ(Column("1115.Type"), "1 0 1");
  EXPECT_EQ(Refreshed(), "ControlStatusType");
  EXPECT_FALSE(Validate("ControlStatusType", 0, 3));
  EXPECT_TRUE(Validate("ControlStatusType", 7, 3));
  EXPECT_EQ(Column("1115.Type"), "1 0 1");
}

TEST_F(SelcallRecords, AStatusGetsTheLowestValueAndTypeThatAreFree) {
  GiveStatuses({{2, 1, 0}, {2, 2, 1}, {2, 4, 3}});
  AddStatus();
  EXPECT_EQ(Column("ControlStatusValue") + "|" + Column("1115.Type"), "1 2 4 3|0 1 3 2");
  provider.Fill("1115.ValueTracker", {"E", "x", "", "01"});  // a tone is its number, no value is free
  Boolean result = kFalse;
  EXPECT_TRUE(ProviderOwner()->PostInsertProcessing(sharedProvider, "controlStatus6000", 3, result).Ok());
  EXPECT_EQ(Column("ControlStatusValue"), "E x 2 01");
  provider.Set("RxFormat_k6k", 1, "RRRRR");
  EXPECT_TRUE(Validator()->AddRecord("ControlStatus6000", sharedProvider, result).Ok());
  EXPECT_EQ(result, kFalse);
  EXPECT_THAT(Boxes(), ElementsAre(Box(48, "Caption Warning",
                                       "There is no 'S' burst present in the Rx Format for the current "
                                       "signalling system. Please add an 'S' burst before adding a control "
                                       "status.")));
}

TEST_F(SelcallRecords, ANewSystemComesWithAllThatBelongsToIt) {
  provider.SetCount(30, 1 + 3 * 141 + 5);  // a piece of a block lies behind the last system
  provider.Set("30.UGBurstSeq", 1 + 3 * 141 + 2, "12345");
  provider.SetCount(31, 1);
  provider.SetCount(49, 8);
  Add("Selcall6000", 29);
  EXPECT_EQ(provider.Count(31), 4);
  EXPECT_EQ(provider.Count(48), 4);
  EXPECT_EQ(provider.Count(30), 1 + 4 * 141);
  EXPECT_EQ(provider.Count(49), 28);
  const std::string number = Text("SignalSystemId_k6k", 4);
  EXPECT_EQ(number, "1");
  EXPECT_EQ(
      Text("ToneSigSystemID", 4) + Text("30.FixedFormatSigSystemID", 565) + Text("49.FreeFormSigSysID", 28),
      "111");
  EXPECT_EQ(Text("31.ToneSetPointer", 4) + " " + Text("GroupTone", 4) + " " + Text("CustomFrequencies1", 4),
            "3 10 1124");
  EXPECT_EQ(Text("30.UGBurstSeq", 1 + 3 * 141 + 2), "");
  const RecordNr firstCall = Slot(4, Burst::TxCall, 1);
  EXPECT_EQ(Text("30.FixedFormatBurstType", firstCall) + " " + Text("30.FixedFormatBurstID", firstCall),
            "2 0");
  EXPECT_EQ(Text("49.FreeFormSeqID", 28) + Text("49.FreeFormSeqID", 22), "60");
}

TEST_F(SelcallRecords, ASystemThatANetworkUsesStays) {
  provider.Set("21.NetworkSignallingID", 2, 5);
  EXPECT_FALSE(DeleteSystem(2));
  EXPECT_THAT(Boxes(),
              ElementsAre(ErrorBox("This Selcall System is being used on one or more Networks and can "
                                   "not be deleted")));
  EXPECT_EQ(provider.Count(30) + provider.Count(31), 1 + 3 * 141 + 3);
  provider.Set("21.SignallingType", 2, 2);  // a DTMF system of that number
  EXPECT_TRUE(DeleteSystem(2));
}

TEST_F(SelcallRecords, TheFormIsNotLeftWithStatusesOfTwoLengths) {
  const char* refusal = "The Rx Format and Tx Format 'S' burst are not the same length in Selcall %0:S.";
  const auto leave = [&] {
    messenger.Clear();
    return LeaveForm("usrCtlSelcallSetupKD4410", false);
  };
  Show(2);
  EXPECT_TRUE(leave());
  provider.Set("TxFormat_k6k", 2, "RRRRR-S");
  EXPECT_FALSE(leave());
  EXPECT_THAT(Boxes(), ElementsAre(ErrorBox(refusal, "5")));
  provider.Set("RMRBurst_k6k", 2, "123");  // its length is told instead
  EXPECT_TRUE(leave());
  EXPECT_EQ(messenger.Boxes().size(), 1U);
  provider.Set("RMRBurst_k6k", 2, "");
  provider.Set("RxFormat_k6k", 2, "RRRRR");
  EXPECT_TRUE(leave());
  EXPECT_EQ(Refreshed(), "");
  provider.Fill("SignalSystemId_k6k", {5, 2, 9});
  EXPECT_TRUE(LeaveForm("usrCtlSelcallSetupKD4410", true));
  EXPECT_EQ(Column("SignalSystemId_k6k"), "2 5 9");
  EXPECT_TRUE(Refreshed().ends_with("SignalSystemId_k6k")) << Refreshed();
}

/// A walk of edits against a plain model: systems with what is theirs, the statuses of each.
class SelcallWalk : public SelcallRecords {
 protected:
  struct Status {
    int value, rx;
  };
  struct System {
    std::string mark;                // in a burst, a sequence and the tones
    std::map<int, Status> statuses;  // by type
  };
  void Mark(RecordNr system, const std::string& mark) {
    provider.Set("UGBurstSeq", Slot(system, Burst::TxCall, 3), mark);
    provider.Set("49.FreeFormBurstR1_UI", system * 7, mark);
    provider.Set("CustomFrequencies5", system, mark);
    provider.Set("29.DerivedRMRBurst", system, mark);
    provider.Set("31.ToneSetPointer", system, system - 1);
  }
  /// Channel n and preset call n send the marked burst of a system.
  void Send(RecordNr channel, RecordNr system) {
    const RecordNr index = Slot(system, Burst::TxCall, 3) - 1;
    provider.Set("5.TXCallBurst", channel, index);
    provider.Set("76.DSDBM_CHANNEL_SEL_TXCALL_INDEX_POINTER", channel, index);
  }
  std::string Sent(const char* pointer, RecordNr channel) const {
    const RecordNr index = CLng(provider.Get(pointer, channel));
    return index == 0 ? "None" : Text("UGBurstSeq", index + 1);
  }
  RecordNr PlaceOf(int identity) const {
    RecordNr place = 1;
    while (CLng(provider.Get("SignalSystemId_k6k", place)) != identity) ++place;
    return place;
  }
  int IdentityAt(RecordNr place) const { return CLng(provider.Get("SignalSystemId_k6k", place)); }
  System& OnForm() { return model.at(IdentityAt(Shown())); }
  std::size_t Below(std::size_t count) { return random() % count; }
  RecordNr AnySystem() { return static_cast<RecordNr>(Below(model.size())) + 1; }

  void AddSystem() {
    if (model.size() == 4) return;
    Add("Selcall6000", 29);
    const RecordNr place = provider.Count(29);
    const std::string mark = std::to_string(++marks);
    provider.Set("RxFormat_k6k", place, "RRRRR-SS");
    Mark(place, mark);
    EXPECT_TRUE(model.try_emplace(IdentityAt(place), System{mark, {}}).second);
    EXPECT_TRUE(Validate("CurrentSelcallNumber", place));
    provider.Set("CurrentSelcallNumber", 1, place);
  }
  void RemoveSystem() {
    const RecordNr place = AnySystem();
    for (const RecordNr channel : {1, 2, 3}) {
      if (sent[channel] == model.at(IdentityAt(place)).mark) sent[channel] = "None";
    }
    model.erase(IdentityAt(place));
    EXPECT_TRUE(DeleteSystem(place));
    if (model.empty()) AddSystem();
  }
  void AddOne() {
    std::size_t all = 0;
    for (const auto& [identity, system] : model) all += system.statuses.size();
    System& system = OnForm();
    if (all == 64 || system.statuses.size() == 16) return;
    AddStatus();
    const RecordNr row = provider.Count(1115);
    const int type = CLng(provider.Get("1115.Type", row));
    const int rx = static_cast<int>(Below(2));
    provider.Set("1115.Rx", row, rx);
    EXPECT_TRUE(
        system.statuses.try_emplace(type, Status{CLng(provider.Get("1115.ValueTracker", row)), rx}).second);
  }
  RecordNr AnyRow() {
    return static_cast<RecordNr>(Below(static_cast<std::size_t>(provider.Count(1115)))) + 1;
  }
  void RemoveOne() {
    if (provider.Count(1115) == 0) return;
    const RecordNr row = AnyRow();
    OnForm().statuses.erase(CLng(provider.Get("1115.Type", row)));
    ProviderRef(sharedProvider).Table("1115").DeleteRecord(row);
  }
  void EditOne() {
    if (provider.Count(1115) == 0) return;
    const RecordNr row = AnyRow();
    auto& statuses = OnForm().statuses;
    const int old = CLng(provider.Get("1115.Type", row));
    const int type = static_cast<int>(Below(16));
    messenger.Clear();
    const bool asks = type != old && statuses.contains(type);
    if (asks) messenger.Play({kYes});
    EXPECT_TRUE(Validate("ControlStatusType", type, row));
    provider.Set("1115.Type", row, type);
    Status moved = statuses.at(old);
    statuses.erase(old);
    if (asks) statuses[old] = statuses.at(type);
    statuses[type] = moved;
    moved.value = 20 + static_cast<int>(Below(60));
    provider.Set("1115.ValueTracker", row, moved.value);
    statuses[type] = moved;
  }
  void Turn() {
    const RecordNr place = AnySystem();
    EXPECT_TRUE(Validate("CurrentSelcallNumber", place));
    provider.Set("CurrentSelcallNumber", 1, place);
  }
  void Renumber() {
    const RecordNr place = AnySystem();
    const int identity = static_cast<int>(Below(16)) + 1;
    if (model.contains(identity)) return;
    auto system = model.extract(IdentityAt(place));
    system.key() = identity;
    model.insert(std::move(system));
    EXPECT_TRUE(Validate("SignalSystemId_k6k", identity, place));
    provider.Set("SignalSystemId_k6k", place, identity);
  }
  void Redirect() {
    const RecordNr channel = static_cast<RecordNr>(Below(3)) + 1;
    const RecordNr place = AnySystem();
    Send(channel, place);
    sent[channel] = model.at(IdentityAt(place)).mark;
  }
  void Step() {
    switch (Below(12)) {
      case 0:
        return AddSystem();
      case 1:
        return RemoveSystem();
      case 2:
        return RemoveOne();
      case 3:
        return EditOne();
      case 4:
        return Turn();
      case 5:
        return Renumber();
      case 6:
        return Redirect();
      case 7:
        EXPECT_TRUE(LeaveForm("usrCtlControlStatusKD4410", false));
        return;
      case 8:
        EXPECT_TRUE(LeaveForm("usrCtlSelcallSetupKD4410", true));
        return;
      case 9:
        Save();
        Open();
        return Show(1);
      default:
        return AddOne();
    }
  }

  using Rows = std::multiset<std::tuple<int, int, int, int>>;  // identity, type, value, Rx
  Rows Expected() const {
    Rows rows;
    for (const auto& [identity, system] : model) {
      for (const auto& [type, status] : system.statuses)
        rows.emplace(identity, type, status.value, status.rx);
    }
    return rows;
  }
  void AddRows(const std::string& table, RecordNr row, int identity, Rows& rows) const {
    const auto number = [&](const char* field) { return CLng(provider.Get(table + field, row)); };
    rows.emplace(identity, number(".Type"), number(".ValueTracker"), number(".Rx"));
  }
  Rows OnForms() const {
    Rows rows;
    for (const RecordNr row : RecordRange(provider.Count(1111))) {
      const RecordNr place = CLng(provider.Get("1111.SelcallID", row));
      if (place != Shown()) AddRows("1111", row, IdentityAt(place), rows);
    }
    for (const RecordNr row : RecordRange(provider.Count(1115)))
      AddRows("1115", row, IdentityAt(Shown()), rows);
    return rows;
  }
  void ExpectSound() {
    ASSERT_EQ(provider.Count(29), static_cast<RecordNr>(model.size()));
    ASSERT_TRUE(Shown() >= 1 && Shown() <= provider.Count(29));
    EXPECT_TRUE(OnForms() == Expected());
    for (const auto& [identity, system] : model) {
      const RecordNr place = PlaceOf(identity);
      EXPECT_EQ(Text("UGBurstSeq", Slot(place, Burst::TxCall, 3)), system.mark);
      EXPECT_EQ(Text("49.FreeFormBurstR1_UI", place * 7) + Text("29.DerivedRMRBurst", place),
                system.mark + system.mark);
      EXPECT_EQ(Text("CustomFrequencies5", CLng(provider.Get("31.ToneSetPointer", place)) + 1), system.mark);
      EXPECT_EQ(Text("30.FixedFormatSigSystemID", Slot(place, Burst::LeadIn, 5)), std::to_string(identity));
    }
    EXPECT_EQ(Text("BurstSequence2_k6k", 3), model.at(IdentityAt(Shown())).mark);
    for (const RecordNr channel : {1, 2, 3}) {
      EXPECT_EQ(Sent("5.TXCallBurst", channel), sent[channel]);
      EXPECT_EQ(Sent("76.DSDBM_CHANNEL_SEL_TXCALL_INDEX_POINTER", channel), sent[channel]);
    }
  }

  std::mt19937 random;
  std::map<int, System> model;
  std::map<RecordNr, std::string> sent = {{1, "None"}, {2, "None"}, {3, "None"}};
  int marks = 3;
};

TEST_F(SelcallWalk, NoStatusIsLostOrMovedAndWhatBelongsToASystemStaysWithIt) {
  GiveChannels({1, 2, 3});
  provider.SetCount(76, 3);
  for (const RecordNr place : {1, 2, 3}) {
    Mark(place, std::to_string(place));
    model[IdentityAt(place)] = {std::to_string(place), {}};
  }
  Open();
  Show(1);
  for (int step = 0; step < 3000 && !HasFailure(); ++step) {
    Step();
    ExpectSound();
    if (HasFailure()) ADD_FAILURE() << "at step " << step;
  }
}
}  // namespace
