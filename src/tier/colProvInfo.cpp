#include "tier/colProvInfo.h"

#include "platform/Border.h"
#include "platform/Conversions.h"

namespace {
/// Calls `use` with the key of a text or the index of a number.
template <typename Use>
void WithKeyOrIndex(const Variant& keyOrIndex, Use use) {
  if (keyOrIndex.IsText()) {
    use(std::string_view(std::get<std::string>(keyOrIndex)));
  } else {
    use(CLng(keyOrIndex));
  }
}
}  // namespace

Status colProvInfo::Add(std::shared_ptr<IprovInfo> provInfo, std::string_view key) {
  return Border([&] { versions_.Add(std::move(provInfo), key); });
}

Status colProvInfo::Item(const Variant& keyOrIndex, std::shared_ptr<IprovInfo>& out) {
  return Border([&] { WithKeyOrIndex(keyOrIndex, [&](auto place) { out = versions_.Item(place); }); });
}

Status colProvInfo::Count(std::int32_t& out) {
  out = versions_.Count();
  return {};
}

Status colProvInfo::Remove(const Variant& keyOrIndex) {
  return Border([&] { WithKeyOrIndex(keyOrIndex, [&](auto place) { versions_.Remove(place); }); });
}

Status colProvInfo::NewEnum(std::vector<std::shared_ptr<IprovInfo>>& out) {
  return Border([&] { out.assign(versions_.begin(), versions_.end()); });
}

Status colProvInfo::Exists(std::string_view key, Boolean& out) {
  return Border([&] {
    static_cast<void>(versions_.Item(key));
    out = kTrue;
  });
}
