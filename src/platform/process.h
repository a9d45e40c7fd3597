#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/child_process.h"

namespace quorvane {

/// The system's own answer to "which version are you".
struct HostVersion {
  /// 0: 16-bit system with a 32-bit layer, 1: the 9x line, 2: the NT line.
  std::uint32_t platform = 2;
  std::uint32_t major = 0;
  std::uint32_t minor = 0;
  std::uint32_t build = 0;
  std::string servicePack;  ///< may be followed by NUL and what was left in the buffer
};

/// Folders that every system has somewhere.
enum class SystemFolder { System, Libraries, Temporary };

/// This process and the system it runs on.
class Process {
 public:
  virtual ~Process() = default;

  virtual std::string commandLine() const = 0;    ///< without the program's name
  virtual std::string programFolder() const = 0;  ///< no separator at its end
  virtual std::string currentFolder() const = 0;
  virtual bool setCurrentFolder(const std::string& folder) = 0;
  virtual std::string systemFolder(SystemFolder which) const = 0;  ///< no separator at its end
  virtual bool userIsAdmin() const = 0;
  virtual HostVersion hostVersion() const = 0;
  virtual std::string computerName() const = 0;
  virtual std::string userName() const = 0;
  virtual std::vector<std::string> environment() const = 0;  ///< "NAME=value" each

  /// Null when the program can't be started.
  virtual std::unique_ptr<ChildProcess> start(const ChildCommand& command) = 0;
  /// Starts a program that nobody waits for; it may outlive this process.
  virtual bool startDetached(const ChildCommand& command) = 0;

  /// Whether the system has asked this program to end. EventLoop tells it too, but as an event,
  /// which has to wait for the one in progress; this is for what takes long within one.
  virtual bool isAskedToEnd() const = 0;
};

}  // namespace quorvane
