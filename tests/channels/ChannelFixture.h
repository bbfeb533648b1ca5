#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Conversions.h"
#include "platform/Locale.h"
#include "tests/support/TierFixture.h"

/// The boxes of the tier as one line each: style, title, template, parameters.
inline std::string Box(std::int32_t style, std::string_view title, std::string_view text,
                       std::string_view parameters = {}) {
  return std::to_string(style).append("|").append(title).append("|").append(text).append("|").append(
      parameters);
}
inline std::string ErrorBox(std::string_view text, std::string_view parameters = {}) {
  return Box(48, "Caption Error", text, parameters);
}
inline std::string WarningBox(std::string_view text, std::string_view parameters = {}) {
  return Box(48, "Caption Warning", text, parameters);
}
inline std::string NoticeBox(std::string_view text, std::string_view parameters = {}) {
  return Box(64, "Caption Warning", text, parameters);
}
inline std::string QuestionBox(std::string_view text, std::string_view parameters = {}) {
  return Box(68, "Caption Warning", text, parameters);
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
  DecimalComma(const DecimalComma&) = delete;
  DecimalComma& operator=(const DecimalComma&) = delete;
};

/// Gives every question the same button, also one that its box does not show: a box that was closed.
class OneButtonMessenger final : public RecordingMessenger {
 public:
  explicit OneButtonMessenger(Button button) : button_(button) {}

 protected:
  Button Answer(const Shown&) override { return button_; }

 private:
  Button button_;
};

/// A personality whose channels, networks and references a test fills in.
class ChannelFixture : public TierFixture {
 protected:
  std::string Text(std::string_view name, RecordNr record = 1) const {
    return CStr(provider.Get(name, record));
  }
  std::vector<std::string> Column(std::string_view name) const {
    std::vector<std::string> texts;
    const RecordNr count = provider.Count(provider.FieldOf(name).table);
    for (RecordNr record = 1; record <= count; ++record) texts.push_back(Text(name, record));
    return texts;
  }

  static std::vector<std::string> BoxesOf(const RecordingMessenger& shown) {
    std::vector<std::string> boxes;
    for (const Shown& box : shown.Boxes()) {
      boxes.push_back(Box(box.style, box.title, box.unfilled, box.parameters));
    }
    return boxes;
  }
  std::vector<std::string> Boxes() const { return BoxesOf(messenger); }
  /// The controls that were switched, in order: "+UIID" on, "-UIID" off.
  std::vector<std::string> Switched() const {
    std::vector<std::string> controls;
    for (const auto& state : messenger.EnabledStates()) {
      controls.push_back((state.enabled ? "+" : "-") + state.uiid);
    }
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
  /// What the tier did since, without its reading.
  std::vector<std::string> Trail() const {
    std::vector<std::string> trail;
    for (const std::string& call : provider.Monitor().Calls()) {
      const bool isDeed = call.starts_with("Imessenger.") || call.starts_with("Ifield.SetValue") ||
                          call.starts_with("Iprovider.RefreshField") ||
                          call.starts_with("Iprovider.ClearTable") || call.starts_with("Itable.Append");
      constexpr std::string_view kBox = "Imessenger.ShowMessage";
      if (isDeed) trail.push_back(call.starts_with(kBox) ? std::string(kBox) : call);
    }
    return trail;
  }

  /// The tier starts anew with a messenger that always gives this button.
  std::shared_ptr<OneButtonMessenger> AlwaysAnswer(Button button) {
    const auto answering = std::make_shared<OneButtonMessenger>(button);
    Boolean initialised = kFalse;
    EXPECT_TRUE(Tier()->Initialize("KD4410", validatorHost, answering, Variant(), initialised).Ok());
    EXPECT_EQ(initialised, kTrue);
    return answering;
  }

  bool Delete(RecordNr channel) {
    Boolean result = kFalse;
    EXPECT_TRUE(Validator()->DeleteRecord("Channels6000", channel, sharedProvider, result).Ok());
    return result != kFalse;
  }
  bool FinalValidation() {
    Boolean result = kFalse;
    EXPECT_TRUE(Validator()->RunFinalValidation(result).Ok());
    return result != kFalse;
  }
  bool LeaveForm(std::string_view form, bool refresh) {
    Boolean result = kFalse;
    EXPECT_TRUE(Validator()->FormValidationByFormName(form, ToBoolean(refresh), result).Ok());
    return result != kFalse;
  }

  /// Network record n has the number n and the n-th type; each type's systems are 4 (record 1) and 9.
  void GiveNetworks(const std::vector<std::int32_t>& types, std::string_view identity = "4") {
    const auto count = static_cast<RecordNr>(types.size());
    for (const std::int32_t table : {21, 53, 75}) provider.SetCount(table, count);
    for (RecordNr network = 1; network <= count; ++network) {
      provider.Set("21.NetworkIDTracker", network, network);
      provider.Set("21.NetworkPointer", network, network);
      provider.Set("21.SignallingType", network, types[static_cast<std::size_t>(network - 1)]);
      provider.Set("21.NetworkSignallingID", network, identity);
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
