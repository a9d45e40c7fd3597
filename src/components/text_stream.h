#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "vbscript/values/object.h"

namespace quorvane {

/// A stream of text as scripts use it. Lines that are read may end in LF or CR LF.
class TextStream : public vbs::NativeObject<TextStream> {
 public:
  enum class Mode { Read, Write };

  /// What stands outside for a character: a byte of Windows-1252, or two of UTF-16 with the lower
  /// one first.
  enum class Encoding { Ansi, Unicode };

  /// Where the bytes come from or go to. Of a stream that reads, `write` is never called; of one
  /// that writes, `ahead` and `skip` are not.
  class Channel {
   public:
    virtual ~Channel() = default;
    /// The bytes that come next: at least `least` unless the end comes first, as many more as are
    /// there. May wait. Valid until the next call.
    virtual std::string_view ahead(std::size_t least) = 0;
    virtual void skip(std::size_t count) = 0;  ///< takes bytes that were seen ahead
    virtual void write(std::string_view bytes) = 0;
    /// Sends what is held back. Called before every reading too: a prompt must be seen before its
    /// answer is waited for.
    virtual void flush() = 0;
    /// Whether the stream can't be used any more once the script has closed it.
    virtual bool closes() const { return false; }
  };

  struct Form {
    Mode mode = Mode::Read;
    Encoding encoding = Encoding::Ansi;
    std::string_view lineEnd = "\n";  ///< of lines that are written
  };

  TextStream(std::unique_ptr<Channel> channel, Form form)
      : channel_(std::move(channel)), form_(form) {}

  static std::span<const vbs::Member<TextStream>> members();
  std::string_view typeName() const override { return "TextStream"; }

  void write(const vbs::String& text);

 private:
  Channel& channel();
  Channel& reading();
  std::size_t unit() const { return form_.encoding == Encoding::Unicode ? 2 : 1; }
  char16_t unitAt(std::string_view bytes, std::size_t at) const;
  /// How many of `bytes` come before the end of a line; all when there is none.
  std::size_t beforeLineEnd(std::string_view bytes) const;
  vbs::String decoded(std::string_view bytes) const;
  void advance(std::string_view bytes);

  bool atEnd() { return reading().ahead(unit()).size() < unit(); }
  vbs::String takeLine();
  vbs::String takeCount(const vbs::Value& count);
  void writeLineEnd() { write(vbs::String(form_.lineEnd)); }

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

  std::unique_ptr<Channel> channel_;  ///< null when the script has closed it
  Form form_;
  std::int32_t line_ = 1;
  std::int32_t column_ = 1;
};

}  // namespace quorvane
