#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

enum class RequestClass {
  Get = 0,
  Head = 1,
  Post = 2,
  Other = 9,  ///< another method, or the continuation of an earlier request
};

/// What can be said of a request's text while it still arrives.
namespace request_text {

/// By the first characters, letter case counting: a method and one blank.
RequestClass classOf(std::string_view text);

/// Where the body begins; 0 when the blank line in front of it does not come at `from` or later.
std::size_t bodyStart(std::string_view text, std::size_t from = 0);

/// The announced length of the body; 0 when none is announced in numbers. A number too large for 32
/// bits counts as the largest. The announcement is taken from the first place that reads like one,
/// in whatever line it stands.
std::int32_t announcedLength(std::string_view text);

/// Whether the client waits for a word before it sends the body.
bool waitsToGoOn(std::string_view head);

}  // namespace request_text

/// The head of one request with the text that it stands in, made when the request is complete.
/// Nobody else looks into that text.
///
/// It knows two grammars. By the strict one a head is a request line and header lines up to a blank
/// line. By the loose one a header stands wherever a line end is followed by its name, in the body
/// as well; what the server itself goes by is read so.
///
/// Views last until the next text is taken.
class RequestHead {
 public:
  struct Header {
    std::string_view name;   ///< as the client wrote it, without blanks around it
    std::string_view value;  ///< without the blanks in front of it
  };

  /// Takes a request's whole text, into the memory that is there when it is copied. `bodyStart` is
  /// looked for when it is 0.
  void assign(std::string_view text, std::size_t bodyStart = 0);
  void adopt(std::string&& text, std::size_t bodyStart = 0);

  /// Hands the text out and is empty afterwards.
  std::string take();

  /// Empties the text and gives its memory back.
  void release();

  const std::string& text() const { return text_; }

  /// Whether the first line has an end and three words with one blank between. The words are empty
  /// when it doesn't.
  bool isWellFormed() const { return wellFormed_; }
  std::string_view method() const { return at(method_); }
  std::string_view target() const { return at(target_); }
  std::string_view version() const { return at(version_); }

  /// Whether a blank line ends the head.
  bool hasBody() const { return bodyStart_ > 0; }
  std::string_view body() const {
    return at({hasBody() ? bodyStart_ : text_.size(), text_.size()});
  }

  /// The lines of the head that have a colon; the request line too, if it has one.
  std::vector<Header> headers() const;

  /// The value of the first of them with this name, letter case aside; empty when there is none.
  std::string_view header(std::string_view name) const;

  /// The loose grammar: calls `visit` with every line but the first, in the head or not.
  template <class Visit>
  void forEachLooseLine(Visit visit) const {
    const std::string_view text = text_;
    std::size_t end = text.find(kLineEnd);
    while (end != std::string_view::npos) {
      const std::size_t start = end + kLineEnd.size();
      end = text.find(kLineEnd, start);
      visit(text.substr(start, end - start));
    }
  }

 private:
  static constexpr std::string_view kLineEnd = "\r\n";

  /// Places rather than views: a short text moves with the head.
  struct Place {
    std::size_t start = 0;
    std::size_t length = 0;
  };

  /// Calls `visit` with each of headers() until it gives false.
  template <class Visit>
  void forEachHeader(Visit visit) const;

  void read(std::size_t bodyStart);
  void readRequestLine();
  std::string_view at(Place place) const {
    return std::string_view(text_).substr(place.start, place.length);
  }

  std::string text_;
  bool wellFormed_ = false;
  Place method_;
  Place target_;
  Place version_;
  std::size_t bodyStart_ = 0;  ///< 0 without a blank line
};

}  // namespace quorvane
