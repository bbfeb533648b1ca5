#include "platform/XArrayDBObject.h"
#include "tests/channels/ChannelFixture.h"

namespace {
using testing::StartsWith;
using Settings = std::vector<std::pair<const char*, Variant>>;

const std::string kNoCharacters(8, '\0');

class DataForm : public ChannelFixture {
 protected:
  void Give(const Settings& settings) {
    for (const auto& [field, value] : settings) provider.Set(field, 1, value);
  }
};

TEST_F(DataForm, FlowCharactersAreTwoHexadecimalDigits) {
  for (const auto& [code, shown] : {std::pair(17, "11"), {5, "05"}, {0, "00"}, {255, "FF"}, {300, "2C"}}) {
    EXPECT_EQ(OnForm("9.DataXon", code, "9.DataXonHex"), shown);
  }
  for (const auto& [typed, code] : {std::pair("11", "17"), {"fE", "254"}, {"", "0"}}) {
    EXPECT_EQ(InRadio("9.DATAXOFFHEX", typed, "9.DataXoff"), code);
  }
  EXPECT_EQ(Row({"9.DataXonHex", "9.DataXon"}), "2C 300");  // the other character stays as it is
}

TEST_F(DataForm, TOTALIdentitiesAreHexadecimalDigitsOfTheirOwnWidth) {
  Give({{"9.dataTotalRadioId", 10}, {"9.dataTotalSystemId", 0}, {"9.dataTotalDestinationId", 65535}});
  EXPECT_TRUE(ToUI("9.dataTotalRadioIdHex"));
  EXPECT_EQ(Row({"dataTotalRadioIdHex", "dataTotalSystemIdHex", "dataTotalDestinationIdHex"}),
            "000A 00 FFFF");
  Give({{"dataTotalSystemIdHex", "1f"}, {"dataTotalDestinationIdHex", ""}, {"dataTotalLinkIdHex", "FF"}});
  EXPECT_TRUE(FromUI("9.dataTotalRadioIdHex"));
  EXPECT_EQ(Row({"9.dataTotalRadioId", "9.dataTotalSystemId", "9.dataTotalDestinationId"}), "10 31 00");
  EXPECT_EQ(Text("9.dataTotalLinkId"), "0255");
}

TEST_F(DataForm, NoIdentityIsEightCharactersOfCodeZero) {
  EXPECT_EQ(InRadio("9.DataIdentityUI", "", "9.DataIdentity"), kNoCharacters);
  EXPECT_EQ(InRadio("9.DataIdentityUI", "12345678", "9.DataIdentity"), "12345678");
  EXPECT_EQ(OnForm("9.DataIdentity", "None", "9.DataIdentityUI"), "");
  EXPECT_EQ(OnForm("9.DataIdentity", kNoCharacters, "9.DataIdentityUI"), kNoCharacters);
}

TEST_F(DataForm, AllCallerIdentitiesFollowTheOneThatIsSent) {
  provider.Set("9.SDMEncodeCallerIDEnabled", 1, "1");
  EXPECT_TRUE(FromUI("9.SDMEncodeCallerIDEnabled"));
  EXPECT_TRUE(FromUI("69.GPSCallerIDEnabled"));
  EXPECT_EQ(Row({"9.SDMDecodeCallerIDEnabled", "69.GPSEncodeCallerIDEnabled", "69.GPSDecodeCallerIDEnabled"}),
            "1 1 1");
  GiveNetworks({0, 0});
  provider.SetCount(77, 2);
  EXPECT_EQ(OnForm("21.NetworkIDTracker", 9, "77.CustomerDataNetworkID", 2), "9");
}

TEST_F(DataForm, PollsAreAnsweredOnAChannelByItsNumber) {
  GiveChannels({11, 16});
  provider.Fill("7.CibChannelID", {11, 16});
  const char* const kRaw = "69.GPSPollResponseChannel";
  const char* const kForm = "69.GPSPollResponseChannelUI";
  const std::tuple<int, int, const char*> toForm[] = {
      {0, 1, "None"}, {1, 1, "16"}, {1, 0, "11"}, {1, 2, "None"}, {1, -1, "None"}};
  for (const auto& [type, index, text] : toForm) {
    provider.Set("GPSPollResponseChannelType", 1, type);
    EXPECT_EQ(OnForm(kRaw, index, kForm), text) << type << " " << index;
  }
  const std::tuple<int, const char*, const char*> fromForm[] = {
      {1, "16", "1"}, {1, "11", "0"}, {1, "99", "0"}, {1, "None", "0"}, {0, "16", "0"}};
  for (const auto& [type, typed, index] : fromForm) {
    Give({{"GPSPollResponseChannelType", type}, {kRaw, 7}});
    EXPECT_EQ(InRadio(kForm, typed, kRaw), index) << type << " " << typed;
  }
}

TEST_F(DataForm, ThePositionsOfNetworksAreRowsOfArrays) {
  GiveNetworks({0, 0, 0});
  provider.Fill("21.cboGPSNetworkSendPosOnPTT", {0, 1, 2});
  provider.Fill("21.PttGPSSuppressionTime", {30, 20, 2.5});
  EXPECT_TRUE(FromUI("21.PttGPSSuppressionTime"));
  const Variant rows = provider.Get("69.GPSNetworkSendPosOnPTT");
  EXPECT_EQ(CArray(rows).LowerBound(1), 0);
  EXPECT_EQ(CArray(rows).UpperBound(1), 3);
  provider.Set("69.GPSNetworkSendPosOnEPTT1", 1, "no array");
  for (const RecordNr networks : {1, 4}) {  // fewer and more than the arrays have rows
    provider.SetCount(21, 0);
    provider.SetCount(21, networks);
    EXPECT_TRUE(ToUI("21.cboGPSNetworkSendPosOnPTT"));
    EXPECT_EQ(Column("21.cboGPSNetworkSendPosOnPTT"), networks == 1 ? "0" : "0 1 2 0");
    EXPECT_EQ(Column("21.cboGPSNetworkSendPosOnEPTT1"), networks == 1 ? "0" : "0 0 0 0");
    EXPECT_EQ(Column("21.PttGPSSuppressionTime"), networks == 1 ? "30" : "30 20 2 0");
  }
}

TEST_F(DataForm, IsLeftWhenItsFieldsAgree) {
  Give({{"GPSPollResponseChannelType", 1}, {"GPSPollResponseChannel", "None"}, {"DataIdentity", ""}});
  Give({{"SDMEncodeCallerIDEnabled", 1}, {"DataCCDIPort", 1}, {"GPSSerialPort", "1"}, {"GPSEnabled", 1}});
  Give({{"dataTotalModeService", 0}, {"dataTotalMtuSize", 4865}, {"VHSDForwardErrorCorrection", 0}});
  const std::string kError = "48|Caption Error|";
  const auto tooLarge = [](std::string_view limit) {
    return ErrorBox(
        "TOTAL MTU Size can not exceed %0:S for this combination of FEC Enabled and TOTAL Service.", limit);
  };
  const struct {
    Settings mended;
    std::vector<std::string> boxes;  ///< their beginnings; without one the form is left
  } steps[] = {
      {{}, {kError + "You must specify a Channel"}},
      {{{"GPSPollResponseChannel", "11"}}, {kError + "A Unit Data Identity must"}},
      {{{"DataIdentity", " " + kNoCharacters}}, {kError + "A Unit Data Identity must"}},
      {{{"SDMEncodeCallerIDEnabled", 0}}, {kError + "The Data Port field on"}},
      {{{"GPSSerialPort", 2}}, {"64|Caption Warning|When GPS is enabled, you should", tooLarge("2667")}},
      {{{"DataCCDIPort", 0}, {"dataTotalMtuSize", 2667}}, {}},
      {{{"VHSDForwardErrorCorrection", 1}}, {tooLarge("1524")}},
      {{{"dataTotalMtuSize", "1524"}}, {}},
      {{{"dataTotalModeService", 1}, {"dataTotalMtuSize", 2817}}, {tooLarge("2816")}},
      {{{"dataTotalMtuSize", 2816}}, {}},
      {{{"VHSDForwardErrorCorrection", 0}, {"dataTotalMtuSize", 4865}}, {tooLarge("4864")}},
      {{{"dataTotalMtuSize", 4864}}, {}},
      {{{"GPSSerialPort", 0}, {"GPSEnabled", 0}, {"DataIdentity", "12345678"}}, {}},
      {{{"SDMEncodeCallerIDEnabled", 1}, {"GPSPollResponseChannelType", 0}}, {}},
      {{{"GPSPollResponseChannel", "None"}}, {}},
  };
  for (const auto& step : steps) {
    SCOPED_TRACE(&step - steps);
    Give(step.mended);
    messenger.Clear();
    EXPECT_EQ(LeaveForm("usrctlNetworkData", true), step.boxes.empty());
    std::vector<testing::Matcher<std::string>> beginnings;
    for (const std::string& box : step.boxes) beginnings.push_back(StartsWith(box));
    EXPECT_THAT(Boxes(), testing::ElementsAreArray(beginnings));
  }
}
}  // namespace
