#pragma once

#include <cstdint>

/// Base of the objects that the library hands out: it may be unloaded when none lives.
class LibraryObject {
 public:
  LibraryObject() { ++living_; }
  LibraryObject(const LibraryObject&) = delete;
  LibraryObject& operator=(const LibraryObject&) = delete;
  static std::int32_t Living() { return living_; }

 protected:
  ~LibraryObject() { --living_; }

 private:
  static inline std::int32_t living_ = 0;
};
