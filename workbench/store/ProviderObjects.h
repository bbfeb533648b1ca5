#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/Iprovider.h"
#include "workbench/store/CallMonitor.h"
#include "workbench/store/Records.h"

/// The objects that a provider hands out: views of its content, made once with it.

/// "Ifield.Value 5.ChannelName": an operation and what it is called for, as a monitor tells it.
std::string CallName(const char* operation, std::string_view what);

class FreeValueList;
struct ProviderState;

class FieldObject final : public Ifield {
 public:
  FieldObject(ProviderState& state, const SchemaField& field) : state_(state), field_(field) {}

  Status TransformId(std::int32_t& out) override;
  Status Default(Variant& out) override;
  Status Name(std::string& out) override;
  Status TableNumber(std::int32_t& out) override;
  Status Maximum(std::int32_t& out) override;
  Status Minimum(std::int32_t& out) override;
  Status ListCount(std::int32_t& out) override;
  Status Scale(Currency& out) override;
  Status RecordCount(RecordNr& out) override;
  Status Value(RecordNr record, Variant& out) override;
  Status SetValue(RecordNr record, const Variant& value) override;
  Status Values(std::vector<Variant>& out) override;
  Status Units(std::string& out) override;
  Status FreeValues(std::shared_ptr<IvalueList>& out) override;
  Status UsedValues(std::shared_ptr<IvalueList>& out) override;
  Status Validation(std::string& out) override;

 private:
  template <typename Work>
  Status Call(const char* operation, Work work);

  ProviderState& state_;
  const SchemaField& field_;
};

class FieldsObject final : public Ifields {
 public:
  FieldsObject(ProviderState& state, const SchemaTable& table) : state_(state), table_(table) {}

  Status Exists(std::string_view name, Boolean& out) override;
  Status Item(std::string_view name, std::shared_ptr<Ifield>& out) override;
  Status NewEnum(std::vector<std::shared_ptr<Ifield>>& out) override;

 private:
  /// Null when the table has no such field.
  const SchemaField* Find(std::string_view name) const;

  ProviderState& state_;
  const SchemaTable& table_;
};

class TableObject final : public Itable {
 public:
  TableObject(ProviderState& state, const SchemaTable& table)
      : state_(state), table_(table), fields_(state, table) {}

  Status RecordCount(RecordNr& out) override;
  Status MinRecords(RecordNr& out) override;
  Status MaxRecords(RecordNr& out) override;
  Status Fields(std::shared_ptr<Ifields>& out) override;
  Status Sort(Iprovider& provider, std::string_view key, std::int32_t order) override;
  Status InsertRecord(RecordNr record) override;
  Status NewRecord(RecordNr& out) override;
  Status AppendRecord(RecordNr& out) override;
  Status DeleteRecord(RecordNr record, RecordNr& out) override;

 private:
  template <typename Work>
  Status Call(const char* operation, Work work);
  Status Append(const char* operation, RecordNr& out);
  std::vector<const SchemaField*> SortKeys(std::string_view key) const;

  ProviderState& state_;
  const SchemaTable& table_;
  FieldsObject fields_;
};

class TablesObject final : public Itables {
 public:
  explicit TablesObject(ProviderState& state) : state_(state) {}

  Status FieldExists(std::string_view name, Boolean& out) override;
  Status Field(std::string_view name, std::shared_ptr<Ifield>& out) override;
  Status Table(std::string_view tableId, std::shared_ptr<Itable>& out) override;

 private:
  ProviderState& state_;
};

/// What a provider and the objects that it hands out share. Each of those pointers keeps all of it alive.
struct ProviderState : std::enable_shared_from_this<ProviderState> {
  explicit ProviderState(std::shared_ptr<const Schema> schema);

  /// Keeps all of it alive. A pointer is copied in a fraction of the time that a weak one takes to lock.
  std::shared_ptr<ProviderState> Shared() { return held != nullptr ? held : shared_from_this(); }
  std::shared_ptr<ProviderState> held;  // itself, until its provider goes

  const Schema& GetSchema() const { return records.GetSchema(); }
  /// Raises 5 for a name that is unknown or ambiguous.
  const SchemaField& FieldOf(std::string_view name) const;
  /// The table of a number, or that of a field. Raises 5 for another text.
  const SchemaTable& TableOf(std::string_view tableId) const;
  /// The numbers that no record uses. The list is made once for as long as nothing is written.
  const std::shared_ptr<FreeValueList>& FreeValuesOf(const SchemaField& field);

  Records records;
  std::shared_ptr<CallMonitor> monitor = std::make_shared<CallMonitor>();
  bool autoUpdate = true;
  bool factoryMode = false;

  std::vector<FieldObject> fields;  // by SchemaField::index
  std::vector<TableObject> tables;  // by SchemaTable::index
  TablesObject allTables{*this};

 private:
  std::map<std::size_t, std::shared_ptr<FreeValueList>> freeValues_;  // by SchemaField::index
  std::uint64_t freeValuesMade_ = 0;                                  // Records::Changes at that time
};
