#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Types.h"
#include "platform/Variant.h"

class Provider;
class TierHost;

/// An entry of a list, and what the field stores for it where the list has codes.
struct ComboItem {
  std::string text;
  std::optional<std::int32_t> code = {};
};

/// What the tier offers for a field, in its order.
struct ComboList {
  std::vector<ComboItem> items;
  bool hasCodes = false;

  /// The tier answers a field without list with the one item "Undefined".
  bool IsNone() const { return items.size() == 1 && items.front().text == "Undefined"; }
};

/// The list of a field for a record, which may be one to come. The tier is handed a copy of the content: a
/// list is asked for, nothing is changed. An UnsupportedByTier for a list that the tier does not have yet.
ComboList ComboListOf(const TierHost& host, const Provider& content, std::string_view uiid, RecordNr record);

/// No value for a field without list, and where the tier does not have it yet.
std::optional<ComboList> ListOffered(const TierHost& host, const Provider& content, std::string_view uiid,
                                     RecordNr record);
/// The text of the entry that a value of the field stands for, by its code or, in a list without codes, by
/// its row from 0. No value where the list has no such entry.
std::optional<std::string> EntryOf(const TierHost& host, const Provider& content, std::string_view uiid,
                                   RecordNr record, const Variant& value);
