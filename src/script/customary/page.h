#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "vbscript/values/string.h"

namespace quorvane::customary {

/// What stopped a page, as `Server.GetLastError` shows it to the page that takes over.
struct PageError {
  std::int32_t number = 0;
  std::int32_t line = -1;    ///< 1-based; -1: not known
  std::int32_t column = -1;  ///< the same
  vbs::String code;          ///< the server's own name for a kind of error, if it has one
  vbs::String category;
  vbs::String description;
  vbs::String moreDescription;
  vbs::String file;
  vbs::String source;  ///< the line of the file
};

/// The page that runs, as its objects see it.
class Page {
 public:
  /// Of the file that runs, for relative paths; in the system's own style.
  virtual std::string folder() const = 0;

  /// Of the texts that go out.
  virtual std::int32_t codePage() const = 0;
  virtual void setCodePage(std::int32_t codePage) = 0;

  /// Whether the client still waits for the answer.
  virtual bool isConnected() const = 0;
  /// This machine's address that the client has come to; empty when it is not known.
  virtual std::string localAddress() const = 0;

  /// How long the page may run, from its start on.
  virtual std::chrono::seconds timeLimit() const = 0;
  virtual void setTimeLimit(std::chrono::seconds limit) = 0;

  /// Runs another page with the same objects; its output follows what has been written. Throws
  /// what that page stopped with. `target` is in the bytes of a file's name.
  virtual void execute(const std::string& target) = 0;
  /// The same in place of the rest of this page. Does not return.
  [[noreturn]] virtual void transfer(const std::string& target) = 0;

  /// Nothing but in a page that takes over for one that failed.
  virtual PageError lastError() const = 0;

 protected:
  ~Page() = default;
};

}  // namespace quorvane::customary
