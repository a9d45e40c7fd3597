#include "console/status_lists.h"

namespace quorvane {

namespace {

/// A busy server fills more memory between two commits than the lines are worth.
constexpr std::size_t kMostHeld = std::size_t{256} * 1024;

}  // namespace

void StatusLists::LogLine(std::string_view text) {
  if (state_.DebugMode) {
    std::string line = timeOfDayText(clock_.local(clock_.now())) + " ";
    line += text;
    if (echo) echo(line);
    ListModel& list = form_.llist[FormModel::kStatus];
    list.add(std::move(line));
    list.select(static_cast<int>(list.lines().size()) - 1);
    form_.changed();
  }
  if (!state_.LogServer || !state_.ServerLog) return;
  state_.ServerLog->Add(text);
  if (state_.ServerLog->pendingBytes() > kMostHeld) commitLog();
}

void StatusLists::complain(std::string_view text) {
  if (!state_.DebugMode && onComplaint) onComplaint(text);
}

void StatusLists::commitLog() {
  if (!state_.ServerLog) return;
  state_.ServerLog->fileLimit = std::uint64_t{state_.LogFileLimit} << 20;
  state_.ServerLog->Commit();
}

void StatusLists::releaseLog() {
  commitLog();
  state_.ServerLog.reset();
}

}  // namespace quorvane
