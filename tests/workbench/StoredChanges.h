#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>
#include <string>

/// One stored value before and after, as text; 1 and 1.0 are the same.
inline std::string StoredChange(const std::string& field, const nlohmann::json& before,
                                const nlohmann::json& after) {
  const auto text = [](const nlohmann::json& one) {
    return one.is_number() ? std::to_string(one.get<double>()) : one.dump();
  };
  return field + " " + text(before) + " " + text(after);
}

/// The stored values that tell two personality files apart, record by record, but for the tables `without`.
/// Tables 50, 61 and 74 are laid out anew by every save.
inline std::multiset<std::string> StoredChanges(const std::string& before, const std::string& after,
                                                std::set<std::string> without = {}) {
  using nlohmann::json;
  std::multiset<std::string> changes;
  const json a = json::parse(before)["tables"];
  const json b = json::parse(after)["tables"];
  without.insert({"50", "61", "74"});
  for (const auto& [table, records] : a.items()) {
    if (without.contains(table)) continue;
    EXPECT_EQ(records.size(), b[table].size()) << table;
    for (std::size_t i = 0; i < std::min(records.size(), b[table].size()); ++i) {
      for (const auto& [name, value] : records[i].items()) {
        const json& now = b[table][i][name];
        if (now != value) changes.insert(StoredChange(table + "." + name, value, now));
      }
    }
  }
  return changes;
}

/// The same as `set` tells it.
inline std::multiset<std::string> StoredChanges(const nlohmann::json& told,
                                                const std::set<std::string>& without = {}) {
  std::multiset<std::string> changes;
  for (const nlohmann::json& one : told) {
    if (without.contains(std::to_string(one["table"].get<int>()))) continue;
    if (one["storedBefore"] == one["storedAfter"]) continue;  // it points at the same place, which is another
    changes.insert(StoredChange(one["fieldId"], one["storedBefore"], one["storedAfter"]));
  }
  return changes;
}
