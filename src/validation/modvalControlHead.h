#pragma once

#include "common/ValidatorRef.h"

/// The control head KDAC5, which selects channels by one digit.
namespace modvalControlHead {
/// Whether the head can show the number of a channel or a group: 0 to 9. What is no number passes, "None"
/// too.
bool IsPelicanChannelID(const Variant& channelID);
/// Asks about each setting that goes beyond the head, until an answer is not Yes. False for Cancel alone.
bool ValidatePelicanRadio(const ValidatorRef& validator);
}  // namespace modvalControlHead
