#include "tests/support/TierFixture.h"

#include <filesystem>

#include "host/TierLibrary.h"
#include "platform/Status.h"
#include "tests/support/BuiltFiles.h"

namespace {
/// What the operation of the tier wrote to its last argument; a failed status fails the test.
template <typename Out, typename Object, typename Operation, typename... Args>
Out Ask(Object& object, Operation operation, Args&&... args) {
  Out out{};
  const Status status = (object.*operation)(std::forward<Args>(args)..., out);
  EXPECT_TRUE(status.Ok()) << status.Reason().source << ": " << status.Reason().description;
  return out;
}

/// A box is kept and shown to nobody.
std::int32_t AnswerOk(const ApplicationServices::Box&) { return static_cast<std::int32_t>(Button::Ok); }

std::shared_ptr<IclassFactory> TierFactory() {
  std::shared_ptr<IclassFactory> factory;
  EXPECT_EQ(DllGetClassObject("clsKD4410Tier", factory), 0);
  return factory;
}
}  // namespace

const std::shared_ptr<const SchemaFiles>& ProjectSchemas() {
  static const std::shared_ptr<const SchemaFiles> schemas = SchemaFiles::Read(SCHEMA_FOLDER);
  return schemas;
}

const SchemaField* FindInAnyVersion(std::string_view name) {
  const std::vector<VersionName> versions = SchemaFiles::VersionsOf("KD4410");
  for (auto version = versions.rbegin(); version != versions.rend(); ++version) {
    const SchemaField* field = ProjectSchemas()->At(version->Text())->Find(name);
    if (field != nullptr) return field;
  }
  return nullptr;
}

HostParts ProjectParts() {
  return {ProjectSchemas(), kTierLibrary, std::filesystem::path(kTierLibrary).parent_path().string()};
}

TierFixture::TierFixture(std::string_view version)
    : sharedProvider(std::make_shared<Provider>(ProjectSchemas()->At(version))),
      provider(*sharedProvider),
      personality(std::make_shared<OpenPersonality>(ProjectSchemas())),
      services(std::make_shared<ApplicationServices>(personality, DATA_FOLDER, AnswerOk)) {
  provider.Set("39.Databaseversion", 1, provider.GetSchema().Number());
  personality->Open(sharedProvider);
}

void TierFixture::SetUp() {
  const auto factory = TierFactory();
  ASSERT_TRUE(factory->SetHostServices(services).Ok());
  ASSERT_TRUE(factory->CreateTier(tier_).Ok());
  const auto initialised = Ask<Boolean>(*tier_, &Itier::Initialize, provider.GetSchema().Model(),
                                        validatorHost, sharedMessenger, Variant());
  ASSERT_EQ(initialised, kTrue) << testing::PrintToString(services->BoxTexts());
  provider.Monitor().Clear();
}

void TierFixture::TearDown() {
  EXPECT_TRUE(tier_ == nullptr || tier_->Terminate().Ok());
  tier_.reset();
  EXPECT_TRUE(TierFactory()->SetHostServices(nullptr).Ok());
  EXPECT_THAT(messenger.Unscripted(), testing::IsEmpty()) << "questions without an answer in the script";
  EXPECT_EQ(messenger.AnswersLeft(), 0U) << "answers that no question asked for";
  EXPECT_TRUE(expectsTermination_ || Terminations() == 0) << testing::PrintToString(services->BoxTexts());
}

bool TierFixture::Validate(std::string_view uiid, Variant value, RecordNr record) {
  validated = std::move(value);
  return Ask<Boolean>(*Validator(), &ItierValidator::ValidateByUIID, uiid, validated, record) != kFalse;
}

bool TierFixture::ToUI(std::string_view fieldId, RecordNr record) {
  return Ask<Boolean>(*ProviderOwner(), &IproviderOwner::TransformToUI, sharedProvider, fieldId, record) !=
         kFalse;
}

bool TierFixture::FromUI(std::string_view fieldId, RecordNr record) {
  return Ask<Boolean>(*ProviderOwner(), &IproviderOwner::TransformFromUI, sharedProvider, fieldId, record) !=
         kFalse;
}

std::shared_ptr<ItierValidator> TierFixture::Validator() const {
  return Ask<std::shared_ptr<ItierValidator>>(*tier_, &Itier::Validator);
}

std::shared_ptr<IproviderOwner> TierFixture::ProviderOwner() const {
  return Ask<std::shared_ptr<IproviderOwner>>(*tier_, &Itier::ProviderOwner);
}
