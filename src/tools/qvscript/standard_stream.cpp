#include "qvscript/standard_stream.h"

namespace quorvane::qvscript {

namespace {

class StandardChannel final : public TextStream::Channel {
 public:
  /// `held` is the stream whose bytes flush() sends.
  StandardChannel(std::FILE* file, std::FILE* held) : file_(file), held_(held) {}

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
  void write(std::string_view bytes) override { std::fwrite(bytes.data(), 1, bytes.size(), file_); }
  void flush() override { std::fflush(held_); }

 private:
  std::FILE* file_;
  std::FILE* held_;
  char byte_ = 0;
  bool isHeld_ = false;
};

}  // namespace

vbs::Ref<TextStream> standardStream(std::FILE* file, TextStream::Mode mode) {
  std::FILE* held = mode == TextStream::Mode::Write ? file : stdout;
  return vbs::make<TextStream>(std::make_unique<StandardChannel>(file, held),
                               TextStream::Form{mode});
}

}  // namespace quorvane::qvscript
