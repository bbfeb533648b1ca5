#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "host/Iprovider.h"
#include "platform/XArrayDBObject.h"

class Itier;

/// Where a host converts a whole personality, every field with the transformation number `first` goes, with
/// all its records, before any with the number `then`, which reads or completes what the first one fills.
/// Numbers without a row may go at any place; fields of one number follow each other as their tables do.
struct ConversionOrder {
  std::int32_t first, then;
};

// clang-format off
/// By TransformToUI: `then` shows what `first` has put into form fields.
inline constexpr ConversionOrder kToUIOrder[] = {
    {500, 508},  // the numbers of channels and groups, before what refers to them
    {500, 511},
    {500, 526},
    {574, 575},  // the presets of the DTMF systems, before the preset of a channel
    {528, 527},  // the control statuses' identities, before they are laid out for their system
    {542, 524},  // the systems' identities, before the burst slots are given them
    {524, 521},  // the burst grids get their rows, then what they show
    {520, 521},  // the formats, before a status that is told by them
    {520, 525},
    {521, 535},  // the parts of a free-format sequence, before the whole
    {537, 544},  // the list of indicators, before table 4 is completed from it for a cadence
    {548, 544},  // the record of the cadences
};
/// By TransformFromUI: `then` reads or appends to what `first` has stored, or `first` reads what `then` mends.
inline constexpr ConversionOrder kFromUIOrder[] = {
    {500, 508},  // a channel is not hidden, before it is as a member of a group
    {534, 510},  // the code lists are emptied, then each channel appends its own
    {525, 514},  // a channel's bursts move it to the first network where its own is unknown
    {525, 575},
    {540, 513},  // the band, before the birdies in it
    {529, 528},  // the raw control statuses are laid out, then take their values
    {518, 539},  // the PTT sources are laid out, then take their microphones
    {537, 544},  // the programmes are laid out, then take the cadences of the user
    {533, 531},  // the digital inputs are laid out, then take the parameters of their actions
    {516, 517},  // the tone set, before its frequencies
    {545, 546}, {546, 550},  // durations and types of alerts, before the external alerts made of them
};
// clang-format on

/// How many conversions in a row have to go before one with that number; a host sorts its fields by it, and
/// keeps the order of its tables among equals.
constexpr int ConversionPlace(std::int32_t number, std::span<const ConversionOrder> order) {
  int place = 0;
  for (const ConversionOrder& row : order) {
    if (row.then == number) place = std::max(place, ConversionPlace(row.first, order) + 1);
  }
  return place;
}
constexpr bool IsWithoutCircle(std::span<const ConversionOrder> order) {  // one does not compile
  return std::ranges::all_of(
      order, [&](const ConversionOrder& row) { return ConversionPlace(row.then, order) > 0; });
}
static_assert(IsWithoutCircle(kToUIOrder) && IsWithoutCircle(kFromUIOrder));

/// The steps between database versions, by the digits of the two, that read the forms of the source. For any
/// other a host needs not fill them.
struct StepOnForms {
  std::string_view from, to;
};
inline constexpr StepOnForms kStepsOnForms[] = {{"0084", "0083"}, {"0086", "0085"}, {"0090", "0089"}};

