#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/Types.h"

class Provider;
struct SchemaField;
struct SchemaReference;
struct SchemaTable;

/// A personality in the two shapes that a comparison needs.
struct ComparedPersonality {
  std::shared_ptr<Provider> stored;  // as its file holds it
  std::shared_ptr<Provider> forms;   // converted for the forms, for identities and for what a person reads
};

/// Keys as a person lists them, runs in short: "3, 7 to 12, 2/1 to 2/6".
std::string ListOf(const std::vector<std::string>& keys);

/// Tells the records of a personality by what they are instead of where they stand: by their identity, by the
/// record that they belong to, or by the fields that make up their key; where there is nothing of that kind,
/// by their number. A pointer to a record is told by the key of that record.
class RecordKeys {
 public:
  /// The personality outlives this object and is not changed meanwhile.
  explicit RecordKeys(const ComparedPersonality& personality) : personality_(personality) {}

  /// By record, from index 0; no two are the same ("16", "2/7").
  const std::vector<std::string>& Of(const SchemaTable& table);
  /// The record of the key; 0 for none.
  RecordNr Find(const SchemaTable& table, const std::string& key);
  /// The table that the records of this one belong to record by record; null for none.
  const SchemaTable* OwnerOf(const SchemaTable& table) const;
  /// The key of the record's owner; empty for a record that belongs to none.
  std::string OwnerKey(const SchemaTable& table, RecordNr record);
  /// What a stored pointer points at, "None" for nothing; no value for a field that is no pointer there.
  std::optional<std::string> Target(const SchemaField& field, RecordNr record);

  /// As what the stored field points in this record; null where it points at nothing.
  static const SchemaReference* ReferenceIn(const Provider& stored, const SchemaField& field,
                                            RecordNr record);

  /// Every save lays the table out anew, from what other records hold (the codes that they point at) or from
  /// what is the same for all radios. It holds nothing of its own.
  static bool IsLaidOutAnew(const SchemaTable& table);
  /// The first save of a new personality lays the table out; from then on some of it is the user's.
  static bool IsFilledByFirstSave(const SchemaTable& table);
  /// Such a table has its records, and all of them are still as new ones are.
  static bool AwaitsFirstSave(const Provider& stored, const SchemaTable& table);
  /// How many records the table needs for its owner's (a network's, a Selcall system's); no value for a table
  /// that is not laid out by an owner's records, or need not be.
  static std::optional<RecordNr> NeededRecords(const Provider& stored, const SchemaTable& table);

 private:
  struct TableKeys {
    std::vector<std::string> byRecord;
    std::unordered_map<std::string, RecordNr> records;
  };

  TableKeys& KeysOf(const SchemaTable& table);
  std::string KeyOf(const SchemaTable& table, RecordNr record);
  std::string PressOf(RecordNr action) const;
  /// The value of a field that is part of a key.
  std::string Part(std::string_view fieldId, RecordNr record);

  const ComparedPersonality& personality_;
  std::map<std::size_t, TableKeys> tables_;  // by SchemaTable::index
};
