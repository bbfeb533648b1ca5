#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "host/Iprovider.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/CallMonitor.h"
#include "workbench/store/Records.h"

struct ProviderState;

/// The in-memory store of one personality at one version. Strict: a name that is unknown or ambiguous, a
/// record outside 1..count and a full table are errors. A write stores the value and nothing else,
/// whatever AutoUpdate says. The objects that it hands out live with its content and may outlive it.
///
/// Beside the interface it serves the host's own side: those routines raise an Error where the interface
/// gives a failed status, and are not counted as calls.
class Provider final : public Iprovider {
 public:
  explicit Provider(std::shared_ptr<const Schema> schema);
  ~Provider() override;
  Provider(const Provider&) = delete;
  Provider& operator=(const Provider&) = delete;

  Status DefaultValue(std::string_view name, Variant& out) override;
  Status RefreshField(std::string_view name) override;
  Status RefreshValues(std::string_view fieldId) override;
  Status TransformIdOf(std::string_view name, std::int32_t& out) override;
  Status Field(std::string_view name, std::shared_ptr<Ifield>& out) override;
  Status Tables(std::shared_ptr<Itables>& out) override;
  Status FactoryMode(Boolean& out) override;
  Status AutoUpdate(Boolean& out) override;
  Status SetAutoUpdate(Boolean state) override;
  Status ClearTable(std::string_view tableId, Boolean flag) override;

  Variant Get(std::string_view name, RecordNr record = 1) const;
  const Variant& Get(const SchemaField& field, RecordNr record) const;
  void Set(std::string_view name, RecordNr record, Variant value);
  void Set(const SchemaField& field, RecordNr record, Variant value);
  /// Gives the field's table exactly as many records as there are values, then writes them.
  void Fill(std::string_view name, std::vector<Variant> values);

  RecordNr Count(std::int32_t table) const;
  RecordNr Count(const SchemaTable& table) const;
  /// Removes records from the end of the table or appends new ones, up to its capacity.
  void SetCount(std::int32_t table, RecordNr count);
  /// Whether the content is in the shape of the forms, for the defaults of new records.
  void SetOnForms(bool on);
  bool IsOnForms() const;
  void SetFactoryMode(bool on);
  bool IsAutoUpdating() const;

  /// Another provider with the same content and flags, a monitor of its own and no journal.
  std::shared_ptr<Provider> Copy() const;
  /// Likewise with what is stored alone, as a file keeps it: the forms hold their defaults.
  std::shared_ptr<Provider> StoredCopy() const;

  const Schema& GetSchema() const;
  const std::shared_ptr<const Schema>& SharedSchema() const;
  /// The field of the name as the interface resolves it; raises 5 for none.
  const SchemaField& FieldOf(std::string_view name) const;
  CallMonitor& Monitor();
  const std::shared_ptr<CallMonitor>& SharedMonitor() const;
  /// Shares a monitor with other host objects; never empty.
  void SetMonitor(std::shared_ptr<CallMonitor> monitor);

 private:
  friend class Journal;

  template <typename Describe, typename Work>
  Status Call(CallGroup group, Describe describe, Work work);

  std::shared_ptr<ProviderState> state_;
};
