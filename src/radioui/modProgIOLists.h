#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "common/Handles.h"

class XArrayDBObject;

/// What the forms of programmable I/O offer. Which list it is tells the UIID; a field of the grid that has
/// none gets "Undefined". A record that is not there yet is offered what an unused one is: no pin, direction
/// "None", tap point 0.
namespace modProgIOLists {
/// The fields of the grid (table 1108), by the pin and the direction of the row; and the pins for the lines
/// of flow control, with the pin id in column 1.
void GetK6000ProgIODigital(const ProviderRef& provider, std::string_view uiid, RecordNr record,
                           XArrayDBObject& items);
/// The taps of an audio path (table 59): the points, with their code in column 1; types and unmute conditions
/// by the record's point.
void GetK6000ProgIOAudio(const ProviderRef& provider, std::string_view uiid, RecordNr record,
                         XArrayDBObject& items);
/// An entry of one of these lists, from 0; the last one of a shorter list, "" of an empty one.
std::string DigitalEntry(const ProviderRef& provider, std::string_view uiid, RecordNr record,
                         std::int32_t entry);
std::string AudioEntry(const ProviderRef& provider, std::string_view uiid, RecordNr record,
                       std::int32_t entry);
/// The parameter of an action, as the fields of table 0 take it.
void GetActionParameters(const ProviderRef& provider, std::string_view uiid, RecordNr record,
                         XArrayDBObject& items);
}  // namespace modProgIOLists
