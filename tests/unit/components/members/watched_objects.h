#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "vbscript/values/object.h"

namespace quorvane {

/// Stands between a script and the objects that its host makes, and between the script and what
/// those hand out, and keeps a book of it: which kinds of objects there were, what members they
/// have, and which of these the script has used.
class WatchedObjects {
 public:
  struct Kind {
    std::string typeName;
    std::set<std::string> families;   ///< "adodb": of the objects that it came from
    std::vector<std::string> makers;  ///< names by which it was created, in lower case
    std::vector<vbs::MemberUse> members;
    std::set<std::string_view> used;

    /// A family, the one that creates it if any does, a dot and the type.
    std::string name() const;
  };

  /// What a script gets in place of an object that was created by a name.
  vbs::Value created(const vbs::Value& object, std::string_view progId);

  const std::map<const void*, Kind>& kinds() const { return kinds_; }

 private:
  class Watched;
  class Walk;

  vbs::Value watched(const vbs::Value& value, const std::string& family);
  Kind& kindOf(const vbs::Object& object);

  std::map<const void*, Kind> kinds_;
  std::map<const vbs::Object*, Watched*> watching_;
};

}  // namespace quorvane
