#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "host/Itier.h"
#include "workbench/host/HostObjects.h"
#include "workbench/host/Messengers.h"
#include "workbench/host/TierHost.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"

/// The schema files of the project, read once in the life of the process.
const std::shared_ptr<const SchemaFiles>& ProjectSchemas();
/// The field of that name in the newest version, else in an older one; null for a name that is in none.
const SchemaField* FindInAnyVersion(std::string_view name);
/// What a session of the workbench is made from: these schemas, the built plug-in and the data beside it.
HostParts ProjectParts();

// Answers of a script.
inline constexpr auto kYes = Button::Yes;
inline constexpr auto kNo = Button::No;

/// The tier itself, initialised on a new personality with default content. A test fails when a question
/// comes unscripted, when a scripted answer is not asked for, and when the tier ends the application
/// unexpectedly.
class TierFixture : public testing::Test {
 protected:
  explicit TierFixture(std::string_view version = "KD4410.0094");
  void SetUp() override;
  void TearDown() override;

  /// What the tier says of an edit; `validated` holds the value that it left.
  bool Validate(std::string_view uiid, Variant value, RecordNr record = 1);
  bool ToUI(std::string_view fieldId, RecordNr record = 1);
  bool FromUI(std::string_view fieldId, RecordNr record = 1);

  /// The next termination (or several) is what the test wants; it is asked for the number itself.
  void ExpectTermination() { expectsTermination_ = true; }
  int Terminations() const { return services->Terminations(); }

  std::shared_ptr<Itier> Tier() const { return tier_; }
  std::shared_ptr<ItierValidator> Validator() const;
  std::shared_ptr<IproviderOwner> ProviderOwner() const;

  const std::shared_ptr<Provider> sharedProvider;
  Provider& provider;
  const std::shared_ptr<ScriptedMessenger> sharedMessenger = std::make_shared<ScriptedMessenger>();
  ScriptedMessenger& messenger = *sharedMessenger;
  const std::shared_ptr<ValidatorHost> validatorHost = std::make_shared<ValidatorHost>("Caption");
  const std::shared_ptr<OpenPersonality> personality;
  const std::shared_ptr<ApplicationServices> services;
  Variant validated;

 private:
  std::shared_ptr<Itier> tier_;
  bool expectsTermination_ = false;
};
