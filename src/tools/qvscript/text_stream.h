#pragma once

#include <cstdio>
#include <string>

#include "vbscript/values/object.h"

namespace quorvane::qvscript {

/// A standard stream as scripts use it: bytes of Windows-1252 on the script's side, the same bytes
/// outside. Lines read may end in LF or CR LF; lines written end in LF.
class TextStream : public vbs::NativeObject<TextStream> {
 public:
  enum class Mode { Read, Write };
  /// `file` outlives the stream and stays open.
  TextStream(std::FILE* file, Mode mode) : file_(file), mode_(mode) {}

  static std::span<const vbs::Member<TextStream>> members();
  std::string_view typeName() const override { return "TextStream"; }

  void write(std::string_view text);

 private:
  int peek();
  int take();
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

  std::FILE* file_;
  Mode mode_;
  std::int32_t line_ = 1;
  std::int32_t column_ = 1;
};

}  // namespace quorvane::qvscript
