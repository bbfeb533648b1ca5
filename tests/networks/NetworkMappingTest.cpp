#include <limits>

#include "networks/modNetworks.h"
#include "tests/channels/ChannelFixture.h"

namespace {
class NetworkMapping : public ChannelFixture {};

TEST_F(NetworkMapping, TheNumberGoesToTheEmergencySettingsTooAndBackToItsPointers) {
  GiveNetworks({0, 0});
  provider.Set("21.NetworkPointer", 2, 7);
  EXPECT_TRUE(ToUI("21.NetworkIDTracker", 2));
  EXPECT_EQ(std::get<std::string>(provider.Get("21.NetworkIDTracker", 2)), "7");
  EXPECT_EQ(Text("EmNetworkID", 2), "7");
  provider.Set("21.NetworkIDTracker", 2, "9");
  EXPECT_TRUE(FromUI("21.NetworkIDTracker", 2));
  EXPECT_EQ(Text("21.NetworkPointer", 2) + Text("21.SIBTPointer", 2), "91");
}

TEST_F(NetworkMapping, SystemsAreIndicesInTheRadioAndIdentitiesOnTheForm) {
  GiveNetworks({1});
  provider.Fill("29.SelcallID", {"40", "90"});
  provider.Fill("37.T99NetworkID", {4, 8});
  provider.Fill("80.MDC1200SignallingSystemID", {4, 7});
  const std::tuple<int, int, const char*> toForm[] = {{0, 1, "None"}, {1, 1, "90"}, {1, 2, ""},
                                                      {1, -1, ""},    {2, 1, "9"},  {3, 1, "8"},
                                                      {4, 1, "7"},    {4, 2, ""},   {5, 0, "None"}};
  for (const auto& [type, index, shown] : toForm) {
    provider.Set("21.SignallingType", 1, type);
    EXPECT_EQ(OnForm("21.SignallingPointer", index, "21.NetworkSignallingID"), shown) << type << " " << index;
  }
  const std::tuple<int, const char*, const char*> fromForm[] = {
      {1, "9", "1"}, {1, "90", "0"}, {1, "None", "0"}, {0, "9", "0"},
      {2, "9", "1"}, {3, "8", "1"},  {4, "7", "1"}};
  for (const auto& [type, identity, index] : fromForm) {
    provider.Set("21.SignallingType", 1, type);
    provider.Set("21.SignallingPointer", 1, 3);
    EXPECT_EQ(InRadio("21.NetworkSignallingID", identity, "21.SignallingPointer"), index) << type << identity;
  }
}

/// One choice of the form is two switches of the radio; what no choice stands for leaves the form as it was.
TEST_F(NetworkMapping, SignallingWithPTTIsOneChoiceOfTwoSwitches) {
  struct Side {
    const char *form, *ani, *tone;
    int aniOn;
  };
  for (const auto& [form, ani, tone, aniOn] :
       {Side{"21.SignallingOnPTTPress", "21.LeadingANI", "21.PTTPressRepeaterAccessTone", 2},
        Side{"21.SignallingOnPTTRelease_k6k", "21.TrailingANI", "21.AutoOverBeep", 1}}) {
    for (const auto& [choice, aniRaw, toneRaw] :
         {std::tuple{0, 0, 0}, std::tuple{1, aniOn, 0}, std::tuple{2, 0, 1}, std::tuple{7, 0, 1}}) {
      EXPECT_EQ(InRadio(form, choice, ani), std::to_string(aniRaw)) << form << choice;
      EXPECT_EQ(Text(tone), std::to_string(toneRaw)) << form << choice;  // 7 is no choice: as before
      EXPECT_EQ(OnForm(tone, toneRaw, form), std::to_string(choice == 7 ? 2 : choice));
    }
    provider.Set(ani, 1, aniOn);
    EXPECT_EQ(OnForm(tone, 1, form), "1");  // the ANI decides first
    provider.Set(ani, 1, 0);
    EXPECT_EQ(OnForm(tone, 5, form), "1");
  }
}

TEST_F(NetworkMapping, TheEmergencyTypeComesFromTheNetworkAndGoesToItsSettings) {
  for (const auto& [type, text] : {std::pair{0, "None"}, std::pair{3, "Two-Tone"}, std::pair{4, "MDC1200"}}) {
    EXPECT_EQ(OnForm("21.SignallingType", type, "53.SignallingTypeUI"), text);
    EXPECT_EQ(InRadio("53.SignallingTypeUI", text, "53.SignallingType"), std::to_string(type));
  }
  EXPECT_EQ(OnForm("21.SignallingType", 9, "53.SignallingTypeUI"), "MDC1200");
  EXPECT_EQ(InRadio("53.SignallingTypeUI", "mdc1200", "53.SignallingType"), "4");
}

TEST_F(NetworkMapping, TonesAreTenthsOfAHertzInTheRadio) {
  struct Tone {
    const char *raw, *form;
    const char* hertz;   ///< of 10005
    const char* tenths;  ///< of "1000.25"
  };
  for (const Tone& tone :
       {Tone{"53.TxBeginToneFreq", "53.TxBeginToneFreqUI", "1000", "10002"},
        Tone{"53.TxEndToneFreq", "53.TxEndToneFreqUI", "1000", "10002"},
        Tone{"21.AutoOverBeepFrequency", "21.AutoOverBeepFrequencyUI", "1000.5", "10002.5"},
        Tone{"78.CWIDToneFrequency", "78.CWIDToneFrequencyDerived", "1000.5", "10002.5"}}) {
    EXPECT_EQ(OnForm(tone.raw, 10005, tone.form), tone.hertz);
    EXPECT_EQ(InRadio(tone.form, "1000.25", tone.raw), tone.tenths) << tone.form;
  }
  DecimalComma comma;
  EXPECT_EQ(InRadio("78.CWIDToneFrequencyDerived", "440,5", "78.CWIDToneFrequency"), "4405");
}

TEST_F(NetworkMapping, OneFieldForBothSidesIsConvertedOnceACall) {
  provider.Set("53.TxBeginToneFreq", 1, 10000);
  modNetworks::GetTxCyclingBegin(ProviderRef(sharedProvider), "53.TxBeginToneFreq", 1);
  EXPECT_EQ(Text("53.TxBeginToneFreq"), "1000");
  modNetworks::SetTxCyclingBegin(ProviderRef(sharedProvider), "53.TxBeginToneFreq", 1);
  EXPECT_EQ(Text("53.TxBeginToneFreq"), "10000");
}

TEST_F(NetworkMapping, TheLongestCyclingTimeIsForAFixedNumberOfCycles) {
  provider.Fill("EmCyclingRxTime", {5});
  provider.Fill("EmCyclingTxTime", {7});
  provider.Fill("EmCyclingNumber", {3});
  for (const auto& [type, shown] : {std::pair{0, "-"}, std::pair{1, "-"}, std::pair{2, "36"}}) {
    EXPECT_EQ(OnForm("EmCyclingType", type, "53.EmCyclingMaxTime"), shown);
  }
}

TEST_F(NetworkMapping, TheEmergencyChannelIsAnIndexInTheRadioAndANumberOnTheForm) {
  GiveChannels({11, 12});
  provider.Set("53.ChannelType", 1, 1);
  for (const auto& [index, shown] :
       {std::pair{0, "11"}, std::pair{1, "12"}, std::pair{2, "11"}, std::pair{1, "12"}, std::pair{-1, "11"},
        std::pair{std::numeric_limits<std::int32_t>::max(), "11"}}) {
    EXPECT_EQ(OnForm("53.ChannelRecordNr", index, "53.ChannelIDTracker"), shown) << index;
  }
  for (const auto& [number, index] :
       {std::pair{"12", "1"}, std::pair{"None", "0"}, std::pair{"12", "1"}, std::pair{"99", "0"}}) {
    EXPECT_EQ(InRadio("53.ChannelIDTracker", number, "53.ChannelRecordNr"), index) << number;
  }
  EXPECT_EQ(OnForm("53.ChannelType", 0, "53.ChannelIDTracker"), "None");
  provider.Set("53.ChannelType", 1, 1);
  provider.SetCount(5, 0);
  EXPECT_TRUE(ToUI("53.ChannelIDTracker"));
  EXPECT_EQ(Text("EmChannel"), "None");
}
}  // namespace
