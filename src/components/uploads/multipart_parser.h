#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quorvane::uploads {

/// What stands in front of a part of a form. All of it is the client's word.
struct PartHead {
  std::string name;
  std::string fileName;  ///< as the client names it, with or without a path
  std::string contentType;
  bool isFile = false;
};

/// Is told of the parts one after the other.
class PartReceiver {
 public:
  virtual void beginPart(PartHead head) = 0;
  virtual void partBytes(std::string_view bytes) = 0;
  virtual void endPart() = 0;  ///< not called for a part that the body ends in

 protected:
  ~PartReceiver() = default;
};

/// Takes the body of a form with files (multipart/form-data) apart. Comes by in pieces of any
/// length, holds no more than a head or a boundary's length of them.
class MultipartParser {
 public:
  /// The longest head of a part; a body with a longer one is malformed.
  static constexpr std::size_t kMostHead = 16 * 1024;
  /// Parts beyond this many end the reading.
  static constexpr std::size_t kMostParts = 10'000;

  /// The boundary that a content type names; empty for one of another kind.
  static std::string boundaryOf(std::string_view contentType);

  /// The receiver outlives the parser. The boundary is not empty.
  MultipartParser(std::string_view boundary, PartReceiver& receiver)
      : delimiter_("\r\n--" + std::string(boundary)), receiver_(receiver) {}

  void take(std::string_view bytes);

  /// Whether the last boundary has come. What comes behind it is passed over.
  bool isComplete() const { return state_ == State::Complete; }
  bool isMalformed() const { return state_ == State::Malformed; }

 private:
  enum class State { Preamble, AfterBoundary, Head, Body, Complete, Malformed };

  bool step();
  bool passBoundary();
  bool takeHead();
  bool takeBody();
  void drop(std::size_t count) { at_ += count; }
  std::string_view ahead() const { return std::string_view(buffer_).substr(at_); }

  std::string delimiter_;
  PartReceiver& receiver_;
  State state_ = State::Preamble;
  std::string buffer_ = "\r\n";  ///< the first boundary has no line in front of it
  std::size_t at_ = 0;           ///< what of the buffer is done with
  std::size_t parts_ = 0;
};

}  // namespace quorvane::uploads
