#include "platform/Error.h"

void RaiseTypeMismatch() { throw Error(ErrorNumber::kTypeMismatch, "KD4410", "Type mismatch"); }

void RaiseOverflow() { throw Error(ErrorNumber::kOverflow, "KD4410", "Overflow"); }

void RaiseSubscript(std::string source) {
  throw Error(ErrorNumber::kSubscript, std::move(source), "Subscript out of range");
}
