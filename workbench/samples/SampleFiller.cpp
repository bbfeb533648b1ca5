#include "workbench/samples/SampleFiller.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string>

#include "platform/Conversions.h"
#include "platform/XArrayDBObject.h"
#include "workbench/samples/SampleContent.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Journal.h"
#include "workbench/store/Provider.h"

namespace Samples {
namespace {

constexpr std::int32_t kTablesLeft[] = {
    0,  39,                      // model and version
    3,  4,  10, 50, 60, 61, 74,  // laid out by every save
    30, 65,                      // described, but for a first record that is empty
    55, 56, 57, 59,              // pins and taps are described
};
constexpr std::string_view kFieldsLeft[] = {
    // Written by every save.
    "5.HiddenChannel", "5.IsBirdieChannel", "5.RxSubaudibleType", "5.RxSubaudibleIndex", "5.TxSubaudibleType",
    "5.TxSubaudibleIndex", "48.ToneSetRemapTable", "48.ToneSetLowFreq", "48.ToneSetHighFreq",
    "51.CallAlertExternalAlert1Pointer", "51.CallAlertExternalAlert2Pointer",
    // Ruled out by another option that the sample has.
    "34.RFCompliance",           // of band K5 alone
    "34.GlobalEncryption",       // the channels encrypt one by one
    "34.StartUpInLowPowerMode",  // needs a function key that ends it
    "34.KeypadMic",              // the data have the port of the mic
    "34.SilentMode",             // the radio is quiet
    "69.GPSSDMCompatibility",    // positions are reported
};

bool IsLeft(const SchemaField& field) {
  return !field.IsRaw() || std::ranges::find(kTablesLeft, field.table) != std::end(kTablesLeft) ||
         std::ranges::find(kFieldsLeft, field.id) != std::end(kFieldsLeft);
}

/// Where a cell lies: the place of its field in the table, its record.
struct Cell {
  std::int32_t place;
  RecordNr record;
};

/// What one step to the next field or record adds is no multiple of how many values there are.
Variant Number(const SchemaField& field, const Cell& cell, bool isOnlyRecord) {
  const double scale = CDbl(field.scale);
  const auto lowest = static_cast<std::int64_t>(std::ceil(field.minimum * scale));
  const std::int64_t count = static_cast<std::int64_t>(std::floor(field.maximum * scale)) - lowest + 1;
  const auto at = [&](std::int64_t n) { return Variant(static_cast<std::int32_t>(lowest + n % count)); };
  const std::int64_t n = cell.place * (count / 5 + 1) + cell.record * (count / 7 + 1);
  return isOnlyRecord && SameCell(at(n), field.standard) ? at(n + 1) : at(n);
}

/// As many codes as the default has, else five; each is a digit.
Variant Sequence(const SchemaField& field, const Cell& cell) {
  const std::int32_t rows = CArray(field.standard).UpperBound(1);
  const std::string digits = std::to_string(1000 * cell.place + cell.record);
  std::vector<std::int32_t> codes(rows > 0 ? static_cast<std::size_t>(rows) : 5);
  for (std::size_t i = 0; i < codes.size(); ++i) codes[i] = digits[i % digits.size()] - '0';
  return Rows(codes);
}

void Fill(Provider& content, const SchemaField& field, std::int32_t place) {
  const RecordNr count = content.Count(field.table);
  for (RecordNr record = 1; record <= count; ++record) {
    if (field.type == FieldType::Array) {
      content.Set(field, record, Sequence(field, {place, record}));
    } else if (field.type != FieldType::Text) {
      content.Set(field, record, Number(field, {place, record}, count == 1));
    }
  }
}

}  // namespace

void FillTelling(Provider& content) {
  for (const SchemaTable& table : content.GetSchema().Tables()) {
    std::int32_t place = 0;
    for (const SchemaField& field : content.GetSchema().FieldsOf(table)) {
      if (field.IsRaw()) ++place;
      if (!IsLeft(field)) Fill(content, field, place);
    }
  }
}

}  // namespace Samples
