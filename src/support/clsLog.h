#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "support/calendar_time.h"

namespace quorvane {

class Files;

/// Collects log lines in memory and appends them to a text file on demand. Nothing is written
/// before `Commit`; lines still held when the object dies are lost, so its owner commits first.
/// No member fails towards its caller.
class clsLog {
 public:
  /// `files` outlives the log. `localTime` gives the present local time; it names log files and
  /// stamps lines.
  clsLog(const Files& files, std::function<CalendarTime()> localTime)
      : files_(files), localTime_(std::move(localTime)) {}

  /// Bare name of the file that commits append to; empty before the first and after a reset.
  const std::string& LogFile() const { return logFile_; }

  /// Ends in a separator once set; the current folder before.
  const std::string& OutputFolder() const { return outputFolder_; }
  void setOutputFolder(std::string nv);

  /// Adds "[HH:mm:ss] " and the text, every CR LF in it written as "||".
  void Add(std::string_view sText);

  /// Writes the lines held to the current file, made anew under the present time when there is
  /// none or it has disappeared. Lines that can't be written are lost.
  void Commit();

  /// Bytes beyond which a commit goes to a new file instead; 0 is no bound. Within the second in
  /// which a file was begun there is no other name.
  std::uint64_t fileLimit = 0;

  void Clear() { lines_.clear(); }

  /// The next commit starts a new file.
  void Reset(bool CommitCurrentData = false);

  /// Bytes held in memory, for owners that commit early under load.
  std::size_t pendingBytes() const { return lines_.size(); }

 private:
  std::string newFileName() const;
  bool takesMore(std::size_t bytes) const;

  const Files& files_;
  std::function<CalendarTime()> localTime_;
  std::string lines_;  ///< each ended by CR LF
  std::string outputFolder_;
  std::string logFile_;
};

}  // namespace quorvane
