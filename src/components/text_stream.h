#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "vbscript/values/object.h"

namespace quorvane {

/// A stream of text as scripts use it: bytes of Windows-1252 on the script's side, the same bytes
/// outside. Lines read may end in LF or CR LF; lines written end in LF.
class TextStream : public vbs::NativeObject<TextStream> {
 public:
  enum class Mode { Read, Write };

  /// Where the bytes come from or go to. Of a stream that reads, `write` is never called; of one
  /// that writes, `next` and `take` are not.
  class Channel {
   public:
    static constexpr int kEnd = -1;

    virtual ~Channel() = default;
    virtual int next() = 0;  ///< the byte that take() will give, or kEnd; may wait for it
    virtual int take() = 0;
    virtual void write(std::string_view bytes) = 0;
    /// Sends what is held back. Called before every reading too: a prompt must be seen before its
    /// answer is waited for.
    virtual void flush() = 0;
  };

  TextStream(std::unique_ptr<Channel> channel, Mode mode)
      : channel_(std::move(channel)), mode_(mode) {}

  static std::span<const vbs::Member<TextStream>> members();
  std::string_view typeName() const override { return "TextStream"; }

  void write(std::string_view text);

 private:
  int take();
  bool atEnd() { return channel_->next() == Channel::kEnd; }
  void startReading();
  std::string takeLine();
  std::string takeCount(const vbs::Value& count);

  vbs::Value atEndOfLine(vbs::Args);
  vbs::Value atEndOfStream(vbs::Args);
  vbs::Value close(vbs::Args);
  vbs::Value column(vbs::Args);
  vbs::Value line(vbs::Args);
  vbs::Value read(vbs::Args args);
  vbs::Value readAll(vbs::Args);
  vbs::Value readLine(vbs::Args);
  vbs::Value skip(vbs::Args args);
  vbs::Value skipLine(vbs::Args);
  vbs::Value writeText(vbs::Args args);
  vbs::Value writeLine(vbs::Args args);
  vbs::Value writeBlankLines(vbs::Args args);

  std::unique_ptr<Channel> channel_;
  Mode mode_;
  std::int32_t line_ = 1;
  std::int32_t column_ = 1;
};

}  // namespace quorvane
