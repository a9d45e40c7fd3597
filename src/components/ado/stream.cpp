#include "components/ado/stream.h"

#include <algorithm>
#include <string_view>

#include "components/ado/ado_error.h"
#include "components/arguments.h"
#include "components/script_files.h"
#include "platform/charset.h"
#include "support/files.h"
#include "support/text.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/memory_meter.h"
#include "vbscript/values/object.h"

namespace quorvane {

using ado::AdoError;
using vbs::Args;
using vbs::CallKind;
using vbs::String;
using vbs::Value;

namespace {

enum StreamType : std::int32_t { kBinary = 1, kText = 2 };
enum ReadCount : std::int32_t { kAll = -1, kLine = -2 };
enum LineSeparator : std::int32_t { kCrLf = -1, kLf = 10, kCr = 13 };
enum SaveOption : std::int32_t { kCreateNew = 1, kOverwrite = 2 };

[[noreturn]] void fail(AdoError error) {
  ado::throwAdo(error, "ADODB.Stream");
}

Value number(std::size_t count) {
  return count <= INT32_MAX ? Value::longInt(static_cast<std::int32_t>(count))
                            : Value::number(static_cast<double>(count));
}

class Stream final : public vbs::NativeObject<Stream> {
 public:
  explicit Stream(const Services& services) : scripts_(services) {}
  Stream(const Services& services, std::string content)
      : scripts_(services), type_(kBinary), isOpen_(true) {
    charge_.change(content.size());
    content_ = std::move(content);
  }
  std::string_view typeName() const override { return "Stream"; }
  static std::span<const vbs::Member<Stream>> members();

 private:
  /// How texts stand in the content.
  enum class Form { Ansi, Utf8, Units, Other };

  void requireOpen() const {
    if (!isOpen_) fail(AdoError::ObjectClosed);
  }
  void requireType(StreamType type) const {
    requireOpen();
    if (type_ != type) fail(AdoError::IllegalOperation);
  }
  void requireStart() const {
    if (isOpen_ && position_ != 0) fail(AdoError::IllegalOperation);
  }

  Form form() const;
  std::string_view mark() const;  ///< what stands in front of a whole text
  std::string encoded(const String& text) const;
  std::string separator() const;

  std::string_view rest() const {
    return std::string_view(content_).substr(std::min(position_, content_.size()));
  }
  void skipMark() {
    if (position_ == 0 && content_.starts_with(mark())) position_ = mark().size();
  }
  void resize(std::size_t size) {
    charge_.change(size);
    content_.resize(size);
  }
  void put(std::string_view bytes);
  void putText(const String& text);
  std::string_view takeBytes(std::int32_t count);
  std::string_view takeLine();
  String decoded(std::string_view bytes) const;
  /// The bytes of `count` characters, or of all that are left.
  std::string_view takeCharacters(std::int32_t count);

  Value open(Args args);
  Value close(Args);
  Value read(Args args);
  Value readText(Args args);
  Value write(Args args);
  Value writeText(Args args);
  Value skipLine(Args);
  Value setEos(Args);
  Value copyTo(Args args);
  Value loadFromFile(Args args);
  Value saveToFile(Args args);
  Value nothingToDo(Args) {
    requireOpen();
    return {};
  }

  Value getPosition(Args) {
    requireOpen();
    return number(position_);
  }
  void putPosition(Args args, CallKind);
  Value size(Args) {
    requireOpen();
    return number(content_.size());
  }
  Value eos(Args) {
    requireOpen();
    return Value::boolean(position_ >= content_.size());
  }
  Value state(Args) { return Value::longInt(isOpen_ ? 1 : 0); }
  Value getType(Args) { return Value::longInt(type_); }
  void putType(Args args, CallKind);
  Value getCharset(Args) { return Value(std::string_view(charset_)); }
  void putCharset(Args args, CallKind);
  Value getMode(Args) { return Value::longInt(mode_); }
  void putMode(Args args, CallKind) {
    if (isOpen_) fail(AdoError::ObjectOpen);
    mode_ = vbs::toLong(args[0]);
  }
  Value getLineSeparator(Args) { return Value::longInt(lineSeparator_); }
  void putLineSeparator(Args args, CallKind);

