#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "http/standard/validators.h"

namespace quorvane {

class RequestHead;

/// What a request says of the representation that it wants: in which form, which part of it, and
/// under which conditions. A field is there when it was sent, if only empty; of several lines the
/// values are joined by commas. A method that does not only read has neither ranges nor conditions
/// here: it is a page's affair.
struct ClientWishes {
  std::optional<std::string> acceptEncoding;
  std::optional<std::string> range;
  std::optional<std::string> ifRange;
  std::optional<std::string> ifMatch;
  std::optional<std::string> ifNoneMatch;
  std::optional<std::string> ifModifiedSince;
  std::optional<std::string> ifUnmodifiedSince;

  static ClientWishes of(const RequestHead& head);
};

namespace preconditions {

enum class Verdict {
  Proceed,
  NotModified,  ///< the client has it
  Failed,       ///< it is not the version that the client means
};

/// In the order of RFC 9110 13.2.2, for methods that only read.
Verdict judge(const ClientWishes& wishes, const Validators& present, TimePoint now);

/// Whether a range is still wanted: the client has a part of this version, or doesn't ask.
bool holdsForRange(const ClientWishes& wishes, const Validators& present, TimePoint now);

}  // namespace preconditions

}  // namespace quorvane
