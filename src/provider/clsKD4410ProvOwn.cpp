#include "provider/clsKD4410ProvOwn.h"

#include <cmath>

#include "channels/modBandLimits.h"
#include "common/Procedure.h"
#include "common/ValidatorRef.h"
#include "common/modCommonGlobals.h"
#include "compat/modBackwardsCompatibility.h"
#include "platform/Border.h"
#include "platform/Conversions.h"
#include "provider/modComboItems.h"
#include "provider/modPostAddProcessing.h"
#include "provider/modTransformations.h"

namespace {
using modBandLimits::GetBandLimitsByComboBoxPosition;
using modTransformations::Transformation;

/// The radio stores the polarities of table 36 with the opposite sense to the forms.
void InvertPolarities(const ProviderRef& provider) {
  for (const std::string_view name : {"36.DCSTxPolarity", "36.DCSRxPolarity"}) {
    const FieldRef polarity = provider.Field(name);
    for (const RecordNr record : polarity.Records()) {
      polarity.SetValue(record, RoundToLong(std::fabs(1.0 - CLng(polarity.Value(record)))));
    }
  }
}

std::int32_t BandPosition(const ProviderRef& provider) { return CLng(provider.Field("Band_k6k").Value(1)); }

/// What a plain name stands for: its table and its name there.
std::string FieldIdOf(const FieldRef& field) {
  return std::to_string(field.TableNumber()) + "." + field.Name();
}

/// Runs one side of the field's transformation, silently for the host's follow-up work. False for a
/// field whose number is not in the table.
bool Transform(const ProviderRef& provider, std::string_view fieldId, RecordNr record,
               modTransformations::Routine Transformation::*side) {
  const auto [table, name] = modCommonGlobals::SplitFieldId(fieldId);
  if (table.empty()) return Transform(provider, FieldIdOf(provider.Field(name)), record, side);
  const std::int32_t number = provider.Table(table).Fields().Item(name).TransformId();
  const Transformation* transformation = modTransformations::Find(number, fieldId);
  if (transformation == nullptr) return false;
  const ScopedAutoUpdate silent(provider, false);
  (transformation->*side)(provider, fieldId, record);
  return true;
}

}  // namespace

Status clsKD4410ProvOwn::BackwardsCompatibility(std::shared_ptr<Iprovider> source,
                                                std::string_view fromVersion,
                                                std::shared_ptr<Iprovider> destination,
                                                std::string_view toVersion, const Variant&, Boolean& out) {
  return Call([&](Itier* tier) {
    out = ToBoolean(modBackwardsCompatibility::BackwardsCompatibility(
        ValidatorRef(tier), fromVersion, ProviderRef(source), toVersion, ProviderRef(destination)));
  });
}

Status clsKD4410ProvOwn::PostReadProcessing(std::shared_ptr<Iprovider> provider, const Variant&) {
  return Call([&](Itier*) {
    Procedure("PostReadProcessing", [&] {
      const ProviderRef personality(provider);
      const ScopedAutoUpdate silent(personality, false);
      InvertPolarities(personality);
    });
  });
}

Status clsKD4410ProvOwn::PreWriteProcessing(std::shared_ptr<Iprovider> provider, const Variant&,
                                            const Variant&) {
  return Call([&](Itier*) {
    Procedure("PreWriteProcessing", [&] {
      const ProviderRef personality(provider);
      const ScopedAutoUpdate silent(personality, false);
      personality.Table("50").FillToCapacity();
      personality.Table("61").FillToCapacity();
      InvertPolarities(personality);
    });
  });
}

Status clsKD4410ProvOwn::PostAddProcessing(std::shared_ptr<Iprovider> provider, std::string_view gridName,
                                           Boolean& out) {
  return Call([&](Itier* tier) {
    out = ToBoolean(Procedure("PostAddProcessing", true, [&] {
      modPostAddProcessing::CheckAddedRecord(ValidatorRef(tier), ProviderRef(provider), gridName);
      return true;
    }));
  });
}

