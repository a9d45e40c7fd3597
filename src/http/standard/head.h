#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "http/standard/grammar.h"
#include "http/standard/target.h"
#include "http/status.h"

namespace quorvane {

/// The head of a request by the grammar of RFC 9110 and 9112, and what it says of the message
/// around it. Views last as long as the text that was read.
class StandardHead {
 public:
  enum class BodyFraming {
    None,
    Length,   ///< of length() bytes
    Chunked,  ///< in chunks, which tell the end
  };

  /// What of a request line or a field line can be longer than any sensible one.
  static constexpr std::size_t kMostLine = std::size_t{32} << 10;
  static constexpr std::size_t kMostBytes = std::size_t{128} << 10;
  static constexpr std::size_t kMostMethod = 32;

  StandardHead() = default;

  /// Takes a whole head, the blank line at its end included. Nothing when it is one; otherwise why
  /// the request is refused, and nothing else here counts.
  std::optional<Status> read(std::string_view text);

  std::string_view method() const { return method_; }
  const StandardTarget& target() const { return target_; }
  const std::vector<standard_grammar::Field>& fields() const { return fields_; }
  std::string_view host() const { return host_; }  ///< of an absolute target or the field; or empty

  bool isOldVersion() const { return minor_ == 0; }  ///< HTTP/1.0
  bool keepsAlive() const { return keepsAlive_; }
  bool expectsContinue() const { return expectsContinue_; }
  BodyFraming framing() const { return framing_; }
  std::uint64_t length() const { return length_; }

  /// Whether the text says what it means to those who read it loosely: an origin form, one way to
  /// write a field line, a body as long as its Content-Length.
  bool isPlain() const { return isPlain_; }

  /// A head that is plain and means the same, of a body that has been read and is so long.
  std::string plain(std::size_t bodyLength) const;

 private:
  /// Empty, with the memory of another's fields.
  explicit StandardHead(std::vector<standard_grammar::Field>&& memory)
      : fields_(std::move(memory)) {
    fields_.clear();
  }

  std::optional<Status> readRequestLine(std::string_view line);
  std::optional<Status> readFields(std::string_view text);
  std::optional<Status> judge();
  std::optional<Status> judgeHost();
  std::optional<Status> judgeFraming();
  std::optional<Status> judgeCodings(const std::vector<std::string_view>& lists);
  void judgeConnection();

  std::string_view method_;
  std::string_view targetText_;
  std::string_view version_;
  int minor_ = 0;
  StandardTarget target_;
  std::vector<standard_grammar::Field> fields_;
  std::string_view host_;
  bool keepsAlive_ = false;
  bool expectsContinue_ = false;
  BodyFraming framing_ = BodyFraming::None;
  std::uint64_t length_ = 0;
  bool isPlain_ = true;
};

}  // namespace quorvane
