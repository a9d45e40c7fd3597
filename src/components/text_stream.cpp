#include "components/text_stream.h"

#include "vbscript/values/convert.h"

namespace quorvane {

using vbs::Args;
using vbs::ErrorCode;
using vbs::Member;
using vbs::Value;

std::span<const Member<TextStream>> TextStream::members() {
  using Self = TextStream;
  static constexpr Member<Self> kMembers[] = {
      {"writeline", 0, 1, &Self::writeLine},
      {"write", 1, 1, &Self::writeText},
      {"writeblanklines", 1, 1, &Self::writeBlankLines},
      {"readline", 0, 0, &Self::readLine},
      {"readall", 0, 0, &Self::readAll},
      {"read", 1, 1, &Self::read},
      {"skip", 1, 1, &Self::skip},
      {"skipline", 0, 0, &Self::skipLine},
      {"atendofstream", 0, 0, &Self::atEndOfStream},
      {"atendofline", 0, 0, &Self::atEndOfLine},
      {"line", 0, 0, &Self::line},
      {"column", 0, 0, &Self::column},
      {"close", 0, 0, &Self::close},
  };
  return kMembers;
}

void TextStream::write(std::string_view text) {
  if (mode_ != Mode::Write) vbs::throwError(ErrorCode::BadFileMode);
  channel_->write(text);
  for (const char c : text) {
    ++column_;
    if (c != '\n') continue;
    ++line_;
    column_ = 1;
  }
}

int TextStream::take() {
  const int c = channel_->take();
  ++column_;
  if (c == '\n') {
    ++line_;
    column_ = 1;
  }
  return c;
}

void TextStream::startReading() {
  if (mode_ != Mode::Read) vbs::throwError(ErrorCode::BadFileMode);
  channel_->flush();
}

std::string TextStream::takeLine() {
  startReading();
  if (atEnd()) vbs::throwError(ErrorCode::PastEndOfFile);
  std::string text;
  for (int c = take(); c != Channel::kEnd && c != '\n'; c = take()) text += static_cast<char>(c);
  if (text.ends_with('\r')) text.pop_back();
  return text;
}

std::string TextStream::takeCount(const Value& count) {
  startReading();
  const std::int32_t wanted = vbs::toLong(count);
  if (wanted < 0) vbs::throwError(ErrorCode::InvalidCall);
  if (wanted > 0 && atEnd()) vbs::throwError(ErrorCode::PastEndOfFile);
  std::string text;
  for (std::int32_t i = 0; i < wanted && !atEnd(); ++i) text += static_cast<char>(take());
  return text;
}

Value TextStream::atEndOfStream(Args) {
  startReading();
  return Value::boolean(atEnd());
}

Value TextStream::atEndOfLine(Args) {
  startReading();
  const int c = channel_->next();
  return Value::boolean(c == Channel::kEnd || c == '\n' || c == '\r');
}

/// What stands behind the channel is its owner's; closing the stream only sends what is held back.
Value TextStream::close(Args) {
  channel_->flush();
  return {};
}

Value TextStream::column(Args) {
  return Value::longInt(column_);
}
Value TextStream::line(Args) {
  return Value::longInt(line_);
}
Value TextStream::read(Args args) {
  return Value(std::string_view(takeCount(args[0])));
}
Value TextStream::readLine(Args) {
  return Value(std::string_view(takeLine()));
}

Value TextStream::readAll(Args) {
  startReading();
  std::string text;
  while (!atEnd()) text += static_cast<char>(take());
  return Value(std::string_view(text));
}

Value TextStream::skip(Args args) {
  takeCount(args[0]);
  return {};
}

Value TextStream::skipLine(Args) {
  takeLine();
  return {};
}

Value TextStream::writeText(Args args) {
  write(vbs::toString(args[0]).narrow());
  return {};
}

Value TextStream::writeLine(Args args) {
  if (!args.empty()) writeText(args);
  write("\n");
  return {};
}

Value TextStream::writeBlankLines(Args args) {
  const std::int32_t count = vbs::toLong(args[0]);
  if (count < 0) vbs::throwError(ErrorCode::InvalidCall);
  for (std::int32_t i = 0; i < count; ++i) write("\n");
  return {};
}

}  // namespace quorvane
