#include <gmock/gmock.h>

#include "common/HostServices.h"
#include "common/Procedure.h"
#include "common/modRaiseError.h"
#include "tests/support/FakeHost.h"
#include "tier/clsKD4410Tier.h"

namespace {
using testing::ElementsAre;
using testing::EndsWith;

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

/// A terminator of another name.
struct Named final : Iterminator {
  Named(FakeServices& services, std::string name) : calls(services.calls), called(std::move(name)) {
    modRaiseError::InitRaiseError(this);
  }
  ~Named() override { modRaiseError::WithdrawTerminator(this); }
  Status TerminateApplication() override {
    calls.push_back(called);
    return {};
  }
  std::vector<std::string>& calls;
  std::string called;
};

TEST_F(ErrorTail, WhoeverGoesTakesItselfBackAndTheOneBeforeIsInCharge) {
  const auto inCharge = [&] {
    EXPECT_EQ(FaultOfNested().number, 0);
    return services.calls.back();
  };
  auto first = std::make_unique<Named>(services, "first");
  auto second = std::make_unique<Named>(services, "second");
  EXPECT_EQ(inCharge(), "second");
  std::make_shared<clsKD4410Tier>().reset();  // never in charge
  EXPECT_EQ(inCharge(), "second");
  auto third = std::make_unique<Named>(services, "third");
  second.reset();
  EXPECT_EQ(inCharge(), "third");
  modRaiseError::InitRaiseError(first.get());  // initialised once more
  EXPECT_EQ(inCharge(), "first");
  first.reset();
  EXPECT_EQ(inCharge(), "third");
  third.reset();
  // With nobody left to end the application the fault is told and goes to the caller.
  services.boxes.clear();
  const Fault fault = FaultOfNested();
  EXPECT_EQ(fault.number, 1234);
  EXPECT_EQ(fault.description, "KD4410: Outer\r\nKD4410: Inner\r\nboom");
  EXPECT_EQ(services.boxes.size(), 2U);
}
}  // namespace
