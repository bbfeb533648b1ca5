#include <tuple>

#include "platform/Error.h"
#include "platform/XArrayDBObject.h"
#include "signalling/modType99.h"
#include "tests/channels/ChannelFixture.h"

namespace {
using modType99::kPeriodFields;
using testing::ElementsAre;
using testing::IsEmpty;

ArrayObject Rows(std::vector<Variant> rows) {
  rows.emplace(rows.begin());  // row 0 is unused
  auto array = std::make_shared<XArrayDBObject>();
  array->TakeColumn(std::move(rows));
  return array;
}

constexpr int kMOT = 0, kCNE = 1;
constexpr const char* kListed[] = {"T99ToneA_k6k", "T99ToneB_k6k", "T99ToneC_k6k", "T99ToneD_k6k"};
constexpr const char* kCustom[] = {"T99CustomToneA_k6k", "T99CustomToneB_k6k", "T99CustomToneC_k6k",
                                   "T99CustomToneD_k6k"};

/// Two systems, 4 and 9; tests work with the second one, which the forms show.
class TwoTone : public ChannelFixture {
 protected:
  void SetUp() override {
    ChannelFixture::SetUp();
    provider.Fill("T99NetworkID_k6k", {4, 9});
    provider.Set("CurrentType99Nr", 1, 2);
    GiveSystem(kMOT, false);
    SetPeriods({200, 1000, 0, 500, 200, 1000, 1000, 8000});
  }
  void GiveSystem(int format, bool custom) {
    provider.Set("T99TableFormat_k6k", 2, format);
    provider.Set("T99Custom_k6k", 2, custom ? 1 : 0);
  }
  void SetTones(const char* const (&fields)[4], const std::vector<const char*>& hertz) {
    for (std::size_t i = 0; i < 4; ++i) provider.Set(fields[i], 2, hertz[i]);
  }
  std::string Tones(const char* const (&fields)[4]) const {
    std::string texts;
    for (const char* field : fields) texts += (texts.empty() ? "" : " ") + Text(field, 2);
    return texts;
  }
  void SetPeriods(const std::vector<int>& periods) {
    for (std::size_t i = 0; i < periods.size(); ++i) provider.Set(kPeriodFields[i].id, 2, periods[i]);
  }
  std::string Periods() const {
    std::string texts;
    for (const auto& field : kPeriodFields) texts += (texts.empty() ? "" : " ") + Text(field.id, 2);
    return texts;
  }
  std::string RowsOf(const char* field) const {
    const XArrayDBObject& rows = CArray(provider.Get(field, 2));
    std::string texts;
    for (std::int32_t row = 1; row <= rows.UpperBound(1); ++row) {
      texts += (row == 1 ? "" : " ") + CStr(rows.GetValue(row, 0));
    }
    return texts;
  }
};

TEST_F(TwoTone, TheRadioGetsTonesTheirBoundsAndTheirOrder) {
  const struct {
    int format;
    bool custom;
    std::vector<const char*> shown;
    const char *tones, *lowest, *highest, *order, *mixing;
  } cases[] = {
      {kMOT,
       false,
       {"1285.8", "510.5", "746.8", "1881.0"},
       "12858 5105 7468 18810",
       "5030 7393 12783 31000",
       "5180 7543 12933 31000",
       "2 3 1 4",
       "1413"},
      {kCNE,
       true,
       {"517.5", "0", "517.5", "300"},
       "5175 0 5175 3000",  // equal ones keep their order
       "0 2925 5100 5100",
       "0 3075 5250 5250",
       "2 4 1 3",
       "1100"},
      {kCNE,
       false,
       {"", "1014.9", "967.4", "0"},
       "0 10149 9674 0",  // whole tenths, whatever the double
       "0 0 9599 10074",
       "0 0 9749 10224",
       "1 4 3 2",
       "1100"},
      {kMOT, true, {"0", "0", "0", "0"}, "0 0 0 0", "0 0 0 31000", "0 0 0 31000", "1 2 3 4", "1413"},
  };
  for (const auto& one : cases) {
    GiveSystem(one.format, one.custom);
    SetTones(one.custom ? kCustom : kListed, one.shown);
    SetTones(one.custom ? kListed : kCustom, {"999", "998", "997", "996"});  // the other set plays no part
    EXPECT_TRUE(FromUI("37.T99TableFreq", 2));
    EXPECT_EQ(RowsOf("37.T99TableFreq"), one.tones);
    EXPECT_EQ(RowsOf("37.T99ToneSetLowerBound"), one.lowest);
    EXPECT_EQ(RowsOf("37.T99ToneSetUpperBound"), one.highest);
    EXPECT_EQ(RowsOf("37.T99ToneSetRemapTable"), one.order);
    EXPECT_EQ(Text("37.T99ToneSetMixingFreq", 2), one.mixing);
  }
}

TEST_F(TwoTone, AToneWhoseBoundsAreNoNumbersOfTheRadioIsAFault) {
  ExpectTermination();
  GiveSystem(kMOT, true);
  SetTones(kCustom, {"214748364.7", "0", "0", "0"});
  provider.Set("37.T99TableFreq", 2, Rows({1}));
  EXPECT_TRUE(FromUI("37.T99TableFreq", 2));
  EXPECT_EQ(Terminations(), 1);
}

TEST_F(TwoTone, TheFormsShowWhatTheFormatAllows) {
  const struct {
    int format;
    Variant stored;
    const char* shown;
  } cases[] = {
      {kMOT, Rows({2885, 24682, 0, 18810}), "288.5 2468.2 0 1881.0"},
      {kMOT, Rows({2884, 24683, -5, 31000}), "0 0 0 0"},
      {kCNE, Rows({1, 9675, 9676, 3130, 7777}), "0.1 967.5 0 313.0"},  // the fifth row is not read
      {kCNE, Rows({5175}), "517.5 0 0 0"},
      {kMOT, "5175", "0 0 0 0"},
  };
  for (const bool custom : {false, true}) {
    for (const auto& one : cases) {
      GiveSystem(one.format, custom);
      provider.Set("37.T99TableFreq", 2, one.stored);
      SetTones(kListed, {"1", "2", "3", "4"});
      SetTones(kCustom, {"1", "2", "3", "4"});
      EXPECT_TRUE(ToUI("37.T99TableFreq", 2));
      EXPECT_EQ(Tones(custom ? kCustom : kListed), one.shown);
      EXPECT_EQ(Tones(custom ? kListed : kCustom), "0 0 0 0");
    }
  }
  const DecimalComma comma;
  provider.Set("37.T99TableFreq", 2, Rows({10005, 0, 0, 0}));
  EXPECT_TRUE(ToUI("37.T99TableFreq", 2));
  EXPECT_EQ(Text("T99CustomToneA_k6k", 2), "1000,5");
  EXPECT_TRUE(FromUI("37.T99TableFreq", 2));
  EXPECT_EQ(RowsOf("37.T99TableFreq"), "10005 0 0 0");
}

TEST_F(TwoTone, OneConversionMovesAllPeriodsThatTheFormatHas) {
  SetPeriods({4, 20, 0, 10, 4, 20, 20, 160});
  EXPECT_TRUE(ToUI("T99MinFirstTonePeriod_k6k", 2) && ToUI("37.T99MinFirstTonePeriod", 2));
  EXPECT_EQ(Periods(), "10000 50000 0 25000 10000 50000 50000 400000") << "each call moves them";
  SetPeriods({220, 1000, 75, 500, 200, 1024, 1000, 8000});
  EXPECT_TRUE(FromUI("37.T99MinFirstTonePeriod", 2));
  EXPECT_EQ(Periods(), "4 20 2 10 4 20 20 160");
  EXPECT_FALSE(ToUI("37.T99MaxGapPeriod", 2)) << "one field carries the number";
  GiveSystem(kCNE, false);
  EXPECT_TRUE(ToUI("37.T99MinFirstTonePeriod", 2));
  EXPECT_EQ(Periods(), "200 1000 100 500 200 1000 20 160") << "no calls to all: nothing to convert";
}

TEST_F(TwoTone, AnotherFormatTakesTonesAndGivesPeriodsUnasked) {
  GiveSystem(kMOT, true);
  SetTones(kListed, {"288.5", "0", "0", "0"});
  SetTones(kCustom, {"1000.0", "1100.0", "0", "0"});
  EXPECT_TRUE(Validate("T99TableFormat_k6k", kMOT, 2));
  EXPECT_EQ(Tones(kCustom) + Refreshed() + Switched(), "1000.0 1100.0 0 0") << "the same one resets nothing";
  EXPECT_TRUE(Validate("T99TableFormat_k6k", kCNE, 2));
  EXPECT_EQ(Tones(kCustom) + " " + Tones(kListed), "0 0 0 0 0 0 0 0");
  EXPECT_EQ(Periods(), "500 1500 0 500 500 4000 0 0");
  EXPECT_THAT(Refreshed(), testing::StartsWith("T99CustomToneA_k6k T99CustomToneB_k6k"));
  EXPECT_EQ(Switched(),
            "-T99MinAllCallTonePeriod_k6k-T99MaxAllCallTonePeriod_k6k-T99ToneD_k6k+T99CustomToneD_k6k");
  messenger.Clear();
  EXPECT_TRUE(Validate("T99TableFormat_k6k", kMOT, 2));
  EXPECT_EQ(Periods(), "500 5000 0 500 2000 12000 7000 12000");
  EXPECT_EQ(Switched(),
            "+T99MinAllCallTonePeriod_k6k+T99MaxAllCallTonePeriod_k6k-T99ToneD_k6k-T99CustomToneD_k6k");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(TwoTone, APeriodKeepsToItsFormatAndToItsPartner) {
  const auto range = [](const char* fill) {
    return ErrorBox("The %0:S must be a value within the range %1:S to %2:S %3:S ", fill);
  };
  const auto step = [](const char* fill) { return ErrorBox("The %0:S must have a step of %1:S %2:S", fill); };
  const auto notOneStep = [](const char* fill) {
    return ErrorBox(
        "A duration of %0:S is not allowed.  Enter a value within the range 100 and %1:S, or 0 for no "
        "duration.",
        fill);
  };
  const auto exceeds = [](const char* fill) {
    return ErrorBox("The value of %0:S cannot exceed the value of %1:S", fill);
  };
  const std::tuple<int, const char*, int, std::string> cases[] = {
      {kMOT, "T99MinFirstTonePeriod_k6k", 150, range("Minimum First Tone Period|200|1000|ms")},
      {kMOT, "T99MinFirstTonePeriod_k6k", 1000, ""},
      {kMOT, "T99MinFirstTonePeriod_k6k", 1001, range("Minimum First Tone Period|200|1000|ms")},
      {kMOT, "T99MinFirstTonePeriod_k6k", 975, step("Minimum First Tone Period|50|ms")},
      {kMOT, "T99MaxFirstTonePeriod_k6k", 12000, ""},
      {kCNE, "T99MaxFirstTonePeriod_k6k", 4050, range("Maximum First Tone Period|1000|4000|ms")},
      {kMOT, "T99MinGapPeriod_k6k", 50, notOneStep("50|200")},
      {kMOT, "T99MinGapPeriod_k6k", 0, ""},
      {kMOT, "T99MinGapPeriod_k6k", 100, ""},
      {kMOT, "T99MaxGapPeriod_k6k", 50, notOneStep("50|1000")},
      {kMOT, "T99MinSecondTonePeriod_k6k", 1050,
       exceeds("Minimum Second Tone Period|Maximum Second Tone Period")},
      {kMOT, "T99MinSecondTonePeriod_k6k", 1000, ""},  // as long as the longest
      {kCNE, "T99MinAllCallTonePeriod_k6k", 0, ""},
      {kCNE, "T99MinAllCallTonePeriod_k6k", 50, range("Minimum All Call Tone Period|0|0|ms")},
      {kMOT, "T99MaxAllCallTonePeriod_k6k", 7950, range("Maximum All Call Tone Period|8000|12000|ms")},
  };
  for (const auto& [format, uiid, ms, box] : cases) {
    GiveSystem(format, false);
    messenger.Clear();
    EXPECT_EQ(Validate(uiid, ms, 2), box.empty()) << uiid << ms;
    EXPECT_EQ(Boxes(), box.empty() ? std::vector<std::string>() : std::vector<std::string>{box});
  }
  provider.Set("T99MinGapPeriod_k6k", 2, 200);
  messenger.Clear();
  EXPECT_FALSE(Validate("T99MaxGapPeriod_k6k", 150, 2));
  EXPECT_THAT(Boxes(), ElementsAre(exceeds("Minimum Gap Period|Maximum Gap Period")));
}

TEST_F(TwoTone, ACustomToneIsAFrequencyThatTheFormatTakes) {
  const auto excluded =
      ErrorBox("Values in the range %1:S to %2:S %3:S are not valid.", "Custom Tone B|1397.5|1431.5|Hz");
  const auto below = ErrorBox("Values below %0:S %1:S are not valid.", "288.5|Hz");
  const auto noNumber = ErrorBox("Invalid frequency format");
  const auto decimals = ErrorBox("The number of decimal places allowed for this field is %0:S.", "1");
  const std::tuple<int, const char*, std::string> cases[] = {
      {kMOT, "abc", noNumber},
      {kMOT, "", noNumber},
      {kMOT, "0", ""},
      {kMOT, "0.0", ""},
      {kMOT, "288.4", below},
      {kMOT, "288.5", ""},
      {kMOT, "-5", below},
      {kMOT, "1014.9", ""},
      {kMOT, "1014.95", decimals},
      {kMOT, "1014.90", ""},
      {kMOT, "1397.4", ""},
      {kMOT, "1397.5", excluded},
      {kMOT, "1400", excluded},
      {kMOT, "1431.5", excluded},
      {kMOT, "1431.6", ""},
      {kMOT, "2468.2", ""},
      {kMOT, "2468.3", ErrorBox("Values above %0:S %1:S are not valid.", "2468.2|Hz")},
      {kCNE, "0.1", ""},
      {kCNE, "967.5", ""},
      {kCNE, "967.6", ErrorBox("Values above %0:S %1:S are not valid.", "967.5|Hz")},
      {kCNE, "-0.1", ErrorBox("Values below %0:S %1:S are not valid.", "0|Hz")},
  };
  for (const auto& [format, hertz, box] : cases) {
    GiveSystem(format, true);
    messenger.Clear();
    EXPECT_EQ(Validate("T99CustomToneB_k6k", hertz, 2), box.empty()) << hertz;
    EXPECT_EQ(Boxes(), box.empty() ? std::vector<std::string>() : std::vector<std::string>{box}) << hertz;
  }
  const DecimalComma comma;
  GiveSystem(kMOT, true);
  messenger.Clear();
  EXPECT_TRUE(Validate("T99CustomToneB_k6k", "1014,9", 2));
  EXPECT_FALSE(Validate("T99CustomToneB_k6k", "1397,5", 2));
  EXPECT_THAT(Boxes(), ElementsAre(ErrorBox("Values in the range %1:S to %2:S %3:S are not valid.",
                                            "Custom Tone B|1397,5|1431,5|Hz")));
}

TEST_F(TwoTone, TheFormIsLeftWithTonesThatCanBeToldApart) {
  const auto unique = ErrorBox("Each tone must have a unique frequency.");
  const auto apart = ErrorBox("Each tone must be %0:S%1:S or more apart.", "15|Hz");
  const std::tuple<bool, std::vector<const char*>, std::string> cases[] = {
      {true, {"1015.0", "0", "0", "1000.0"}, ""},
      {true, {"1014.9", "500", "", "1000.0"}, apart},
      {true, {"1000.0", "500", "700", "1000"}, unique},
      {true, {"1000.0", "1000", "1005", "700"}, unique},  // the first fault ends the walk
      {true, {"690.0", "1000", "1000", "700"}, apart},
      {true, {"-214748364", "500", "214748364", "700"}, ""},  // of a file
      {false, {"1000.0", "1000", "1000", "1000"}, ""},
  };
  for (const auto& [custom, hertz, box] : cases) {
    GiveSystem(kMOT, custom);
    SetTones(kCustom, hertz);
    messenger.Clear();
    EXPECT_EQ(LeaveForm("usrCtlType99", true), box.empty());
    EXPECT_EQ(Boxes(), box.empty() ? std::vector<std::string>() : std::vector<std::string>{box});
  }
  GiveSystem(kMOT, true);
  SetTones(kCustom, {"1", "1", "1", "1"});
  for (const int other : {1, 3, 0}) {
    provider.Set("CurrentType99Nr", 1, other);
    EXPECT_TRUE(LeaveForm("usrCtlType99", false)) << other;
  }
}

TEST_F(TwoTone, ANewSystemHasAFreeNumberAndTheDefaultsOfItsFormat) {
  provider.Fill("T99NetworkID_k6k", {1, 3});
  Add("Type99", 37);
  EXPECT_EQ(Column("T99NetworkID_k6k"), "1 3 2");
  EXPECT_EQ(Text("T99MaxAllCallTonePeriod_k6k", 3) + " " + Text("T99CustomToneD_k6k", 3), "12000 0");
  EXPECT_EQ(Switched(), "+T99MinAllCallTonePeriod_k6k+T99MaxAllCallTonePeriod_k6k");
}

TEST_F(TwoTone, ASystemGoesUnlessANetworkUsesIt) {
  GiveNetworks({3, 2});
  provider.Fill("21.NetworkSignallingID", {"9", "4"});  // the 4 of the second is a DTMF system
  EXPECT_FALSE(Delete(2, "Type99"));
  EXPECT_THAT(Boxes(),
              ElementsAre(ErrorBox(
                  "This Two Tone System is being used on one or more Networks and can not be deleted")));
  // The system shown, of so many, before the host deletes the first.
  const std::tuple<int, RecordNr, const char*> cases[] = {
      {2, 2, "1"}, {1, 2, "1"}, {2, 3, "2"}, {3, 3, "2"}, {1, 1, "1"}};
  for (const auto& [shown, count, now] : cases) {
    provider.SetCount(37, count);
    provider.Set("CurrentType99Nr", 1, shown);
    EXPECT_TRUE(Delete(1, "Type99"));
    EXPECT_EQ(Text("CurrentType99Nr"), now) << shown << count;
  }
}

TEST(TwoToneFormats, WhatIsNoFormatPeriodOrConstraintIsAnError) {
  const auto faultOf = [](auto ask) {
    try {
      ask();
    } catch (const Error& error) {
      return std::to_string(error.Number()) + " " + error.Reason().source + ": " + error.Reason().description;
    }
    return std::string();
  };
  using namespace modType99;
  EXPECT_EQ(faultOf([] { GetMixingFrequency(2); }), "5 modType99.GetMixingFrequency: Unsupported format 2");
  EXPECT_EQ(faultOf([] { GetFrequencyRange(-1); }),
            "5 modType99.GetFrequencyExclusions: Unsupported format -1");  // it names itself so
  const auto limit = [&](int type, int constraint) {
    return faultOf([&] {
      GetToneDurationConstraint(kMOT, static_cast<eDurationType>(type), static_cast<eConstraint>(constraint));
    });
  };
  EXPECT_EQ(limit(7, 4), "");
  for (const int outside : {-1, 8}) {
    EXPECT_THAT(limit(outside, 0), testing::EndsWith("Invalid argument: eDurationType is out of bounds."));
  }
  for (const int outside : {-1, 5}) {
    EXPECT_THAT(limit(0, outside), testing::EndsWith("Invalid argument: eConstraint is out of bounds."));
  }
}
}  // namespace
