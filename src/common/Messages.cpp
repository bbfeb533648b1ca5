#include "common/Messages.h"

#include <vector>

#include "common/modCommonGlobals.h"

namespace {
Button Show(const ValidatorRef& validator, std::string_view message, std::int32_t style,
            std::string_view word, Parameters parameters) {
  const std::string title = validator.Caption() + " " + std::string(word);
  const std::string joined = modCommonGlobals::MakeParamString(parameters);
  return validator.Messenger().ShowMessage(message, style, title, joined);
}
}  // namespace

bool Refuse(const ValidatorRef& validator, std::string_view message, Parameters parameters) {
  Show(validator, message, MessageStyle::kExclamation, "Error", parameters);
  return false;
}

void Warn(const ValidatorRef& validator, std::string_view message, Parameters parameters) {
  Show(validator, message, MessageStyle::kExclamation, "Warning", parameters);
}

void Notify(const ValidatorRef& validator, std::string_view message, Parameters parameters) {
  Show(validator, message, MessageStyle::kNotice, "Warning", parameters);
}

Button AskYesNo(const ValidatorRef& validator, std::string_view message, Parameters parameters) {
  return Show(validator, message, MessageStyle::kYesNo, "Warning", parameters);
}

void ReloadList(const ValidatorRef& validator, std::string_view uiid) {
  const ProviderRef provider = validator.CurrentProvider();
  provider.RefreshField(uiid);
  if (provider.AutoUpdate()) validator.Messenger().RefreshField(uiid);
}
