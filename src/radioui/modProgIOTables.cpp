#include "radioui/modProgIO.h"
#include "tier/Lookup.h"

namespace modProgIO {
// clang-format off
constexpr clsProgIOPins ProgIOPins[] = {
    // id  name        interface in  out    default label
    {22, "AUX_GPI1",   "AUX", true, false, "PIN_12"},
    {23, "AUX_GPI2",   "AUX", true, false, "PIN_5"},
    {24, "AUX_GPI3",   "AUX", true, false, "PIN_4"},
    {25, "AUX_GPIO4",  "AUX", true, true,  "PIN_10"},
    {26, "AUX_GPIO5",  "AUX", true, true,  "PIN_2"},
    {27, "AUX_GPIO6",  "AUX", true, true,  "PIN_9"},
    {28, "AUX_GPIO7",  "AUX", true, true,  "PIN_1"},
    {29, "IOP_GPIO1",  "IOP", true, true,  "PIN_9"},
    {30, "IOP_GPIO2",  "IOP", true, true,  "PIN_10"},
    {31, "IOP_GPIO3",  "IOP", true, true,  "PIN_11"},
    {32, "IOP_GPIO4",  "IOP", true, true,  "PIN_12"},
    {33, "IOP_GPIO5",  "IOP", true, true,  "PIN_13"},
    {34, "IOP_GPIO6",  "IOP", true, true,  "PIN_14"},
    {35, "IOP_GPIO7",  "IOP", true, true,  "PIN_15"},
    {36, "CH_GPIO1",   "CH",  true, true,  "C_HEAD"},
};

constexpr clsProgIOActions ProgIOInputActions[] = {
    // id  key                                  name                              deactivation
    { 0, "NO_ACTION",                          "No Action",                       false},
    { 1, "TOGGLE_SLEEP_MODE",                  "Power ON (Stand-by)",             true},
    { 2, "IGNITION_STATE",                     "Power Sense (Ignition)",          true},
    {41, "IGNITION_STATE_IOP",                 "Power Sense (Internal)",          true},
    {42, "ECONOMY_MODE",                       "Economy",                         true},
    { 4, "SEND_EMERGENCY_CALL",                "Enter Emergency Mode",            false},
    { 3, "SEND_INDEXED_TX_CALL",               "Send Channel Preset Call",        false},
    { 5, "SEND_FREE_FORMAT_PRESET_1",          "Send Network Preset Call 1",      false},
    {38, "SEND_FREE_FORMAT_PRESET_2",          "Send Network Preset Call 2",      false},
    {39, "SEND_FREE_FORMAT_PRESET_3",          "Send Network Preset Call 3",      false},
    {40, "SEND_FREE_FORMAT_PRESET_4",          "Send Network Preset Call 4",      false},
    {18, "EXT_PTT_1",                          "External PTT 1",                  true},
    {19, "EXT_PTT_2",                          "External PTT 2",                  true},
    {30, "TOGGLE_PTT_INHIBIT",                 "Inhibit PTT",                     true},
    {20, "TOGGLE_TX_INHIBIT",                  "Toggle Tx RF Inhibit",            true},
    {21, "DRECREMENT_CHANNEL",                 "Decrement Channel",               false},
    {22, "INCREMENT_CHANNEL",                  "Increment Channel",               false},
    {24, "GOTO_HOME_CHANNEL",                  "Home Channel",                    false},
    {25, "BCD_INPUT_0",                        "BCD Pin 0",                       true},
    {26, "BCD_INPUT_1",                        "BCD Pin 1",                       true},
    {27, "BCD_INPUT_2",                        "BCD Pin 2",                       true},
    {28, "BCD_INPUT_3",                        "BCD Pin 3",                       true},
    {29, "BCD_INPUT_4",                        "BCD Pin 4",                       true},
    {43, "BCD_INPUT_5",                        "BCD Pin 5",                       true},
    {44, "BCD_INPUT_6",                        "BCD Pin 6",                       true},
    {45, "BCD_INPUT_7",                        "BCD Pin 7",                       true},
    {23, "PRESET_CHANNEL",                     "Preset Channel",                  true},
    {46, "PRESET_GROUP",                       "Preset Group",                    true},
    { 6, "TOGGLE_MUTE_EXTERNAL_AUDIO_INPUT",   "Mute External Audio Input",       true},
    { 7, "MUTE_AUDIO_OUTPUT_PATH",             "Mute Audio Output Path",          true},
    { 8, "UNMUTE_AUDIO_OUTPUT_PATH",           "Unmute Audio Output Path",        true},
    {37, "ROUTE_MIC_AUDIO_TO_SPEAKER",         "Send Mic Audio To Spkr",          true},
    {31, "SWITCH_ON_AUDIO_POWER_AMP",          "Force Audio PA On",               true},
    {32, "SWITCH_OFF_AUDIO_POWER_AMP",         "Force Audio PA Off",              true},
    { 9, "FN1_KEY",                            "Simulate F1 Key",                 true},
    {10, "FN2_KEY",                            "Simulate F2 Key",                 true},
    {11, "FN3_KEY",                            "Simulate F3 Key",                 true},
    {12, "FN4_KEY",                            "Simulate F4 Key",                 true},
    {13, "TOGGLE_FN1_KEY_LED",                 "Toggle F1 Key LED",               true},
    {14, "TOGGLE_FN2_KEY_LED",                 "Toggle F2 Key LED",               true},
    {15, "TOGGLE_FN3_KEY_LED",                 "Toggle F3 Key LED",               true},
    {16, "TOGGLE_FN4_KEY_LED",                 "Toggle F4 Key LED",               true},
    {34, "ACTIVATE_ALARM_MODE",                "Toggle Alarm Mode",               true},
    {36, "VHSD_MODEM",                         "Toggle VHSD Modem",               true},
    {33, "RTS_CONTROL",                        "RTS Control (DCE)",               true},
    {47, "ACTIVATE_VHSD_ANTI_COLLISION",       "Activate VHSD Anti Collision",    true},
    {48, "INHIBIT_CHANNEL_CHANGE",             "Inhibit Channel Change",          true},
    {49, "OVERRIDE_BACKLIGHT",                 "Override Backlight",              true},
};

constexpr clsProgIOActions ProgIOOutputActions[] = {
    // id  key                                name
    { 0, "NO_ACTION",                        "No Action",                      false},
    {35, "ALARM_STATUS",                     "Alarm Status",                   false},
    { 1, "BUSY_STATUS",                      "Busy Status",                    false},
    {24, "RADIO_TRANSMISSION_STATUS",        "Radio Transmission Status",      false},
    { 6, "LOCK_DETECT_STATUS",               "Channel Lock Status",            false},
    {12, "PTT_STATUS",                       "Reflect PTT Status",             false},
    {25, "EXTERNAL_ALERT_1",                 "External Alert 1",               false},
    {29, "EXTERNAL_ALERT_2",                 "External Alert 2",               false},
    {33, "SERIAL_DATA_TX_IN_PROGRESS",       "Serial Data In Progress",        false},
    {30, "REFLECT_PTT_INHIBIT_STATUS",       "Reflect PTT Inhibit Status",     false},
    {31, "REFLECT_VHSD_MODEM_STATUS",        "Reflect VHSD Modem Status",      false},
    { 5, "SIGNALLING_AUDIO_MUTE_STATUS",     "Signalling Audio Mute Status",   false},
    { 8, "INBAND_TONE_RECEIVING",            "SIBT Received",                  false},
    { 9, "MONITOR_STATUS",                   "Monitor Status",                 false},
    {11, "MIC_HOOKSWITCH_STATUS",            "Hookswitch Status",              false},
    {21, "CALL_SETUP_STATUS",                "Call Setup Status",              false},
    {26, "OTA_INCOMING_STATUS_CONTROL_1",    "Control Status Rx (Line 1)",     false},
    {27, "OTA_INCOMING_STATUS_CONTROL_2",    "Control Status Rx (Line 2)",     false},
    {28, "OTA_INCOMING_STATUS_CONTROL_3",    "Control Status Rx (Line 3)",     false},
    { 3, "RADIO_STUNNED",                    "Radio Stunned",                  false},
    {13, "FN1_KEY_STATUS",                   "F1 Key Status",                  false},
    {14, "FN2_KEY_STATUS",                   "F2 Key Status",                  false},
    {15, "FN3_KEY_STATUS",                   "F3 Key Status",                  false},
    {16, "FN4_KEY_STATUS",                   "F4 Key Status",                  false},
    {10, "FFSK_DATA_RECEIVING",              "Modem Data Received Status",     false},
    {22, "CTS_CONTROL",                      "CTS Control (DCE)",              false},
    {34, "ENCRYPTION_STATUS",                "Encryption Status",              false},
};

constexpr TapPoint kTapPoints[] = {
    // code  name  on the receive path
    { 0, "None", false},
    { 1, "R1",   true},
    { 2, "R2",   true},
    { 4, "R4",   true},
    { 5, "R5",   true},
    { 7, "R7",   true},
    {10, "R10",  true},
    {19, "T3",   false},
    {20, "T4",   false},
    {21, "T5",   false},
    {24, "T8",   false},
    {28, "T12",  false},
    {29, "T13",  false},
};
// clang-format on

namespace {
/// Whether no two rows have the same value of a member.
template <typename Row, std::size_t N, typename Member>
constexpr bool Distinct(const Row (&rows)[N], Member Row::*member) {
  return AllUnique(SortedBy(rows, member), member);
}

/// The three ways by which an action is looked up give one row each; the list begins with "No Action", code
/// 0.
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
