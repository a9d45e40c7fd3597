#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// The page that runs, as components see it: what it was asked, and where its output goes. Between
/// two pages there is nothing to read, and what is written goes nowhere.
class PageContext {
 public:
  virtual std::string header(std::string_view name) const = 0;  ///< of the request
  virtual std::string_view body() const = 0;  ///< of the request; lasts as long as the page runs
  virtual std::string folder() const = 0;     ///< of the running page, with a separator at its end
  virtual void write(std::string_view bytes) = 0;

 protected:
  ~PageContext() = default;
};

}  // namespace quorvane
