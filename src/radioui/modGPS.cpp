#include "radioui/modGPS.h"

#include <algorithm>
#include <memory>

#include "common/ArrayRows.h"
#include "common/LibraryArray.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/StoredValues.h"
#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"

namespace modGPS {
namespace {
/// An array of table 69 and the field of table 21 that shows the networks' values in it.
constexpr struct {
  std::string_view raw, form;
} kPositionFields[] = {
    {"69.GPSNetworkSendPosOnPTT", "21.cboGPSNetworkSendPosOnPTT"},
    {"69.GPSNetworkSendPosOnEPTT1", "21.cboGPSNetworkSendPosOnEPTT1"},
    {"69.GPSNetworkSendPosOnEPTT2", "21.cboGPSNetworkSendPosOnEPTT2"},
    {"69.PttGPSSuppressionTime", "21.PttGPSSuppressionTime"},
};

bool CurrentChannelAnswers(const ProviderRef& provider) {
  return SameValue(provider.Field("69.GPSPollResponseChannelType").Value(1), ChannelType::kCurrent);
}

/// The number of the channel that the radio points at; "None" for an index outside the table.
Variant PointedChannel(const ProviderRef& provider) {
  const std::int32_t index = CLng(provider.Field("69.GPSPollResponseChannel").Value(1));
  Variant number = ValueAtIndex(provider.Field("7.CibChannelID"), index);
  return number.IsEmpty() ? Variant(kNone) : number;
}

/// A row for each network; row 0 is unused.
ArrayObject RowsOfNetworks(const FieldRef& form) {
  const auto rows = std::make_shared<LibraryArray>();
  rows->Redim(0, form.RecordCount(), ArrayRows::kColumn, ArrayRows::kColumn);
  for (const RecordNr network : form.Records()) {
    rows->SetValue(network, ArrayRows::kColumn, form.Value(network));
  }
  return rows;
}
}  // namespace

void GetResponseChannels(const ProviderRef& provider, std::string_view fieldId, RecordNr) {
  Procedure("GetActionParameters", [&] {  // its own name is not in its errors; wanted so
    const bool current = CurrentChannelAnswers(provider);
    provider.Field(fieldId).SetValue(1, current ? Variant(kNone) : PointedChannel(provider));
  });
}

void SetResponseChannels(const ProviderRef& provider, std::string_view fieldId, RecordNr) {
  Procedure("SetResponseChannels", [&] {
    RecordNr channel = 0;
    if (!CurrentChannelAnswers(provider)) {
      channel = modProjectGlobals::ChannelRecordNr(provider, provider.Field(fieldId).Value(1));
    }
    provider.Field("69.GPSPollResponseChannel").SetValue(1, std::max(channel - 1, 0));
  });
}

void GetGPSPosOnPTT(const ProviderRef& provider, std::string_view, RecordNr) {
  Procedure("GetGPSPosOnPTT", [&] {
    for (const auto& field : kPositionFields) {
      const Variant rows = provider.Field(field.raw).Value(1);
      const FieldRef form = provider.Field(field.form);
      for (const RecordNr network : form.Records()) {
        const Variant* value = ArrayRows::Find(rows, network);
        if (value != nullptr) form.SetValue(network, CLng(*value));
      }
    }
  });
}

void SetGPSPosOnPTT(const ProviderRef& provider, std::string_view, RecordNr) {
  Procedure("SetGPSPosOnPTT", [&] {
    for (const auto& field : kPositionFields) {
      provider.Field(field.raw).SetValue(1, RowsOfNetworks(provider.Field(field.form)));
    }
  });
}

void MoveRows(const ProviderRef& provider, std::span<const std::size_t> order) {
  for (const auto& field : kPositionFields) {
    const FieldRef raw = provider.Field(field.raw);
    const Variant before = raw.Value(1);
    if (ArrayRows::Find(before, 1) == nullptr) continue;  // no network has a row
    const auto rows = std::make_shared<LibraryArray>();
    rows->Redim(0, static_cast<std::int32_t>(order.size()), ArrayRows::kColumn, ArrayRows::kColumn);
    std::int32_t row = 0;
    for (const std::size_t index : order) {
      const Variant* value = ArrayRows::Find(before, static_cast<std::int32_t>(index) + 1);
      rows->SetValue(++row, ArrayRows::kColumn, value == nullptr ? Variant(0) : *value);
    }
    raw.SetValue(1, ArrayObject(rows));
  }
}
}  // namespace modGPS
