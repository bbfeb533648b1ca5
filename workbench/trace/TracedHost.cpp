#include "workbench/trace/TracedCall.h"

/// The objects of the host, as the tier sees them.
namespace Trace {
namespace {

class TracedField final : public Traced<Ifield> {
 public:
  using Traced::Traced;
  Status TransformId(std::int32_t& out) override { return Call<&Ifield::TransformId>(out); }
  Status Default(Variant& out) override { return Call<&Ifield::Default>(out); }
  Status Name(std::string& out) override { return Call<&Ifield::Name>(out); }
  Status TableNumber(std::int32_t& out) override { return Call<&Ifield::TableNumber>(out); }
  Status Maximum(std::int32_t& out) override { return Call<&Ifield::Maximum>(out); }
  Status Minimum(std::int32_t& out) override { return Call<&Ifield::Minimum>(out); }
  Status ListCount(std::int32_t& out) override { return Call<&Ifield::ListCount>(out); }
  Status Scale(Currency& out) override { return Call<&Ifield::Scale>(out); }
  Status RecordCount(RecordNr& out) override { return Call<&Ifield::RecordCount>(out); }
  Status Value(RecordNr record, Variant& out) override { return Call<&Ifield::Value>(record, out); }
  Status SetValue(RecordNr record, const Variant& value) override {
    return Call<&Ifield::SetValue>(record, value);
  }
  Status Values(std::vector<Variant>& out) override { return Call<&Ifield::Values>(out); }
  Status Units(std::string& out) override { return Call<&Ifield::Units>(out); }
  Status FreeValues(std::shared_ptr<IvalueList>& out) override { return Call<&Ifield::FreeValues>(out); }
  Status UsedValues(std::shared_ptr<IvalueList>& out) override { return Call<&Ifield::UsedValues>(out); }
  Status Validation(std::string& out) override { return Call<&Ifield::Validation>(out); }
};

class TracedFields final : public Traced<Ifields> {
 public:
  using Traced::Traced;
  Status Exists(std::string_view name, Boolean& out) override { return Call<&Ifields::Exists>(name, out); }
  Status Item(std::string_view name, std::shared_ptr<Ifield>& out) override {
    return Call<&Ifields::Item>(name, out);
  }
  Status NewEnum(std::vector<std::shared_ptr<Ifield>>& out) override { return Call<&Ifields::NewEnum>(out); }
};

class TracedValueList final : public Traced<IvalueList> {
 public:
  using Traced::Traced;
  Status Item(std::int32_t index, std::string& out) override { return Call<&IvalueList::Item>(index, out); }
  Status Count(std::int32_t& out) override { return Call<&IvalueList::Count>(out); }
};

class TracedTable final : public Traced<Itable> {
 public:
  using Traced::Traced;
  Status RecordCount(RecordNr& out) override { return Call<&Itable::RecordCount>(out); }
  Status MinRecords(RecordNr& out) override { return Call<&Itable::MinRecords>(out); }
  Status MaxRecords(RecordNr& out) override { return Call<&Itable::MaxRecords>(out); }
  Status Fields(std::shared_ptr<Ifields>& out) override { return Call<&Itable::Fields>(out); }
  Status Sort(Iprovider& provider, std::string_view key, std::int32_t order) override {
    return Call<&Itable::Sort>(provider, key, order);
  }
  Status InsertRecord(RecordNr record) override { return Call<&Itable::InsertRecord>(record); }
  Status NewRecord(RecordNr& out) override { return Call<&Itable::NewRecord>(out); }
  Status AppendRecord(RecordNr& out) override { return Call<&Itable::AppendRecord>(out); }
  Status DeleteRecord(RecordNr record, RecordNr& out) override {
    return Call<&Itable::DeleteRecord>(record, out);
  }
};

class TracedTables final : public Traced<Itables> {
 public:
  using Traced::Traced;
  Status FieldExists(std::string_view name, Boolean& out) override {
    return Call<&Itables::FieldExists>(name, out);
  }
  Status Field(std::string_view name, std::shared_ptr<Ifield>& out) override {
    return Call<&Itables::Field>(name, out);
  }
  Status Table(std::string_view tableId, std::shared_ptr<Itable>& out) override {
    return Call<&Itables::Table>(tableId, out);
  }
};

class TracedProvider final : public Traced<Iprovider> {
 public:
  using Traced::Traced;
  Status DefaultValue(std::string_view name, Variant& out) override {
    return Call<&Iprovider::DefaultValue>(name, out);
  }
  Status RefreshField(std::string_view name) override { return Call<&Iprovider::RefreshField>(name); }
  Status RefreshValues(std::string_view fieldId) override { return Call<&Iprovider::RefreshValues>(fieldId); }
  Status TransformIdOf(std::string_view name, std::int32_t& out) override {
    return Call<&Iprovider::TransformIdOf>(name, out);
  }
  Status Field(std::string_view name, std::shared_ptr<Ifield>& out) override {
    return Call<&Iprovider::Field>(name, out);
  }
  Status Tables(std::shared_ptr<Itables>& out) override { return Call<&Iprovider::Tables>(out); }
  Status FactoryMode(Boolean& out) override { return Call<&Iprovider::FactoryMode>(out); }
  Status AutoUpdate(Boolean& out) override { return Call<&Iprovider::AutoUpdate>(out); }
  Status SetAutoUpdate(Boolean state) override { return Call<&Iprovider::SetAutoUpdate>(state); }
  Status ClearTable(std::string_view tableId, Boolean flag) override {
    return Call<&Iprovider::ClearTable>(tableId, flag);
  }
};

class TracedProvInfo final : public Traced<IprovInfo> {
 public:
  using Traced::Traced;
  Status DisplayText(std::string& out) override { return Call<&IprovInfo::DisplayText>(out); }
  Status ShowInMenu(Boolean& out) override { return Call<&IprovInfo::ShowInMenu>(out); }
  Status Key(std::string& out) override { return Call<&IprovInfo::Key>(out); }
  Status BaseKey(std::string& out) override { return Call<&IprovInfo::BaseKey>(out); }
  Status Provider(std::shared_ptr<Iprovider>& out) override { return Call<&IprovInfo::Provider>(out); }
  Status Siblings(std::vector<std::shared_ptr<IprovInfo>>& out) override {
    return Call<&IprovInfo::Siblings>(out);
  }
  Status Load(std::string_view tierName, std::string_view version, std::string_view reserved,
              std::string& currentVersion, Boolean& out) override {
    return Call<&IprovInfo::Load>(tierName, version, reserved, currentVersion, out);
  }
};

class TracedMessenger final : public Traced<Imessenger> {
 public:
  using Traced::Traced;
  Status ShowMessage(std::string_view message, std::int32_t style, std::string_view title,
                     std::string_view parameters, std::int32_t& out) override {
    return Call<&Imessenger::ShowMessage>(message, style, title, parameters, out);
  }
  Status GetRadioInformation(std::array<std::string, 8>& out) override {
    return Call<&Imessenger::GetRadioInformation>(out);
  }
  Status RefreshField(std::string_view uiid) override { return Call<&Imessenger::RefreshField>(uiid); }
  Status SetFieldEnabled(std::string_view uiid, Boolean enabled) override {
    return Call<&Imessenger::SetFieldEnabled>(uiid, enabled);
  }
};

class TracedValidatorHost final : public Traced<IvalidatorHost> {
 public:
  using Traced::Traced;
  Status Caption(std::string& out) override { return Call<&IvalidatorHost::Caption>(out); }
};

class TracedHostServices final : public Traced<IhostServices> {
 public:
  using Traced::Traced;
  Status CreateProvInfo(std::shared_ptr<IprovInfo>& out) override {
    return Call<&IhostServices::CreateProvInfo>(out);
  }
  Status ShowMessageBox(std::string_view text, std::int32_t style, std::string_view title,
                        std::int32_t& out) override {
    return Call<&IhostServices::ShowMessageBox>(text, style, title, out);
  }
  Status ApplicationFolder(std::string& out) override { return Call<&IhostServices::ApplicationFolder>(out); }
  Status RaiseEvent(std::int32_t number) override { return Call<&IhostServices::RaiseEvent>(number); }
};

}  // namespace

std::shared_ptr<Ifield> MakeTraced(Place place, std::shared_ptr<Ifield> real) {
  return Make<TracedField>(place, real);
}
std::shared_ptr<Ifields> MakeTraced(Place place, std::shared_ptr<Ifields> real) {
  return Make<TracedFields>(place, real);
}
std::shared_ptr<IvalueList> MakeTraced(Place place, std::shared_ptr<IvalueList> real) {
  return Make<TracedValueList>(place, real);
}
std::shared_ptr<Itable> MakeTraced(Place place, std::shared_ptr<Itable> real) {
  return Make<TracedTable>(place, real);
}
std::shared_ptr<Itables> MakeTraced(Place place, std::shared_ptr<Itables> real) {
  return Make<TracedTables>(place, real);
}
std::shared_ptr<Iprovider> MakeTraced(Place place, std::shared_ptr<Iprovider> real) {
  return Make<TracedProvider>(place, real);
}
std::shared_ptr<IprovInfo> MakeTraced(Place place, std::shared_ptr<IprovInfo> real) {
  return Make<TracedProvInfo>(place, real);
}
std::shared_ptr<Imessenger> MakeTraced(Place place, std::shared_ptr<Imessenger> real) {
  return Make<TracedMessenger>(place, real);
}
std::shared_ptr<IvalidatorHost> MakeTraced(Place place, std::shared_ptr<IvalidatorHost> real) {
  return Make<TracedValidatorHost>(place, real);
}
std::shared_ptr<IhostServices> MakeTraced(Place place, std::shared_ptr<IhostServices> real) {
  return Make<TracedHostServices>(place, real);
}

}  // namespace Trace
