#include "workbench/cli/Failure.h"

#include <iostream>

#include "platform/Error.h"
#include "workbench/files/FileError.h"
#include "workbench/files/Printable.h"
#include "workbench/store/TypedNames.h"

namespace {

Failure OfFile(const FileError& error) {
  return {ExitCode::CouldNot, "file", error.what(), error.File(), error.Line(), error.Where()};
}

/// A fault of the tier on a damaged file is the file's.
Failure OfTier(const Workplace& workplace, const std::string& fault) {
  if (workplace.damaged == nullptr) return {ExitCode::Fault, "tier", fault + ". Nothing was saved."};
  const FileError& damage = *workplace.damaged;
  return OfFile({damage.File(), damage.Line(), damage.Where(),
                 damage.Reason() + "; the tier can not work on it: " + fault});
}

}  // namespace

Failure Failure::OfCurrentException(const Workplace& workplace) {
  try {
    throw;
  } catch (const TierFault& fault) {
    return OfTier(workplace, std::string("a fault of the tier: ") + fault.what());
  } catch (const Error& error) {
    return OfTier(workplace, "error " + std::to_string(error.Number()) + ": " + error.what());
  } catch (const BusyFile& error) {
    return {ExitCode::CouldNot, "busy", error.what(), error.File()};
  } catch (const FileError& error) {
    return OfFile(error);
  } catch (const std::exception& error) {
    return OfUsage(error.what());
  }
}

Failure Failure::With(const std::string& checked) const {
  if (!file.empty()) return *this;
  Failure named = *this;
  named.file = checked;
  named.message = checked + ": " + message;
  return named;
}

std::string Failure::ForPeople() const {
  const bool isOfTier = code == ExitCode::Fault;  // whose texts have line breaks
  return isOfTier ? Printable::Lines(message) : Printable::Text(message);
}

Json Failure::AsJson() const {
  Json error = {{"kind", kind}, {"message", message}};
  if (!file.empty()) error["file"] = file;
  if (line > 0) error["line"] = line;
  if (!path.empty()) error["path"] = path;
  return {{"error", std::move(error)}};
}

ExitCode Failure::TellAt(Workplace& workplace) const {
  std::cerr << workplace.prefix << ForPeople() << '\n';
  if (workplace.options.json && !workplace.HasEmitted()) workplace.Emit(AsJson());
  return code;
}
