#include <functional>

#include "tests/channels/ChannelFixture.h"
#include "validation/modvalFields.h"
#include "workbench/store/Journal.h"

/// An error ends a procedure with the result that it had; operations begin with true. Whoever is told false
/// without a word would keep a sound value from being stored.
namespace {
using Operation = std::function<Status(Boolean&)>;

class ErrorResults : public ChannelFixture {
 protected:
  void SetUp() override {
    ChannelFixture::SetUp();
    GiveNetworks({1, 2});
    GiveChannels({11, 12});
    provider.Fill("EmergencyEnabled", {1, 1});
    provider.Fill("EmCyclingANI", {1, 1});
    provider.Fill("5.TXCallBurstSeq", {"12", "None"});
    messenger.AlwaysAnswer(Button::Yes);
    ExpectTermination();
  }
  void Add(const std::string& name, Operation operation) {
    operations_.emplace_back(name, std::move(operation));
  }
  void AddEdits() {
    for (const std::string_view uiid : modvalFields::UIIDs()) {
      if (provider.GetSchema().Find(uiid) == nullptr || uiid == "BAND_K6K")
        continue;  // its error keeps the band
      for (const int value : {0, 1, 2, 430}) {
        Add(std::string(uiid) + " = " + std::to_string(value), [this, uiid, value](Boolean& out) {
          Variant left(value);
          return Validator()->ValidateByUIID(uiid, left, 1, out);
        });
      }
    }
  }
  void AddForms() {
    for (const char* form :
         {"USRCTLCHANNELSKD4410", "USRCTLNETWORKS", "USRCTLDTMFPATCH", "USRCTLEMERGENCYKD4410",
          "USRCTLNETWORKFEATURES", "USRCTLNETWORKDATA", "USRCTLNETWORKPTT"}) {
      Add(form,
          [this, form](Boolean& out) { return Validator()->FormValidationByFormName(form, kTrue, out); });
    }
    Add("RunFinalValidation", [this](Boolean& out) { return Validator()->RunFinalValidation(out); });
  }
  void AddGrids() {
    for (const char* grid : {"Channels6000", "Network"}) {
      const std::string name = grid;
      Add(name + " add",
          [=, this](Boolean& out) { return Validator()->AddRecord(grid, sharedProvider, out); });
      Add(name + " delete",
          [=, this](Boolean& out) { return Validator()->DeleteRecord(grid, 2, sharedProvider, out); });
      Add(name + " deleted", [=, this](Boolean& out) {
        return ProviderOwner()->PostDeleteProcessing(sharedProvider, grid, 2, out);
      });
    }
    Add("Network added",
        [this](Boolean& out) { return ProviderOwner()->PostAddProcessing(sharedProvider, "Network", out); });
  }
  void AddConversions() {
    for (const char* field :
         {"5.ChannelTxFreqUI", "21.NetworkSignallingID", "64.DTMFNetworkToneSetupRecord"}) {
      Add(std::string(field) + " to the form",
          [=, this](Boolean& out) { return ProviderOwner()->TransformToUI(sharedProvider, field, 1, out); });
      Add(std::string(field) + " to the radio", [=, this](Boolean& out) {
        return ProviderOwner()->TransformFromUI(sharedProvider, field, 1, out);
      });
    }
    Add("list", [this](Boolean& out) {
      std::shared_ptr<XArrayDBObject> items;
      return ProviderOwner()->GetComboItemsByUIID(sharedProvider, "NetworkID", 1, items, out);
    });
    Add("state", [this](Boolean& out) { return Validator()->GetEnabledStatebyUIID("EmChannel", 1, out); });
  }
  /// Each host call of the operation fails once.
  void FailInEachCall(const std::string& name, const Operation& operation) {
    CallMonitor& monitor = provider.Monitor();
    for (std::int64_t call = 1, failures = 1; failures > 0; ++call) {
      Journal journal(provider);
      messenger.Clear();
      monitor.Clear();
      monitor.FailOnce(call);
      Boolean out = kFalse;
      EXPECT_TRUE(operation(out).Ok()) << name << ", call " << call;
      failures = monitor.Failures();
      monitor.NeverFail();
      journal.Rollback();
      EXPECT_TRUE(failures == 0 || out != kFalse || !messenger.Boxes().empty()) << name << ", call " << call;
    }
  }

  std::vector<std::pair<std::string, Operation>> operations_;
};

TEST_F(ErrorResults, AreTrueUnlessTheUserWasTold) {
  AddEdits();
  AddForms();
  AddGrids();
  AddConversions();
  for (const auto& [name, operation] : operations_) FailInEachCall(name, operation);
  EXPECT_GT(Terminations(), 1000) << "the sweep has gone blind";
}
}  // namespace
