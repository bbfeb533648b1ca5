#include "common/Lookup.h"
#include "radioui/modProgIO.h"

namespace modProgIO {
// Given by the maintainers' reference, like all that ARCHITECTURE lists as given.
// clang-format off
constexpr clsProgIOPins ProgIOPins[] = {
    // id in   out    name         interface default label
    {22, true, false, "AUX_GPI1",   "AUX", "PIN_12"},
    {23, true, false, "AUX_GPI2",   "AUX", "PIN_5"},
    {24, true, false, "AUX_GPI3",   "AUX", "PIN_4"},
    {25, true, true,  "AUX_GPIO4",  "AUX", "PIN_10"},
    {26, true, true,  "AUX_GPIO5",  "AUX", "PIN_2"},
    {27, true, true,  "AUX_GPIO6",  "AUX", "PIN_9"},
    {28, true, true,  "AUX_GPIO7",  "AUX", "PIN_1"},
    {29, true, true,  "IOP_GPIO1",  "IOP", "PIN_9"},
    {30, true, true,  "IOP_GPIO2",  "IOP", "PIN_10"},
    {31, true, true,  "IOP_GPIO3",  "IOP", "PIN_11"},
    {32, true, true,  "IOP_GPIO4",  "IOP", "PIN_12"},
    {33, true, true,  "IOP_GPIO5",  "IOP", "PIN_13"},
    {34, true, true,  "IOP_GPIO6",  "IOP", "PIN_14"},
    {35, true, true,  "IOP_GPIO7",  "IOP", "PIN_15"},
    {36, true, true,  "CH_GPIO1",   "CH",  "C_HEAD"},
};

constexpr clsProgIOActions ProgIOInputActions[] = {
    // id deact. key                                   name
    { 0, false, "NO_ACTION",                          "No Action"},
    { 1, true,  "TOGGLE_SLEEP_MODE",                  "Power ON (Stand-by)"},
    { 2, true,  "IGNITION_STATE",                     "Power Sense (Ignition)"},
    {41, true,  "IGNITION_STATE_IOP",                 "Power Sense (Internal)"},
    {42, true,  "ECONOMY_MODE",                       "Economy"},
    { 4, false, "SEND_EMERGENCY_CALL",                "Enter Emergency Mode"},
    { 3, false, "SEND_INDEXED_TX_CALL",               "Send Channel Preset Call"},
    { 5, false, "SEND_FREE_FORMAT_PRESET_1",          "Send Network Preset Call 1"},
    {38, false, "SEND_FREE_FORMAT_PRESET_2",          "Send Network Preset Call 2"},
    {39, false, "SEND_FREE_FORMAT_PRESET_3",          "Send Network Preset Call 3"},
    {40, false, "SEND_FREE_FORMAT_PRESET_4",          "Send Network Preset Call 4"},
    {18, true,  "EXT_PTT_1",                          "External PTT 1"},
    {19, true,  "EXT_PTT_2",                          "External PTT 2"},
    {30, true,  "TOGGLE_PTT_INHIBIT",                 "Inhibit PTT"},
    {20, true,  "TOGGLE_TX_INHIBIT",                  "Toggle Tx RF Inhibit"},
    {21, false, "DRECREMENT_CHANNEL",                 "Decrement Channel"},
    {22, false, "INCREMENT_CHANNEL",                  "Increment Channel"},
    {24, false, "GOTO_HOME_CHANNEL",                  "Home Channel"},
    {25, true,  "BCD_INPUT_0",                        "BCD Pin 0"},
    {26, true,  "BCD_INPUT_1",                        "BCD Pin 1"},
    {27, true,  "BCD_INPUT_2",                        "BCD Pin 2"},
    {28, true,  "BCD_INPUT_3",                        "BCD Pin 3"},
    {29, true,  "BCD_INPUT_4",                        "BCD Pin 4"},
    {43, true,  "BCD_INPUT_5",                        "BCD Pin 5"},
    {44, true,  "BCD_INPUT_6",                        "BCD Pin 6"},
    {45, true,  "BCD_INPUT_7",                        "BCD Pin 7"},
    {23, true,  "PRESET_CHANNEL",                     "Preset Channel"},
    {46, true,  "PRESET_GROUP",                       "Preset Group"},
    { 6, true,  "TOGGLE_MUTE_EXTERNAL_AUDIO_INPUT",   "Mute External Audio Input"},
    { 7, true,  "MUTE_AUDIO_OUTPUT_PATH",             "Mute Audio Output Path"},
    { 8, true,  "UNMUTE_AUDIO_OUTPUT_PATH",           "Unmute Audio Output Path"},
    {37, true,  "ROUTE_MIC_AUDIO_TO_SPEAKER",         "Send Mic Audio To Spkr"},
    {31, true,  "SWITCH_ON_AUDIO_POWER_AMP",          "Force Audio PA On"},
    {32, true,  "SWITCH_OFF_AUDIO_POWER_AMP",         "Force Audio PA Off"},
    { 9, true,  "FN1_KEY",                            "Simulate F1 Key"},
    {10, true,  "FN2_KEY",                            "Simulate F2 Key"},
    {11, true,  "FN3_KEY",                            "Simulate F3 Key"},
    {12, true,  "FN4_KEY",                            "Simulate F4 Key"},
    {13, true,  "TOGGLE_FN1_KEY_LED",                 "Toggle F1 Key LED"},
    {14, true,  "TOGGLE_FN2_KEY_LED",                 "Toggle F2 Key LED"},
    {15, true,  "TOGGLE_FN3_KEY_LED",                 "Toggle F3 Key LED"},
    {16, true,  "TOGGLE_FN4_KEY_LED",                 "Toggle F4 Key LED"},
    {34, true,  "ACTIVATE_ALARM_MODE",                "Toggle Alarm Mode"},
    {36, true,  "VHSD_MODEM",                         "Toggle VHSD Modem"},
    {33, true,  "RTS_CONTROL",                        "RTS Control (DCE)"},
    {47, true,  "ACTIVATE_VHSD_ANTI_COLLISION",       "Activate VHSD Anti Collision"},
    {48, true,  "INHIBIT_CHANNEL_CHANGE",             "Inhibit Channel Change"},
    {49, true,  "OVERRIDE_BACKLIGHT",                 "Override Backlight"},
};

constexpr clsProgIOActions ProgIOOutputActions[] = {
    // id deact. key                                   name
    { 0, false, "NO_ACTION",                          "No Action"},
    {35, false, "ALARM_STATUS",                       "Alarm Status"},
    { 1, false, "BUSY_STATUS",                        "Busy Status"},
    {24, false, "RADIO_TRANSMISSION_STATUS",          "Radio Transmission Status"},
    { 6, false, "LOCK_DETECT_STATUS",                 "Channel Lock Status"},
    {12, false, "PTT_STATUS",                         "Reflect PTT Status"},
    {25, false, "EXTERNAL_ALERT_1",                   "External Alert 1"},
    {29, false, "EXTERNAL_ALERT_2",                   "External Alert 2"},
    {33, false, "SERIAL_DATA_TX_IN_PROGRESS",         "Serial Data In Progress"},
    {30, false, "REFLECT_PTT_INHIBIT_STATUS",         "Reflect PTT Inhibit Status"},
    {31, false, "REFLECT_VHSD_MODEM_STATUS",          "Reflect VHSD Modem Status"},
    { 5, false, "SIGNALLING_AUDIO_MUTE_STATUS",       "Signalling Audio Mute Status"},
    { 8, false, "INBAND_TONE_RECEIVING",              "SIBT Received"},
    { 9, false, "MONITOR_STATUS",                     "Monitor Status"},
    {11, false, "MIC_HOOKSWITCH_STATUS",              "Hookswitch Status"},
    {21, false, "CALL_SETUP_STATUS",                  "Call Setup Status"},
    {26, false, "OTA_INCOMING_STATUS_CONTROL_1",      "Control Status Rx (Line 1)"},
    {27, false, "OTA_INCOMING_STATUS_CONTROL_2",      "Control Status Rx (Line 2)"},
    {28, false, "OTA_INCOMING_STATUS_CONTROL_3",      "Control Status Rx (Line 3)"},
    { 3, false, "RADIO_STUNNED",                      "Radio Stunned"},
    {13, false, "FN1_KEY_STATUS",                     "F1 Key Status"},
    {14, false, "FN2_KEY_STATUS",                     "F2 Key Status"},
    {15, false, "FN3_KEY_STATUS",                     "F3 Key Status"},
    {16, false, "FN4_KEY_STATUS",                     "F4 Key Status"},
    {10, false, "FFSK_DATA_RECEIVING",                "Modem Data Received Status"},
    {22, false, "CTS_CONTROL",                        "CTS Control (DCE)"},
    {34, false, "ENCRYPTION_STATUS",                  "Encryption Status"},
};

constexpr TapPoint kTapPoints[] = {
    // code Rx path name
    { 0, false, "None"},
    { 1, true,  "R1"},
    { 2, true,  "R2"},
    { 4, true,  "R4"},
    { 5, true,  "R5"},
    { 7, true,  "R7"},
    {10, true,  "R10"},
    {19, false, "T3"},
    {20, false, "T4"},
    {21, false, "T5"},
    {24, false, "T8"},
    {28, false, "T12"},
    {29, false, "T13"},
};
// clang-format on

namespace {
/// Whether no two rows have the same value of a member.
template <typename Row, std::size_t N, typename Member>
constexpr bool Distinct(const Row (&rows)[N], Member Row::*member) {
  return AllUnique(SortedBy(rows, member), member);
}

/// Each of the three look-ups of an action finds one row at most; the list begins with "No Action", code 0.
template <std::size_t N>
constexpr bool IsActionList(const clsProgIOActions (&actions)[N]) {
  return actions[0].bytActionID == 0 && actions[0].strName == kNoAction &&
         Distinct(actions, &clsProgIOActions::bytActionID) && Distinct(actions, &clsProgIOActions::strKey) &&
         Distinct(actions, &clsProgIOActions::strName);
}

static_assert(Distinct(ProgIOPins, &clsProgIOPins::bytPinID));
static_assert(Distinct(ProgIOPins, &clsProgIOPins::strName));
static_assert(IsActionList(ProgIOInputActions));
static_assert(IsActionList(ProgIOOutputActions));
static_assert(Distinct(kTapPoints, &TapPoint::code));
static_assert(Distinct(kTapPoints, &TapPoint::name));
}  // namespace
}  // namespace modProgIO
