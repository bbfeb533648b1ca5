#include "ui/clsTierUI.h"

#include "platform/Border.h"
#include "ui/modUserInterface.h"

namespace {
std::int16_t ToHost(bool flag) { return ToBoolean(flag); }
template <typename Value>
const Value& ToHost(const Value& value) {
  return value;
}
}  // namespace

template <typename Result, typename Member>
Status clsTierUI::Attribute(std::string_view uiid, Member member, Result& result, Boolean& out) {
  return Call([&](Itier*) {
    const colUserFields& fields = modUserInterface::UserFields();
    const bool found = fields.Exists(uiid);
    if (found) result = ToHost(fields.Item(uiid).*member);
    out = ToBoolean(found);
  });
}

Status clsTierUI::GetATGridIDByUIID(std::string_view uiid, std::string& gridId, Boolean& out) {
  return Attribute(uiid, &clsUserField::ATGridID, gridId, out);
}

Status clsTierUI::GetCustAccessLevelByUIID(std::string_view uiid, std::int16_t& level, Boolean& out) {
  return Attribute(uiid, &clsUserField::CustAccessLevel, level, out);
}

Status clsTierUI::InitialiseUserInterface(Itier* tier, const Variant&, Boolean& out) {
  return Border([&] {
    Bind(tier);
    out = ToBoolean(modUserInterface::InitialiseUserInterface());
  });
}

Status clsTierUI::GetNavLabelByUIID(std::string_view uiid, std::string& label, Boolean& out) {
  return Attribute(uiid, &clsUserField::NavLabel, label, out);
}

Status clsTierUI::GetHelpIdByUIID(std::string_view uiid, std::int32_t& helpId, Boolean& out) {
  return Attribute(uiid, &clsUserField::HelpID, helpId, out);
}

Status clsTierUI::GetUIWidthByUIID(std::string_view uiid, std::int32_t& width, Boolean& out) {
  return Attribute(uiid, &clsUserField::UIWidth, width, out);
}

Status clsTierUI::GetLabelByUIID(std::string_view uiid, std::string& label, Boolean& out) {
  return Attribute(uiid, &clsUserField::Label, label, out);
}

Status clsTierUI::GetUnitsByUIID(std::string_view uiid, std::string& units, Boolean& out) {
  return Attribute(uiid, &clsUserField::Units, units, out);
}

Status clsTierUI::GetFactoryVisible(std::string_view uiid, std::int16_t& level, Boolean& out) {
  return Attribute(uiid, &clsUserField::FactAccessLevel, level, out);
}

Status clsTierUI::GetCustVisInFact(std::string_view uiid, Boolean& visible, Boolean& out) {
  return Attribute(uiid, &clsUserField::FactButCustVis, visible, out);
}

Status clsTierUI::GetDecimalSymbolByUIID(std::string_view uiid, Boolean& shows, Boolean& out) {
  return Attribute(uiid, &clsUserField::DecimalSymbol, shows, out);
}
