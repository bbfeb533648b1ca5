#pragma once

#include <gtest/gtest.h>

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

/// The stored values that tell two personality files apart, record by record; a value of a record that only
/// one has stands beside none. Tables 50, 61 and 74 are laid out anew by every save.
inline std::multiset<std::string> StoredChanges(const std::string& before, const std::string& after) {
  using nlohmann::json;
  std::multiset<std::string> changes;
  const json a = json::parse(before)["tables"];
  const json b = json::parse(after)["tables"];
  for (const auto& [table, records] : a.items()) {
    if (table == "50" || table == "61" || table == "74") continue;
    const std::size_t last = std::max(records.size(), b[table].size());
    for (std::size_t i = 0; i < last; ++i) {
      const json was = i < records.size() ? records[i] : json::object();
      const json is = i < b[table].size() ? b[table][i] : json::object();
      for (const auto& [name, value] : (was.empty() ? is : was).items()) {
        const json& x = was.contains(name) ? was[name] : json();
        const json& y = is.contains(name) ? is[name] : json();
        if (x != y) changes.insert(StoredChange(table + "." + name, x, y));
      }
    }
  }
  return changes;
}

/// The same as `set` tells it.
inline std::multiset<std::string> StoredChanges(const nlohmann::json& told) {
  std::multiset<std::string> changes;
  for (const nlohmann::json& one : told) {
    changes.insert(StoredChange(one["fieldId"], one["storedBefore"], one["storedAfter"]));
  }
  return changes;
}
