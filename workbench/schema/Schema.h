#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/CaseText.h"
#include "platform/Types.h"
#include "platform/Variant.h"
#include "workbench/schema/CodeWords.h"

class TabbedFile;

/// Raw: stored in the radio and in the personality file. Form: exists only for the forms.
enum class StorageKind { Raw, Form };
enum class FieldType { Integer, Number, Text, Flag, Array };
/// Whether a transformation of the field acts on one record or on its table as a whole.
enum class FieldScope { Record, Table };

/// Who writes the records of a table; `layouts.tsv` tells.
enum class Upkeep {
  InStep,           // they come and go with the owner's, or on their own
  Save,             // every save lays out what there is for the owner's records; a file may have none
  Anew,             // every save lays them out; they hold nothing of their own
  FirstSave,        // the first save lays them out; from then on some of it is the user's
  FirstSaveInPlace  // likewise, but all are there from the beginning
};
/// How the records of a table hang together: whose they are and what tells them apart.
struct SchemaLayout {
  std::int32_t owner = 0;  // the table that they belong to; 0 for none
  RecordNr each = 0;       // so many for each record of the owner, in its order; 0: they are not laid out so
  RecordNr ownerless = 0;  // so many at the head belong to none
  std::vector<std::string> key;  // FieldIds; empty: an identity of the forms, else their place
  std::string number;            // the stored field by which others know the record; empty for none
  Upkeep upkeep = Upkeep::InStep;

  /// Whether records are told apart by the owner's that they stand behind.
  bool IsParallel() const { return each > 0 && key.empty(); }
};

/// What the value of a reference counts.
enum class Counts {
  FromZero,        // 0 is record 1
  FromZeroOrNone,  // likewise, but 0 is no record
  FromOne,
  FromOneOrNone,  // likewise, but 0 is no record
  Number,         // it is the number of the record (SchemaLayout)
  NumberOrNone,   // likewise, but 0 is no record
};
/// That a stored field points at a record, of which table, and when.
struct SchemaReference {
  std::int32_t table = 0;
  Counts counts = Counts::FromZero;
  std::string selector;       // the FieldId of a field of the same record that says so; empty: it always does
  std::int32_t selected = 0;  // by this value

  bool IsByNumber() const { return counts == Counts::Number || counts == Counts::NumberOrNone; }
  bool MayBeNone() const {
    return counts == Counts::FromZeroOrNone || counts == Counts::FromOneOrNone ||
           counts == Counts::NumberOrNone;
  }
  /// The value that points at record 1; of no meaning for one by number.
  std::int32_t Base() const { return counts == Counts::FromOne || counts == Counts::FromOneOrNone ? 1 : 0; }
};

struct SchemaTable {
  std::size_t index = 0;  // its place in Schema::Tables
  std::int32_t number = 0;
  std::string title;
  StorageKind kind = StorageKind::Raw;
  RecordNr minimum = 0;
  RecordNr maximum = 0;
  std::size_t firstField = 0;  // its fields lie together in Schema::Fields
  std::size_t fieldCount = 0;
  SchemaLayout layout;

  bool IsRaw() const { return kind == StorageKind::Raw; }
};

struct SchemaField {
  std::size_t index = 0;       // its place in Schema::Fields
  std::size_t tableIndex = 0;  // the place of its table in Schema::Tables
  std::size_t column = 0;      // its place among the fields of its table
  std::int32_t table = 0;
  std::string id;                  // the FieldId: "5.ChannelTxFreq"
  std::vector<std::string> uiids;  // the plain names bound to it, as the schema file spells them
  StorageKind kind = StorageKind::Raw;
  FieldType type = FieldType::Integer;
  FieldScope scope = FieldScope::Record;
  Variant standard;       // the value of a new record, in the shape of the radio
  Variant shownStandard;  // the same while the personality is on its forms
  /// Whether the forms hold the stored value itself, in the shown unit.
  bool isInPlace = false;
  std::int32_t minimum = 0;  // unscaled
  std::int32_t maximum = 0;
  Currency scale;
  /// Whether the limits are in the unit of what is stored.
  bool IsUnscaled() const { return scale.tenThousandths == 10000; }
  std::string units;
  std::int32_t transform = 0;  // 0 for none
  std::string validation;
  std::int32_t width = 0;  // the characters of a text, the decimals of a number at most; 0 for no limit
  /// The field that holds the same fact in versions without this one; empty for none.
  std::string twin;
  /// What its codes are called in the version; null for a quantity and for codes without words.
  std::shared_ptr<const CodeWords> words;
  /// Of several the one holds whose selector has its value; where none holds the field is no reference.
  std::vector<SchemaReference> references;

