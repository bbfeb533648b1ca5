#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "tests/support/TierFixture.h"
#include "tests/workbench/FileHelpers.h"
#include "workbench/personality/PersonalityFile.h"
#include "workbench/store/Journal.h"

/// A conversion that goes the wrong way round, reads another record or fills another field shows in a round
/// trip only where the values differ: the largest sample has to tell them apart.
namespace {
using Names = std::set<std::string>;

/// Fields that hold the value of a new record in all records.
const Names kAtDefault = {
    "0.RadioTier",                        // the model
    "16.GroupSleepTime",                  // every save clears it
    "10.IndicatorDuration",               // every save lays it out, as 0
    "75.SIBTToneBandwidth",               // every save clears it
    "59.AudioIOLabel",                    // likewise
    "51.CallAlertExternalAlert1Pointer",  // every alert points at the radio's first external one
    "51.CallAlertExternalAlert2Pointer",  // and at its second
    "34.RFCompliance",                    // another band has it
    "34.GlobalEncryption",                // the channels encrypt one by one
    "34.StartUpInLowPowerMode",           // no function key ends it
    "34.KeypadMic",                       // the data have the port of the mic
    "34.SilentMode",                      // the radio is quiet
    "69.GPSSDMCompatibility",             // positions are reported
};
/// Fields that hold the same as the one before them, record by record.
const Names kTwins = {
    "5.ReceptionExpansion",     // one box of the form stands for both
    "9.DataPowerupState",       // the third state is not for a radio that starts scanning
    "9.DataVHSDLayer2Enabled",  // a port without hardware flow control leaves both but one other value
    "21.EmergencyPointer",      // both point at what belongs to the network
};

class FullSample : public testing::Test {
 protected:
  const std::shared_ptr<Provider> content =
      PersonalityFile::Parse("full", ContentOf(Sample("full")), *ProjectSchemas());
  const Schema& schema = content->GetSchema();

  /// The fields that could hold more than one value.
  std::vector<const SchemaField*> FieldsOf(const SchemaTable& table) const {
    std::vector<const SchemaField*> fields;
    for (const SchemaField& field : schema.FieldsOf(table)) {
      const bool isNumber = field.type == FieldType::Integer || field.type == FieldType::Number;
      const bool isFixed = isNumber && field.minimum == field.maximum;
      if (field.IsRaw() && !isFixed) fields.push_back(&field);
    }
    return fields;
  }

  template <typename Test>
  bool InAllRecords(const SchemaField& field, Test test) const {
    for (RecordNr record = 1; record <= content->Count(field.table); ++record) {
      if (!test(record)) return false;
    }
    return true;
  }
  bool IsAtDefault(const SchemaField& field) const {
    return InAllRecords(field, [&](RecordNr r) { return SameCell(content->Get(field, r), field.standard); });
  }
  bool IsConstant(const SchemaField& field) const {
    return content->Count(field.table) > 1 && InAllRecords(field, [&](RecordNr r) {
             return SameCell(content->Get(field, r), content->Get(field, 1));
           });
  }
  /// Two flags in one record can not both be set and differ.
  bool IsTwinOf(const SchemaField& field, const SchemaField& left) const {
    const bool isFlag = field.type == FieldType::Integer && field.maximum - field.minimum == 1;
    const bool isPinned = isFlag && left.maximum == field.maximum && left.minimum == field.minimum &&
                          content->Count(field.table) == 1;
    return field.type == left.type && !isPinned && InAllRecords(field, [&](RecordNr r) {
             return SameCell(content->Get(field, r), content->Get(left, r));
           });
  }
};

TEST_F(FullSample, TellsEachStoredFieldFromItsDefaultItsNeighbourAndTheRecordsBesideIt) {
  Names atDefault, constant, twins;
  for (const SchemaTable& table : schema.Tables()) {
    const SchemaField* left = nullptr;
    for (const SchemaField* field : FieldsOf(table)) {
      const bool tells = !IsAtDefault(*field);
      if (!tells) atDefault.insert(field->id);
      if (tells && IsConstant(*field)) constant.insert(field->id);
      if (tells && left != nullptr && IsTwinOf(*field, *left)) twins.insert(field->id);
      left = tells ? field : nullptr;
    }
  }
  EXPECT_EQ(atDefault, kAtDefault);
  EXPECT_EQ(constant, Names());
  EXPECT_EQ(twins, kTwins);
}
}  // namespace
