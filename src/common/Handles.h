#pragma once

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "host/Imessenger.h"
#include "host/Iprovider.h"
#include "platform/Status.h"

/// Handles around the host's objects: they return values and raise a failed status, so that mapping code
/// and rules never see one. A handle lives for one call.

/// Calls a host operation and returns what it wrote to its last argument; raises a failed status.
template <typename Out, typename Host, typename Operation, typename... Args>
Out Ask(Host& host, Operation operation, const Args&... args) {
  Out out{};
  RaiseIfFailed((host.*operation)(args..., out));
  return out;
}

[[noreturn]] void RaiseNothing(std::string_view what);

/// The object behind the pointer; raises 91 when the host handed out none.
template <typename Host>
Host& Deref(const std::shared_ptr<Host>& pointer, std::string_view what) {
  if (pointer == nullptr) [[unlikely]] {
    RaiseNothing(what);
  }
  return *pointer;
}

/// The records 1 to `count`, for a walk; counted once. Who deletes walks from the end, by hand.
class RecordRange {
 public:
  class Iterator {
   public:
    explicit Iterator(RecordNr record) : record_(record) {}
    RecordNr operator*() const { return record_; }
    Iterator& operator++() {
      ++record_;
      return *this;
    }
    bool operator!=(const Iterator& other) const { return record_ != other.record_; }

   private:
    RecordNr record_;
  };

  explicit RecordRange(RecordNr count) : count_(std::max(count, 0)) {}
  Iterator begin() const { return Iterator(1); }
  Iterator end() const { return Iterator(count_ + 1); }

 private:
  RecordNr count_;
};

class ValueListRef {
 public:
  explicit ValueListRef(std::shared_ptr<IvalueList> list) : list_(std::move(list)) {}
  /// Zero-based.
  std::string Item(std::int32_t index) const { return Ask<std::string>(Host(), &IvalueList::Item, index); }
  std::int32_t Count() const { return Ask<std::int32_t>(Host(), &IvalueList::Count); }

 private:
  IvalueList& Host() const { return Deref(list_, "IvalueList"); }
  std::shared_ptr<IvalueList> list_;
};

/// The record of a table that has one.
inline constexpr RecordNr kOnly = 1;

class FieldRef {
 public:
  explicit FieldRef(std::shared_ptr<Ifield> field) : field_(std::move(field)) {}
  Variant Value(RecordNr record) const { return Ask<Variant>(Host(), &Ifield::Value, record); }
  void SetValue(RecordNr record, const Variant& value) const {
    RaiseIfFailed(Host().SetValue(record, value));
  }
  RecordNr RecordCount() const { return Ask<RecordNr>(Host(), &Ifield::RecordCount); }
  /// Records count from 1; one that is still to come, or none, is not there.
  bool HasRecord(RecordNr record) const { return record >= 1 && record <= RecordCount(); }
  RecordRange Records() const { return RecordRange(RecordCount()); }
  std::int32_t TransformId() const { return Ask<std::int32_t>(Host(), &Ifield::TransformId); }
  /// What the schema gives the field in a new record.
  Variant Default() const { return Ask<Variant>(Host(), &Ifield::Default); }
  std::int32_t Minimum() const { return Ask<std::int32_t>(Host(), &Ifield::Minimum); }
  std::int32_t Maximum() const { return Ask<std::int32_t>(Host(), &Ifield::Maximum); }
  /// Minimum and Maximum times this compare with a stored value.
  double Scale() const {
    constexpr double kParts = 10'000;
    return static_cast<double>(Ask<Currency>(Host(), &Ifield::Scale).tenThousandths) / kParts;
  }
  std::int32_t TableNumber() const { return Ask<std::int32_t>(Host(), &Ifield::TableNumber); }
  std::string Name() const { return Ask<std::string>(Host(), &Ifield::Name); }
  /// As messages show them.
  std::string Units() const { return Ask<std::string>(Host(), &Ifield::Units); }
  /// The characters that a sequence or format may hold, in their order.
  std::string Validation() const { return Ask<std::string>(Host(), &Ifield::Validation); }
  std::vector<Variant> Values() const { return Ask<std::vector<Variant>>(Host(), &Ifield::Values); }
  ValueListRef FreeValues() const {
    return ValueListRef(Ask<std::shared_ptr<IvalueList>>(Host(), &Ifield::FreeValues));
  }
  ValueListRef UsedValues() const {
    return ValueListRef(Ask<std::shared_ptr<IvalueList>>(Host(), &Ifield::UsedValues));
  }

 private:
  Ifield& Host() const { return Deref(field_, "Ifield"); }
  std::shared_ptr<Ifield> field_;
};

class FieldsRef {
 public:
  explicit FieldsRef(std::shared_ptr<Ifields> fields) : fields_(std::move(fields)) {}
  FieldRef Item(std::string_view name) const {
    return FieldRef(Ask<std::shared_ptr<Ifield>>(Deref(fields_, "Ifields"), &Ifields::Item, name));
  }
  /// All fields of the table.
  std::vector<FieldRef> NewEnum() const {
    const auto fields =
        Ask<std::vector<std::shared_ptr<Ifield>>>(Deref(fields_, "Ifields"), &Ifields::NewEnum);
    return {fields.begin(), fields.end()};
  }

 private:
  std::shared_ptr<Ifields> fields_;
};

class ProviderRef;