  bool IsRaw() const { return kind == StorageKind::Raw; }
  /// Whether its text is a number in hexadecimal; the characters of tones are others.
  bool IsHexadecimal() const { return width > 0 && validation == "0123456789ABCDEF"; }
  /// The name without the table number.
  std::string_view Name() const { return std::string_view(id).substr(id.find('.') + 1); }
  /// By which the command line calls it: the first of its UIIDs, else the FieldId.
  const std::string& CommonName() const { return uiids.empty() ? id : uiids.front(); }
  /// Whether it points at places of the table, whatever another field says.
  bool PointsInto(std::int32_t target) const;
  /// An identity is given out from the numbers that no record uses. Its default lies outside
  /// minimum..maximum, so that a new record takes no number away.
  bool isIdentity = false;
};

/// The model and the number of a version text ("KE2210 Rx.0094").
struct VersionName {
  std::string model;
  std::int32_t number = 0;

  /// "KE2210 Rx.0094"
  std::string Text() const;
  /// The key of the tier's version list: "0094.KE2210 Rx"
  std::string Key() const;
  /// "0094"
  std::string Digits() const;
  /// Whether a person means it: by its text in any case, or by its digits alone, with or without the zeros at
  /// their head.
  bool IsMeantBy(std::string_view word) const;

  friend bool operator==(const VersionName&, const VersionName&) = default;
};

/// Fields by names that ignore case: a hash table in one block of memory, for the tier looks names up more
/// often than it does anything else.
class FieldNames {
 public:
  struct Entry {
    std::string_view name;  // of a text that outlives the table
    const SchemaField* field;
  };

  /// Room for so many names.
  explicit FieldNames(std::size_t capacity = 0);
  /// The entry of the name: the one that stands, else the new one.
  Entry& Add(std::string_view name, const SchemaField* field);
  /// Null for a name that was not added.
  const Entry* Find(std::string_view name) const {
    const Entry& entry = places_[Place(name)];
    return entry.name.empty() ? nullptr : &entry;
  }

 private:
  /// The place of the name, or the free one where it belongs.
  std::size_t Place(std::string_view name) const {
    std::size_t place = NameHash()(name) & mask_;
    while (!places_[place].name.empty() && !NameEqual()(places_[place].name, name)) {
      place = (place + 1) & mask_;
    }
    return place;
  }

  std::vector<Entry> places_;  // at least half of them free: no name
  std::size_t mask_;           // of the number of places, a power of two
};

/// The tables and fields of one database version of one model. Does not change after it was made.
class Schema {
 public:
  /// The indices of tables and fields are set.
  Schema(VersionName version, std::vector<SchemaTable> tables, std::vector<SchemaField> fields);
  Schema(const Schema&) = delete;
  Schema& operator=(const Schema&) = delete;

  /// "KD4410.0094"
  const std::string& Version() const { return version_; }
  /// "KD4410"
  const std::string& Model() const { return name_.model; }
  /// 94
  std::int32_t Number() const { return name_.number; }
  const VersionName& Name() const { return name_; }

  /// In the order of the schema file.
  const std::vector<SchemaTable>& Tables() const { return tables_; }
  /// In the order of their tables, then of the schema file.
  const std::vector<SchemaField>& Fields() const { return fields_; }
  std::span<const SchemaField> FieldsOf(const SchemaTable& table) const;
  const SchemaTable& TableOf(const SchemaField& field) const { return tables_[field.tableIndex]; }
  /// The field by whose number a person knows the records of the table; null for a table without one.
  const SchemaField* IdentityOf(const SchemaTable& table) const;
  /// The fields with a conversion, in the order in which all of them are converted.
  const std::vector<const SchemaField*>& ConvertedToForms() const { return toForms_; }
  const std::vector<const SchemaField*>& ConvertedToRadio() const { return toRadio_; }

  /// Null for a number without table.
  const SchemaTable* FindTable(std::int32_t number) const;
  /// The field of a FieldId, of a plain name by the bindings, or of a field name that only one table has.
  /// Null for any other. Names ignore case. Allocates nothing.
  const SchemaField* Find(std::string_view name) const;
  /// The field of that name in the table; null for none. Allocates nothing.
  const SchemaField* Find(const SchemaTable& table, std::string_view name) const;
  /// True for a field name that several tables have and none is bound to.
  bool IsAmbiguous(std::string_view name) const;