/// What happens to the data between the radio and the forms. Implemented by the tier; legal once the
/// tier is initialised. A band is given by its position in the band list (0 to 9), frequencies in Hz.
class IproviderOwner {
 public:
  virtual ~IproviderOwner() = default;
  /// Converts a personality from one database version to a neighbouring one; a version text is model
  /// name, point, four digits ("KD4410.0054"). The host has already copied what both versions share; the
  /// source is on its forms for the steps of kStepsOnForms. What a step writes to a form field or to one that
  /// is converted in place is what the forms of the destination show. The user is told of each step that
  /// changes or refuses something; false: do not go on. `report` is not used.
  virtual Status BackwardsCompatibility(std::shared_ptr<Iprovider> source, std::string_view fromVersion,
                                        std::shared_ptr<Iprovider> destination, std::string_view toVersion,
                                        const Variant& report, Boolean& out) = 0;
  /// After a read from the radio: inverts the DCS polarities of table 36 for the forms.
  virtual Status PostReadProcessing(std::shared_ptr<Iprovider> provider, const Variant& argument) = 0;
  /// Before a write to the radio: pads tables 50 and 61 to their capacity, inverts the DCS polarities.
  /// They are not inverted back: the host hands in what is about to be written.
  virtual Status PreWriteProcessing(std::shared_ptr<Iprovider> provider, const Variant& argument1,
                                    const Variant& argument2) = 0;
  /// After a record was added to a grid: its defaults and companions. False refuses the new record.
  virtual Status PostAddProcessing(std::shared_ptr<Iprovider> provider, std::string_view gridName,
                                   Boolean& out) = 0;
  virtual Status PostInsertProcessing(std::shared_ptr<Iprovider> provider, std::string_view gridName,
                                      RecordNr record, Boolean& out) = 0;
  /// The items that the field's combo box offers: rows from 0, text in column 0. An empty reference
  /// receives a new array.
  virtual Status GetComboItemsByUIID(std::shared_ptr<Iprovider> provider, std::string_view uiid,
                                     RecordNr record, std::shared_ptr<XArrayDBObject>& items,
                                     Boolean& out) = 0;
  /// Converts the form value of a field to its raw fields; call it after the form's value has been stored,
  /// and for a whole personality in the order of kFromUIOrder. False for a field without conversion, with
  /// nothing changed. Some conversions reach beyond their record:
  /// - 588 (MDC1200) and 573 (DTMF patches) of record 1 empty the tables that they fill: a host that
  ///   converts record 1 converts all that follow, too.
  /// - 570 (in-band tone) and 577 (all two-tone periods of the record) convert in place, so that each call
  ///   moves them: a host converts them once on each way, and what is edited in between stays as it is shown.
  /// - 503 (function keys) lays tables 3, 15 and 24 out anew, whatever they held.
  /// - 572 (standard tone sets) lays table 74 out anew, whatever it held.
  /// - The rows of tables 1101 to 1106 are a view (1107.CurrentSelcallNumber): their rules store what is
  ///   typed, and TransformToUI shows the first system in them. A host that has stored an edit asks the rule
  ///   of CurrentSelcallNumber for its present value instead of converting the row.
  /// - So are those of 1115 (the same pointer), 1119 (1107.CurrentScanGroupNr) and 1098 (1107.CurrentDTMFNr):
  ///   the rule of the pointer brings them back to the tables behind, 1111, 18 and 65, and fills them. It is
  ///   asked once after opening.
  /// - 508 links a member of table 18 into the ring of its group, which is complete once all are converted.
  /// - 550 (the external alerts of a network) moves those of the radio, too, which stand in table 0: a host
  /// that
  ///   has stored an edit there converts a network from the forms before it shows one.
  /// - 500 (channel numbers) and 510 (tones) append to tables 7, 50 and 61, which grow with every edit until
  ///   a conversion of the whole personality lays them out anew (534 empties 50 and 61).
  virtual Status TransformFromUI(std::shared_ptr<Iprovider> provider, std::string_view fieldId,
                                 RecordNr record, Boolean& out) = 0;
  /// Converts the raw fields to the form value; call it before a form reads the field, and for a whole
  /// personality in the order of kToUIOrder.
  virtual Status TransformToUI(std::shared_ptr<Iprovider> provider, std::string_view fieldId, RecordNr record,
                               Boolean& out) = 0;
  /// The limits of a band, the same for Tx and Rx, and its channel steps in Hz ("6250|5000|3125|2500").
  /// Positions 10 and 11 give zeros and ""; any other is error 9.
  virtual Status GetFrequencyRanges(std::int32_t bandPosition, std::int32_t& txLowest,
                                    std::int32_t& txHighest, std::int32_t& rxLowest, std::int32_t& rxHighest,
                                    std::string& steps) = 0;
  /// Fills rows 0 to 9, column 0, with the descriptions of the bands.
  virtual Status GetBands(XArrayDBObject& bands) = 0;
  /// The code of the provider's band, the first two characters of its description ("B1").
  virtual Status GetBandDesc(std::shared_ptr<Iprovider> provider, std::string& out) = 0;
  /// Binds the object to its tier. Called by the tier.
  virtual Status Initialize(Itier* tier) = 0;
  /// As GetFrequencyRanges, for the band of the current provider.
  virtual Status GetCurrentFrequencyRanges(std::int32_t& txLowest, std::int32_t& txHighest,
                                           std::int32_t& rxLowest, std::int32_t& rxHighest,
                                           std::string& steps) = 0;
  virtual Status PostDeleteProcessing(std::shared_ptr<Iprovider> provider, std::string_view gridName,
                                      RecordNr record, Boolean& out) = 0;
};
