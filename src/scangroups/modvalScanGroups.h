#pragma once

#include "common/FieldEdit.h"
#include "common/FinalReport.h"

/// The rules of the scan group form. A record of table 16 is a scan or a vote group; table 18 holds the
/// members of all groups, table 1119 shows those of the one on the form.
namespace modvalScanGroups {
/// A field that other fields of the group must go with: what can not be is refused, what follows is asked.
bool ValidateScanGroup(FieldEdit& edit);
/// Whether a pin has an action that goes to the group of that number.
bool IsPresetGroup(const ProviderRef& provider, const Variant& number);
/// The number of a group; what refers to it follows, after one question.
bool ValidateGroupID(FieldEdit& edit);

/// A member becomes another channel: priorities and the preset Tx channel that were the old one follow, on
/// consent.
bool UpdateGroupMemberRefs(FieldEdit& edit);
/// The form turns to another group; what it shows goes back to the members of all before.
bool ValidateCurrentScanGroup(FieldEdit& edit);
/// On leaving the form: the members go back, the groups are sorted, the form goes on showing its group.
/// Always true.
bool ValidateScanGroupForm(const ValidatorRef& validator);
/// The rows on the form replace the members of their group. Nothing when the form shows none: it has not
/// been filled, or its group is new.
void UpdateUnfilteredScanGroupMembersList(const ProviderRef& provider);
/// Shows the members of a group; none for a group that is not there.
void UpdateFilteredScanGroupMembersList(const ValidatorRef& validator, const ProviderRef& provider,
                                        RecordNr group);

/// Whether there are any, and one may have another member.
bool HasGroups(const ProviderRef& provider);
/// Fills the form that has not been filled: the members there are would else be taken for deleted.
void ShowMembers(const ValidatorRef& validator, const ProviderRef& provider);
/// Completes a new row of the form: the first channel that is no member yet.
void AddGroupMembershipK6000(const ValidatorRef& validator, const ProviderRef& provider, RecordNr row);
/// Whether a row may go: a group keeps one member, and what refers to the channel follows.
bool DeleteScanGroupMember(const ValidatorRef& validator, RecordNr row);

/// Completes a new group: a free number, no priorities.
void AddScanGroupK6000(const ValidatorRef& validator, const ProviderRef& provider, RecordNr group);
/// Whether a group may go: no key and no pin uses it. Its members go with it.
bool DeleteScanGroup(const ValidatorRef& validator, RecordNr group);

// Before a save.

/// A group in the background shows and calls on the channel selected.
void CheckBackgroundGroups(FinalReport& report);
/// Any other group has two members.
void CheckGroupMembers(FinalReport& report);
/// A radio does not start on a channel that a group hides.
void CheckStartUpChannel(FinalReport& report);
/// A radio that hides all its channels starts with a group, and scans on.
void ValidateHiddenChannels(FinalReport& report);
}  // namespace modvalScanGroups
