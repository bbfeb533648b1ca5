#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Types.h"

class Provider;

/// The fixed-format bursts of the Selcall systems as the forms show them: a grid a kind, whose rows are the
/// slots of that kind, in table 30, of the system shown.
namespace BurstSlots {

struct Kind {
  std::string_view key;      // in JSON
  std::string_view uiid;     // of the grid's column
  std::string_view pointer;  // of the channels that use a burst of the kind: its record less 1, 0 for none
};
/// In the order of their codes in the radio.
inline constexpr std::array<Kind, 6> kKinds = {{
    {"repeater", "BurstSequence0_k6k", "5.RepeaterBurst"},
    {"callerId", "BurstSequence1_k6k", "5.CallerIDBurst"},
    {"txCall", "BurstSequence2_k6k", "5.TXCallBurst"},
    {"status", "BurstSequence3_k6k", "5.StatusBurst"},
    {"accessTone", "BurstSequence4_k6k", "5.RepeaterAccessTone"},
    {"leadIn", "BurstSequence5_k6k", "5.Lead-In-Tone"},
}};

/// The records of table 30 that the rows of a grid show for a system, a record of table 29, in order; none
/// for a table that is no such grid.
std::vector<RecordNr> Of(const Provider& content, std::int32_t grid, RecordNr system);

/// A burst with the channels that use it.
struct Entry {
  std::size_t kind;  // in kKinds
  RecordNr row;      // of its grid
  RecordNr record;   // of table 30
  std::string text;
  std::vector<std::string> channels;  // their numbers
};
/// All slots of a system, by kind, in order. The content is on its forms, and nothing has been edited since.
std::vector<Entry> AddressBook(const Provider& content, RecordNr system);

}  // namespace BurstSlots
