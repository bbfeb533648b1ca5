#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "tests/support/ErrorNumberOf.h"
#include "tests/support/FakeHost.h"
#include "tests/support/TierFixture.h"
#include "tier/HostServices.h"
#include "tier/Procedure.h"
#include "tier/clsKD4410Tier.h"
#include "tier/modRaiseError.h"

namespace {
using testing::ElementsAre;
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
  /// The fault of an error that leaves two procedures.
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
  bool outerWentOn = false;
  const bool result = Procedure("Outer", false, [&] {
    Procedure("Inner", [] { Fail(); });
    outerWentOn = true;
    return true;
  });
  EXPECT_TRUE(result);
  EXPECT_TRUE(outerWentOn);
  EXPECT_THAT(services.calls, ElementsAre("ShowMessageBox", "TerminateApplication"));
  ASSERT_EQ(services.boxes.size(), 1U);
  EXPECT_EQ(services.boxes[0].text, "KD4410: Inner\r\nboom");
  EXPECT_EQ(services.boxes[0].style, 16);
  EXPECT_EQ(services.boxes[0].title, "Programming Application");
}

TEST_F(ErrorTail, LeavesTheResultAsItStood) {
  Arm();
  EXPECT_TRUE(Procedure("X", true, []() -> bool { Fail(); }));
  EXPECT_FALSE(Procedure("X", false, []() -> bool { Fail(); }));
  EXPECT_FALSE(Procedure("X", true, [](bool& result) {
    result = false;
    Fail();
  }));
  EXPECT_EQ(Procedure("X", std::string("as passed"), []() -> std::string { Fail(); }), "as passed");
  EXPECT_EQ(services.boxes.size(), 4U);
}

TEST_F(ErrorTail, NamesAProcedureOnceAndTakesWhateverIsThrown) {
  Arm();
  Procedure("Same", [] { Fail("Same"); });
  Procedure("Other", [] { Fail("same"); });
  Procedure("X", [] { throw std::runtime_error("not ours"); });
  std::vector<std::string> texts;
  for (const auto& box : services.boxes) texts.push_back(box.text);
  EXPECT_THAT(texts, ElementsAre("Same", "KD4410: Other\r\nsame", "KD4410: X\r\nnot ours"));
}

TEST_F(ErrorTail, EndsTheApplicationAlsoWhenNoBoxCanBeShown) {
  Arm();
  services.showsBoxes = false;
  Procedure("X", [] { Fail(); });
  EXPECT_THAT(services.calls, ElementsAre("ShowMessageBox", "TerminateApplication"));
}

TEST_F(ErrorTail, OnlyTheTierInChargeWithdrawsItself) {
  Arm();
  std::make_shared<clsKD4410Tier>().reset();  // never in charge
  Procedure("X", [] { Fail(); });
  EXPECT_EQ(services.calls.size(), 2U);

  auto tier = std::make_shared<clsKD4410Tier>();
  modRaiseError::InitRaiseError(tier.get());
  Procedure("X", [] { Fail(); });
  EXPECT_EQ(services.calls.back(), "RaiseEvent 1");
  tier.reset();
  EXPECT_EQ(FaultOfNested().number, 1234);
}

/// Lets each call on the provider fail in turn, one at a time.
class FailingProvider : public TierFixture {
 protected:
  using Work = std::function<Status(std::shared_ptr<Provider>)>;

  void SetUp() override {
    TierFixture::SetUp();
    ExpectTermination();
    for (const std::int32_t table : {5, 7, 16, 64, 65, 80}) provider.SetCount(table, 2);
    provider.Fill("5.ChannelIDTracker", {1, 2});
    provider.Fill("29.SignalSystemId", {1, 2});
    provider.Fill("21.NetworkIDTracker", {1, 2});
    for (const std::int32_t table : {30, 36, 50, 53, 61}) provider.SetCount(table, 2);
    provider.Fill("5.TxSignallingUI", {"C67.0", "D023"});
    provider.Fill("21.SignallingType", {1, 2});
    provider.Fill("21.NetworkSignallingID", {2, "None"});
  }

