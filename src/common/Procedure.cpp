#include "common/Procedure.h"

#include <exception>

#include "common/modCommonErrorHandler.h"
#include "common/modRaiseError.h"

namespace {
/// The fault in flight, whatever carries it.
Fault CurrentFault() {
  try {
    throw;
  } catch (const Error& error) {
    return error.Reason();
  } catch (const std::exception& unexpected) {
    return {ErrorNumber::kInvalidCall, "KD4410", unexpected.what()};
  }
}
}  // namespace

void ErrorTail(std::string_view procedure) {
  Fault fault = CurrentFault();
  modCommonErrorHandler::AddProcToError(fault, procedure);
  modRaiseError::RaiseError(fault);
}
