#include "tests/channels/ChannelFixture.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t kA4 = 0, kB1 = 1, kD1 = 3, kH5 = 5, kK5 = 8, kL3 = 9;  // places in the band list
constexpr std::string_view kTx = "TxFreq_k6k";
constexpr std::string_view kRx = "RxFreq_k6k";

const std::string kOutside = "The value entered is outside the allowable range for this band%0:S MHz.";
const std::string kNear = kOutside + "  Do you wish to continue?";
const std::string kStep = QuestionBox(
    "This frequency is not a standard channel increment,i.e. not divisible by 6.25, 5, 3.125, or 2.5 kHz. "
    "%1:SDo you still want to continue?",
    "6.25, 5, 3.125 or 2.5|\r\n");

class FrequencyRule : public ChannelFixture {
 protected:
  /// Two channels; the second, with frequencies already, is the one in hand.
  void SetUp() override {
    ChannelFixture::SetUp();
    GiveChannels({11, 12});
    UseBand(kB1);
  }
  void UseBand(std::int32_t position) { provider.Set("Band_k6k", 1, position); }
  bool Edit(std::string_view uiid, const Variant& value) { return Validate(uiid, value, 2); }
  std::string Left() const { return CStr(validated); }
};

TEST_F(FrequencyRule, TheDecimalSymbolGoesBehindTheThirdDigitUnlessItStandsEarlier) {
  const std::pair<Variant, std::string_view> cases[] = {
      {"150", "150.000000"},        {"1501", "150.100000"},   {"150.125", "150.125000"},
      {"1501.25", "150.125000"},    {"150125", "150.125000"}, {"15012.5", "150.125000"},
      {"  150.125 ", "150.125000"}, {"150.", "150.000000"},   {"150.1249999", "150.125000"},
      {150, "150.000000"},          {150.125, "150.125000"},  {150125, "150.125000"},
      {"15012500000", "150.125000"}};
  for (const auto& [typed, left] : cases) {
    EXPECT_TRUE(Edit(kTx, typed)) << CStr(typed);
    EXPECT_EQ(Left(), left);
    EXPECT_EQ(Text(kTx, 2), left);
  }
  EXPECT_EQ(Text(kTx, 1), "430.000000");
  EXPECT_THAT(Boxes(), IsEmpty());
  EXPECT_FALSE(Edit(kTx, "0150.5"));  // 15.05 MHz
  EXPECT_THAT(Boxes(), ElementsAre(ErrorBox(kOutside, " 136-174")));
}

TEST_F(FrequencyRule, BothSymbolsAreReadWhereTheUsersIsAComma) {
  const DecimalComma comma;
  for (const std::string_view typed : {"150,125", "150.125", "1501,25", "1501.25", "150125"}) {
    EXPECT_TRUE(Edit(kTx, typed));
    EXPECT_EQ(Left(), "150,125000") << typed;
  }
  EXPECT_TRUE(Edit(kTx, "0,0"));
  EXPECT_EQ(Left(), "000,000000");
  EXPECT_FALSE(Edit(kTx, "150,1.2"));
}

TEST_F(FrequencyRule, WhatIsNoNumberIsRefused) {
  for (const std::string_view typed :
       {"abc", "", " ", "150.1.2", "150,5", "1E2", "&H96", "150 125", "--150", "1,501.25", ".", "150MHz"}) {
    StartTrail();
    EXPECT_FALSE(Edit(kRx, typed)) << typed;
    EXPECT_THAT(Boxes(), ElementsAre(ErrorBox("Invalid frequency format"))) << typed;
    EXPECT_EQ(Trail(), "box");
    EXPECT_EQ(Left(), typed);
  }
}

