#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Types.h"

class Provider;
class Schema;
class Session;
class TierHost;
struct SchemaField;

/// A form of the host whose check the tier knows.
struct Form {
  static constexpr std::int32_t kNoSubject = -1;

  /// For the KD4410 and for the KE2210; without the second the first serves both.
  std::array<std::string_view, 2> names;
  std::string_view title;
  /// The grid of the field metadata whose controls stand on it; empty where none fits.
  std::string_view grid = {};
  /// The table of which the form shows one record at a time.
  std::int32_t subject = kNoSubject;
  /// Tables whose controls stand on this form, whatever their grid.
  std::span<const std::int32_t> tables = {};
  /// Likewise the controls whose UIID begins so; empty for none.
  std::string_view prefix = {};

  /// What the tier calls the form in a personality of the model ("KE2210 Rx").
  std::string_view NameFor(std::string_view model) const;
};

/// A control of the forms, which is drawn for each record of its field.
struct Control {
  const SchemaField& field;
  const std::string& uiid;
  std::string grid;  // of the field metadata
};

namespace Forms {

inline constexpr std::int32_t kChannels = 5, kSelcallSystems = 29;  // tables

std::span<const Form> All();
/// The form of a name, a title or a grid, the first that fits. An unknown one is a UsageError that suggests
/// what is spelled alike.
const Form& Named(std::string_view text);

/// Every control of the personality, in schema order.
std::vector<Control> Controls(Session& session);
/// The network forms share a grid that does not tell them apart; what none of them holds by its table stands
/// on each.
bool Holds(const Form& form, const Control& control);
/// The first form that holds the control; null for none.
const Form* FormOf(const Control& control);

/// What the forms show one record of at a time, by the field that holds the number of that record.
struct Current {
  std::string_view word;   // by which the command line calls it
  std::string_view field;  // of one record
  /// That the number counts the records of; the subject itself comes first.
  std::span<const std::int32_t> tables;
  /// That hold what belongs to the record shown, and nothing else. The tier fills them when the forms turn to
  /// another record; what a user writes there goes to its place by the rule of the field.
  std::span<const std::int32_t> views = {};
};
/// The table that a save keeps in place of a view that no conversion takes back; of any other table itself.
std::int32_t TableBehind(std::int32_t table);
std::span<const Current> Currents();
/// What the forms show by the number that the field holds; null for a field of another kind. No file holds
/// it.
const Current* PointedOutBy(const SchemaField& field);
/// What the forms turn to for a record of the table, or for the rows of a view; null for a table that they
/// show as a whole.
const Current* CurrentOf(std::int32_t table);
/// The subject of a view; null for a table that is none.
const Current* ViewedBy(std::int32_t table);
/// Asks the rule of the record shown once more: what stands in the views goes to the tables behind them, and
/// they are filled anew.
void FillViews(Session& session, const Current& current);
/// The records that the forms show, in the order of Currents().
std::vector<RecordNr> Shown(const Provider& content);
/// Turns a content, which the tier takes for the open one, to such records.
void Show(const TierHost& host, Provider& content, const std::vector<RecordNr>& records);

/// The field that holds the number of the record that the forms show of the table; null for a table without
/// one, which the forms show as a whole.
const SchemaField* PointerOf(const Schema& schema, std::int32_t table);
/// The table of what the forms turn to when they turn to a record of this one: of the networks for the
/// emergency settings; the table itself when the forms show it as a whole.
std::int32_t SubjectOf(std::int32_t table);
/// What the pointer holds, 1 without one.
RecordNr CurrentRecord(const Provider& content, std::int32_t table);

/// How many records the form can show one after the other; 0 also for a form without subject.
RecordNr RecordCount(const Provider& content, const Form& form);
/// Turns the forms to a record of the table, as the user would: the tier may reload what belongs to it. False
/// when the tier refuses; a table that the forms show as a whole needs no turning. With a free-format
/// sequence they turn to its system.
bool TurnTo(Session& session, std::int32_t table, RecordNr record);
/// Turns the forms from wherever they stand to records that they have shown.
void TurnBack(Session& session, const std::vector<RecordNr>& shown);
/// Whether the form may be left as it stands, its list refreshed.
bool MayBeLeft(Session& session, const Form& form);

}  // namespace Forms
