#include "platform/CaseText.h"
#include "tests/support/TierFixture.h"
#include "validation/Conditions.h"
#include "validation/modvalEnablement.h"
#include "validation/modvalFields.h"
#include "validation/modvalSwitches.h"

/// A misspelt name in a condition makes a control enabled for ever, one in a list of controls is told to
/// nobody, and a UIID without its row in the data files has no label. None of it is a fault at run time.
namespace {
class NamesInTables : public TierFixture {
 protected:
  void ExpectField(std::string_view name, std::string_view where) {
    EXPECT_NE(FindInAnyVersion(name), nullptr) << name << " of " << where;
  }
  void ExpectFields(const Condition& condition, std::string_view where) {
    for (const Condition* part : condition.parts) ExpectFields(*part, where);
    if (condition.IsTest() && condition.kind != Condition::Kind::Never) ExpectField(condition.field, where);
  }
};

TEST_F(NamesInTables, OfRulesConditionsAndSwitchesAreThoseOfTheSchema) {
  for (const std::string_view uiid : modvalFields::UIIDs()) ExpectField(uiid, "the rules");
  for (const auto& row : modvalEnablement::Rows()) {
    ExpectField(row.uiid, "the conditions");
    ExpectFields(*row.enabledWhen, row.uiid);
  }
  for (const auto& row : modvalSwitches::Rows()) {
    ExpectField(row.edited, "the switches");
    ExpectField(row.control, row.edited);
    if (row.wanted != nullptr) ExpectFields(*row.wanted, row.edited);
    EXPECT_EQ(row.wanted != nullptr, !row.reason.empty()) << row.edited << " and " << row.control;
  }
}

TEST_F(NamesInTables, EveryBoundNameHasItsLabel) {
  std::shared_ptr<ItierUserInterface> ui;
  ASSERT_TRUE(Tier()->UserInterface(ui).Ok());
  for (const SchemaField& field : provider.GetSchema().Fields()) {
    for (const std::string& uiid : field.uiids) {
      std::string label;
      Boolean known = kFalse;
      EXPECT_TRUE(ui->GetLabelByUIID(uiid, label, known).Ok());
      EXPECT_TRUE(known != kFalse && !label.empty()) << uiid;
    }
  }
}
}  // namespace
