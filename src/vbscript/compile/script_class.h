#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "vbscript/syntax/ast.h"
#include "vbscript/values/value.h"

namespace quorvane::vbs {

class Program;
struct Routine;

/// A field, method or property of a script's class.
struct ClassMember {
  enum class Kind : std::uint8_t { Field, Method, Property, Constant };
  std::string lower;
  Kind kind = Kind::Field;
  bool isPrivate = false;  ///< of a field or constant
  std::uint16_t slot = 0;  ///< of a field
  Value constant;
  const Routine* get = nullptr;  ///< also the method itself
  const Routine* let = nullptr;
  const Routine* set = nullptr;
  bool getIsPrivate = false;
  bool letIsPrivate = false;
  bool setIsPrivate = false;

  /// The routine that reads the member from outside the class, or null.
  const Routine* reader() const { return getIsPrivate ? nullptr : get; }
  /// The routine that a Let or Set from outside the class calls, or null.
  const Routine* writer(bool isSet) const {
    if (isSet) return setIsPrivate ? nullptr : set;
    return letIsPrivate ? nullptr : let;
  }
};

/// A class of a script, owned by its program.
struct ScriptClass {
  std::string name;
  std::uint32_t serial = 0;  ///< never used twice, so that look-up caches stay right
  std::vector<ClassMember> members;
  std::int32_t defaultMember = -1;  ///< index in `members`
  const Routine* initialize = nullptr;
  const Routine* terminate = nullptr;
  std::uint16_t fieldCount = 0;
  /// Fields declared as arrays, with their bounds.
  struct ArrayField {
    std::uint16_t slot;
    std::vector<std::int32_t> bounds;
  };
  std::vector<ArrayField> arrays;

  const ClassMember* find(std::string_view lower) const;
  static std::uint32_t nextSerial();
};

}  // namespace quorvane::vbs
