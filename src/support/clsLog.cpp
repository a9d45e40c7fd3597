#include "support/clsLog.h"

#include "support/files.h"
#include "support/paths.h"
#include "support/text.h"

namespace quorvane {

void clsLog::setOutputFolder(std::string nv) {
  outputFolder_ = paths::withSeparator(std::move(nv));
}

void clsLog::Add(std::string_view sText) {
  const CalendarTime now = localTime_();
  lines_ += '[';
  lines_ += timeOfDayText(now);
  lines_ += "] ";
  lines_ += replaceAll(sText, "\r\n", "||");
  lines_ += "\r\n";
}

void clsLog::Commit() {
  if (lines_.empty()) return;
  const std::string batch = std::move(lines_);
  lines_.clear();
  if (!takesMore(batch.size())) logFile_ = newFileName();
  files_.append(outputFolder_ + logFile_, batch);
}

/// Whether the current file is there and has room.
bool clsLog::takesMore(std::size_t bytes) const {
  if (logFile_.empty()) return false;
  const auto file = files_.stat(outputFolder_ + logFile_);
  return file && (fileLimit == 0 || file->size == 0 || file->size + bytes <= fileLimit);
}

void clsLog::Reset(bool CommitCurrentData) {
  if (CommitCurrentData) Commit();
  Clear();
  logFile_.clear();
}

std::string clsLog::newFileName() const {
  const CalendarTime now = localTime_();
  std::string name = dateTimeText(now);  // "yyyy-MM-dd HH:mm:ss"
  name = name.substr(0, 4) + name.substr(5, 2) + name.substr(8, 2) + '-' + name.substr(11, 2) +
         name.substr(14, 2) + name.substr(17, 2);
  return name + ".LOG";
}

}  // namespace quorvane
