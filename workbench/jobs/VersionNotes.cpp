#include "workbench/jobs/VersionNotes.h"

#include <algorithm>

#include "platform/Conversions.h"
#include "workbench/schema/Schema.h"

namespace {

/// By the digits of two neighbours, the older one first.
struct Note {
  std::string_view older, newer, up, down;
};
// clang-format off
constexpr Note kNotes[] = {
    {"0029", "0051",
     "Invalid confirmation delays above 250 become 250. The preset volume of the PA goes from 0..30 to 0..255. "
     "Networks take their numbers from NetworkID.",
     "Refused while a network signals by DTMF. The preset volume of the PA goes from 0..255 to 0..30."},
    {"0051", "0052",
     "Networks count from 1. The codes of GPS compatibility and of the emergency microphone are renumbered.",
     "Networks count from 0. The codes of GPS compatibility and of the emergency microphone are renumbered; "
     "'Aux' becomes 'Standard'."},
    {"0053", "0054",
     "Networks take their numbers from NetworkPointer. A microphone path tapped without a tap point takes its "
     "microphone.",
     "Networks take their numbers from NetworkID."},
    {"0054", "0081",
     "An external PTT on CH_GPIO1 is reset. DTMF presets and patch records are completed. The in-band tone "
     "becomes 2000 Hz. 'Deactivate Alarm Mode' becomes 'None'.",
     "Refused while a network signals by two-tone; the two-tone systems go."},
    {"0081", "0082",
     "GPS acknowledgements go. The NMEA string 'None' becomes 'GPRMC' while GPS is on. Acknowledgement of "
     "texts follows that of data. Tx timers above 250 become 250. Microphone sources become 1.",
     "Waiting for a GPS acknowledgement follows GPS, acknowledgement of data that of texts."},
    {"0083", "0084", "",
     "Refused while an output shows 'Serial Data In Progress' or a line has a debounce time of 2, 5, 150 or "
     "200 ms."},
    {"0084", "0085", "", "Refused while a line sends network preset call 2, 3 or 4."},
    {"0085", "0086",
     "The tone blanking deactivation timer counts milliseconds, not gaps, on Selcall networks that blank "
     "tones.",
     "Refused with an output that shows 'Encryption Status', two that show 'Busy Status', an invalid "
     "confirmation delay outside 20..250, another number of scan groups than 1, an FFSK lead-in delay above "
     "1200 or more than 24 channels. The tone blanking deactivation timer counts gaps, 100 at most."},
    {"0087", "0088",
     "With data options on, the initial FFSK frame length becomes 1. Tables 77 and 78 are cut to the networks.",
     "Tap types that the version does not know become 'Combine'."},
    {"0088", "0089",
     "Power and emergency lines on AUX_GPI2, AUX_GPI3 and IOP_GPIO7 are set to the state that they need; power "
     "sense on IOP_GPIO7 becomes internal.",
     "Internal power sense on IOP_GPIO7 becomes ignition. Refused with MDC1200 systems or an invalid "
     "confirmation delay below 10."},
    {"0089", "0090",
     "Four indicators are added. Each Selcall system gets room for 100 Tx calls; bursts keep their places.",
     "Refused with a VHSD or FFSK lead-in delay below 20, 'Economy', BCD lines 5 to 7, 'DTMF Dialling' on a "
     "key, or a channel that calls a Tx sequence behind the tenth. Those sequences go."},
    {"0090", "0091", "",
     "A channel selection lockout of 'Always' becomes 'After Selection', a VHSD lead-in delay above 250 "
     "becomes 250."},
    {"0091", "0093",
     "A pre-carrier indication is 10 to 90 ms, or off.",
     "'Activate VHSD Anti Collision' and 'Inhibit Channel Change' on inputs become 'No Action'; the busy "
     "detection becomes the first."},
    {"0093", "0094",
     "VHSD codewords of 0 become 7.",
     "'Override Backlighting' on inputs becomes 'No Action'. VHSD layer 2 of 2 becomes 1, codewords of 7 "
     "become 0, a VHSD lead-in delay below 5 becomes 5. Refused in the L3 band."},
};
// clang-format on

std::string RangeOf(const SchemaField& field) {
  return std::to_string(field.minimum) + ".." + std::to_string(field.maximum);
}

bool HasSameRange(const SchemaField& a, const SchemaField& b) {
  return a.minimum == b.minimum && a.maximum == b.maximum;
}

void AddTables(const Schema& from, const Schema& to, std::vector<std::string>& differences) {
  for (const SchemaTable& table : from.Tables()) {
    const SchemaTable* other = to.FindTable(table.number);
    if (!table.IsRaw() || other == nullptr) continue;
    if (table.minimum == other->minimum && table.maximum == other->maximum) continue;
    differences.push_back("table " + std::to_string(table.number) + " (" + table.title + ") holds " +
                          std::to_string(other->minimum) + " to " + std::to_string(other->maximum) +
                          " records, was " + std::to_string(table.minimum) + " to " +
                          std::to_string(table.maximum));
  }
}

void AddFields(const Schema& from, const Schema& to, std::vector<std::string>& differences) {
  for (const SchemaField& field : from.Fields()) {
    const SchemaField* other = to.Find(field.id);
    if (!field.IsRaw()) continue;
    if (other == nullptr)
      differences.push_back(field.CommonName() + " is gone");
    else if (!HasSameRange(field, *other))
      differences.push_back(field.CommonName() + " is " + RangeOf(*other) + ", was " + RangeOf(field));
  }
  for (const SchemaField& field : to.Fields()) {
    if (field.IsRaw() && from.Find(field.id) == nullptr)
      differences.push_back(field.CommonName() + " is new");
  }
}

}  // namespace

VersionNotes NotesOf(const Schema& from, const Schema& to) {
  VersionNotes notes{from.Version(), to.Version(), {}, {}};
  const bool isUp = from.Number() < to.Number();
  const std::string older = (isUp ? from : to).Name().Digits(), newer = (isUp ? to : from).Name().Digits();
  for (const Note& note : kNotes) {
    if (note.older == older && note.newer == newer) notes.step = isUp ? note.up : note.down;
  }
  AddTables(from, to, notes.differences);
  AddFields(from, to, notes.differences);
  return notes;
}
