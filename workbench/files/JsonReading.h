#pragma once

#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>

/// Walks the document for the parser and tells how far it has come. It leaves out the indentation of a line,
/// a fifth of a large file; a text can not hold a line break, so none is changed by that.
class JsonCursor {
 public:
  using iterator_category = std::input_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = const char*;
  using reference = const char&;

  JsonCursor(const char* place, const char* end, const char** reached)
      : place_(place), end_(end), reached_(reached) {}
  reference operator*() const { return *place_; }
  JsonCursor& operator++() {
    const bool endsLine = *place_ == '\n';
    *reached_ = ++place_;
    while (endsLine && place_ != end_ && *place_ == ' ') ++place_;
    return *this;
  }
  JsonCursor operator++(int) {
    const JsonCursor before = *this;
    ++*this;
    return before;
  }
  friend bool operator!=(const JsonCursor& a, const JsonCursor& b) { return a.place_ != b.place_; }

 private:
  const char* place_;
  const char* end_;
  const char** reached_;
};

/// The line, from 1, of the last character that a cursor has passed.
int LineReached(std::string_view document, const char* reached);
/// What of the library's message a person needs: the part behind its identifier and position.
std::string ReadableJsonError(std::string_view message);
