#pragma once

#include <string>

namespace Conform {

/// Gives this process a locale with the decimal symbol, by files in a folder of its own, so that none has to
/// be installed. To be made before the tier is loaded, which asks for the symbol once.
class DecimalLocale {
 public:
  explicit DecimalLocale(char symbol);
  ~DecimalLocale();
  DecimalLocale(const DecimalLocale&) = delete;
  DecimalLocale& operator=(const DecimalLocale&) = delete;

  /// False where the system does not take such files.
  bool IsInForce() const;

 private:
  char symbol_;
  std::string folder_;
};

}  // namespace Conform
