#pragma once

#include <string_view>

#include "common/FieldEdit.h"

/// The number of a record changes: what refers to it by the old one takes the new one, after one question.
class Renumbering {
 public:
  /// The edit is that of the number; `question` and `parameters` outlive this object.
  Renumbering(FieldEdit& edit, Variant old, std::string_view question, std::string_view parameter = {});

  /// In all records of the field; `uiid` is what the forms call it, empty for one that they do not show.
  /// False when the user declines, before anything was written.
  bool MoveAll(std::string_view fieldId, std::string_view uiid);
  bool Move(std::string_view fieldId, std::string_view uiid, RecordNr record);

 private:
  FieldEdit& edit_;
  ProviderRef provider_;
  Variant old_;
  std::string_view question_, parameter_;
  bool agreed_ = false;
};
