#include "qvscript/standard_stream.h"

namespace quorvane::qvscript {

namespace {

class StandardChannel final : public TextStream::Channel {
 public:
  /// `held` is the stream whose bytes flush() sends.
  StandardChannel(std::FILE* file, std::FILE* held) : file_(file), held_(held) {}

  int next() override {
    const int c = take();
    if (c != kEnd) std::ungetc(c, file_);
    return c;
  }
  int take() override {
    const int c = std::getc(file_);
    return c == EOF ? kEnd : c;
  }
  void write(std::string_view bytes) override { std::fwrite(bytes.data(), 1, bytes.size(), file_); }
  void flush() override { std::fflush(held_); }

 private:
  std::FILE* file_;
  std::FILE* held_;
};

}  // namespace

vbs::Ref<TextStream> standardStream(std::FILE* file, TextStream::Mode mode) {
  std::FILE* held = mode == TextStream::Mode::Write ? file : stdout;
  return vbs::make<TextStream>(std::make_unique<StandardChannel>(file, held), mode);
}

}  // namespace quorvane::qvscript
