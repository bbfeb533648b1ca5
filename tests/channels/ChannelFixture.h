#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "host/IfinalRules.h"
#include "platform/Conversions.h"
#include "platform/Locale.h"
#include "tests/support/TierFixture.h"

/// A box of the tier as one line: style, title, template, parameters.
inline std::string Box(int style, std::string_view title, std::string_view text, std::string_view fill = {}) {
  return std::to_string(style).append("|").append(title).append("|").append(text).append("|").append(fill);
}
inline std::string ErrorBox(std::string_view text, std::string_view fill = {}) {
  return Box(48, "Caption Error", text, fill);
}
inline std::string NoticeBox(std::string_view text, std::string_view fill = {}) {
  return Box(64, "Caption Warning", text, fill);
}
inline std::string QuestionBox(std::string_view text, std::string_view fill = {}) {
  return Box(68, "Caption Warning", text, fill);
}

inline constexpr std::string_view kMaritimeNotice =
    "Distress and Safety Frequencies\r\n\r\nThe frequency range 156.8 MHz ± 375 kHz are reserved worldwide "
    "for use as maritime distress frequencies.  Do not program transmitters to operate in this range unless "
    "the use is specifically for the maritime service.";
inline constexpr std::string_view kDistressError =
    "Distress and Safety Frequencies\r\n\r\nThe frequency ranges 243 MHz ± 5 kHz, and 406.0 to 406.1 MHz are "
    "reserved worldwide for use by distress beacons.  You cannot program transmitters to operate in these "
    "range of frequencies.";

/// The user's decimal symbol is a comma while this object lives.
struct DecimalComma {
  DecimalComma() { SetDecimalSymbol(','); }
  ~DecimalComma() { SetDecimalSymbol('\0'); }
};

/// Closes every box without one of its buttons.
class ClosingMessenger final : public RecordingMessenger {
  Button Answer(const Shown&) override { return Button::Cancel; }
};

/// A personality whose channels, networks and references a test fills in.
class ChannelFixture : public TierFixture {
 protected:
  using TierFixture::TierFixture;

  std::string Text(std::string_view name, RecordNr record = 1) const {
    return CStr(provider.Get(name, record));
  }
  /// The field in all records, a space between them.
  std::string Column(std::string_view name) const {
    std::string texts = Text(name);
    const RecordNr count = provider.Count(provider.FieldOf(name).table);
    for (RecordNr record = 2; record <= count; ++record) texts += " " + Text(name, record);
    return texts;
  }
  std::string Row(std::initializer_list<const char*> names) const {
    std::string texts;
    for (const char* name : names) texts += (texts.empty() ? "" : " ") + Text(name);
    return texts;
  }
  /// The controls that were refreshed, in order.
  std::string Refreshed() const {
    std::string uiids;
    for (const std::string& uiid : messenger.Refreshed()) uiids += (uiids.empty() ? "" : " ") + uiid;
    return uiids;
  }
  /// The form's field after the radio's value went to it.
  std::string OnForm(const char* raw, const Variant& value, const char* form, RecordNr record = 1) {
    provider.Set(raw, record, value);
    EXPECT_TRUE(ToUI(form, record));
    return Text(form, record);
  }
  /// The radio's field after the form's value went to it.
  std::string InRadio(const char* form, const Variant& value, const char* raw, RecordNr record = 1) {
    provider.Set(form, record, value);
    EXPECT_TRUE(FromUI(form, record));
    return Text(raw, record);
  }
  std::vector<std::string> Boxes() const {
    std::vector<std::string> boxes;
    for (const Shown& box : messenger.Boxes()) {
      boxes.push_back(Box(box.style, box.title, box.unfilled, box.parameters));
    }
    return boxes;
  }
  /// The controls that were switched, in order: "+UIID" on, "-UIID" off.
  std::string Switched() const {
    std::string controls;
    for (const auto& [uiid, on] : messenger.EnabledStates()) controls += (on ? "+" : "-") + uiid;
    return controls;
  }
  /// The boxes that did not go through the messenger.
  std::vector<std::string> ServiceBoxes() const {
    std::vector<std::string> boxes;
    for (const auto& box : services->Boxes()) boxes.push_back(Box(box.style, box.title, box.text));
    return boxes;
  }

