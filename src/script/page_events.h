#pragma once

#include <cstdint>
#include <string>

namespace quorvane {

/// What a running page tells the server's window.
class PageEvents {
 public:
  virtual ~PageEvents() = default;
  virtual void DebugOutput(const std::string& dbgData) = 0;
  /// Bytes ready for the wire of the connection in that slot. Pages flush with `CloseOpenSocket`
  /// false.
  virtual void Dispatch(std::int32_t SocketIndex, std::string Data, bool CloseOpenSocket) = 0;
};

}  // namespace quorvane
