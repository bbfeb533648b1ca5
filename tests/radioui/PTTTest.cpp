#include "tests/channels/ChannelFixture.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kField = "25.PTTPriority";
const std::string kSamePriority = "The same PTT Priority has been assigned to more than one PTT.";

class PTT : public ChannelFixture {
 protected:
  /// The form's fields of all three sources.
  std::string OnForm(const std::string& field) const {
    return Text("1096." + field + "1") + " " + Text("1096." + field + "2") + " " +
           Text("1096." + field + "3");
  }
  void GivePriorities(const std::vector<int>& priorities) {
    const char* const kUIIDs[] = {"PTTPriority1_k6k", "PTTPriority2_k6k", "PTTPriority3_k6k"};
    for (std::size_t i = 0; i < 3; ++i) provider.Set(kUIIDs[i], 1, priorities[i]);
  }
};

TEST_F(PTT, SourcesThatWereNeverSetUpShowTheStandard) {
  struct Case {
    const char* what;
    std::vector<Variant> priorities, mics;
    std::string priority, mic;
  };
  const Case cases[] = {
      {"new", {0, 0, 0}, {0, 0, 0}, "2 1 0", "1 2 2"},
      {"the third plays no part", {1, "1", 2}, {2, 2, 0}, "2 1 0", "1 2 2"},
      {"another microphone", {1, 1, 0}, {0, 1, 1}, "1 1 0", "3 0 0"},
      {"another priority", {0, 1, 1}, {2, 2, 1}, "0 1 1", "1 1 0"},
      {"no audio path of that index", {0, 1, 2}, {4, -1, 3}, "0 1 2", "4 -1 2"},
  };
  provider.Fill("59.AudioIOMicSource", {3, 0, 1, 2});
  for (const auto& [what, priorities, mics, priority, mic] : cases) {
    SCOPED_TRACE(what);
    provider.Fill("25.PTTPriority", priorities);
    provider.Fill("25.MicSelect", mics);
    provider.Fill("25.PTTPressCallSetup", {0, 1, "1"});
    ASSERT_TRUE(ToUI(kField));
    EXPECT_EQ(OnForm("PTTPriority"), priority);
    EXPECT_EQ(OnForm("MicSelect"), mic);
    EXPECT_EQ(OnForm("PTTPressCallSetup"), "0 1 1");
  }
  provider.SetCount(25, 2);  // not even all records: what was there is not asked
  provider.SetCount(1096, 0);
  provider.Set("25.PTTPriority", 1, 1);
  provider.Set("25.PTTTransmissionType", 2, 2);
  ASSERT_TRUE(ToUI(kField));
  EXPECT_EQ(
      OnForm("PTTPriority") + " / " + OnForm("PTTPressCallSetup") + " / " + OnForm("PTTTransmissionType"),
      "2 1 0 / 0 0 0 / 1 1 1");
}

TEST_F(PTT, EveryFieldGoesToTheRecordOfItsSourceAsItStands) {
  const SchemaTable& sources = *provider.GetSchema().FindTable(25);
  for (const RecordNr before : {0, 3}) {
    provider.SetCount(25, before);
    provider.Fill("59.AudioIOMicSource", {2, 2, 2, 2});
    int value = 0;
    for (const SchemaField& field : provider.GetSchema().FieldsOf(sources)) {
      for (const char* source : {"1", "2", "3"})
        provider.Set("1096." + std::string(field.Name()) + source, 1, ++value);
    }
    ASSERT_TRUE(FromUI(kField));
    ASSERT_EQ(provider.Count(25), 3);
    value = 0;
    for (const SchemaField& field : provider.GetSchema().FieldsOf(sources)) {
      EXPECT_EQ(Column(field.id), std::to_string(value + 1) + " " + std::to_string(value + 2) + " " +
                                      std::to_string(value + 3));
      value += 3;
    }
    EXPECT_EQ(value, 18);
  }
}