  void ExpectSurvival(const std::string& name, const Work& work) {
    for (const bool autoUpdate : {true, false}) {
      const auto calls = CallsOf(name, work, autoUpdate);
      for (std::size_t n = 1; n <= calls.size(); ++n) {
        SCOPED_TRACE(name + ", call " + std::to_string(n) + ": " + calls[n - 1]);
        services->Clear();
        const auto copy = Prepared(autoUpdate);
        copy->Monitor().FailOnce(static_cast<std::int64_t>(n));
        EXPECT_TRUE(work(copy).Ok());
        EXPECT_EQ(copy->Monitor().Failures(), 1);
        EXPECT_EQ(services->Boxes().size(), 1U) << testing::PrintToString(services->BoxTexts());
        EXPECT_EQ(Terminations(), 1);
        if (IsRestore(calls, n - 1)) continue;  // who can not be told can not be restored
        Boolean state = kFalse;
        EXPECT_TRUE(copy->AutoUpdate(state).Ok());
        EXPECT_EQ(state != kFalse, autoUpdate);
      }
    }
  }

 private:
  std::shared_ptr<Provider> Prepared(bool autoUpdate) const {
    auto copy = provider.Copy();
    EXPECT_TRUE(copy->SetAutoUpdate(ToBoolean(autoUpdate)).Ok());
    copy->Monitor().Clear();
    return copy;
  }
  std::vector<std::string> CallsOf(const std::string& name, const Work& work, bool autoUpdate) {
    services->Clear();
    const auto copy = Prepared(autoUpdate);
    copy->Monitor().Record(true);
    EXPECT_TRUE(work(copy).Ok());
    EXPECT_THAT(services->BoxTexts(), IsEmpty()) << name;
    EXPECT_GT(copy->Monitor().Calls().size(), 3U) << name;
    return copy->Monitor().Calls();
  }
  /// Whether the call is the last of those that set the state.
  static bool IsRestore(const std::vector<std::string>& calls, std::size_t index) {
    const auto sets = [](const std::string& call) { return call.starts_with("Iprovider.SetAutoUpdate"); };
    return sets(calls[index]) &&
           std::none_of(calls.begin() + static_cast<std::ptrdiff_t>(index) + 1, calls.end(), sets);
  }
};

TEST_F(FailingProvider, ATransformationSurvivesTheFailureOfAnyCall) {
  const auto owner = ProviderOwner();
  for (const char* field :
       {"5.ChannelIDTracker", "5.ChannelTxFreqUI", "5.TxSignallingUI", "5.ChannelNetworkIdUI",
        "5.RepeaterBurstSeq", "5.DTMFPresetCallSequence", "21.NetworkIDTracker", "21.NetworkSignallingID",
        "29.SignalSystemId", "34.Band_k6k", "50.CTCSSfreq", "65.DTMFChannelPresetSequenceUI", "NetworkID"}) {
    for (const auto side : {&IproviderOwner::TransformFromUI, &IproviderOwner::TransformToUI}) {
      ExpectSurvival(field, [&](std::shared_ptr<Provider> content) {
        Boolean result = kFalse;
        Status status = (*owner.*side)(std::move(content), field, 2, result);
        EXPECT_EQ(result, kTrue);  // as it stood
        return status;
      });
    }
  }
}

TEST_F(FailingProvider, SoDoTheStepsAroundReadingWritingAndConverting) {
  const auto owner = ProviderOwner();
  provider.SetCount(50, 254);
  provider.SetCount(61, 255);
  ExpectSurvival("PostRead", [&](auto content) { return owner->PostReadProcessing(content, {}); });
  ExpectSurvival("PreWrite", [&](auto content) { return owner->PreWriteProcessing(content, {}, {}); });
  ExpectSurvival("Convert", [&](auto content) {
    Boolean result = kFalse;
    Status status =
        owner->BackwardsCompatibility(provider.Copy(), "KD4410.0029", content, "KD4410.0054", {}, result);
    EXPECT_EQ(result, kTrue);
    return status;
  });
}
}  // namespace
