#include <functional>

#include "tests/channels/ChannelFixture.h"

namespace {
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

class Validation : public ChannelFixture {
 protected:
  bool Add(std::string_view grid) { return Add(grid, sharedProvider); }
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
    EXPECT_EQ(status.Reason().source, "ItierValidator");
    EXPECT_EQ(status.Reason().description,
              "ItierValidator not initialised. Please set object reference to Validator before calling any "
              "ItierValidator methods");
    EXPECT_EQ(out, 5) << "a result was written";
  }
  EXPECT_THAT(ServiceBoxes(), IsEmpty());  // the error goes to the caller

  EXPECT_TRUE(validator->EnterFocusByUIID("TxFreq_k6k", value, 1, out).Ok());
  EXPECT_EQ(out, kFalse);
  std::shared_ptr<IvalidatorHost> host = validatorHost;
  EXPECT_TRUE(validator->Validator(host).Ok());
  EXPECT_EQ(host, nullptr);
  ASSERT_TRUE(validator->Initialize(Tier().get(), validatorHost).Ok());
  EXPECT_TRUE(validator->Validator(host).Ok());
  EXPECT_EQ(host, validatorHost);
  EXPECT_TRUE(Validate("Unknown", 1));
}

TEST_F(Validation, FocusAndTriggersHaveFixedAnswers) {
  Boolean out = 5;
  for (const std::string_view name : {"TxFreq_k6k", "unknown", ""}) {
    EXPECT_TRUE(Validator()->EnterFocusByUIID(name, Variant("x"), 99, out).Ok());
    EXPECT_EQ(out, kFalse);
    EXPECT_TRUE(Validator()->ExitFocusByUIID(name, Variant("x"), 99, out).Ok());
    EXPECT_EQ(out, kTrue);
    EXPECT_TRUE(Validator()->ExecuteByTriggerID(name, out).Ok());
    EXPECT_EQ(out, kFalse);
  }
}

TEST_F(Validation, RulesAreFoundInAnyCaseAndWithoutARuleAValueIsKept) {
  GiveChannels({11});
  for (const std::string_view uiid : {"TxFreq_k6k", "TXFREQ_K6K", "txfreq_K6K"}) {
    EXPECT_FALSE(Validate(uiid, "abc")) << uiid;
    EXPECT_TRUE(Validate(uiid, "4301.25"));
    EXPECT_EQ(CStr(validated), "430.125000");
  }
  EXPECT_THAT(Boxes(), Each(ErrorBox("Invalid frequency format")));
  StartTrail();
  for (const std::string_view uiid : {"TxFreq", "5.ChannelTxFreqUI", "TxFreq_k6k2", ""}) {
    EXPECT_TRUE(Validate(uiid, "abc", 99)) << uiid;
    EXPECT_EQ(CStr(validated), "abc");
  }
  EXPECT_THAT(Trail(), IsEmpty());
}

TEST_F(Validation, ChannelsAndScanGroupsTogetherAreAtMostAHundred) {
  const struct {
    RecordNr channels, groups;
    bool mayAdd;
  } cases[] = {{99, 0, true}, {100, 0, false}, {60, 39, true}, {60, 40, false}, {1, 99, false}, {0, 0, true}};
  for (const auto& [channels, groups, mayAdd] : cases) {
    SCOPED_TRACE(channels);
    provider.SetCount(5, channels);
    provider.SetCount(16, groups);
    messenger.Clear();
    for (const std::string_view grid : {"Channels6000", "ScanGroup", "cHANNELS6000", "5", "16"}) {
      EXPECT_EQ(Add(grid), mayAdd) << grid;
    }
    for (const std::string_view grid : {"Channels", "", "5x", "9"}) EXPECT_TRUE(Add(grid)) << grid;
    EXPECT_EQ(Boxes().size(), mayAdd ? 0U : 5U);
    EXPECT_THAT(Boxes(),
                Each(WarningBox("The combined number of Channels and Scan Groups must not exceed 100.")));
    EXPECT_EQ(provider.Count(5), channels);  // the host adds the record
  }
  provider.SetCount(5, 0);
  const auto other = std::make_shared<Provider>(provider.SharedSchema());
  other->SetCount(5, 100);
  EXPECT_FALSE(Add("Channels6000", other)) << "the provider that is passed counts";
}

TEST_F(Validation, DeletingFindsItsRuleByGridOrTableAndAllowsOthers) {
  GiveChannels({11});
  provider.Fill("GroupChannelUI_k6k", {"11"});
  const auto remove = [&](std::string_view grid) {
    Boolean out = kFalse;
    EXPECT_TRUE(Validator()->DeleteRecord(grid, 1, sharedProvider, out).Ok());
    return out != kFalse;
  };
  for (const std::string_view grid : {"Channels6000", "CHANNELS6000", "5"})
    EXPECT_FALSE(remove(grid)) << grid;
  for (const std::string_view grid : {"Channel", "", "9"}) EXPECT_TRUE(remove(grid)) << grid;
}

TEST_F(Validation, FormsAreRefreshedOnlyWhileTheProviderUpdates) {
  GiveChannels({11});
  provider.Set("ActionParamHomeChannel", 1, "11");
  ASSERT_TRUE(provider.SetAutoUpdate(kFalse).Ok());
  messenger.Play({Button::Yes});
  EXPECT_TRUE(Validate("ChannelID_k6k", 15));
  EXPECT_TRUE(Validate("TxFreq_k6k", 0));
  EXPECT_EQ(Text("ActionParamHomeChannel"), "15");
  EXPECT_EQ(Text("TxFreq_k6k"), "000.000000");
  EXPECT_THAT(messenger.Refreshed(), IsEmpty());
  EXPECT_THAT(Switched(), ElementsAre("-TxInhibit_k6k"));
  Boolean state = kTrue;
  ASSERT_TRUE(provider.AutoUpdate(state).Ok());
  EXPECT_EQ(state, kFalse) << "a rule leaves the flag alone";
}

TEST_F(Validation, AFaultInARuleEndsTheApplicationAndLetsTheEditStand) {
  ExpectTermination();
  const struct {
    const char *uiid, *procedure;
    Variant value;
  } cases[] = {{"TxPower_k6k", "ValidateTxPower", 0},
               {"ChannelID_k6k", "ValidateChannelID", 15},
               {"ChannelNetworkID_k6k", "ValidateChannelID", 1},
               {"TxFreq_k6k", "ValidateFrequency", "430"}};
  for (const auto& [uiid, procedure, value] : cases) {
    SCOPED_TRACE(uiid);
    services->Clear();
    EXPECT_TRUE(Validate(uiid, value, 99));
    ASSERT_FALSE(services->Boxes().empty());
    const auto& box = services->Boxes()[0];
    EXPECT_THAT(box.text, testing::StartsWith(std::string("KD4410: ") + procedure + "\r\n"));
    EXPECT_EQ(box.style, 16);
    EXPECT_EQ(box.title, "Programming Application");
    EXPECT_EQ(Terminations(), static_cast<int>(services->Boxes().size()));
  }
  services->Clear();
  provider.Monitor().FailFrom(1);
  Boolean out = kFalse;
  EXPECT_TRUE(Validator()->AddRecord("5", sharedProvider, out).Ok());
  EXPECT_EQ(out, kTrue);
  EXPECT_EQ(Terminations(), 1);
  EXPECT_THAT(Boxes(), IsEmpty());
}
}  // namespace
