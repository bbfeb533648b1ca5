#pragma once

#include <cstdint>

/// A flag at the border: 16 bits, -1 or 0.
using Boolean = std::int16_t;
inline constexpr Boolean kTrue = -1;
inline constexpr Boolean kFalse = 0;

constexpr Boolean ToBoolean(bool flag) { return flag ? kTrue : kFalse; }

/// Number of a record in its table, from 1. A reference stored in a raw field is an index from 0.
using RecordNr = std::int32_t;
