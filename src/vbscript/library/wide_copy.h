#pragma once

#include <string>
#include <string_view>

#include "vbscript/values/string.h"

namespace quorvane::vbs {

/// A text's UTF-16 units for the time of one search; charged to the script like a value.
class WideCopy {
 public:
  explicit WideCopy(const String& text) : charged_(text.length() * sizeof(char16_t)) {
    runContext.memory.charge(charged_);
    units_ = text.wide();
  }
  ~WideCopy() { runContext.memory.release(charged_); }
  WideCopy(const WideCopy&) = delete;
  WideCopy& operator=(const WideCopy&) = delete;

  std::u16string& units() { return units_; }
  std::u16string_view units() const { return units_; }

 private:
  std::size_t charged_;
  std::u16string units_;
};

}  // namespace quorvane::vbs