class TableRef {
 public:
  explicit TableRef(std::shared_ptr<Itable> table) : table_(std::move(table)) {}
  RecordNr RecordCount() const { return Ask<RecordNr>(Host(), &Itable::RecordCount); }
  RecordNr MaxRecords() const { return Ask<RecordNr>(Host(), &Itable::MaxRecords); }
  /// Records count from 1; one that is still to come, or none, is not there.
  bool HasRecord(RecordNr record) const { return record >= 1 && record <= RecordCount(); }
  RecordRange Records() const { return RecordRange(RecordCount()); }
  FieldsRef Fields() const { return FieldsRef(Ask<std::shared_ptr<Ifields>>(Host(), &Itable::Fields)); }
  /// The new record's number is the record count afterwards, whatever the host's operation says.
  RecordNr AppendRecord() const {
    static_cast<void>(Ask<RecordNr>(Host(), &Itable::AppendRecord));
    return RecordCount();
  }
  /// Appends records until the table holds so many.
  void FillTo(RecordNr needed) const {
    for (RecordNr count = RecordCount(); count < needed; ++count) AppendRecord();
  }
  /// Appends records until the table holds as many as the version allows.
  void FillToCapacity() const { FillTo(MaxRecords()); }
  void DeleteRecord(RecordNr record) const {
    static_cast<void>(Ask<RecordNr>(Host(), &Itable::DeleteRecord, record));
  }
  /// Ascending by the key: a name, or several joined by a vertical bar.
  void Sort(const ProviderRef& provider, std::string_view key) const;

 private:
  Itable& Host() const { return Deref(table_, "Itable"); }
  std::shared_ptr<Itable> table_;
};

class ProviderRef {
 public:
  explicit ProviderRef(std::shared_ptr<Iprovider> provider) : provider_(std::move(provider)) {}
  FieldRef Field(std::string_view name) const {
    return FieldRef(Ask<std::shared_ptr<Ifield>>(Host(), &Iprovider::Field, name));
  }
  /// Whether this database version has the field.
  bool HasField(std::string_view name) const {
    return Ask<Boolean>(*Tables(), &Itables::FieldExists, name) != kFalse;
  }
  /// The field's transformation number; -1 for none.
  std::int32_t TransformIdOf(std::string_view name) const {
    return Ask<std::int32_t>(Host(), &Iprovider::TransformIdOf, name);
  }
  TableRef Table(std::string_view tableId) const {
    return TableRef(Ask<std::shared_ptr<Itable>>(*Tables(), &Itables::Table, tableId));
  }
  /// What the schema gives the field in a new record; of an identity the next free one.
  Variant DefaultValue(std::string_view name) const {
    return Ask<Variant>(Host(), &Iprovider::DefaultValue, name);
  }
  bool FactoryMode() const { return Ask<Boolean>(Host(), &Iprovider::FactoryMode) != kFalse; }
  bool AutoUpdate() const { return Ask<Boolean>(Host(), &Iprovider::AutoUpdate) != kFalse; }
  void SetAutoUpdate(bool state) const { RaiseIfFailed(TrySetAutoUpdate(state)); }
  Status TrySetAutoUpdate(bool state) const { return Host().SetAutoUpdate(ToBoolean(state)); }
  /// `flag` is true but for the control statuses of the system on the form.
  void ClearTable(std::string_view tableId, bool flag = true) const {
    RaiseIfFailed(Host().ClearTable(tableId, ToBoolean(flag)));
  }
  void RefreshField(std::string_view name) const { RaiseIfFailed(Host().RefreshField(name)); }
  void RefreshValues(std::string_view fieldId) const { RaiseIfFailed(Host().RefreshValues(fieldId)); }
  bool IsNothing() const { return provider_ == nullptr; }

 private:
  friend class TableRef;

  Iprovider& Host() const { return Deref(provider_, "Iprovider"); }
  std::shared_ptr<Itables> Tables() const {
    auto tables = Ask<std::shared_ptr<Itables>>(Host(), &Iprovider::Tables);
    static_cast<void>(Deref(tables, "Itables"));
    return tables;
  }

  std::shared_ptr<Iprovider> provider_;
};

class MessengerRef {
 public:
  explicit MessengerRef(std::shared_ptr<Imessenger> messenger) : messenger_(std::move(messenger)) {}
  Button ShowMessage(std::string_view message, std::int32_t style, std::string_view title,
                     std::string_view parameters) const {
    return static_cast<Button>(
        Ask<std::int32_t>(Host(), &Imessenger::ShowMessage, message, style, title, parameters));
  }
  /// The model of the control head of the attached radio; "Unknown" when it is not known.
  std::string ControlHead() const {
    std::array<std::string, 8> radio;
    RaiseIfFailed(Host().GetRadioInformation(radio));
    return radio[6];
  }
  void RefreshField(std::string_view uiid) const { RaiseIfFailed(Host().RefreshField(uiid)); }
  void SetFieldEnabled(std::string_view uiid, bool enabled) const {
    RaiseIfFailed(Host().SetFieldEnabled(uiid, ToBoolean(enabled)));
  }

 private:
  Imessenger& Host() const { return Deref(messenger_, "Imessenger"); }
  std::shared_ptr<Imessenger> messenger_;
};

/// Sets the provider's AutoUpdate for a batch of writes and restores the state that it found, also
/// after an error. A restore that fails is raised, unless an error is already on its way. Not for
/// destructors.
class ScopedAutoUpdate {
 public:
  ScopedAutoUpdate(const ProviderRef& provider, bool state);
  ~ScopedAutoUpdate() noexcept(false);
  ScopedAutoUpdate(const ScopedAutoUpdate&) = delete;
  ScopedAutoUpdate& operator=(const ScopedAutoUpdate&) = delete;

 private:
  const ProviderRef& provider_;
  const bool before_;
};
