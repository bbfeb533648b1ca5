#pragma once

#include <string_view>
#include <type_traits>
#include <utility>

/// Adds `procedure` to the description of the error in flight and takes the way out of modRaiseError:
/// it returns when the application is being ended, and raises the error again otherwise. To be called in
/// a handler.
void ErrorTail(std::string_view procedure);

/// Runs `body` as the procedure `name`. If an error strikes and the tail consumes it, the result is
/// what it was at that moment: `result` as passed in, or as `body` left its reference argument.
template <typename Result, typename Body>
Result Procedure(std::string_view name, Result result, Body body) {
  try {
    if constexpr (std::is_invocable_v<Body, Result&>) {
      body(result);
    } else {
      result = body();
    }
  } catch (...) {
    ErrorTail(name);
  }
  return result;
}

/// The same for a procedure without result.
template <typename Body>
void Procedure(std::string_view name, Body body) {
  try {
    body();
  } catch (...) {
    ErrorTail(name);
  }
}