  /// Keeps from now on what the tier does to provider and messenger.
  void StartTrail() {
    messenger.Clear();
    const auto monitor = std::make_shared<CallMonitor>();
    provider.SetMonitor(monitor);
    messenger.SetMonitor(monitor);
    monitor->Record(true);
  }
  /// What the tier wrote and showed since, in order.
  std::string Trail() const {
    constexpr std::pair<std::string_view, const char*> kDeeds[] = {
        {"Imessenger.ShowMessage", " box"},          {"Ifield.SetValue ", " "},
        {"Imessenger.SetFieldEnabled ", " enable:"}, {"Imessenger.RefreshField ", " refresh:"},
        {"Iprovider.RefreshField ", " reload:"},     {"Iprovider.RefreshValues ", " values:"},
        {"Iprovider.ClearTable ", " clear:"}};
    std::string trail;
    for (const std::string_view call : provider.Monitor().Calls()) {
      for (const auto& [start, word] : kDeeds) {
        if (!call.starts_with(start)) continue;
        trail += word;
        if (start.ends_with(' ')) trail += call.substr(start.size());
      }
    }
    return trail.substr(trail.empty() ? 0 : 1);
  }

  /// The tier starts anew with a user who closes every box.
  void CloseEveryBox() {
    Boolean initialised = kFalse;
    const auto closing = std::make_shared<ClosingMessenger>();
    EXPECT_TRUE(Tier()->Initialize("KD4410", validatorHost, closing, Variant(), initialised).Ok());
    EXPECT_EQ(initialised, kTrue);
  }

  bool Delete(RecordNr channel, std::string_view grid = "Channels6000") {
    Boolean result = kFalse;
    EXPECT_TRUE(Validator()->DeleteRecord(grid, channel, sharedProvider, result).Ok());
    return result != kFalse;
  }
  /// The host's way to a new record of the grid: permission, record, completion.
  void Add(std::string_view grid, std::int32_t table) {
    Boolean result = kFalse;
    EXPECT_TRUE(Validator()->AddRecord(grid, sharedProvider, result).Ok());
    EXPECT_EQ(result, kTrue);
    provider.SetCount(table, provider.Count(table) + 1);
    EXPECT_TRUE(ProviderOwner()->PostAddProcessing(sharedProvider, grid, result).Ok());
    EXPECT_EQ(result, kTrue);
  }
  bool FinalValidation() {
    Boolean result = kFalse;
    EXPECT_TRUE(Validator()->RunFinalValidation(result).Ok());
    return result != kFalse;
  }
  /// One rule of the walk by itself, by its name.
  bool FinalRule(std::string_view name) {
    auto& rules = dynamic_cast<IfinalRules&>(*Validator());
    FinalOutcome outcome;
    for (std::int32_t number = 1; outcome.name != name; ++number) {
      if (!rules.RunFinalRule(number, outcome).Ok()) throw std::out_of_range("there is no such rule");
    }
    return outcome.passed != kFalse;
  }
  bool LeaveForm(std::string_view form, bool refresh) {
    Boolean result = kFalse;
    EXPECT_TRUE(Validator()->FormValidationByFormName(form, ToBoolean(refresh), result).Ok());
    return result != kFalse;
  }

  /// Network record n has the number n and the n-th type; each type's systems are 4 (record 1) and 9.
  void GiveNetworks(const std::vector<std::int32_t>& types) {
    const auto count = static_cast<RecordNr>(types.size());
    for (const std::int32_t table : {21, 36, 53, 67, 72, 75, 77, 78}) provider.SetCount(table, count);
    for (RecordNr network = 1; network <= count; ++network) {
      provider.Set("21.NetworkIDTracker", network, network);
      provider.Set("21.NetworkPointer", network, network);
      provider.Set("21.SignallingType", network, types[static_cast<std::size_t>(network - 1)]);
      provider.Set("21.NetworkSignallingID", network, "4");
    }
    provider.Fill("29.SignalSystemId", {4, 9});
    provider.Fill("64.DTMFNetworkSigSystemID", {4, 9});
  }

  /// Channels on network 1, all with a frequency inside the default band.
  void GiveChannels(const std::vector<std::int32_t>& numbers) {
    provider.SetCount(5, static_cast<RecordNr>(numbers.size()));
    RecordNr channel = 0;
    for (const std::int32_t number : numbers) {
      provider.Set("5.ChannelIDTracker", ++channel, number);
      provider.Set("5.ChannelNetworkIdUI", channel, 1);
      provider.Set("TxFreq_k6k", channel, "430.000000");
      provider.Set("RxFreq_k6k", channel, "430.000000");
    }
  }
};
