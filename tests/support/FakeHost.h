#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/IhostServices.h"

/// Database versions and a platform as a test describes them. The test owns all of them: what they hand out
/// owns nothing. `calls` of the services is the common log.
class FakeVersion final : public IprovInfo {
 public:
  explicit FakeVersion(std::string newKey = {}, std::string newBaseKey = {})
      : key(std::move(newKey)), baseKey(std::move(newBaseKey)), displayText("text of " + key) {}

  Status DisplayText(std::string& out) override { return Give(displayText, out); }
  Status ShowInMenu(Boolean& out) override { return Give(ToBoolean(inMenu), out); }
  Status Key(std::string& out) override { return Give(key, out); }
  Status BaseKey(std::string& out) override { return Give(baseKey, out); }
  Status Provider(std::shared_ptr<Iprovider>& out) override {
    ++providerCalls;
    return Give(provider, out);
  }
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

  std::shared_ptr<IprovInfo> Handle() { return {std::shared_ptr<void>(), this}; }

  std::string key, baseKey, displayText, current;
  bool inMenu = true;
  std::vector<FakeVersion*> siblings;
  std::shared_ptr<Iprovider> provider;
  std::optional<Fault> loadFault;
  int providerCalls = 0;
  int siblingCalls = 0;
  std::vector<std::string> loaded;

 private:
  template <typename Value>
  Status Give(const Value& value, Value& out) {
    out = value;
    return {};
  }
};

class FakeServices final : public IhostServices {
 public:
  struct Box {
    std::string text;
    std::int32_t style;
    std::string title;
  };

  Status CreateProvInfo(std::shared_ptr<IprovInfo>& out) override {
    calls.push_back("CreateProvInfo");
    out = created < versions.size() ? versions[created++]->Handle() : nullptr;
    return {};
  }
  Status ShowMessageBox(std::string_view text, std::int32_t style, std::string_view title,
                        std::int32_t& out) override {
    calls.push_back("ShowMessageBox");
    boxes.push_back({std::string(text), style, std::string(title)});
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
    return {};
  }

  std::shared_ptr<IhostServices> Handle() { return {std::shared_ptr<void>(), this}; }

  std::vector<FakeVersion*> versions;  ///< created one after the other
  std::size_t created = 0;
  std::string folder;
  bool showsBoxes = true;
  std::vector<Box> boxes;
  std::vector<std::string> calls;
};
