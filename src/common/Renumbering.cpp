#include "common/Renumbering.h"

#include <utility>

#include "common/Messages.h"
#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"

Renumbering::Renumbering(FieldEdit& edit, Variant old, std::string_view question, std::string_view parameter)
    : edit_(edit),
      provider_(edit.validator.CurrentProvider()),
      old_(std::move(old)),
      question_(question),
      parameter_(parameter) {}

bool Renumbering::MoveAll(std::string_view fieldId, std::string_view uiid) {
  for (const RecordNr record : provider_.Field(fieldId).Records()) {
    if (!Move(fieldId, uiid, record)) return false;
  }
  return true;
}

bool Renumbering::Move(std::string_view fieldId, std::string_view uiid, RecordNr record) {
  const Variant reference = provider_.Field(fieldId).Value(record);
  if (!SameValue(reference, old_) || CStr(reference) == kNone) return true;
  const auto agrees = [&] {
    return parameter_.empty() ? AskYesNo(edit_.validator, question_)
                              : AskYesNo(edit_.validator, question_, {parameter_});
  };
  if (!agreed_ && agrees() != Button::Yes) return false;
  agreed_ = true;
  edit_.writes.Set(fieldId, uiid, record, edit_.value);
  return true;
}
