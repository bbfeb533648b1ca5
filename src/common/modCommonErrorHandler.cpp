#include "common/modCommonErrorHandler.h"

#include "common/HostServices.h"

namespace modCommonErrorHandler {
namespace {
constexpr std::string_view kApplicationName = "KD4410";
}

void AddProcToError(Fault& fault, std::string_view procedure) {
  if (fault.description == procedure) return;
  fault.description =
      std::string(kApplicationName) + ": " + std::string(procedure) + "\r\n" + fault.description;
}

std::int32_t ShowMessageBox(std::string_view text, std::int32_t style, std::string_view title) {
  return HostServices::ShowMessageBox(text, style, title);
}
}  // namespace modCommonErrorHandler