TEST_F(PTT, NoTwoSourcesHaveOnePriorityWhenOneIsTurnedOff) {
  for (const auto& [priorities, areUnique] : {std::pair(std::vector<int>{1, 1, 2}, false),
                                              {{1, 2, 1}, false},
                                              {{2, 1, 1}, false},
                                              {{2, 1, 0}, true},
                                              {{0, 2, 1}, true}}) {
    SCOPED_TRACE(testing::PrintToString(priorities));
    GivePriorities(priorities);
    messenger.Clear();
    EXPECT_EQ(LeaveForm("usrctlPTT", false), areUnique);
    EXPECT_EQ(Validate("PTTTransmissionType2_k6k", "0"), areUnique);
    const std::string box = ErrorBox(kSamePriority);
    EXPECT_EQ(Boxes(), areUnique ? std::vector<std::string>() : std::vector({box, box}));
    messenger.Clear();
    EXPECT_TRUE(Validate("PTTTransmissionType2_k6k", 1));  // whoever talks may share one
    EXPECT_THAT(Boxes(), IsEmpty());
  }
}

TEST_F(PTT, ASourceThatDoesNotTransmitHasNothingElseToSet) {
  for (const std::string source : {"1", "2", "3"}) {
    for (const auto& [type, sign] : {std::pair(0, "-"), {1, "+"}, {2, "+"}}) {
      messenger.Clear();
      EXPECT_TRUE(Validate("PTTTransmissionType" + source + "_k6k", type));
      EXPECT_EQ(Refreshed(), "PTTInhibitedByMicOnHook" + source + "_k6k MicSelect" + source +
                                 "_k6k PTTPriority" + source + "_k6k");
      EXPECT_EQ(Switched(), sign + ("PTTInhibitedByMicOnHook" + source + "_k6k") + sign + "MicSelect" +
                                source + "_k6k" + sign + "PTTPriority" + source + "_k6k");
    }
  }
  GivePriorities({1, 1, 0});
  messenger.Clear();
  EXPECT_FALSE(Validate("PTTTransmissionType1_k6k", 0));
  EXPECT_EQ(Refreshed() + Switched(), "");
  provider.SetCount(1096, 0);
  EXPECT_TRUE(Validate("PTTTransmissionType1_k6k", 0));
}

TEST_F(PTT, WhoTalksIntoATapHasOne) {
  struct Case {
    std::string source;
    RecordNr path;
    std::string box;
  };
  const Case cases[] = {
      {"1", 2,
       "The PTT audio source is set to 'Audio Tap In' but the programmable I/O Mic PTT tap in is set to "
       "'None'.  You must change the setting for the PTT audio source, or set the programmable I/O Mic PTT "
       "tap in."},
      {"2", 3,
       "The External PTT (1) audio source is set to 'Audio Tap In' but the programmable I/O EPTT1 tap in is "
       "set to 'None'.  You must change the setting for the External PTT (1) audio source, or set the "
       "programmable I/O EPTT1 tap in."},
      {"3", 4,
       "The External PTT (2) audio source is set to 'Audio Tap In' but the programmable I/O EPTT2 tap in is "
       "set to 'None'.  You must change the setting for the External PTT (2) audio source, or set the "
       "programmable I/O EPTT2 tap in."}};
  GiveNetworks({1});
  GiveChannels({11});
  for (const auto& [source, path, box] : cases) {
    SCOPED_TRACE(source);
    const std::string mic = "MicSelect" + source + "_k6k", type = "PTTTransmissionType" + source + "_k6k";
    messenger.Clear();
    EXPECT_TRUE(FinalValidation());
    provider.Set(mic, 1, 0);
    EXPECT_FALSE(FinalValidation());
    EXPECT_THAT(Boxes(), ElementsAre(ErrorBox(box)));
    provider.Set(type, 1, 2);  // data
    EXPECT_TRUE(FinalValidation());
    provider.Set(type, 1, 1);
    provider.Set("AudioIOTapIn", path, 19);
    EXPECT_TRUE(FinalValidation());
    provider.Set("AudioIOTapIn", path, 0);
    EXPECT_FALSE(FinalValidation());
    provider.Set(mic, 1, 1);
  }
  provider.Set("MicSelect3_k6k", 1, 0);  // the first of two is told, before the side tones
  provider.Set("MicSelect2_k6k", 1, 0);
  provider.Set("PTTPressCallSetup1_k6k", 1, 1);
  messenger.Clear();
  EXPECT_FALSE(FinalValidation());
  EXPECT_THAT(Boxes(), ElementsAre(ErrorBox(cases[1].box)));
}
}  // namespace
