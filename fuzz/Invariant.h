#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

/// Ends the run on an input that breaks an invariant; the fuzzer keeps the input.
inline void Require(bool holds, const std::string& broken) {
  if (holds) return;
  std::fprintf(stderr, "broken: %s\n", broken.c_str());
  std::abort();
}
