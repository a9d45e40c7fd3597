#include "qvscript/standard_stream.h"

#include "platform/standard_streams.h"

namespace quorvane::qvscript {

namespace {

class StandardChannel final : public TextStream::Channel {
 public:
  /// `held` is the stream whose bytes flush() sends, and each write when `promptly`.
  StandardChannel(std::FILE* file, std::FILE* held, bool promptly)
      : file_(file), held_(held), promptly_(promptly) {}

  /// One byte at a time: whoever writes may wait for an answer to what it has written so far.
  std::string_view ahead(std::size_t) override {
    if (isHeld_) return {&byte_, 1};
    const int c = std::getc(file_);
    if (c == EOF) return {};
    byte_ = static_cast<char>(c);
    isHeld_ = true;
    return {&byte_, 1};
  }
  void skip(std::size_t count) override {
    if (count > 0) isHeld_ = false;
  }
  void write(std::string_view bytes) override {
    std::fwrite(bytes.data(), 1, bytes.size(), file_);
    if (promptly_) flush();
  }
  void flush() override { std::fflush(held_); }

 private:
  std::FILE* file_;
  std::FILE* held_;
  bool promptly_;
  char byte_ = 0;
  bool isHeld_ = false;
};

}  // namespace

vbs::Ref<TextStream> standardStream(std::FILE* file, TextStream::Mode mode) {
  std::FILE* held = mode == TextStream::Mode::Write ? file : stdout;
  const bool promptly = file == stdout && gatherStandardOutput();
  return vbs::make<TextStream>(std::make_unique<StandardChannel>(file, held, promptly),
                               TextStream::Form{mode});
}

}  // namespace quorvane::qvscript
