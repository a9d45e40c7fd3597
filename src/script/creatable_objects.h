#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "support/keyed_collection.h"
#include "vbscript/object.h"

/// The components that scripts may create by name ("Scripting.Dictionary"), letter case aside.
class CreatableObjects {
 public:
  using Maker = std::function<vbs::Value()>;

  /// Replaces what was offered under the name.
  void offer(std::string progId, Maker make);

  /// Nothing when there is no component of that name or it could not be made.
  std::optional<vbs::Value> create(std::string_view progId) const;

 private:
  KeyedCollection<Maker> makers_;
};
