#include <gmock/gmock.h>

#include "selcall/modToneSets.h"
#include "tests/selcall/BurstFixture.h"

namespace {
using testing::ElementsAre;

/// Two systems, of which the second one is on the forms.
class ToneRules : public BurstFixture {
 protected:
  void SetUp() override {
    BurstFixture::SetUp();
    provider.SetCount(48, 2);
  }
  /// The frequencies of system 2 by tone code.
  std::string Frequencies() const {
    std::string text;
    for (const auto& field : modToneSets::kFrequencyFields) text += Text(field.id, 2) + " ";
    return text;
  }
};

TEST_F(ToneRules, ABaseSetBringsItsSixteenFrequenciesInTheOrderOfTheCodes) {
  messenger.Clear();
  EXPECT_TRUE(Validate("BasedOnToneSet", 7, 2));
  EXPECT_EQ(Frequencies(), "1633 631 697 770 852 941 1040 1209 1336 1477 1995 571 2205 2437 1805 2694 ");
  EXPECT_TRUE(Refreshed().starts_with("CustomFrequencies0 CustomFrequencies1 "));
  EXPECT_TRUE(Validate("BasedOnToneSet", 9, 2));
  EXPECT_TRUE(Frequencies().starts_with("571 680 741 825 "));
  const std::string before = Frequencies();
  EXPECT_TRUE(Validate("BasedOnToneSet", 10, 2));
  EXPECT_EQ(Frequencies(), before);
  EXPECT_EQ(Text("CustomFrequencies0", 1), "1981");
}

TEST_F(ToneRules, AFrequencyThatAnotherCodeHasIsExchanged) {
  EXPECT_TRUE(Validate("BasedOnToneSet", 7, 2));
  messenger.Clear();
  EXPECT_TRUE(Validate("CustomFrequencies3", "2694.0", 2));  // of F, by its number
  provider.Set("CustomFrequencies3", 2, "2694");
  EXPECT_EQ(Frequencies(), "1633 631 697 2694 852 941 1040 1209 1336 1477 1995 571 2205 2437 1805 770 ");
  EXPECT_EQ(Refreshed(), "CustomFrequenciesF");
  provider.Set("CustomFrequencies9", 2, "571");  // two codes have it: the lower one counts
  EXPECT_TRUE(Validate("CustomFrequenciesA", "571", 2));
  EXPECT_EQ(Text("CustomFrequencies9", 2) + " " + Text("CustomFrequenciesB", 2), "1995 571");
  messenger.Clear();
  EXPECT_TRUE(Validate("CustomFrequencies0", "1633", 2));  // its own
  EXPECT_TRUE(Validate("CustomFrequencies0", "1000", 2));
  EXPECT_EQ(Refreshed(), "");
}

TEST_F(ToneRules, UserDefinedTonesAreNotToBeTakenForEachOther) {
  const auto leave = [&] {
    messenger.Clear();
    return LeaveForm("usrCtlSelcallToneSettings", false);
  };
  const auto refusal = [](const char* pair) {
    return Box(48, "Invalid Tone Frequencies", "Frequency %0:S is too close to frequency %1:S", pair);
  };
  EXPECT_TRUE(Validate("BasedOnToneSet", 9, 2));
  provider.Set("BasedOnToneSet", 2, 9);
  EXPECT_TRUE(leave());
  provider.Set("CustomFrequenciesF", 2, "740");  // beside the 741 of code 2
  EXPECT_FALSE(leave());
  EXPECT_THAT(Boxes(), ElementsAre(refusal("741|740")));
  provider.Set("CustomFrequenciesF", 2, "2110");
  for (const auto& [field, hertz] : {std::pair{"CustomFrequencies3", "740"}, {"CustomFrequencies1", "742"}}) {
    provider.Set("CustomFrequencies1", 2, "680");
    provider.Set("CustomFrequencies3", 2, "825");
    provider.Set(field, 2, hertz);  // beside it in code, too; 742 is no tone of the set
    EXPECT_EQ(leave(), std::string_view(hertz) == "742");
  }
  provider.Set("CustomFrequenciesF", 2, "741");  // the same limits do not lie within each other
  EXPECT_TRUE(leave());
  provider.Set("CustomFrequenciesF", 2, "742");  // no tone of the set
  EXPECT_TRUE(leave());
  provider.Set("CustomFrequenciesF", 2, "740");
  for (const auto& base : {Variant(8), Variant("Undefined")}) {
    provider.Set("BasedOnToneSet", 2, base);
    EXPECT_TRUE(leave());
  }
  provider.Set("BasedOnToneSet", 2, 9);
  Show(1);
  EXPECT_TRUE(leave());  // the other system's
}
}  // namespace
