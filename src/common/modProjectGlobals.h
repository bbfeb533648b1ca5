#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "common/GroupMembers.h"
#include "common/Handles.h"

/// Signalling types of a network, as stored in 21.SignallingType.
namespace SignallingType {
inline constexpr std::int32_t kNone = 0;
inline constexpr std::int32_t kSelcall = 1;
inline constexpr std::int32_t kDTMF = 2;
inline constexpr std::int32_t kTwoTone = 3;
inline constexpr std::int32_t kMDC1200 = 4;
}  // namespace SignallingType

inline constexpr std::string_view kNone = "None";
/// A text that is not there: the one item of a control without a list.
inline constexpr std::string_view kUndefined = "Undefined";

namespace modProjectGlobals {
/// Whether the scan group has more than one member.
bool MultipleChannelMembers(const GroupMembers& members, RecordNr scanGroup);
/// Whether every channel is a member of the scan group; so it is when there are no channels.
bool AllChannelsAreMembers(const GroupMembers& members, RecordNr scanGroup);

/// The field that identifies the systems of a signalling type; empty for a type without systems.
std::string_view SystemIdentityField(std::int32_t signallingType);
/// The place of the system with that identity in the table of its type: the record number when
/// `fromOne`, else the record number less 1; 0 for none. Raises 5 for a type without systems.
RecordNr SigSysRecordNr(const ProviderRef& provider, std::int32_t signallingType, const Variant& identity,
                        bool fromOne);
/// The network record of a channel, by its number; the last network when none matches, 0 when there are
/// none. Raises 5 without provider and for a channel record outside the table.
RecordNr GetChannelNetworkRecordNr(const ProviderRef& provider, RecordNr channel);

/// Whether a sequence on the forms sends nothing: no text but blanks, "None", "Undefined".
bool IsBlankSequence(std::string_view sequence);

/// The first record from `from` on that holds the value; 0 for none. Asks no further than that record.
RecordNr FindRecord(const FieldRef& field, const Variant& value, RecordNr from = 1);
/// The lowest number that no record has, as the field offers them; empty for none.
Variant FreeNumber(const FieldRef& numbers);

/// The channel with that number; 0 for none. A word names none.
RecordNr ChannelRecordNr(const ProviderRef& provider, const Variant& number);

/// `text` behind as many pad characters as it lacks of `width`.
std::string LeftPadString(std::string_view text, char pad, std::size_t width);

/// The warning for a frequency in the maritime distress range, 156.425 to 157.175 MHz; else "".
std::string GetMaritimeFrequencyWarning(std::int32_t hertz);
/// The error for a frequency of the distress beacons, 243 MHz and 406.0 to 406.1 MHz; else "".
std::string GetDistressBeaconFrequencyError(std::int32_t hertz);

/// DCS codes are the binary value of three octal digits ("D023" is 19); higher digits are lost. 0 is
/// "None". Octal text that is none raises 13.
std::string ConvertLongToDCSstring(std::int32_t code);
std::int32_t ConvertDCSstringToLong(std::string_view text);
/// CTCSS tones are in tenths of a hertz ("C67.0" is 670), shown with the user's decimal symbol. 0 is
/// "None".
std::string ConvertLongToCTCSSstring(std::int32_t code);
std::int32_t ConvertCTCSSstringToLong(std::string_view text);
}  // namespace modProjectGlobals
