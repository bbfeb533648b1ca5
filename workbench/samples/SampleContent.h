#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/Variant.h"

class Provider;

/// The sample personalities: what they are described by, and how that becomes their content.
namespace Samples {

// What channels, networks and systems are made of. Networks and systems are referred to by their place, from
// 1; the number of one without its own is that place.
struct Channel {
  std::int32_t number;
  double rxHertz;
  double txHertz;
  std::string rxTone = "None";
  std::string txTone = "None";
  std::int32_t network = 1;
  std::int32_t power = 4;       // 1 Very Low to 4 High
  std::int32_t txCall = 0;      // position among the Tx call bursts of the network's system, 0 for none
  std::int32_t callerId = 0;    // among its caller ID bursts
  std::int32_t repeater = 0;    // among its repeater bursts
  std::int32_t status = 0;      // among its status bursts
  std::int32_t accessTone = 0;  // among its repeater access tones
  std::int32_t leadIn = 0;      // among its lead-in tones
  std::int32_t preset = 0;      // among the presets of the network's DTMF system
  bool isPaged = false;         // receives the individual call of its two-tone system
  bool hasInBandTone = false;   // sends and decodes that of its network
};
/// When a network sends the radio's position: 0 never, 1 always, 2 with a suppression time.
struct Positions {
  std::int32_t onPTT = 0;
  std::int32_t onEPTT1 = 0;
  std::int32_t onEPTT2 = 0;
  std::int32_t suppressionSeconds = 0;
};
struct Network {
  std::int32_t signallingType;  // 0 none, 1 Selcall, 2 DTMF, 3 two-tone, 4 MDC1200
  std::int32_t system = 0;      // of that type
  bool emergency = false;
  std::int32_t emergencyChannel = 0;  // number of the dedicated one, 0 for the current one
  Positions positions = {};
  std::int32_t inBandHertz = 0;  // of the single in-band tone, 0 for none
};
struct SelcallSystem {
  std::string txFormat, rxFormat;
  std::string receive;  // the radio's own identity
  std::vector<std::string> repeaters, callerIds, txCalls, statuses;
  std::vector<std::string> accessTones = {}, leadIns = {};
  std::int32_t number = 0;
  std::vector<std::string> freeFormat = {};  // the receiver bursts of the first sequences
  std::int32_t controlStatuses = 0;          // so many, from the value 1 and the type 0
};
/// Each DTMF system has room for so many presets.
constexpr std::int32_t kPresetsPerSystem = 10;
struct DTMFSystem {
  std::vector<std::string> presets;
  std::array<std::string, 6> sequences;  // four of the network's, the ANI, the emergency
  std::int32_t number = 0;
};
struct TwoToneSystem {
  bool isCNE, isCustom;
  std::array<std::int32_t, 4> tones;  // in tenths of a hertz, 0 for none
  std::int32_t number = 0;
};
/// A digital line that is used; the others are free.
struct Pin {
  std::int32_t id;  // 22 AUX_GPI1 to 36 CH_GPIO1
  bool isOutput;
  std::int32_t action;  // inputs and outputs are numbered apart
  bool isHigh = false;
  std::int32_t debounceMs = 10;
  std::string label = {};
  std::int32_t mirrors = 0;    // the id of the output that follows the input
  bool endsToo = true;         // the end of an input's action has the same number
  std::int32_t parameter = 0;  // of an input's action
  bool isLatching = false;     // an output that reflects a key
};
struct Group {
  std::int32_t number;
  bool isVote;
  std::vector<std::int32_t> channels;  // the members, by their numbers
};
struct Personality {
  std::int32_t band;
  std::vector<Network> networks;
  std::vector<SelcallSystem> systems;
  std::vector<DTMFSystem> dtmfSystems = {};
  std::vector<TwoToneSystem> twoToneSystems = {};
  std::vector<Channel> channels;
  bool gps = false;
  std::vector<Group> groups = {};
  std::vector<Pin> pins = {};
};

/// A raw sequence of Selcall tones ("0123456789ABCDEF-GV"), of DTMF keys ("0123456789ABCD#*-").
Variant Tones(const std::string& text);
Variant Keys(const std::string& text);
/// A raw array of one column, row 0 unused.
Variant Rows(const std::vector<std::int32_t>& values);

/// The bursts of a Selcall system, in the order of their codes.
enum class Burst { Repeater, CallerId, TxCall, Status, AccessTone, LeadIn };
/// The raw pointer to a burst of the system, an index from 0; 0 for position 0, none.
std::int32_t BurstPointer(std::int32_t system, Burst type, std::int32_t position);

/// Writes the tables as the radio stores them.
void FillStored(Provider& content, const Personality& personality);
/// Writes what is given as a form shows it: the tones, to which the conversion for the radio gives their
/// place in the shared tables 50 and 61.
void FillForms(Provider& content, const Personality& personality);

}  // namespace Samples
