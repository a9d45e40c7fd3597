#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "console/form_model.h"
#include "console/terminal_layout.h"
#include "console/terminal_scroll.h"
#include "platform/terminal.h"

namespace quorvane {

/// Draws the parts of the window, each into its area. The terminal finds out what has changed on
/// the screen, so each picture is drawn whole.
class TerminalPainter {
 public:
  explicit TerminalPainter(Terminal& terminal)
      : terminal_(terminal), colours_(terminal.hasColours()) {}

  void clear();
  void title(const TerminalArea& area, std::string_view caption, std::string_view state,
             bool running);

  struct ListLook {
    std::string_view caption;
    bool focused = false;
    bool bordered = true;
    bool timed = false;  ///< each line begins with a time of day
  };
  void list(const TerminalArea& area, const ListModel& lines, const TerminalScroll& scroll,
            const ListLook& look);

  /// `note` stands in the lower border.
  void text(const TerminalArea& area, const std::vector<std::wstring>& lines,
            const TerminalScroll& scroll, std::string_view note, bool focused, bool bordered);

  void button(const TerminalArea& area, std::string_view caption, bool focused);
  void hints(const TerminalArea& area);

 private:
  TerminalStyle borderStyle(bool focused) const;
  TerminalStyle barStyle() const;
  void border(const TerminalArea& area, std::string_view caption, bool focused);
  void scrollBar(const TerminalArea& area, const TerminalScroll& scroll, bool focused);
  void line(const TerminalArea& area, int row, const std::string& text, bool selected,
            const ListLook& look);

  Terminal& terminal_;
  bool colours_;
};

}  // namespace quorvane