  ScriptFiles scripts_;
  std::string content_;
  vbs::MemoryCharge charge_;  ///< of the content
  std::size_t position_ = 0;  ///< bytes; may lie behind the end
  std::string charset_ = "Unicode";
  std::int32_t type_ = kText;
  std::int32_t mode_ = 0;
  std::int32_t lineSeparator_ = kCrLf;
  bool isOpen_ = false;
};

std::span<const vbs::Member<Stream>> Stream::members() {
  using Self = Stream;
  static constexpr vbs::Member<Self> kMembers[] = {
      {"open", 0, 5, &Self::open},
      {"close", 0, 0, &Self::close},
      {"read", 0, 1, &Self::read},
      {"readtext", 0, 1, &Self::readText},
      {"write", 1, 1, &Self::write},
      {"writetext", 1, 2, &Self::writeText},
      {"position", 0, 0, &Self::getPosition, &Self::putPosition},
      {"size", 0, 0, &Self::size},
      {"eos", 0, 0, &Self::eos},
      {"type", 0, 0, &Self::getType, &Self::putType},
      {"charset", 0, 0, &Self::getCharset, &Self::putCharset},
      {"mode", 0, 0, &Self::getMode, &Self::putMode},
      {"state", 0, 0, &Self::state},
      {"lineseparator", 0, 0, &Self::getLineSeparator, &Self::putLineSeparator},
      {"copyto", 1, 2, &Self::copyTo},
      {"loadfromfile", 1, 1, &Self::loadFromFile},
      {"savetofile", 1, 2, &Self::saveToFile},
      {"skipline", 0, 0, &Self::skipLine},
      {"seteos", 0, 0, &Self::setEos},
      {"flush", 0, 0, &Self::nothingToDo},
      {"cancel", 0, 0, &Self::nothingToDo},
  };
  return kMembers;
}

Stream::Form Stream::form() const {
  const std::string name = lowerCase(charset_);
  if (name == "unicode" || name == "utf-16" || name == "utf-16le") return Form::Units;
  if (name == "utf-8") return Form::Utf8;
  if (name == "windows-1252" || name == "x-ansi") return Form::Ansi;
  return Form::Other;
}

std::string_view Stream::mark() const {
  switch (form()) {
    case Form::Utf8:
      return "\xEF\xBB\xBF";
    case Form::Units:
      return "\xFF\xFE";
    default:
      return {};
  }
}

std::string Stream::encoded(const String& text) const {
  vbs::countWork(text.byteLength());
  switch (form()) {
    case Form::Ansi:
      return text.narrow();
    case Form::Utf8:
      return text.utf8();
    case Form::Units:
      return std::string(text.toWide().raw());
    case Form::Other:
      break;
  }
  return charset::encode(charset_, text.wide());
}

String Stream::decoded(std::string_view bytes) const {
  vbs::countWork(bytes.size());
  switch (form()) {
    case Form::Ansi:
      return String(bytes);
    case Form::Utf8:
      return String::fromUtf8(bytes);
    case Form::Units:
      return String::fromWideBytes(bytes.substr(0, bytes.size() / 2 * 2));
    case Form::Other:
      break;
  }
  return String::fromWide(charset::decode(charset_, bytes, bytes.size()).text);
}

std::string Stream::separator() const {
  return encoded(String(lineSeparator_ == kCrLf ? "\r\n" : lineSeparator_ == kLf ? "\n" : "\r"));
}

void Stream::put(std::string_view bytes) {
  vbs::countWork(bytes.size());
  if (position_ + bytes.size() > content_.size()) resize(position_ + bytes.size());
  content_.replace(position_, bytes.size(), bytes);
  position_ += bytes.size();
}

void Stream::putText(const String& text) {
  if (content_.empty()) put(mark());
  put(encoded(text));
}

std::string_view Stream::takeBytes(std::int32_t count) {
  if (count < 0 && count != kAll) fail(AdoError::InvalidArgument);
  const std::string_view bytes = rest();
  const std::size_t wanted = count == kAll ? bytes.size() : static_cast<std::size_t>(count);
  const std::string_view taken = bytes.substr(0, wanted);
  position_ += taken.size();
  return taken;
}

std::string_view Stream::takeCharacters(std::int32_t count) {
  if (count < 0 && count != kAll) fail(AdoError::InvalidArgument);
  skipMark();
  if (count == kAll) return takeBytes(kAll);
  const std::string_view bytes = rest();
  std::size_t length = static_cast<std::size_t>(count);
  if (form() == Form::Units) length *= 2;
  if (form() == Form::Utf8) length = charset::decode("utf-8", bytes, length).bytes;
  if (form() == Form::Other) length = charset::decode(charset_, bytes, length).bytes;
  length = std::min(length, bytes.size());
  position_ += length;
  return bytes.substr(0, length);
}

/// Bytes are compared: in no set is a line's end part of another character, when every second byte
/// of the two-byte ones is passed over.
std::string_view Stream::takeLine() {
  skipMark();
  const std::string_view bytes = rest();
  const std::string end = separator();
  std::size_t length = bytes.find(end);
  while (form() == Form::Units && length != bytes.npos && length % 2 != 0) {
    length = bytes.find(end, length + 1);
  }
  vbs::countWork(std::min(length, bytes.size()));
  position_ += length == bytes.npos ? bytes.size() : length + end.size();
  return bytes.substr(0, length);
}

Value Stream::open(Args args) {
  if (isOpen_) fail(AdoError::ObjectOpen);
  if (!arguments::text(args, 0).empty()) fail(AdoError::FeatureNotAvailable);
  mode_ = arguments::number(args, 1, mode_);
  isOpen_ = true;
  return {};
}

Value Stream::close(Args) {
  requireOpen();
  isOpen_ = false;
  position_ = 0;
  std::string().swap(content_);
  charge_.change(0);
  return {};
}

Value Stream::read(Args args) {
  requireType(kBinary);
  if (rest().empty()) return Value::null();
  return Value::array(vbs::ArrayRep::fromBytes(takeBytes(arguments::number(args, 0, kAll))));
}

Value Stream::readText(Args args) {
  requireType(kText);
  const std::int32_t count = arguments::number(args, 0, kAll);
  return decoded(count == kLine ? takeLine() : takeCharacters(count));
}

Value Stream::write(Args args) {
  requireType(kBinary);
  const Value& given = args[0].deref();
  if (given.isEmpty() || given.isNull()) return {};
  if (!given.isArray() || given.asArray()->elementType != vbs::Type::Byte) {
    fail(AdoError::InvalidArgument);
  }
  put(given.asArray()->bytes.raw());
  return {};
}

Value Stream::writeText(Args args) {
  requireType(kText);
  constexpr std::int32_t kWriteLine = 1;
  putText(vbs::toString(args[0]));
  if (arguments::number(args, 1, 0) == kWriteLine) put(separator());
  return {};
}

Value Stream::skipLine(Args) {
  requireType(kText);
  takeLine();
  return {};
}

Value Stream::setEos(Args) {
  requireOpen();
  resize(position_);
  return {};
}

Value Stream::copyTo(Args args) {
  requireOpen();
  const auto target = vbs::Ref(dynamic_cast<Stream*>(vbs::toObject(args[0])));
  if (!target) fail(AdoError::InvalidArgument);
  target->requireOpen();
  const std::int32_t count = arguments::number(args, 1, kAll);
  const std::string bytes(type_ == kText ? takeCharacters(count) : takeBytes(count));
  if (type_ == kText && target->type_ == kText) {
    target->putText(decoded(bytes));
  } else {
    target->put(bytes);
  }
  return {};
}

Value Stream::loadFromFile(Args args) {
  requireOpen();
  const std::string path = scripts_.allowedPath(args[0]);
  const auto info = scripts_.files().stat(path);
  if (!info || info->isFolder) fail(AdoError::OpeningFile);
  charge_.change(info->size);
  auto content = scripts_.files().readAll(path);
  if (!content) fail(AdoError::OpeningFile);
  content_ = std::move(*content);
  charge_.change(content_.size());
  position_ = 0;
  return {};
}

Value Stream::saveToFile(Args args) {
  requireOpen();
  const std::string path = scripts_.allowedPath(args[0]);
  const std::int32_t option = arguments::number(args, 1, kCreateNew);
  if (option != kCreateNew && option != kOverwrite) fail(AdoError::InvalidArgument);
  const bool taken = option == kCreateNew && scripts_.files().stat(path);
  if (taken || !scripts_.files().writeAll(path, content_)) fail(AdoError::WritingFile);
  position_ = 0;
  return {};
}

void Stream::putPosition(Args args, CallKind) {
  requireOpen();
  const std::int32_t wanted = vbs::toLong(args[0]);
  if (wanted < 0) fail(AdoError::InvalidArgument);
  position_ = static_cast<std::size_t>(wanted);
  if (position_ > content_.size()) resize(position_);
}

void Stream::putType(Args args, CallKind) {
  requireStart();
  const std::int32_t type = vbs::toLong(args[0]);
  if (type != kBinary && type != kText) fail(AdoError::InvalidArgument);
  type_ = type;
}

void Stream::putCharset(Args args, CallKind) {
  requireStart();
  std::string name = vbs::toString(args[0]).narrow();
  if (!charset::isKnown(name)) fail(AdoError::InvalidArgument);
  charset_ = std::move(name);
}

void Stream::putLineSeparator(Args args, CallKind) {
  const std::int32_t separator = vbs::toLong(args[0]);
  if (separator != kCrLf && separator != kLf && separator != kCr) fail(AdoError::InvalidArgument);
  lineSeparator_ = separator;
}

}  // namespace

const Component kStream{
    "adodb.stream", [](const Services& services) { return Value::adopt(new Stream(services)); }};

Value openStream(std::string content, const Services& services) {
  return Value::adopt(new Stream(services, std::move(content)));
}

}  // namespace quorvane
