#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string_view>

#include "platform/Types.h"

/// What the radio sounds, and with which cadence. Given by the maintainers' reference, like all that
/// ARCHITECTURE lists as given.
namespace AudibleIndicators {
/// A row of table 4.
struct Indicator {
  std::string_view name;
  std::int32_t enabled;    ///< unless the user says otherwise
  std::int32_t programme;  ///< index, from 0, of its cadence
  std::int32_t repeats;
  std::int32_t count;  ///< no field of the radio has it
  bool isListed;       ///< for the user, who may turn it off
};

/// A row of table 60: a cadence of steps, in each of which a tone is on or off.
struct Programme {
  std::int32_t pattern;  ///< 16 bits, the highest one is the first step; 1 is on
  std::int32_t tones;    ///< how many of them are played
  std::int32_t frequency1;
  std::int32_t duration;   ///< of one step
  std::int32_t remaining;  ///< further plays
  std::int32_t frequency2;
};

// clang-format off
/// By record of table 4, less 1.
inline constexpr Indicator kIndicators[] = {
    // name, enabled, programme, repeats, count, listed
    {"noIndicator",                          1,  0, 0, 1, false},
    {"Acknowledgement",                      1,  1, 0, 1, true},
    {"Computer Control",                     1,  7, 0, 1, true},
    {"DTMF Call Failed",                     1,  2, 0, 1, false},
    {"DTMF Call Received",                   1,  3, 0, 1, false},
    {"Emergency Activated",                  1,  4, 0, 1, true},
    {"Emergency Cleared Down",               1, 15, 0, 1, true},
    {"Emergency Failure",                    1,  2, 0, 1, true},
    {"End Of List",                          1, 13, 0, 1, true},
    {"Function Activated",                   1,  7, 0, 1, true},
    {"Function Deactivated",                 1,  8, 0, 2, true},
    {"High Temperature Warning",             1,  9, 0, 1, true},
    {"Very High Temperature Warning",        1, 10, 0, 1, true},
    {"Impending Transmit Timeout",           1, 11, 0, 1, true},
    {"invalidKeypress",                      1, 13, 0, 1, false},
    {"Out Of Lock",                          1, 14, 0, 1, true},
    {"Power Down",                           1, 31, 0, 1, true},
    {"Power Up",                             1, 15, 0, 1, true},
    {"Programming Mode",                     1, 16, 0, 1, true},
    {"Radio Revived",                        1, 15, 0, 1, true},
    {"Radio Stunned",                        1, 17, 0, 1, true},
    {"SDM Received",                         1, 18, 0, 1, true},
    {"selcallIndiv1CallReceived",            1, 19, 1, 1, false},
    {"selcallIndiv2CallReceived",            1, 20, 1, 1, false},
    {"selcallEmergencyCallReceived",         1, 21, 1, 1, false},
    {"selcallGroupCallReceived",             1, 22, 1, 1, false},
    {"selcallPriorityCallReceived",          1, 23, 1, 1, false},
    {"selcallRmrReceived",                   1, 30, 0, 1, false},
    {"invalidKeypress",                      1, 13, 0, 1, false},
    {"System Error",                         1, 25, 0, 1, true},
    {"T99 Call Received",                    1, 26, 0, 1, false},
    {"t99GroupCallReceived",                 1, 27, 0, 1, false},
    {"T99 Supergroup Call Received",         1, 28, 0, 1, false},
    {"Test Mode",                            1, 16, 0, 1, true},
    {"Transmit Inhibit",                     1, 29, 0, 1, true},
    {"Channel Freed",                        1, 30, 0, 1, true},
    {"validKeypress",                        1, 31, 0, 2, false},
    {"Radio Locked",                         1, 32, 0, 1, true},
    {"Radio Unlocked",                       1, 15, 0, 1, true},
    {"Digital Output Activated",             1, 33, 0, 1, true},
    {"Indiv1CallReceivedBeep",               1, 34, 0, 1, false},
    {"Indiv2CallReceivedBeep",               1, 35, 0, 1, false},
    {"EmergencyCallReceivedBeep",            1, 36, 0, 2, false},
    {"GroupCallReceivedBeep",                1, 37, 0, 1, false},
    {"PriorityCallReceivedBeep",             1, 38, 0, 1, false},
    {"SupergroupCallReceivedBeep",           1, 39, 0, 1, false},
    {"CallDeferredTone",                     1, 40, 1, 1, false},
    {"High Reverse Power Warning Tone",      1, 42, 0, 1, true},
    {"VornAx Channel Search In Progress",    1, 43, 1, 1, false},
    {"Proceed To Talk",                      1, 46, 0, 1, false},
};
/// By record of table 60, less 1.
inline constexpr Programme kProgrammes[] = {
    // pattern, tones, frequency 1, duration, remaining, frequency 2; the index of the first one of each line
    /*  0 */ {0xAAAA, 8, 3, 200, 0, 4}, {0xA000, 3, 4, 100, 0, 4}, {0x8000, 1, 2, 800, 0, 2},
    /*  3 */ {0xD800, 8, 4, 200, 0, 3}, {0x8000, 2, 4, 50, 2, 4}, {0x8000, 2, 5, 50, 1, 5},
    /*  6 */ {0x8000, 1, 6, 50, 0, 6}, {0x8000, 1, 4, 40, 0, 4}, {0x8000, 1, 2, 60, 0, 2},
    /*  9 */ {0xA000, 3, 5, 100, 0, 5}, {0xA000, 3, 6, 100, 0, 6}, {0xE007, 16, 4, 50, 1, 4},
    /* 12 */ {0x0038, 13, 4, 50, 0, 4}, {0x8000, 1, 2, 400, 0, 2}, {0xA000, 3, 4, 200, 0, 2},
    /* 15 */ {0xA000, 3, 4, 100, 0, 4}, {0x8000, 1, 4, 100, 0, 4}, {0x8000, 1, 6, 40, 0, 6},
    /* 18 */ {0x9200, 7, 6, 40, 0, 6}, {0xD800, 8, 4, 200, 0, 3}, {0xF800, 8, 4, 200, 0, 3},
    /* 21 */ {0xEE00, 8, 4, 200, 0, 3}, {0xAA00, 8, 4, 200, 0, 3}, {0xFE00, 8, 4, 200, 0, 3},
    /* 24 */ {0x0000, 0, 0, 0, 0, 0}, {0xFFFF, 15, 2, 1024, 0, 2}, {0x8000, 1, 4, 500, 0, 4},
    /* 27 */ {0xD800, 5, 4, 100, 0, 4}, {0xA800, 5, 4, 100, 0, 4}, {0x8000, 1, 2, 800, 0, 2},
    /* 30 */ {0x9200, 7, 4, 50, 0, 4}, {0x8000, 1, 4, 40, 0, 4}, {0x8000, 1, 4, 40, 0, 4},
    /* 33 */ {0x8000, 1, 4, 40, 0, 4}, {0x8000, 1, 4, 500, 0, 4}, {0x8000, 1, 5, 500, 0, 5},
    /* 36 */ {0xFBEF, 16, 5, 100, 0, 5}, {0xD800, 5, 4, 100, 0, 4}, {0xFBE0, 11, 5, 100, 0, 5},
    /* 39 */ {0xA800, 5, 4, 100, 0, 4}, {0xEE00, 15, 4, 50, 1, 4}, {0x0000, 2, 4, 1300, 0, 4},
    /* 42 */ {0xFF00, 2, 4, 200, 0, 2}, {0x8000, 1, 0, 1000, 2, 0}, {0xC700, 8, 1, 30, 1, 1},
    /* 45 */ {0x8000, 1, 0, 1000, 0, 0}, {0x8000, 1, 6, 100, 0, 6},
};
// clang-format on
static_assert(std::size(kIndicators) == 50 && std::size(kProgrammes) == 47);
static_assert(std::ranges::count_if(kIndicators, &Indicator::isListed) == 26);
static_assert(std::ranges::all_of(kIndicators, [](const Indicator& row) {
  return row.programme >= 0 && row.programme < std::ssize(kProgrammes);
}));
static_assert(std::ranges::all_of(kProgrammes, [](const Programme& row) {
  return row.pattern >= 0 && row.pattern <= 0xFFFF && row.tones >= 0 && row.tones <= 16;
}));

/// One kind of call to a network: the fields of table 21 that tell how it is alerted, the cadence of its ring
/// on the forms, and the indices of its ring and its beep among the indicators.
struct CallAlert {
  std::string_view pointer, type, duration, external, cadence;
  std::int32_t ring, beep;

