#include "workbench/jobs/BurstPlaces.h"

#include <numeric>

#include "workbench/jobs/BurstSlots.h"
#include "workbench/schema/Schema.h"

std::string BurstPlace::Name() const {
  constexpr const char* kNames[] = {"repeater burst", "caller ID burst", "Tx call burst",
                                    "status burst",   "access tone",     "lead-in tone"};
  return "Selcall system " + std::to_string(system) + ", " + kNames[kind] + " " + std::to_string(row);
}

BurstPlaces::BurstPlaces(const Schema& schema) {
  for (std::size_t kind = 0; kind < rows_.size(); ++kind) {
    rows_[kind] = schema.FindTable(schema.Find(BurstSlots::kKinds[kind].uiid)->table)->maximum;
  }
  block_ = std::accumulate(rows_.begin(), rows_.end(), RecordNr{0});
}

std::optional<BurstPlace> BurstPlaces::Of(RecordNr record) const {
  if (record < 2) return {};
  BurstPlace place{(record - 2) / block_ + 1, 0, (record - 2) % block_ + 1};
  for (; place.row > rows_[place.kind]; ++place.kind) place.row -= rows_[place.kind];
  return place;
}

RecordNr BurstPlaces::RecordOf(const BurstPlace& place) const {
  if (place.row > rows_[place.kind]) return 0;
  const auto first = rows_.begin();
  const RecordNr before =
      std::accumulate(first, first + static_cast<std::ptrdiff_t>(place.kind), RecordNr{0});
  return (place.system - 1) * block_ + 1 + before + place.row;
}
