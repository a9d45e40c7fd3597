#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "console/form_model.h"
#include "platform/clock.h"
#include "support/server_state.h"
#include "support/status_lines.h"

namespace quorvane {

/// The one way out for status lines: to the window's status list with the time in front, in debug
/// mode, and, while there is one, to the server log, which stamps its lines itself.
class StatusLists final : public StatusLines {
 public:
  /// All outlive the lists.
  StatusLists(ServerState& state, const Clock& clock, FormModel& form)
      : state_(state), clock_(clock), form_(form) {}

  void LogLine(std::string_view text) override;

  /// Writes what the server log holds, if there is one.
  void commitLog();
  void releaseLog();  ///< writes it and does without one from here on

  /// For what the user of a run that shows no status lines has to know.
  void complain(std::string_view text);

  /// Where a run without a drawn window shows the lines of status list 0. May be empty.
  std::function<void(std::string_view line)> echo;

  /// Where complaints go. May be empty.
  std::function<void(std::string_view line)> onComplaint;

 private:
  ServerState& state_;
  const Clock& clock_;
  FormModel& form_;
};

}  // namespace quorvane
