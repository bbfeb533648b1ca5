#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

class XArrayDBObject;

/// A value that was never set: 0 as a number, "" as a text.
struct Empty {};

/// 64-bit fixed point with four decimals.
struct Currency {
  std::int64_t tenThousandths = 0;
};

/// Days since 30 December 1899; the fraction is the time of day.
struct Date {
  double days = 0;
};

/// An array is not changed once it is a value: who wants another content makes another array.
using ArrayObject = std::shared_ptr<const XArrayDBObject>;

using VariantBase = std::variant<Empty, bool, std::int16_t, std::int32_t, float, double, Currency, Date,
                                 std::string, ArrayObject>;

/// A value of a field, of a type known only at run time. Two variants are never compared: convert
/// first, or ask SameValue (Conversions.h).
class Variant : public VariantBase {
 public:
  Variant() = default;
  Variant(bool value) : VariantBase(value) {}
  Variant(std::int16_t value) : VariantBase(value) {}
  Variant(std::int32_t value) : VariantBase(value) {}
  Variant(float value) : VariantBase(value) {}
  Variant(double value) : VariantBase(value) {}
  Variant(Currency value) : VariantBase(value) {}
  Variant(Date value) : VariantBase(value) {}
  Variant(std::string value) : VariantBase(std::move(value)) {}
  Variant(std::string_view value) : VariantBase(std::string(value)) {}
  Variant(const char* value) : VariantBase(std::string(value)) {}
  Variant(ArrayObject value) : VariantBase(std::move(value)) {}
  template <typename Other>
  Variant(const Other*) = delete;  // a pointer is no flag

  bool IsEmpty() const { return std::holds_alternative<Empty>(*this); }
  bool IsText() const { return std::holds_alternative<std::string>(*this); }
  bool IsArray() const { return std::holds_alternative<ArrayObject>(*this); }

  friend bool operator==(const Variant&, const Variant&) = delete;
};
