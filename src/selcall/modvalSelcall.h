#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "common/FieldEdit.h"
#include "common/FinalReport.h"

/// The rules of the Selcall systems: formats and the sequences that they hold. A record of table 29 is a
/// system; what belongs to it has its place.
namespace modvalSelcall {
inline constexpr std::string_view kIdentity = "SignalSystemId_k6k";
inline constexpr std::string_view kTxFormat = "TxFormat_k6k";
inline constexpr std::string_view kRxFormat = "RxFormat_k6k";
/// What a system decodes.
inline constexpr std::string_view kDecodeSequences[] = {"RxDecodeSeq1_k6k", "RxDecodeSeq2_k6k"};
inline constexpr std::string_view kRMRSequence = "RMRBurst_k6k";
inline constexpr std::string_view kRxSequences[] = {kDecodeSequences[0], kDecodeSequences[1], kRMRSequence};

/// In place of a system: the one that the forms show.
inline constexpr RecordNr kCurrentSystem = -1;
/// The record of a system; of kCurrentSystem the one shown.
RecordNr SystemShown(const ProviderRef& provider, RecordNr system);

/// Whether the format holds together, by itself: runs of its letters, their lengths and places. `longestS` is
/// the longest status. A refusal is told.
bool ValidateSelcallFormat6000(const ValidatorRef& validator, std::string_view format, std::string_view label,
                               std::string_view alphabet, std::int32_t longestS);

/// Whether a system may have the Tx format: the format by itself, on demand with the bursts that the system
/// shown on the forms has, and with the control statuses on the form.
bool ValidateTxFormat6000(const ValidatorRef& validator, FormWrites& writes, std::string_view format,
                          RecordNr system, bool checkSequences);
/// The same for an edit.
bool ValidateTxFormat(FieldEdit& edit);
/// The Rx format of a system. One with too few tones takes the third tone reset away; one without status the
/// control statuses on the form, on consent. Sequences of another length are told.
bool ValidateRxFormat6000(FieldEdit& edit);
/// The third tone reset needs a third tone to count from.
bool ValidateThirdToneReset(FieldEdit& edit);
/// Whether the format, without one the system's Rx format, has four receiver tones.
bool ThirdToneResetValid(const ProviderRef& provider, RecordNr system, std::string_view format);

/// A received sequence against the Rx format of the system on the forms.
bool ValidateRxDecodeRMRSeq6000(FieldEdit& edit);
/// Tells the received sequences of a system whose length is not that of the format; false when there are any.
bool RxSequencesValid(const ValidatorRef& validator, std::string_view format, RecordNr system);
/// The bursts of a system against a Tx format. Those of a kind that the format lacks go, on consent; of
/// another length the first is told, before a save as an error.
bool TxSequencesValid(const ValidatorRef& validator, FormWrites& writes, std::string_view format,
                      RecordNr system);
void TxSequencesValid(FinalReport& report, FormWrites& writes, std::string_view format, RecordNr system);
/// Takes all bursts of a kind away from the system of that identity, and from the channels that use them.
void CleanupRemovedBurstType(FormWrites& writes, const ProviderRef& provider, std::int32_t type,
                             const Variant& identity);

/// The number of a system, which no other one has: all that belongs to it takes the new one, its networks,
/// too. A number that is in use is refused without a word.
bool ValidateSelcallID(FieldEdit& edit);

/// On leaving the form of the systems: received sequences of another length are told, else statuses that are
/// sent and received with different lengths are refused. `sort` brings the systems into order.
bool ValidateSelcallForm(const ValidatorRef& validator, bool sort);
/// Sorts the systems by their numbers with all that belongs to them. The forms go on showing the same place.
void SortSelcall(const ValidatorRef& validator);
/// A system that no network uses may go: its companions and its control statuses are deleted, and the forms
/// turn to one that is left. The system itself is the host's to delete.
bool DeleteSelcall(const ValidatorRef& validator, RecordNr system);

// Before a save, over all systems.

/// A call that another one hides: a warning for each system.
void CheckRMRSequences(FinalReport& report);
/// The bursts of each system against its Tx format.
void ValidateTxSequences(FinalReport& report);
/// A warning of the first burst in which a tone follows a group tone, in the Sigtec format.
void ValidateGroupFormatFinal(FinalReport& report);

/// A group format: the user is told what it asks of bursts with group tones, where there are any.
bool ValidateGroupFormat(FieldEdit& edit);
void ValidateGroupFormat(const ValidatorRef& validator, const Variant& format);

/// The group tone and the repeat tone of a system, which differ from each other.
bool ValidateGroupTone(FieldEdit& edit);
bool ValidateRepeatTone(FieldEdit& edit);
/// What becomes of group tones when the tone that stands for them changes.
enum class GroupSwap {
  GToTone,  ///< "G" becomes the digit of the stored tone
  ToneToG,  ///< the digit of the stored tone becomes "G"
  Both,     ///< the first, then the digit of the new tone becomes "G"
};
/// Swaps the group tones in all that calls a group of the system on the forms: repeater, caller ID and Tx
/// call bursts, the grids that show them and the channels that use them, free-format sequences. Always true.
bool GroupToneValidation(FieldEdit& edit, std::int32_t newTone, GroupSwap swap);
/// Gives the system's sequences the old repeat tone where they hold the new one, after one question; false,
/// with nothing written, for another answer than Yes. Statuses keep their digits.
bool RepeatToneValidation(FieldEdit& edit, std::int32_t newTone);
/// The ANI may not be emptied while an emergency sends it.
bool ValidateANISequence(FieldEdit& edit);

/// A tone of a system, GroupTone or RepeatTone, as the digit that stands for it; "" for a system without
/// tones.
std::string ToneDigit(const ProviderRef& provider, std::string_view tone, RecordNr system);
/// Whether no other tone follows a "G" in the burst, as the Sigtec group format wants it.
bool HasGroupsLast(std::string_view burst);
/// The first burst of a sequence in which one does; empty for none.
std::string_view FindBurstWithoutGroupsLast(std::string_view sequence);
/// The length of the longest run of a letter in a Tx format; 0 for a letter that its alphabet lacks.
std::int32_t TxBurstLength(const ProviderRef& provider, std::string_view format, char letter);

/// `text` with `to` for each `from`, whatever its case; the same letter in another case stays.
std::string ReplaceGroupToneWithG(std::string text, char from, char to);
}  // namespace modvalSelcall
