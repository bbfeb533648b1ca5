#pragma once

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

/// Data as a verb puts them together for --json. The library that writes them is known to one source alone:
/// it takes longer to compile than a verb.
class Json {
 public:
  Json() = default;
  Json(std::nullptr_t) {}
  Json(std::same_as<bool> auto flag) : kind_(Kind::Flag), integer_(flag) {}
  template <std::integral Number>
  requires(!std::same_as<Number, bool>) Json(Number number)
      : kind_(Kind::Integer), integer_(static_cast<std::int64_t>(number)) {}
  Json(double number) : kind_(Kind::Number), number_(number) {}
  Json(std::string text) : kind_(Kind::Text), text_(std::move(text)) {}
  Json(std::string_view text) : Json(std::string(text)) {}
  Json(const char* text) : Json(std::string(text)) {}
  Json(const std::vector<std::string>& texts) : kind_(Kind::List), items_(texts.begin(), texts.end()) {}
  /// A list; an object when each item is a pair that begins with a text: its name and its value.
  Json(std::initializer_list<Json> items);

  static Json List() { return Json(Kind::List); }
  static Json Object() { return Json(Kind::Object); }
  /// Of a text that is JSON.
  static Json Parse(std::string_view document);

  // Of lists.

  void Add(Json item) { items_.push_back(std::move(item)); }
  Json& Last() { return items_.back(); }
  bool IsEmpty() const { return items_.empty(); }

  /// The value of a name in an object, which gets it at its end when it is not there.
  Json& operator[](std::string_view name);
  /// Puts a member before those that an object has.
  void Lead(std::string_view name, Json value);

  // A number without a fraction is written as an integer. Texts that are no UTF-8 must not end the output.

  /// In lines of their own, two blanks deeper for each level.
  void Print(std::ostream& out) const;
  /// In a single line.
  void PrintLine(std::ostream& out) const;

 private:
  enum class Kind : std::uint8_t { Null, Flag, Integer, Number, Text, List, Object };
  struct Library;  // to the library's values and from them

  explicit Json(Kind kind) : kind_(kind) {}
  bool IsNamed() const { return kind_ == Kind::List && items_.size() == 2 && items_[0].kind_ == Kind::Text; }

  Kind kind_ = Kind::Null;
  std::int64_t integer_ = 0;
  double number_ = 0;
  std::string text_;
  std::vector<Json> items_;         // of a list, or the values of an object
  std::vector<std::string> names_;  // of an object, in the order of its values
};
