#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/Types.h"

class Provider;

/// The fixed-format bursts of the Selcall systems as the forms show them: a grid a kind, whose rows are the
/// slots of that kind, in table 30, of the system shown.
namespace BurstSlots {

struct Kind {
  std::string_view name;
  std::string_view key;           // in JSON
  std::string_view channelField;  // in which a channel names the one that it uses
};
/// In the order of their codes in the radio.
inline constexpr std::array<Kind, 6> kKinds = {{{"Repeater", "repeater", "5.RepeaterBurstSeq"},
                                                {"Caller ID", "callerId", "5.CallerIDBurstSeq"},
                                                {"Tx call", "txCall", "5.TXCallBurstSeq"},
                                                {"Status", "status", "5.StatusBurstSeq"},
                                                {"Access tone", "accessTone", "5.RepeaterAccessToneSeq"},
                                                {"Lead-in tone", "leadIn", "5.Lead-In-ToneSeq"}}};

/// The records of table 30 that the rows of a grid show for a system, a record of table 29, in order; none
/// for a table that is no such grid.
std::vector<RecordNr> Of(const Provider& content, std::int32_t grid, RecordNr system);
/// Likewise by the code of the kind.
std::vector<RecordNr> OfKind(const Provider& content, std::int32_t kind, RecordNr system);

}  // namespace BurstSlots