  constexpr RecordNr CadenceRecord() const { return kIndicators[ring].programme + 1; }  ///< of table 60
};
// clang-format off
/// In the order of the records in table 51.
inline constexpr CallAlert kCallAlerts[] = {
    {"21.Ind1CallAlertPtr",      "21.Sequence1AlertType",      "21.SelcallIndivCallAlertDuration1",
     "21.ExternalAlertPtr1",         "1118.SelcallIndivCallRxCadence1",    22, 40},
    {"21.Ind2CallAlertPtr",      "21.Sequence2AlertType",      "21.SelcallIndivCallAlertDuration2",
     "21.ExternalAlertPtr2",         "1118.SelcallIndivCallRxCadence2",    23, 41},
    {"21.GroupCallAlertPtr",     "21.GroupCallAlertType",      "21.SelcallGroupCallAlertDuration",
     "21.ExternalAlertPtrGroup",     "1118.SelcallGroupCallRxCadence",     25, 43},
    {"21.AllCallAlertPtr",       "21.AllCallAlertType",        "21.T99AllCallAlertDuration",
     "21.ExternalAlertPtrAll",       "1118.T99AllCallRxCadence",           31, 45},
    {"21.PriorityCallAlertPtr",  "21.PriorityCallAlertType",   "21.SelcallPriorityCallAlertDuration",
     "21.ExternalAlertPtrPriority",  "1118.SelcallPriorityCallRxCadence",  26, 44},
    {"21.EmergencyCallAlertPtr", "21.EmergencyCallAlertType",  "21.SelcallEmergencyCallAlertDuration",
     "21.ExternalAlertPtrEmergency", "1118.SelcallEmergencyCallRxCadence", 24, 42},
};
// clang-format on
/// The cadences that are the user's: records 20 to 24 and 28.
constexpr bool IsUsersCadence(RecordNr record) {
  return std::ranges::any_of(kCallAlerts,
                             [&](const CallAlert& alert) { return alert.CadenceRecord() == record; });
}
static_assert(std::ranges::all_of(kCallAlerts, [](const CallAlert& alert) {
  return kIndicators[alert.beep].name.ends_with("CallReceivedBeep") &&
         ((alert.CadenceRecord() >= 20 && alert.CadenceRecord() <= 24) || alert.CadenceRecord() == 28);
}));
}  // namespace AudibleIndicators
