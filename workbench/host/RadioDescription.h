#pragma once

#include <array>
#include <string>

/// A radio that is attached, as a small JSON document tells it: one object of texts, each of which may be
/// missing: "model", "databaseVersion", "serialNumber", "firmware", "hardware", "band", "controlHead",
/// "controlHeadFirmware".
struct RadioDescription {
  /// In the order of Imessenger.GetRadioInformation. A control head that is not told is "Unknown".
  std::array<std::string, 8> information{"", "", "", "", "", "", "Unknown", ""};

  const std::string& Model() const { return information[0]; }
  const std::string& DatabaseVersion() const { return information[1]; }
  const std::string& ControlHead() const { return information[6]; }

  /// Whatever is not so is a FileError that names line, field and reason.
  static RadioDescription Read(const std::string& path);
};
