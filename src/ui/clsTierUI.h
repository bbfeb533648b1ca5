#pragma once

#include "common/LibraryObject.h"
#include "common/TierChild.h"
#include "host/ItierUserInterface.h"

class clsTierUI final : public ItierUserInterface, public TierChild, private LibraryObject {
 public:
  using TierChild::TierChild;
  Status GetATGridIDByUIID(std::string_view uiid, std::string& gridId, Boolean& out) override;
  Status GetCustAccessLevelByUIID(std::string_view uiid, std::int16_t& level, Boolean& out) override;
  Status InitialiseUserInterface(Itier* tier, const Variant& argument, Boolean& out) override;
  Status GetNavLabelByUIID(std::string_view uiid, std::string& label, Boolean& out) override;
  Status GetHelpIdByUIID(std::string_view uiid, std::int32_t& helpId, Boolean& out) override;
  Status GetUIWidthByUIID(std::string_view uiid, std::int32_t& width, Boolean& out) override;
  Status GetLabelByUIID(std::string_view uiid, std::string& label, Boolean& out) override;
  Status GetUnitsByUIID(std::string_view uiid, std::string& units, Boolean& out) override;
  Status GetFactoryVisible(std::string_view uiid, std::int16_t& level, Boolean& out) override;
  Status GetCustVisInFact(std::string_view uiid, Boolean& visible, Boolean& out) override;
  Status GetDecimalSymbolByUIID(std::string_view uiid, Boolean& shows, Boolean& out) override;

 private:
  /// Writes the attribute of a known field; an unknown UIID leaves `result` alone.
  template <typename Result, typename Member>
  Status Attribute(std::string_view uiid, Member member, Result& result, Boolean& out);
};
