#pragma once

#include <string>

#include "common/Handles.h"
#include "common/StoredValues.h"
#include "platform/Conversions.h"
#include "radioui/modProgIO.h"

/// The grid of the digital lines as rules read it: cells are text, rows are pins.
class ProgIOGrid {
 public:
  explicit ProgIOGrid(const ProviderRef& provider) : provider_(provider) {}

  RecordRange Rows() const { return provider_.Field("DigitalIOPin").Records(); }
  bool HasRow(RecordNr row) const { return provider_.Field("DigitalIOPin").HasRecord(row); }
  /// "" for a row that is not there.
  std::string Cell(std::string_view uiid, RecordNr row) const {
    return CStr(StoredValue(provider_, uiid, row));
  }
  std::string Pin(RecordNr row) const { return Cell("DigitalIOPin", row); }
  std::string Direction(RecordNr row) const { return Cell("DigitalIODirection", row); }
  std::string Action(RecordNr row) const { return Cell("DigitalIOAction", row); }
  /// "" for a row without pin.
  std::string_view Interface(RecordNr row) const {
    const clsProgIOPins* pin = modProgIO::FindPin(Pin(row));
    return pin == nullptr ? std::string_view() : pin->strInterface;
  }
  /// The first row with the action, by its name; 0 for none.
  RecordNr RowWith(std::string_view action) const {
    for (const RecordNr row : Rows()) {
      if (Action(row) == action) return row;
    }
    return 0;
  }

 private:
  ProviderRef provider_;
};
