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
}  // namespace
