#pragma once

#include <exception>
#include <functional>
#include <string_view>

#include "vbscript/values/string.h"

namespace quorvane::xml {

/// Makes the library ready, once in a process: what it allocates counts toward the memory of the
/// run on whose thread it does, nothing is written to the standard streams, and it opens no file
/// but through an ExternalFiles.
void prepareLibrary();

/// While it lives, looks now and then whether the run has time and memory left, from within the
/// library: C code that exceptions must not pass. Where there is none left, `stop` makes the
/// library give up; end() then throws what is due.
class Watch {
 public:
  explicit Watch(std::function<void()> stop);
  ~Watch();
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;

  /// Ends a piece of work: throws when it was stopped.
  void end();
  bool stopped() const { return thrown_ != nullptr; }

  /// Called for the innermost watch of this thread.
  static void look();

 private:
  Watch* outer_;
  std::function<void()> stop_;
  std::exception_ptr thrown_;
};

/// The library's texts are UTF-8 that ends in a NUL.
inline std::string_view view(const unsigned char* text) {
  return text ? std::string_view(reinterpret_cast<const char*>(text)) : std::string_view();
}
inline vbs::String scriptText(const unsigned char* text) {
  return vbs::String::fromUtf8(view(text));
}
inline const unsigned char* libraryText(const char* text) {
  return reinterpret_cast<const unsigned char*>(text);
}

/// Throws when the run has taken more memory than it may.
inline void checkMemory() {
  vbs::runContext.memory.charge(0);
}

}  // namespace quorvane::xml
