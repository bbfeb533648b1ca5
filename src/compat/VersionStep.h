#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string_view>

#include "common/Messages.h"
#include "common/ValidatorRef.h"

/// One step between two database versions: it reads the personality that is left and completes the new one,
/// into which the host has copied what both versions share. A field that a version does not have is neither
/// read nor written there.
class VersionStep {
 public:
  VersionStep(const ValidatorRef& tier, const ProviderRef& source, const ProviderRef& destination)
      : tier_(tier), source_(source), destination_(destination) {}

  const ProviderRef& Source() const { return source_; }
  const ProviderRef& Destination() const { return destination_; }

  /// A box that ends nothing.
  void Warn(std::string_view message) const;
  /// A box that ends the step. Always false.
  bool Refuse(std::string_view message, Parameters parameters = {}) const;

  /// The field of the destination, else of the source; no value where neither version has it.
  std::optional<FieldRef> Readable(std::string_view field) const;
  /// Of the destination alone.
  std::optional<FieldRef> Writable(std::string_view field) const;
  /// Whether the only record of a readable field holds the code.
  bool Holds(std::string_view field, std::int32_t code) const;
  void Set(std::string_view field, RecordNr record, const Variant& value) const;

  /// Gives each record of a field what `change` makes of its value.
  void ChangeEach(std::string_view field, const std::function<std::int32_t(std::int32_t)>& change) const;
  /// Warns of each record of the first field that holds `old`, and gives it and its neighbours in the other
  /// fields the new code.
  void ReplaceEach(std::initializer_list<std::string_view> fields, std::int32_t old, std::int32_t code,
                   std::string_view warning) const;
  /// Copies a field of the networks into another one of the destination.
  void TakeForNetworks(std::string_view field, const ProviderRef& from, std::string_view fromField) const;
  /// Deletes what stands in a table of the destination behind the last network's record.
  void CutToNetworks(std::string_view tableId) const;

  /// Whether a record of the source holds one of the codes.
  bool SourceHolds(std::string_view field, std::initializer_list<std::int32_t> codes) const;
  /// Whether a stored value of the source is below what the forms of the destination let a user enter, which
  /// `limit` becomes.
  bool IsBelowLimit(std::string_view field, std::int32_t& limit) const;

 private:
  void Show(std::string_view message, std::string_view title, Parameters parameters) const;

  const ValidatorRef& tier_;
  const ProviderRef& source_;
  const ProviderRef& destination_;
};
