#pragma once

#include "common/LibraryObject.h"
#include "common/TierChild.h"
#include "host/IproviderOwner.h"

class clsKD4410ProvOwn final : public IproviderOwner, public TierChild, private LibraryObject {
 public:
  using TierChild::TierChild;
  Status BackwardsCompatibility(std::shared_ptr<Iprovider> source, std::string_view fromVersion,
                                std::shared_ptr<Iprovider> destination, std::string_view toVersion,
                                const Variant& report, Boolean& out) override;
  Status PostReadProcessing(std::shared_ptr<Iprovider> provider, const Variant& argument) override;
  Status PreWriteProcessing(std::shared_ptr<Iprovider> provider, const Variant& argument1,
                            const Variant& argument2) override;
  Status PostAddProcessing(std::shared_ptr<Iprovider> provider, std::string_view gridName,
                           Boolean& out) override;
  Status PostInsertProcessing(std::shared_ptr<Iprovider> provider, std::string_view gridName, RecordNr record,
                              Boolean& out) override;
  Status GetComboItemsByUIID(std::shared_ptr<Iprovider> provider, std::string_view uiid, RecordNr record,
                             std::shared_ptr<XArrayDBObject>& items, Boolean& out) override;
  Status TransformFromUI(std::shared_ptr<Iprovider> provider, std::string_view fieldId, RecordNr record,
                         Boolean& out) override;
  Status TransformToUI(std::shared_ptr<Iprovider> provider, std::string_view fieldId, RecordNr record,
                       Boolean& out) override;
  Status GetFrequencyRanges(std::int32_t bandPosition, std::int32_t& txLowest, std::int32_t& txHighest,
                            std::int32_t& rxLowest, std::int32_t& rxHighest, std::string& steps) override;
  Status GetBands(XArrayDBObject& bands) override;
  Status GetBandDesc(std::shared_ptr<Iprovider> provider, std::string& out) override;
  Status Initialize(Itier* tier) override;
  Status GetCurrentFrequencyRanges(std::int32_t& txLowest, std::int32_t& txHighest, std::int32_t& rxLowest,
                                   std::int32_t& rxHighest, std::string& steps) override;
  Status PostDeleteProcessing(std::shared_ptr<Iprovider> provider, std::string_view gridName, RecordNr record,
                              Boolean& out) override;
};
