#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "support/calendar_time.h"
#include "support/keyed_collection.h"

namespace quorvane {

class HttpDates;

/// A cookie as request parsing fills it, scripts see it and the response writes it.
class clsCookieObj {
 public:
  clsCookieObj() = default;
  clsCookieObj(std::string name, std::string value, bool changed)
      : name_(std::move(name)), value_(std::move(value)), changed_(changed) {}

  const std::string& Name() const { return name_; }
  void setName(std::string name) { name_ = std::move(name); }

  const std::string& Value() const { return value_; }
  void setValue(std::string value);  ///< raises the changed flag

  /// The stored expiry text as a date; the zero date, 30 December 1899, when empty or no date.
  CalendarTime Expires() const;
  void setExpires(const CalendarTime& when);                   ///< raises the changed flag
  const std::string& expiresText() const { return expires_; }  ///< "yyyy-MM-dd HH:mm:ss" or empty

  // Where the cookie is valid, of cookies that a page sets. A value that would end the attribute or
  // the line is left out.
  void setPath(std::string_view path) { setAttribute(path_, path); }
  void setDomain(std::string_view domain) { setAttribute(domain_, domain); }
  void setSecure(bool secure) { secure_ = secure; }

  bool changed() const { return changed_; }
  void setChanged(bool changed) { changed_ = changed; }

  /// The whole "Set-Cookie: " line without a line end.
  std::string headerLine(HttpDates& dates) const;

 private:
  static void setAttribute(std::string& attribute, std::string_view value);

  std::string name_;
  std::string value_;
  std::string expires_;
  std::string path_ = "/";
  std::string domain_;
  bool secure_ = false;
  bool changed_ = false;
};

/// The cookies of one request and its response, in the order in which they came to be. Emptied at
/// the start of every request. Names are matched without regard to letter case.
class CookieJar {
 public:
  /// The cookie of that name, or null. Lasts until the jar is emptied.
  clsCookieObj* find(std::string_view name) { return cookies_.find(keyOf(name)); }

  /// Adds a cookie whose name is not in the jar yet; returns the one held now.
  clsCookieObj& add(clsCookieObj cookie);

  KeyedCollection<clsCookieObj>::ConstIterator begin() const { return cookies_.begin(); }
  KeyedCollection<clsCookieObj>::ConstIterator end() const { return cookies_.end(); }

  void clear() { cookies_.clear(); }
  std::size_t size() const { return cookies_.size(); }

  /// The header lines of every changed cookie joined by CR LF; empty when there is none.
  std::string changedHeaderLines(HttpDates& dates) const;

 private:
  static std::string keyOf(std::string_view name);  ///< "C_" and the upper-cased name

  KeyedCollection<clsCookieObj> cookies_;
};

}  // namespace quorvane
