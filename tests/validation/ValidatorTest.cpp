#include <functional>

#include "tests/channels/ChannelFixture.h"

namespace {
using testing::Each;
using testing::IsEmpty;

class Validation : public ChannelFixture {
 protected:
  bool Add(std::string_view grid, const std::shared_ptr<Iprovider>& to) {
    Boolean result = kFalse;
    EXPECT_TRUE(Validator()->AddRecord(grid, to, result).Ok());
    return result != kFalse;
  }
};

TEST_F(Validation, WithoutAHostEveryRuleIsRefused) {
  const auto validator = Validator();
  Variant value("430");
  Boolean out = 5;
  const std::function<Status()> guarded[] = {
      [&] { return validator->AddRecord("Channels6000", sharedProvider, out); },
      [&] { return validator->DeleteRecord("Channels6000", 1, sharedProvider, out); },
      [&] { return validator->ExecuteByTriggerID("x", out); },
      [&] { return validator->FormValidationByFormName("USRCTLCHANNELSKD4410", kTrue, out); },
      [&] { return validator->GetEnabledStatebyUIID("TxFreq_k6k", 1, out); },
      [&] { return validator->PermissionToOpenFormByFormName("x", out); },
      [&] { return validator->RunPreProgramValidation(out); },
      [&] { return validator->RunFinalValidation(out); },
      [&] { return validator->ValidateByUIID("TxFreq_k6k", value, 1, out); },
      [&] { return validator->ExitFocusByUIID("TxFreq_k6k", value, 1, out); },
  };
  ASSERT_TRUE(validator->SetValidator(nullptr).Ok());
  for (const auto& operation : guarded) {
    const Status status = operation();
    ASSERT_FALSE(status.Ok());
    EXPECT_EQ(status.Reason().number, 9001);
    EXPECT_EQ(status.Reason().description,
              "ItierValidator not initialised. Please set object reference to Validator before calling any "
              "ItierValidator methods");
    EXPECT_EQ(out, 5) << "a result was written";
  }
  EXPECT_THAT(ServiceBoxes(), IsEmpty());  // the error goes to the caller
  EXPECT_TRUE(validator->EnterFocusByUIID("TxFreq_k6k", value, 1, out).Ok());
  EXPECT_EQ(out, kFalse);
  ASSERT_TRUE(validator->Initialize(Tier().get(), validatorHost).Ok());
  EXPECT_TRUE(validator->ExitFocusByUIID("TxFreq_k6k", value, 1, out).Ok());
  EXPECT_EQ(out, kTrue);
}

TEST_F(Validation, RulesAreFoundInAnyCaseAndWithoutARuleAValueIsKept) {
  GiveChannels({11});
  for (const std::string_view uiid : {"TxFreq_k6k", "TXFREQ_K6K", "txfreq_K6K"}) {
    EXPECT_FALSE(Validate(uiid, "abc")) << uiid;
  }
  StartTrail();
  for (const std::string_view uiid : {"TxFreq", "5.ChannelTxFreqUI", "TxFreq_k6k2", ""}) {
    EXPECT_TRUE(Validate(uiid, "abc", 99)) << uiid;
    EXPECT_EQ(CStr(validated), "abc");
  }
  EXPECT_EQ(Trail(), "");
}

TEST_F(Validation, ChannelsAndScanGroupsTogetherAreAtMostAHundred) {
  const std::tuple<RecordNr, RecordNr, bool> cases[] = {{99, 0, true},   {100, 0, false}, {60, 39, true},
                                                        {60, 40, false}, {1, 99, false},  {0, 0, true}};
  const auto passed = std::make_shared<Provider>(provider.SharedSchema());  // the one that counts
  for (const auto& [channels, groups, mayAdd] : cases) {
    SCOPED_TRACE(channels);
    passed->SetCount(5, channels);
    passed->SetCount(16, groups);
    messenger.Clear();
    for (const std::string_view grid : {"Channels6000", "ScanGroup", "cHANNELS6000", "5", "16"}) {
      EXPECT_EQ(Add(grid, passed), mayAdd) << grid;
    }
    for (const std::string_view grid : {"Channels", "", "5x", "9"}) EXPECT_TRUE(Add(grid, passed)) << grid;
    EXPECT_EQ(Boxes().size(), mayAdd ? 0U : 5U);
    EXPECT_THAT(Boxes(), Each(Box(48, "Caption Warning",
                                  "The combined number of Channels and Scan Groups must not exceed 100.")));
    EXPECT_EQ(passed->Count(5), channels);  // the host adds the record
  }
}

TEST_F(Validation, DeletingFindsItsRuleByGridOrTableAndAllowsOthers) {
  GiveChannels({11});
  provider.Fill("GroupChannelUI_k6k", {"11"});
  for (const std::string_view grid : {"Channels6000", "CHANNELS6000", "5"}) EXPECT_FALSE(Delete(1, grid));
  for (const std::string_view grid : {"Channel", "", "9"}) EXPECT_TRUE(Delete(1, grid)) << grid;
}

TEST_F(Validation, FormsAreRefreshedOnlyWhileTheProviderUpdates) {
  GiveChannels({11});
  provider.Set("ActionParamHomeChannel", 1, "11");
  ASSERT_TRUE(provider.SetAutoUpdate(kFalse).Ok());
  messenger.Play({Button::Yes});
  EXPECT_TRUE(Validate("ChannelID_k6k", 15));
  EXPECT_TRUE(Validate("TxFreq_k6k", 0));
  EXPECT_EQ(Text("ActionParamHomeChannel") + Text("TxFreq_k6k"), "15000.000000");
  EXPECT_EQ(Refreshed(), "");
  EXPECT_EQ(Switched(), "-TxInhibit_k6k");
  Boolean state = kTrue;
  ASSERT_TRUE(provider.AutoUpdate(state).Ok());
  EXPECT_EQ(state, kFalse) << "a rule leaves the flag alone";
}

TEST_F(Validation, AFaultInARuleEndsTheApplicationAndLetsTheEditStand) {
  ExpectTermination();
  const std::tuple<const char*, const char*, Variant> cases[] = {
      {"TxPower_k6k", "ValidateTxPower", 0},
      {"ChannelID_k6k", "ValidateChannelID", 15},
      {"ChannelNetworkID_k6k", "ValidateChannelID", 1},
      {"TxFreq_k6k", "ValidateFrequency", "430"}};
  for (const auto& [uiid, procedure, value] : cases) {
    services->Clear();
    EXPECT_TRUE(Validate(uiid, value, 99));
    ASSERT_FALSE(services->Boxes().empty());
    const std::string start = std::string("16|Programming Application|KD4410: ") + procedure + "\r\n";
    EXPECT_THAT(ServiceBoxes()[0], testing::StartsWith(start));
    EXPECT_EQ(Terminations(), static_cast<int>(services->Boxes().size()));
  }
  services->Clear();
  provider.Monitor().FailFrom(1);
  EXPECT_TRUE(Add("5", sharedProvider));
  EXPECT_EQ(Terminations(), 1);
}
}  // namespace
