#pragma once

#include <string>
#include <string_view>

#include "common/modProjectGlobals.h"
#include "selcall/BurstSlots.h"
#include "selcall/modSelcallMapping.h"
#include "tests/channels/ChannelFixture.h"

/// Two Selcall systems with numbers that are their places, their bursts and grids laid out, system 2 on the
/// forms.
class BurstFixture : public ChannelFixture {
 protected:
  void SetUp() override {
    ChannelFixture::SetUp();
    GiveNetworks({SignallingType::kSelcall, SignallingType::kSelcall, SignallingType::kNone});
    provider.Fill("29.SignalSystemId", {1, 2});
    provider.Fill("21.NetworkSignallingID", {1, 2, "None"});
    provider.SetCount(31, 2);
    provider.SetCount(30, 1 + 2 * kBurstLayout.SlotsPerSystem());
    provider.Fill("TxFormat_k6k", {"RRRRR", "BBB-RRRRR-CC-SS"});
    provider.Fill("RxFormat_k6k", {"RRRRR", "RRRRR"});
    EXPECT_TRUE(ToUI("30.FixedFormatBurstSeq"));
    Show(2);
  }
  void Show(RecordNr system) {
    EXPECT_TRUE(Validate("CurrentSelcallNumber", system));
    provider.Set("CurrentSelcallNumber", 1, system);
  }
  static RecordNr Slot(RecordNr system, Burst kind, RecordNr row) {
    return kBurstLayout.RecordOf(system, kBurstLayout.OffsetOf(kind) + row);
  }
  /// The burst in its slot and, where it belongs to the system shown, in the grid.
  void Give(RecordNr system, Burst kind, RecordNr row, std::string_view text) {
    provider.Set("UGBurstSeq", Slot(system, kind, row), text);
    Show(CLng(provider.Get("CurrentSelcallNumber")));
  }
  /// What the host does with an edit of a row: the value that the rule left goes to the grid.
  bool Edit(Burst kind, RecordNr row, std::string_view typed) {
    const bool accepted = Validate(FieldsOf(kind).uiid, Variant(typed), row);
    if (accepted) provider.Set(FieldsOf(kind).sequence, row, validated);
    return accepted;
  }
};