TEST_F(FrequencyRule, ZeroClearsTheFrequencyAndTheInhibitWithoutAnyCheck) {
  UseBand(kK5);
  const Variant zeros[] = {"0", "0.0", "0000", "0.0000001", "-0", 0};
  for (const std::string_view uiid : {kTx, kRx}) {
    const std::string own = uiid == kTx ? "5.ChannelTxFreqUI" : "5.ChannelRxFreqUI";
    for (const Variant& typed : zeros) {
      SCOPED_TRACE(CStr(typed));
      provider.Set(uiid, 2, "800.000000");
      provider.Set("TxInhibit_k6k", 2, 1);
      StartTrail();
      EXPECT_TRUE(Edit(uiid, typed));
      EXPECT_EQ(Left(), "000.000000");
      EXPECT_EQ(Text(uiid, 2), "000.000000");
      EXPECT_EQ(Text("TxInhibit_k6k", 2), "0");
      EXPECT_EQ(Switched(), "-TxInhibit_k6k");
      EXPECT_EQ(Trail(), own + "[2] 5.TxInhibit_k6k[2] refresh:TxInhibit_k6k enable:TxInhibit_k6k");
    }
  }
}

TEST_F(FrequencyRule, SubBandsDecideBetweenSilenceAQuestionAndARefusal) {
  enum Place { kInside, kClose, kFar };
  const std::string_view k5Rx = " 762-776 850-870", k5Tx = " 762-776 792-825 850-870";
  const std::tuple<int, std::string_view, std::string_view, Place, std::string_view> cases[] = {
      // clang-format off
      {kK5, kRx, "762", kInside, ""}, {kK5, kRx, "776", kInside, ""}, {kK5, kRx, "761", kClose, k5Rx},
      {kK5, kRx, "776.00625", kClose, k5Rx}, {kK5, kRx, "777", kClose, k5Rx},
      {kK5, kRx, "777.00625", kFar, k5Rx}, {kK5, kRx, "760.99375", kFar, k5Rx},
      {kK5, kRx, "849", kClose, k5Rx}, {kK5, kRx, "850", kInside, ""}, {kK5, kRx, "871", kClose, k5Rx},
      {kK5, kRx, "800", kFar, k5Rx}, {kK5, kTx, "800", kInside, ""}, {kK5, kTx, "780", kFar, k5Tx},
      {kK5, kTx, "791", kClose, k5Tx}, {kL3, kRx, "896", kFar, " 935-941"}, {kL3, kTx, "896", kInside, ""},
      {kL3, kRx, "942", kClose, " 935-941"}, {kA4, kRx, "61", kClose, " 66-88"},
      {kA4, kTx, "93.00625", kFar, " 66-88"}, {kA4, kRx, "77", kInside, ""},
      {kH5, kTx, "390", kClose, " 400-470"}, {kH5, kTx, "389.99375", kFar, " 400-470"},
      // clang-format on
  };
  for (const bool isFactory : {false, true}) {
    provider.SetFactoryMode(isFactory);
    for (const auto& [band, uiid, typed, place, list] : cases) {
      SCOPED_TRACE(std::string(uiid).append(" ").append(typed));
      UseBand(band);
      const bool asks = place == kClose || (isFactory && place == kFar);
      for (const Button answer : {Button::No, Button::Yes}) {
        provider.Set(kTx, 2, "1");
        messenger.Clear();
        if (asks) messenger.Play({answer});
        const bool isAccepted = place == kInside || (asks && answer == Button::Yes);
        EXPECT_EQ(Edit(uiid, typed), isAccepted);
        EXPECT_EQ(Left() == typed, !isAccepted);
        EXPECT_EQ(Text(kTx, 2) == "1", !isAccepted || uiid == kRx);
        const std::string box = asks ? QuestionBox(kNear, list) : ErrorBox(kOutside, list);
        EXPECT_EQ(Boxes(), std::vector<std::string>(place == kInside ? 0 : 1, box));
      }
    }
  }
}

TEST_F(FrequencyRule, AFrequencyOffTheStepsNeedsConsent) {
  for (const std::string_view onStep : {"150.00625", "150.005", "150.003125", "150.0025", "150.0125"}) {
    EXPECT_TRUE(Edit(kTx, onStep)) << onStep;
  }
  EXPECT_THAT(Boxes(), IsEmpty());
  for (const std::string_view offStep : {"150.001", "150.003126", "150.000001"}) {
    messenger.Clear();
    provider.Set(kTx, 2, "1");
    messenger.Play({Button::No, Button::Yes});
    EXPECT_FALSE(Edit(kTx, offStep));
    EXPECT_EQ(Text(kTx, 2), "1");
    EXPECT_TRUE(Edit(kTx, offStep));
    EXPECT_EQ(CDbl(provider.Get(kTx, 2)), CDbl(offStep));
    EXPECT_THAT(Boxes(), ElementsAre(kStep, kStep));
  }
}

