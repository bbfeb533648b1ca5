#include <gmock/gmock.h>

#include <algorithm>
#include <functional>

#include "tests/support/FakeHost.h"
#include "tests/support/TierFixture.h"
#include "tier/HostServices.h"
#include "tier/Procedure.h"
#include "tier/clsKD4410Tier.h"
#include "tier/modRaiseError.h"

namespace {
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

class ErrorTail : public testing::Test, protected Iterminator {
 protected:
  ErrorTail() { HostServices::Set(services.Handle()); }
  ~ErrorTail() override {
    modRaiseError::WithdrawTerminator(this);
    HostServices::Set(nullptr);
  }
  Status TerminateApplication() override {
    services.calls.push_back("TerminateApplication");
    return {};
  }
  void Arm() { modRaiseError::InitRaiseError(this); }
  [[noreturn]] static void Fail(std::string description = "boom") {
    throw Error(1234, "Source", description);
  }
  /// The fault that leaves two procedures.
  static Fault FaultOfNested() {
    try {
      Procedure("Outer", [] { Procedure("Inner", [] { Fail(); }); });
    } catch (const Error& error) {
      return error.Reason();
    }
    return {};
  }

  FakeServices services;
};

TEST_F(ErrorTail, GoesOnToTheCallerBeforeATierIsThere) {
  const Fault fault = FaultOfNested();
  EXPECT_EQ(fault.number, 1234);
  EXPECT_EQ(fault.source, "Source");
  EXPECT_EQ(fault.description, "KD4410: Outer\r\nKD4410: Inner\r\nboom");
  EXPECT_THAT(services.calls, IsEmpty());
}

TEST_F(ErrorTail, StopsAtTheInnermostProcedureWithOneBoxAndOneEvent) {
  Arm();
  for (const bool shows : {true, false}) {
    services.calls.clear();
    services.showsBoxes = shows;
    EXPECT_TRUE(Procedure("Outer", false, [&] {
      Procedure("Inner", [] { Fail(); });
      return true;
    }));
    EXPECT_THAT(services.calls, ElementsAre("ShowMessageBox", "TerminateApplication"));
    EXPECT_EQ(services.boxes.back(), "16|Programming Application|KD4410: Inner\r\nboom");
  }
}

TEST_F(ErrorTail, LeavesTheResultAsItStood) {
  Arm();
  EXPECT_TRUE(Procedure("X", true, []() -> bool { Fail(); }));
  EXPECT_FALSE(Procedure("X", true, [](bool& result) {
    result = false;
    Fail();
  }));
  EXPECT_EQ(Procedure("X", std::string("as passed"), []() -> std::string { Fail(); }), "as passed");
}

TEST_F(ErrorTail, NamesAProcedureOnceAndTakesWhateverIsThrown) {
  Arm();
  Procedure("Same", [] { Fail("Same"); });
  Procedure("Other", [] { Fail("same"); });
  Procedure("X", [] { throw std::runtime_error("not ours"); });
  EXPECT_THAT(services.boxes, ElementsAre(EndsWith("|Same"), EndsWith("|KD4410: Other\r\nsame"),
                                          EndsWith("|KD4410: X\r\nnot ours")));
}

TEST_F(ErrorTail, OnlyTheTierInChargeWithdrawsItself) {
  Arm();
  std::make_shared<clsKD4410Tier>().reset();  // never in charge
  EXPECT_EQ(FaultOfNested().number, 0);
  auto tier = std::make_shared<clsKD4410Tier>();
  modRaiseError::InitRaiseError(tier.get());
  EXPECT_EQ(FaultOfNested().number, 0);
  EXPECT_EQ(services.calls.back(), "RaiseEvent 1");
  tier.reset();
  EXPECT_EQ(FaultOfNested().number, 1234);
}

/// Lets each call on the provider fail in turn, one at a time.
class FailingProvider : public TierFixture {
 protected:
  using Work = std::function<Status(std::shared_ptr<Provider>, Boolean&)>;

