#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

/// What went wrong: the three parts that travel with every error.
struct Fault {
  std::int32_t number = 0;
  std::string source;
  std::string description;
};

/// Numbers of the errors that the tier and its platform raise themselves.
namespace ErrorNumber {
inline constexpr std::int32_t kInvalidCall = 5;
inline constexpr std::int32_t kOverflow = 6;
inline constexpr std::int32_t kSubscript = 9;
inline constexpr std::int32_t kTypeMismatch = 13;
inline constexpr std::int32_t kFileNotFound = 53;
inline constexpr std::int32_t kObjectNotSet = 91;
inline constexpr std::int32_t kNoSuchInterface = 430;
inline constexpr std::int32_t kNotSupported = 445;
inline constexpr std::int32_t kDoubleKey = 457;
inline constexpr std::int32_t kValidatorNotSet = 9001;
/// The first number for errors of an object's own; the band table counts from here.
inline constexpr std::int32_t kObjectError = -2147221504;
}  // namespace ErrorNumber

/// A fault on its way to the error tail. It never crosses the border.
class Error : public std::exception {
 public:
  explicit Error(Fault fault) : fault_(std::move(fault)) {}
  Error(std::int32_t number, std::string source, std::string description)
      : fault_{number, std::move(source), std::move(description)} {}

  const Fault& Reason() const { return fault_; }
  std::int32_t Number() const { return fault_.number; }
  const char* what() const noexcept override { return fault_.description.c_str(); }

 private:
  Fault fault_;
};

[[noreturn]] void RaiseTypeMismatch();
[[noreturn]] void RaiseOverflow();
[[noreturn]] void RaiseSubscript(std::string source);
