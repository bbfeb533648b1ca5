#include <limits>

#include "selcall/modSelcallMapping.h"
#include "tests/channels/ChannelFixture.h"

namespace {
/// Two systems with seven free-format sequences each, and one sequence more.
class FreeFormat : public ChannelFixture {
 protected:
  void SetUp() override {
    ChannelFixture::SetUp();
    provider.Fill("29.SignalSystemId", {4, 9});
    provider.SetCount(49, 15);
  }
  std::string Tones(std::string_view field) const {
    return modSelcallMapping::NumarrayToString(provider.Get(field));
  }
  void SetTones(std::string_view field, RecordNr record, std::string_view tones) {
    provider.Set(field, record, modSelcallMapping::StringToNumarray(tones));
  }
};

TEST_F(FreeFormat, AStatusOfOneToneIsADecimalNumberOnTheForm) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"", "1", ""},   {"7", "0", "7"},   {"C", "0", "12"}, {"0", "0", "0"},
      {"V", "0", "V"}, {"07", "1", "07"}, {"VV", "1", "V"}};
  for (const auto& [tones, box, shown] : cases) {
    provider.Set("FreeForm2DigitStatus", 1, "unset");
    SetTones("49.FreeFormStatus", 1, tones);
    EXPECT_TRUE(ToUI("49.FreeFormStatus_UI"));
    EXPECT_EQ(Row({"FreeForm2DigitStatus", "49.FreeFormStatus_UI"}), std::string(box) + " " + shown);
    SetTones("49.FreeFormStatus", 1, "99");
    EXPECT_TRUE(FromUI("49.FreeFormStatus_UI"));
    EXPECT_EQ(Tones("49.FreeFormStatus"), tones) << shown;
  }
}

TEST_F(FreeFormat, ABurstIsItsTonesAndAWordForNoneIsEmpty) {
  for (const char* burst : {"49.FreeFormBurstB", "49.FreeFormBurstR1", "49.FreeFormBurstR2",
                            "49.FreeFormBurstR3", "49.FreeFormStatus"}) {
    const std::string form = std::string(burst) + "_UI";
    for (const auto& [typed, tones] : {std::pair{"1F-G", "1F-G"}, {"NONE", ""}, {"Undefined", ""}}) {
      provider.Set(form, 1, typed);
      EXPECT_TRUE(FromUI(form) && ToUI(form));
      EXPECT_EQ(Tones(burst) + " " + Text(form), std::string(tones) + " " + tones) << form;
    }
  }
}

TEST_F(FreeFormat, OpeningMakesTheWholeSequenceOfItsBurstsAndShowsItAtItsSystem) {
  for (const RecordNr record : {13, 14, 15}) {  // the places 6 and 7 of system 2, and 1 of none
    SetTones("49.FreeFormBurstB", record, "B1");
    SetTones("49.FreeFormBurstR3", record, "2G");
    SetTones("49.FreeFormStatus", record, "C");
    provider.Set("49.FreeFormGap1", record, 2);
    provider.Set("49.FreeFormGap3", record, 1);
    provider.Set("49.FreeFormGap4", record, record == 13 ? -1 : 3);
    provider.Set("49.FreeFormActivateMonitor", record, 1);
    for (const SchemaField& field : provider.GetSchema().FieldsOf(*provider.GetSchema().FindTable(49))) {
      EXPECT_TRUE(field.transform == 0 || ToUI(field.id, record)) << field.id;
    }
  }
  EXPECT_EQ(Text("49.FreeFormSequence", 13) + " " + Text("49.FreeFormSequence", 15),
            "B1---2G12 B1---2G---12");
  EXPECT_EQ(Text("49.FreeFormSeqID", 13) + Text("49.FreeFormSeqID", 14) + Text("49.FreeFormSeqID", 15),
            "560");
  EXPECT_EQ(Column("29.FreeFormSequence6") + Column("29.FreeFormSequence7"), " B1---2G12 B1---2G---12");
  EXPECT_EQ(Column("29.FreeFormMonitor7") + Column("29.FreeFormMonitor1"), "0 10 0");
}

TEST_F(FreeFormat, SavingTakesIdentityAndMonitorFlagOfTheSystemWhereThereIsOne) {
  provider.Set("29.FreeFormMonitor7", 1, 1);
  std::string saved;
  for (const RecordNr record : {7, 8, 15}) {
    for (const char* field : {"49.FreeFormSigSysID", "49.FreeFormSeqID"}) provider.Set(field, record, 3);
    EXPECT_TRUE(FromUI("49.FreeFormSequence", record));
    saved += Text("49.FreeFormSigSysID", record) + Text("49.FreeFormSeqID", record) +
             Text("49.FreeFormActivateMonitor", record) + " ";
  }
  EXPECT_EQ(saved, "461 900 330 ");
}

TEST_F(FreeFormat, ARecordOfNoSystemIsNotSaved) {
  for (const RecordNr record : {std::numeric_limits<RecordNr>::min(), std::numeric_limits<RecordNr>::max()}) {
    EXPECT_TRUE(FromUI("49.FreeFormSequence", record));
  }
}
}  // namespace
