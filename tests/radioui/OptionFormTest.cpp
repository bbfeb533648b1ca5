#include "platform/XArrayDBObject.h"
#include "radioui/modDisplayIndicators.h"
#include "tests/channels/ChannelFixture.h"

namespace {
using testing::ElementsAre;

class OptionForm : public ChannelFixture {};

TEST_F(OptionForm, ThePublicAddressTimerIsInMinutes) {
  EXPECT_EQ(OnForm("34.PATimerRaw", 90, "34.PATimer"), "1.5");
  EXPECT_EQ(OnForm("34.PATimerRaw", 100, "34.PATimer"), "1.66666666666667");
  const DecimalComma comma;
  EXPECT_EQ(InRadio("34.PATimer", "1,5", "34.PATimerRaw"), "90");
}

TEST_F(OptionForm, SilentWinsOverQuiet) {
  const std::tuple<int, int, const char*> toForm[] = {{0, 0, "0"}, {0, 1, "1"}, {1, 0, "2"}, {1, 1, "2"}};
  for (const auto& [silent, quiet, mode] : toForm) {
    provider.Set("SilentMode", 1, silent);
    EXPECT_EQ(OnForm("QuietMode", quiet, "34.UIPrefsAudibleMode"), mode);
  }
  for (const auto& [mode, ticks] : {std::pair("2", "1 0"), {"1", "0 1"}, {"0", "0 0"}}) {
    InRadio("34.UIPrefsAudibleMode", mode, "SilentMode");
    EXPECT_EQ(Row({"SilentMode", "QuietMode"}), ticks);
  }
}

TEST_F(OptionForm, APINIsThreeRowsAndNoneIsAnEmptyArray) {
  const auto give = [&](int lock) {
    provider.Set("SecurityLockOnPowerUp", 1, lock);
    provider.Set("SecurityPIN1", 1, 7);
    provider.Set("SecurityPIN3", 1, 9 * lock);
  };
  const auto shown = [&] {
    EXPECT_TRUE(ToUI("22.SecurityLockOnPowerUp"));
    return Row({"SecurityLockOnPowerUp", "SecurityPIN1", "SecurityPIN2", "SecurityPIN3"});
  };
  for (const Variant& noPIN : {provider.Get("22.SecurityPIN"), Variant("123"), Variant(ArrayObject())}) {
    give(1);
    provider.Set("22.SecurityPIN", 1, noPIN);
    EXPECT_EQ(shown(), "0 0 0 0");
  }
  give(1);
  EXPECT_TRUE(FromUI("22.SecurityLockOnPowerUp"));
  EXPECT_EQ(CArray(provider.Get("22.SecurityPIN")).LowerBound(1), 1);
  give(0);
  EXPECT_EQ(shown(), "1 7 0 9");
  give(0);
  EXPECT_TRUE(FromUI("22.SecurityLockOnPowerUp"));
  EXPECT_EQ(CArray(provider.Get("22.SecurityPIN")).UpperBound(1), -1);
  EXPECT_EQ(shown(), "0 0 0 0");
}

TEST_F(OptionForm, MicGainsAreWholeNumbersInTwoRows) {
  provider.Set("MaxAudio1", 1, "100");
  provider.Set("MaxAudio2", 1, 2.5);
  EXPECT_TRUE(FromUI("44.MaxAudioLevel"));
  provider.Set("MaxAudio1", 1, 5);
  EXPECT_TRUE(ToUI("44.MaxAudioLevel"));
  provider.Set("44.MaxAudioLevel", 1, std::make_shared<const XArrayDBObject>());
  EXPECT_TRUE(ToUI("44.MaxAudioLevel"));
  EXPECT_EQ(Row({"MaxAudio1", "MaxAudio2"}), "100 2");
}

TEST_F(OptionForm, EachRecordTakesTheIndicatorOfItsNumberAndOthersAreAFault) {
  for (RecordNr record = 1; record <= 20; ++record) EXPECT_TRUE(FromUI("10.IndicatorLabel", record));
  EXPECT_EQ(Text("10.IndicatorLabel", 15) + Text("10.IndicatorMode", 15), "OL2");
  StartTrail();
  EXPECT_TRUE(FromUI("10.IndicatorLabel", 21));
  EXPECT_EQ(Trail(), "");
  modDisplayIndicators::DisplayIndicator indicator{};
  EXPECT_FALSE(HarrierDisplayIndicator(0, indicator));
  modDisplayIndicators::Annunciator annunciator{};
  EXPECT_TRUE(HarrierAnnunciator(64, annunciator));
  EXPECT_FALSE(HarrierAnnunciator(65, annunciator));
  EXPECT_EQ(std::tuple(annunciator.mode, annunciator.duration, annunciator.number), std::tuple(1, 0, 1));
  const auto box = [](const char* text) { return Box(16, "Unknown Error", text); };
  EXPECT_THAT(ServiceBoxes(),
              ElementsAre(box("Could not get Display Indicators for indicator number 21"),
                          box("Could not get Display Indicators for indicator number 0"),
                          box("Could not get LED Annunciator settings for annunciator number 65")));
}

TEST_F(OptionForm, ABacklightThatIsAlwaysOnTakesItsTimerOffTheKeys) {
  const auto edit = [&](const Variant& mode, std::vector<Button> answers) {
    for (const char* key : {"FunctionKey1", "FunctionKey4"}) provider.Set(key, 1, 3);
    provider.Set("FunctionKey2", 1, "5");
    provider.Set("FunctionKey3", 1, 4);
    messenger.Clear();
    messenger.Play(std::move(answers));
    return Validate("BacklightMode", mode);
  };
  const auto keys = [&] { return Row({"FunctionKey1", "FunctionKey2", "FunctionKey3", "FunctionKey4"}); };
  const auto question = [](std::string key) {
    return QuestionBox(
        "Changing this value will set Function %0:S back to 'None'.%1:SDo you still want to continue?",
        key + "|\r\n");
  };
  EXPECT_TRUE(edit(0, {}));
  EXPECT_TRUE(edit("1", {Button::Yes, Button::Yes, Button::Yes}));
  EXPECT_EQ(keys(), "2 2 4 2");
  EXPECT_THAT(Boxes(), ElementsAre(question("1"), question("2"), question("4")));
  EXPECT_EQ(Refreshed(), "FunctionKey1 FunctionKey2 FunctionKey4");
  EXPECT_FALSE(edit(1, {Button::Yes, Button::No}));
  EXPECT_EQ(keys(), "2 5 4 3");
  EXPECT_THAT(Boxes(), ElementsAre(question("1"), question("2")));
  CloseEveryBox();
  EXPECT_FALSE(edit(1, {}));
  EXPECT_EQ(keys(), "3 5 4 3");
}
}  // namespace
