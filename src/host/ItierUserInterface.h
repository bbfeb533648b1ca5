#pragma once

#include <string>
#include <string_view>

#include "platform/Status.h"
#include "platform/Types.h"
#include "platform/Variant.h"

class Itier;

/// How a form describes its fields. Implemented by the tier; legal after `InitialiseUserInterface`. Each
/// Get looks a UIID up, whatever its case: found, it writes the attribute and true; an unknown UIID is
/// false and leaves the attribute as it was.
class ItierUserInterface {
 public:
  virtual ~ItierUserInterface() = default;
  /// The grid that the field belongs to; empty for none.
  virtual Status GetATGridIDByUIID(std::string_view uiid, std::string& gridId, Boolean& out) = 0;
  /// The lowest access level that sees the field in customer mode.
  virtual Status GetCustAccessLevelByUIID(std::string_view uiid, std::int16_t& level, Boolean& out) = 0;
  /// Reads the metadata files, once in the life of the process. False when they can not be read, which
  /// the user has been told. The argument is not used.
  virtual Status InitialiseUserInterface(Itier* tier, const Variant& argument, Boolean& out) = 0;
  virtual Status GetNavLabelByUIID(std::string_view uiid, std::string& label, Boolean& out) = 0;
  virtual Status GetHelpIdByUIID(std::string_view uiid, std::int32_t& helpId, Boolean& out) = 0;
  virtual Status GetUIWidthByUIID(std::string_view uiid, std::int32_t& width, Boolean& out) = 0;
  virtual Status GetLabelByUIID(std::string_view uiid, std::string& label, Boolean& out) = 0;
  virtual Status GetUnitsByUIID(std::string_view uiid, std::string& units, Boolean& out) = 0;
  /// The lowest access level that sees the field in factory mode.
  virtual Status GetFactoryVisible(std::string_view uiid, std::int16_t& level, Boolean& out) = 0;
  /// Whether a factory field is visible to a customer all the same.
  virtual Status GetCustVisInFact(std::string_view uiid, Boolean& visible, Boolean& out) = 0;
  /// Whether the field shows the user's decimal symbol.
  virtual Status GetDecimalSymbolByUIID(std::string_view uiid, Boolean& shows, Boolean& out) = 0;
};
