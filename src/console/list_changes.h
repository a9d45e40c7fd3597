#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "console/form_model.h"
#include "platform/server_window.h"

namespace quorvane {

/// Tells a window, which keeps lines of its own, what has become of a list since it last asked.
/// take() is called for each picture that the window is given, collect() before anything that
/// means a line by its place.
class ListChanges {
 public:
  /// A list that is made anew again and again, most often of the same lines, has its lines
  /// compared.
  explicit ListChanges(bool isRemade) : isRemade_(isRemade) {}

  void collect(const ListModel& list);
  bool empty() const { return next_.dropped == 0 && next_.added.empty(); }
  ServerWindowLines take();

  /// The place, in the list as last collected, of a line that the window knows by its number.
  std::optional<int> placeOf(std::size_t number) const;

 private:
  void remake(const ListModel& list);
  void dropFirst(std::size_t count);
  void addLast(const ListModel& list, std::size_t count);

  bool isRemade_;
  ServerWindowLines next_;
  std::size_t shown_ = 0;  ///< lines that the window has
  std::size_t gone_ = 0;   ///< lines that it had before those
  std::size_t clears_ = 0;
  std::size_t dropped_ = 0;
  std::size_t total_ = 0;           ///< lines since the list was cleared, those dropped included
  std::vector<std::string> lines_;  ///< of a list that is remade
};

}  // namespace quorvane