 private:
  void AddTables();
  void AddNames();

  VersionName name_;
  std::string version_;
  std::vector<SchemaTable> tables_;
  std::vector<SchemaField> fields_;
  std::vector<const SchemaField*> toForms_;
  std::vector<const SchemaField*> toRadio_;
  std::vector<const SchemaTable*> tableByNumber_;  // null for a number without table
  FieldNames fieldByName_;
  std::vector<FieldNames> fieldsOfTable_;  // by their own names, in the order of the tables
};

/// The schema files of all versions: tables.tsv, fields.tsv, words.tsv, layouts.tsv and references.tsv of one
/// folder.
class SchemaFiles {
 public:
  /// Reads the files. Throws a FileError for a file that is missing or damaged, and for rows that
  /// contradict each other in a version.
  static std::shared_ptr<const SchemaFiles> Read(const std::string& folder);

  /// The schema of a version text, made on the first call and kept. Throws a FileError that lists the known
  /// versions for any other text.
  std::shared_ptr<const Schema> At(std::string_view version) const;

  /// All known versions, by model, then ascending.
  static const std::vector<VersionName>& Versions();
  /// The known versions of one model, ascending; none for an unknown model. Case counts.
  static std::vector<VersionName> VersionsOf(std::string_view model);
  /// Throws a FileError that lists the known versions for a text that is none of them.
  static const VersionName& VersionOf(std::string_view text);

 private:
  /// The database versions that a row is for.
  struct VersionRange {
    std::int32_t first = 0;
    std::int32_t last = 9999;
    bool Holds(std::int32_t number) const { return first <= number && number <= last; }
    bool Overlaps(const VersionRange& other) const { return first <= other.last && other.first <= last; }
  };
  struct TableRow {
    SchemaTable table;
    VersionRange versions;
    int line = 0;
  };
  struct WordsRow {
    std::shared_ptr<const CodeWords> words;
    VersionRange versions;
    int line = 0;
  };
  struct FieldRow {
    SchemaField field;
    VersionRange versions;
    int line = 0;
    std::vector<WordsRow> words = {};
  };

  struct LayoutRow {
    std::int32_t table = 0;
    SchemaLayout layout;
    VersionRange versions;
  };
  struct ReferenceRow {
    std::string field;
    SchemaReference reference;
    VersionRange versions;
  };

  static VersionRange RangeOf(const TabbedFile& file, std::size_t first, std::size_t last);
  void ReadTables();
  void ReadFields();
  void ReadWords();
  /// Gives the words of a row to all rows of one field.
  static void GiveWords(const TabbedFile& file, std::span<FieldRow* const> fields, const WordsRow& row);
  void ReadLayouts();
  void ReadReferences();
  LayoutRow LayoutOfRow(const TabbedFile& file) const;
  ReferenceRow ReferenceOfRow(const TabbedFile& file) const;
  /// Whether the table exists in each of the versions.
  bool HasTable(std::int32_t number, const VersionRange& versions) const;
  /// Whether a stored field exists in each of the versions.
  bool IsStored(std::string_view id, const VersionRange& versions) const;
  /// Throws when two fields of one version share a FieldId or a plain name.
  void CheckNames();
  /// Gives tables and fields of a version what the other two files say of them.
  void Link(std::int32_t version, std::vector<SchemaTable>& tables, std::vector<SchemaField>& fields) const;
  std::shared_ptr<const Schema> Make(const VersionName& version) const;

  std::string tablesFile_;
  std::string fieldsFile_;
  std::string wordsFile_;
  std::string layoutsFile_;
  std::string referencesFile_;
  std::vector<TableRow> tables_;
  std::vector<FieldRow> fields_;
  std::vector<LayoutRow> layouts_;
  std::vector<ReferenceRow> references_;
  std::unordered_map<std::int32_t, std::vector<std::size_t>> rowsOfTable_;  // indices in tables_
  /// By their FieldIds and UIIDs.
  std::unordered_map<std::string_view, std::vector<FieldRow*>, NameHash, NameEqual> rowsOfName_;
  mutable std::map<std::string, std::shared_ptr<const Schema>, std::less<>> made_;
};