TEST_F(FrequencyRule, TheRangeIsAskedBeforeTheStepAndANoEndsIt) {
  messenger.Play({Button::Yes, Button::No, Button::No});
  EXPECT_FALSE(Edit(kTx, "175.001"));
  EXPECT_FALSE(Edit(kTx, "175.001"));
  const std::string near = QuestionBox(kNear, " 136-174");
  EXPECT_THAT(Boxes(), ElementsAre(near, kStep, near));
  CloseEveryBox();  // no refusal of the range, and no consent to the step
  EXPECT_TRUE(Edit(kTx, "175"));
  EXPECT_FALSE(Edit(kTx, "150.001"));
}

TEST_F(FrequencyRule, TheTransmitFrequencyOfANewChannelFollows) {
  const std::tuple<int, Variant, Variant, std::string, bool> cases[] = {
      {kB1, "000.000000", "000.000000", "150", true},
      {kB1, "", "", "150", true},
      {kB1, 0, 0.0, "150", true},
      {kB1, "151", "000.000000", "150", false},
      {kB1, "000.000000", "151", "150", false},
      {kK5, "000.000000", "000.000000", "770", false},
      {kL3, "000.000000", "000.000000", "936", true}};
  for (const auto& [band, oldRx, oldTx, typed, follows] : cases) {
    SCOPED_TRACE(CStr(oldRx) + " " + CStr(oldTx));
    UseBand(band);
    provider.Set(kRx, 2, oldRx);
    provider.Set(kTx, 2, oldTx);
    provider.Set("TxInhibit_k6k", 2, 1);
    messenger.Clear();
    EXPECT_TRUE(Edit(kRx, typed));
    EXPECT_EQ(Text(kTx, 2), follows ? typed + ".000000" : CStr(oldTx));
    EXPECT_EQ(Text(kRx, 2), typed + ".000000");  // the control's condition reads it
    EXPECT_EQ(Text("TxInhibit_k6k", 2), "1");
    EXPECT_EQ(Switched(), "+TxInhibit_k6k");
    EXPECT_EQ(messenger.Refreshed().size(), follows ? 1U : 0U);
  }
}

TEST_F(FrequencyRule, TheMaritimeRangeIsANoticeBeforeTheFrequencyIsWritten) {
  EXPECT_TRUE(Edit(kRx, "156.8"));  // not new: nothing goes to the transmit side
  EXPECT_THAT(Boxes(), IsEmpty());
  StartTrail();
  EXPECT_TRUE(Edit(kTx, "156.8"));
  EXPECT_THAT(Boxes(), ElementsAre(NoticeBox(kMaritimeNotice)));
  EXPECT_EQ(Trail(), "box 5.ChannelTxFreqUI[2]");

  provider.Set(kRx, 2, 0);
  provider.Set(kTx, 2, 0);
  StartTrail();
  EXPECT_TRUE(Edit(kRx, "1568"));
  EXPECT_EQ(Text(kTx, 2), "156.800000");
  EXPECT_EQ(Trail(), "box 5.ChannelTxFreqUI[2] 5.ChannelRxFreqUI[2] refresh:TxFreq_k6k enable:TxInhibit_k6k");
}

TEST_F(FrequencyRule, ADistressFrequencyMayBeReceivedButNotTransmitted) {
  for (const auto& [band, typed] : {std::pair{kD1, "243.000000"}, {kH5, "406.050000"}}) {
    SCOPED_TRACE(typed);
    UseBand(band);
    provider.Set(kRx, 2, "0");
    provider.Set(kTx, 2, "0");
    for (const std::string_view uiid : {kRx, kTx}) {
      StartTrail();
      EXPECT_EQ(Edit(uiid, typed), uiid == kRx);
      EXPECT_THAT(Boxes(), ElementsAre(ErrorBox(kDistressError)));
      EXPECT_EQ(Trail(), "box");
    }
    provider.Set(kTx, 2, "400");
    messenger.Clear();
    EXPECT_TRUE(Edit(kRx, typed));
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_EQ(Switched(), "+TxInhibit_k6k");
  }
}
}  // namespace