  void SetUp() override {
    TierFixture::SetUp();
    ExpectTermination();
    for (const std::int32_t table : {5, 7, 16, 30, 36, 50, 53, 61, 64, 65, 80}) provider.SetCount(table, 2);
    for (const char* ids :
         {"5.ChannelIDTracker", "29.SignalSystemId", "21.NetworkIDTracker", "21.SignallingType"})
      provider.Fill(ids, {1, 2});
    provider.Fill("5.TxSignallingUI", {"C67.0", "D023"});
    provider.Fill("21.NetworkSignallingID", {2, "None"});
  }

  void ExpectSurvival(const std::string& name, const Work& work) {
    for (const bool autoUpdate : {true, false}) {
      services->Clear();
      const auto whole = Run(work, autoUpdate, 0);
      EXPECT_THAT(services->BoxTexts(), IsEmpty()) << name;
      const auto& calls = whole->Monitor().Calls();
      EXPECT_GT(calls.size(), 3U) << name;
      for (std::size_t n = 1; n <= calls.size(); ++n) {
        SCOPED_TRACE(name + ", call " + std::to_string(n) + ": " + calls[n - 1]);
        services->Clear();
        const auto copy = Run(work, autoUpdate, static_cast<std::int64_t>(n));
        EXPECT_EQ(copy->Monitor().Failures(), 1);
        EXPECT_EQ(services->Boxes().size(), 1U) << testing::PrintToString(services->BoxTexts());
        EXPECT_EQ(Terminations(), 1);
        if (std::find_if(calls.rbegin(), calls.rend(), SetsState) ==
            calls.rend() - static_cast<std::ptrdiff_t>(n))
          continue;  // the restoring call itself
        Boolean state = kFalse;
        EXPECT_TRUE(copy->AutoUpdate(state).Ok());
        EXPECT_EQ(state != kFalse, autoUpdate);
      }
    }
  }

 private:
  /// The content after the work, the n-th call (0 for none) of which failed.
  std::shared_ptr<Provider> Run(const Work& work, bool autoUpdate, std::int64_t n) const {
    auto copy = provider.Copy();
    EXPECT_TRUE(copy->SetAutoUpdate(ToBoolean(autoUpdate)).Ok());
    copy->Monitor().Clear();
    copy->Monitor().Record(true);
    if (n > 0) copy->Monitor().FailOnce(n);
    Boolean result = kTrue;
    EXPECT_TRUE(work(copy, result).Ok());
    EXPECT_EQ(result, kTrue);  // as it stood
    return copy;
  }
  static bool SetsState(const std::string& call) { return call.starts_with("Iprovider.SetAutoUpdate"); }
};

TEST_F(FailingProvider, ATransformationSurvivesTheFailureOfAnyCall) {
  const auto owner = ProviderOwner();
  for (const char* field :
       {"5.ChannelIDTracker", "5.ChannelTxFreqUI", "5.TxSignallingUI", "5.ChannelNetworkIdUI",
        "5.RepeaterBurstSeq", "5.DTMFPresetCallSequence", "21.NetworkIDTracker", "21.NetworkSignallingID",
        "29.SignalSystemId", "34.Band_k6k", "50.CTCSSfreq", "65.DTMFChannelPresetSequenceUI", "NetworkID"}) {
    for (const auto side : {&IproviderOwner::TransformFromUI, &IproviderOwner::TransformToUI}) {
      ExpectSurvival(field, [&](auto content, Boolean& result) {
        result = kFalse;
        return (*owner.*side)(content, field, 2, result);
      });
    }
  }
}

TEST_F(FailingProvider, SoDoTheStepsAroundReadingWritingAndConverting) {
  const auto owner = ProviderOwner();
  provider.SetCount(50, 254);
  provider.SetCount(61, 255);
  ExpectSurvival("PostRead", [&](auto content, auto&) { return owner->PostReadProcessing(content, {}); });
  ExpectSurvival("PreWrite", [&](auto content, auto&) { return owner->PreWriteProcessing(content, {}, {}); });
  ExpectSurvival("Convert", [&](auto content, Boolean& result) {
    result = kFalse;
    return owner->BackwardsCompatibility(provider.Copy(), "KD4410.0029", content, "KD4410.0054", {}, result);
  });
}
}  // namespace