Status clsKD4410ProvOwn::PostInsertProcessing(std::shared_ptr<Iprovider> provider, std::string_view gridName,
                                              RecordNr record, Boolean& out) {
  return Call([&](Itier* tier) {
    out = ToBoolean(Procedure("PostInsertProcessing", true, [&] {
      modPostAddProcessing::CheckInsertedRecord(ValidatorRef(tier), ProviderRef(provider), gridName, record);
      return true;
    }));
  });
}

Status clsKD4410ProvOwn::GetComboItemsByUIID(std::shared_ptr<Iprovider> provider, std::string_view uiid,
                                             RecordNr record, std::shared_ptr<XArrayDBObject>& items,
                                             Boolean& out) {
  return Call([&](Itier*) {
    std::shared_ptr<XArrayDBObject> list = items;
    out = ToBoolean(modComboItems::GetComboItemsByUIID(ProviderRef(provider), uiid, record, list));
    items = std::move(list);
  });
}

Status clsKD4410ProvOwn::TransformFromUI(std::shared_ptr<Iprovider> provider, std::string_view fieldId,
                                         RecordNr record, Boolean& out) {
  return Call([&](Itier*) {
    out = ToBoolean(Procedure("TransformFromUI", true, [&] {
      return Transform(ProviderRef(std::move(provider)), fieldId, record, &Transformation::fromUI);
    }));
  });
}

Status clsKD4410ProvOwn::TransformToUI(std::shared_ptr<Iprovider> provider, std::string_view fieldId,
                                       RecordNr record, Boolean& out) {
  return Call([&](Itier*) {
    out = ToBoolean(Procedure("TransformToUI", true, [&] {
      return Transform(ProviderRef(std::move(provider)), fieldId, record, &Transformation::toUI);
    }));
  });
}

Status clsKD4410ProvOwn::GetFrequencyRanges(std::int32_t bandPosition, std::int32_t& txLowest,
                                            std::int32_t& txHighest, std::int32_t& rxLowest,
                                            std::int32_t& rxHighest, std::string& steps) {
  return Call([&](Itier*) {
    Procedure("GetFrequencyRanges", [&] {
      const BandLimits& band = GetBandLimitsByComboBoxPosition(bandPosition);
      txLowest = rxLowest = band.LowerLimit;
      txHighest = rxHighest = band.UpperLimit;
      steps = band.Steps;
    });
  });
}

Status clsKD4410ProvOwn::GetBands(XArrayDBObject& bands) {
  return Call([&](Itier*) {
    Procedure("GetBands", [&] {
      bands.Redim(0, modBandLimits::kBandCount - 1, 0, 0);
      for (std::int32_t position = 0; position < modBandLimits::kBandCount; ++position) {
        bands.SetValue(position, 0, GetBandLimitsByComboBoxPosition(position).Description);
      }
    });
  });
}

Status clsKD4410ProvOwn::GetBandDesc(std::shared_ptr<Iprovider> provider, std::string& out) {
  return Call([&](Itier*) {
    out = Procedure("GetBandDesc", std::string(), [&] {
      const std::int32_t position = BandPosition(ProviderRef(provider));
      return std::string(GetBandLimitsByComboBoxPosition(position).Description.substr(0, 2));
    });
  });
}

Status clsKD4410ProvOwn::Initialize(Itier* tier) {
  return Border([&] { Bind(tier); });
}

Status clsKD4410ProvOwn::GetCurrentFrequencyRanges(std::int32_t& txLowest, std::int32_t& txHighest,
                                                   std::int32_t& rxLowest, std::int32_t& rxHighest,
                                                   std::string& steps) {
  return Call([&](Itier* tier) {
    Procedure("GetCurrentFrequencyRanges", [&] {
      const std::int32_t position = BandPosition(ValidatorRef(tier).CurrentProvider());
      RaiseIfFailed(GetFrequencyRanges(position, txLowest, txHighest, rxLowest, rxHighest, steps));
    });
  });
}

Status clsKD4410ProvOwn::PostDeleteProcessing(std::shared_ptr<Iprovider>, std::string_view gridName, RecordNr,
                                              Boolean& out) {
  return Call([&](Itier* tier) {
    out = ToBoolean(Procedure("PostDeleteProcessing", true, [&] {
      return modPostAddProcessing::RecordDeleted(ValidatorRef(tier), gridName);
    }));
  });
}
