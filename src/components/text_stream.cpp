#include "components/text_stream.h"

#include <algorithm>

#include "vbscript/values/convert.h"
#include "vbscript/values/time_check.h"

namespace quorvane {

using vbs::Args;
using vbs::ErrorCode;
using vbs::Member;
using vbs::String;
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

TextStream::Channel& TextStream::channel() {
  if (!channel_) vbs::throwError(ErrorCode::BadFileName);
  return *channel_;
}

TextStream::Channel& TextStream::reading() {
  Channel& source = channel();
  if (form_.mode != Mode::Read) vbs::throwError(ErrorCode::BadFileMode);
  return source;
}

char16_t TextStream::unitAt(std::string_view bytes, std::size_t at) const {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  return unit() == 1 ? byte(at) : static_cast<char16_t>(byte(at) | byte(at + 1) << 8);
}

std::size_t TextStream::beforeLineEnd(std::string_view bytes) const {
  if (unit() == 1) return std::min(bytes.find('\n'), bytes.size());
  std::size_t at = 0;
  while (at + 1 < bytes.size() && unitAt(bytes, at) != u'\n') at += 2;
  return at;
}

String TextStream::decoded(std::string_view bytes) const {
  return unit() == 1 ? String(bytes) : String::fromWideBytes(bytes);
}

/// Counts lines and columns on.
void TextStream::advance(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t length = beforeLineEnd(bytes);
    column_ += static_cast<std::int32_t>(length / unit());
    if (length == bytes.size()) return;
    ++line_;
    column_ = 1;
    bytes.remove_prefix(length + unit());
  }
}

void TextStream::write(const String& text) {
  Channel& sink = channel();
  if (form_.mode != Mode::Write) vbs::throwError(ErrorCode::BadFileMode);
  const auto send = [&](std::string_view bytes) {
    sink.write(bytes);
    advance(bytes);
  };
  if (unit() > 1) return send(text.toWide().raw());
  text.isAnsi() ? send(text.raw()) : send(text.narrow());
}

String TextStream::takeLine() {
  Channel& source = reading();
  source.flush();
  if (atEnd()) vbs::throwError(ErrorCode::PastEndOfFile);
  String text;
  for (bool ended = false; !ended && !atEnd();) {
    std::string_view bytes = source.ahead(unit());
    bytes = bytes.substr(0, bytes.size() / unit() * unit());
    const std::size_t length = beforeLineEnd(bytes);
    text.append(decoded(bytes.substr(0, length)));
    ended = length < bytes.size();
    const std::size_t taken = ended ? length + unit() : length;
    vbs::countWork(taken);
    advance(bytes.substr(0, taken));
    source.skip(taken);
  }
  const std::size_t length = text.length();
  const bool hasReturn = length > 0 && text.at(length - 1) == u'\r';
  return hasReturn ? text.substr(0, length - 1) : text;
}

String TextStream::takeCount(const Value& count) {
  Channel& source = reading();
  source.flush();
  const std::int32_t wanted = vbs::toLong(count);
  if (wanted < 0) vbs::throwError(ErrorCode::InvalidCall);
  if (wanted > 0 && atEnd()) vbs::throwError(ErrorCode::PastEndOfFile);
  String text;
  for (std::size_t left = static_cast<std::size_t>(wanted) * unit(); left > 0 && !atEnd();) {
    std::string_view bytes = source.ahead(unit());
    bytes = bytes.substr(0, std::min(left, bytes.size() / unit() * unit()));
    vbs::countWork(bytes.size());
    text.append(decoded(bytes));
    advance(bytes);
    left -= bytes.size();
    source.skip(bytes.size());
  }
  return text;
}

Value TextStream::atEndOfStream(Args) {
  reading().flush();
  return Value::boolean(atEnd());
}

Value TextStream::atEndOfLine(Args) {
  reading().flush();
  if (atEnd()) return Value::boolean(true);
  const char16_t next = unitAt(channel_->ahead(unit()), 0);
  return Value::boolean(next == u'\n' || next == u'\r');
}

Value TextStream::close(Args) {
  if (!channel_) return {};
  channel_->flush();
  if (channel_->closes()) channel_ = nullptr;
  return {};
}

Value TextStream::column(Args) {
  channel();
  return Value::longInt(column_);
}
Value TextStream::line(Args) {
  channel();
  return Value::longInt(line_);
}
Value TextStream::read(Args args) {
  return takeCount(args[0]);
}
Value TextStream::readLine(Args) {
  return takeLine();
}
Value TextStream::readAll(Args) {
  return takeCount(Value::longInt(INT32_MAX));
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
  write(vbs::toString(args[0]));
  return {};
}

Value TextStream::writeLine(Args args) {
  if (!args.empty()) writeText(args);
  writeLineEnd();
  return {};
}

Value TextStream::writeBlankLines(Args args) {
  const std::int32_t count = vbs::toLong(args[0]);
  if (count < 0) vbs::throwError(ErrorCode::InvalidCall);
  for (std::int32_t i = 0; i < count; ++i) writeLineEnd();
  return {};
}

}  // namespace quorvane
