#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/IhostServices.h"
#include "host/IprovInfo.h"
#include "host/IvalidatorHost.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"

/// The host that the validator serves.
class ValidatorHost final : public IvalidatorHost {
 public:
  explicit ValidatorHost(std::string caption = "Programming Application") : caption_(std::move(caption)) {}
  Status Caption(std::string& out) override;

 private:
  std::string caption_;
};

/// The open personality and its content at other versions, shared by the descriptions of all versions.
class OpenPersonality {
 public:
  explicit OpenPersonality(std::shared_ptr<const SchemaFiles> schemas) : schemas_(std::move(schemas)) {}

  /// Makes the provider's version the current one and drops the providers of all others.
  void Open(std::shared_ptr<Provider> provider);
  void Close();
  /// Sets the store of one more version, for a conversion.
  void SetProvider(std::shared_ptr<Provider> provider);

  /// Null when none is open.
  const VersionName* Current() const { return current_.model.empty() ? nullptr : &current_; }
  /// The store at that version: the one set, else a new one with default content that is kept.
  std::shared_ptr<Provider> ProviderOf(const VersionName& version);

 private:
  std::shared_ptr<const SchemaFiles> schemas_;
  VersionName current_;
  std::map<std::string, std::shared_ptr<Provider>, std::less<>> providers_;  // by version text
};

/// The description of one database version: a new one is empty until it is loaded.
class ProvInfo final : public IprovInfo {
 public:
  explicit ProvInfo(std::shared_ptr<OpenPersonality> personality, VersionName version = {})
      : personality_(std::move(personality)), version_(std::move(version)) {}

  Status DisplayText(std::string& out) override;
  Status ShowInMenu(Boolean& out) override;
  Status Key(std::string& out) override;
  /// The next older version of the same model.
  Status BaseKey(std::string& out) override;
  Status Provider(std::shared_ptr<Iprovider>& out) override;
  /// All versions of the model, this one among them, ascending; made anew by each call.
  Status Siblings(std::vector<std::shared_ptr<IprovInfo>>& out) override;
  /// Becomes the version of the open personality and gives its digits ("0094"). With none open it
  /// becomes the latest version of the model that has the tier's name and gives "". Error 5 for a name
  /// that is no model.
  Status Load(std::string_view tierName, std::string_view version, std::string_view reserved,
              std::string& currentVersion, Boolean& out) override;

 private:
  bool IsEmpty() const { return version_.model.empty(); }

  std::shared_ptr<OpenPersonality> personality_;
  VersionName version_;
};

/// The platform around the application: keeps the boxes and counts the events that the tier raises.
class ApplicationServices final : public IhostServices {
 public:
  struct Box {
    std::string text;
    std::int32_t style = 0;
    std::string title;
  };
  /// Shows a box to the user and gives the button.
  using BoxSink = std::function<std::int32_t(const Box&)>;

  /// Without a sink a box goes to standard error and the answer is OK.
  ApplicationServices(std::shared_ptr<OpenPersonality> personality, std::string applicationFolder,
                      BoxSink sink = {});

  Status CreateProvInfo(std::shared_ptr<IprovInfo>& out) override;
  Status ShowMessageBox(std::string_view text, std::int32_t style, std::string_view title,
                        std::int32_t& out) override;
  Status ApplicationFolder(std::string& out) override;
  Status RaiseEvent(std::int32_t number) override;

  const std::vector<Box>& Boxes() const { return boxes_; }
  std::vector<std::string> BoxTexts() const;
  /// How often the tier has asked to end the application.
  int Terminations() const { return terminations_; }
  void Clear();

 private:
  std::shared_ptr<OpenPersonality> personality_;
  std::string applicationFolder_;
  BoxSink sink_;
  std::vector<Box> boxes_;
  int terminations_ = 0;
};
