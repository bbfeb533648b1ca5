#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/IhostServices.h"

/// A database version as a test describes it. The test owns it: what it hands out owns nothing.
class FakeVersion final : public IprovInfo {
 public:
  explicit FakeVersion(std::string newKey = {}, std::string newBaseKey = {})
      : key(std::move(newKey)), baseKey(std::move(newBaseKey)), displayText("text of " + key) {}
  std::shared_ptr<IprovInfo> Handle() { return {std::shared_ptr<void>(), this}; }

  Status DisplayText(std::string& out) override { return Give(displayText, out); }
  Status ShowInMenu(Boolean& out) override { return Give(ToBoolean(inMenu), out); }
  Status Key(std::string& out) override { return Give(key, out); }
  Status BaseKey(std::string& out) override { return Give(baseKey, out); }
  Status Provider(std::shared_ptr<Iprovider>& out) override { return Give(provider, out); }
  Status Siblings(std::vector<std::shared_ptr<IprovInfo>>& out) override {
    ++siblingCalls;
    out.clear();
    for (FakeVersion* sibling : siblings) out.push_back(sibling->Handle());
    return {};
  }
  Status Load(std::string_view tierName, std::string_view version, std::string_view reserved,
              std::string& currentVersion, Boolean& out) override {
    loaded.push_back(std::string(tierName) + "/" + std::string(version) + "/" + std::string(reserved));
    if (loadFault) return Status(*loadFault);
    currentVersion = current;
    return Give(kFalse, out);  // what counts is what was filled
  }

  std::string key, baseKey, displayText, current;
  bool inMenu = true;
  std::vector<FakeVersion*> siblings;
  std::shared_ptr<Iprovider> provider;
  std::optional<Fault> loadFault;
  int siblingCalls = 0;
  std::vector<std::string> loaded;

 private:
  template <typename Value>
  static Status Give(const Value& value, Value& out) {
    out = value;
    return {};
  }
};

/// The platform of a test, which owns it too. A box is its style, title and text in one line.
class FakeServices final : public IhostServices {
 public:
  std::shared_ptr<IhostServices> Handle() { return {std::shared_ptr<void>(), this}; }

  Status CreateProvInfo(std::shared_ptr<IprovInfo>& out) override {
    calls.push_back("CreateProvInfo");
    out = created < versions.size() ? versions[created++]->Handle() : nullptr;
    return {};
  }
  Status ShowMessageBox(std::string_view text, std::int32_t style, std::string_view title,
                        std::int32_t& out) override {
    calls.push_back("ShowMessageBox");
    boxes.push_back(std::to_string(style).append("|").append(title).append("|").append(text));
    out = 1;
    return showsBoxes ? Status() : Status(5, "FakeServices", "no screen");
  }
  Status ApplicationFolder(std::string& out) override {
    calls.push_back("ApplicationFolder");
    out = folder;
    return {};
  }
  Status RaiseEvent(std::int32_t number) override {
    calls.push_back("RaiseEvent " + std::to_string(number));
    if (onEvent) onEvent();
    return {};
  }

  std::vector<FakeVersion*> versions;  ///< created one after the other
  std::size_t created = 0;
  std::string folder;
  bool showsBoxes = true;
  std::vector<std::string> boxes, calls;
  std::function<void()> onEvent;  ///< what the host does when it is told to end
};
