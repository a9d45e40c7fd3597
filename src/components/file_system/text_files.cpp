#include "components/file_system/text_files.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "components/file_system/path_text.h"
#include "components/text_stream.h"
#include "support/files.h"
#include "vbscript/values/error.h"
#include "vbscript/values/time_check.h"

namespace quorvane::text_files {

using vbs::ErrorCode;
using vbs::throwError;
using vbs::Value;

namespace {

constexpr std::size_t kBlock = 64 << 10;
constexpr std::string_view kMark = "\xFF\xFE";  ///< in front of Unicode texts

class ReadingChannel final : public TextStream::Channel {
 public:
  ReadingChannel(std::shared_ptr<const OpenFile> file, std::uint64_t start)
      : file_(std::move(file)), place_(start) {}

  std::string_view ahead(std::size_t least) override {
    if (end_ - at_ < least) fill();
    return {block_.get() + at_, end_ - at_};
  }
  void skip(std::size_t count) override { at_ += count; }
  void write(std::string_view) override {}
  void flush() override {}
  bool closes() const override { return true; }

 private:
  /// What is left of the block goes to its front; it is less than a character.
  void fill() {
    if (!block_) block_ = std::make_unique_for_overwrite<char[]>(kBlock);
    std::copy(block_.get() + at_, block_.get() + end_, block_.get());
    end_ -= std::exchange(at_, 0);
    const std::size_t count = file_->read(place_, block_.get() + end_, kBlock - end_);
    end_ += count;
    place_ += count;
  }

  std::shared_ptr<const OpenFile> file_;
  std::uint64_t place_;  ///< of the file, behind the block
  std::unique_ptr<char[]> block_;
  std::size_t at_ = 0;
  std::size_t end_ = 0;
};

/// Holds back a block at most, until the stream is closed or its last reference gone.
class WritingChannel final : public TextStream::Channel {
 public:
  /// `files` outlive the channel.
  WritingChannel(const Files& files, std::string path) : files_(files), path_(std::move(path)) {}
  ~WritingChannel() override { send(); }

  std::string_view ahead(std::size_t) override { return {}; }
  void skip(std::size_t) override {}
  void write(std::string_view bytes) override {
    vbs::countWork(bytes.size());
    held_ += bytes;
    if (held_.size() >= kBlock) flush();
  }
  void flush() override {
    if (send()) return;
    const auto room = files_.room(std::string(path_text::parentOf(path_)));
    throwError(room && room->available == 0 ? ErrorCode::DiskFull : ErrorCode::PermissionDenied);
  }
  bool closes() const override { return true; }

 private:
  bool send() {
    if (held_.empty()) return true;
    const bool sent = files_.append(path_, held_);
    held_.clear();
    return sent;
  }

  const Files& files_;
  std::string path_;
  std::string held_;
};

Value stream(std::unique_ptr<TextStream::Channel> channel, TextStream::Mode mode, bool unicode) {
  using Encoding = TextStream::Encoding;
  const TextStream::Form form{mode, unicode ? Encoding::Unicode : Encoding::Ansi, "\r\n"};
  return Value::adopt(new TextStream(std::move(channel), form));
}

Value read(const Files& files, const std::string& path, bool unicode) {
  auto file = files.open(path);
  if (!file) throwError(ErrorCode::PermissionDenied);
  std::uint64_t start = 0;
  if (unicode) {
    char mark[kMark.size()];
    const std::size_t count = file->read(0, mark, sizeof mark);
    if (std::string_view(mark, count) == kMark) start = kMark.size();
  }
  return stream(std::make_unique<ReadingChannel>(std::move(file), start), TextStream::Mode::Read,
                unicode);
}

/// `emptied`: whatever the file holds goes.
Value write(const Files& files, const std::string& path, bool emptied, bool unicode) {
  const auto marks = files.marks(path);
  if (marks && marks->readOnly) throwError(ErrorCode::PermissionDenied);
  const auto info = files.stat(path);
  const bool begins = emptied || !info || info->size == 0;
  const std::string_view start = unicode && begins ? kMark : std::string_view();
  const bool made = begins ? files.writeAll(path, start) : files.append(path, {});
  if (!made) throwError(ErrorCode::PermissionDenied);
  return stream(std::make_unique<WritingChannel>(files, path), TextStream::Mode::Write, unicode);
}

/// Whether there is a file.
bool look(const Files& files, const std::string& path) {
  const auto info = files.stat(path);
  if (info && info->isFolder) throwError(ErrorCode::PermissionDenied);
  if (info) return true;
  const auto folder = files.stat(std::string(path_text::parentOf(path)));
  if (!folder || !folder->isFolder) throwError(ErrorCode::PathNotFound);
  return false;
}

}  // namespace

Value open(const Files& files, const std::string& path, std::int32_t mode, bool create,
           std::int32_t format) {
  const bool unicode = format == kUnicode;
  if (mode != kForReading && mode != kForWriting && mode != kForAppending) {
    throwError(ErrorCode::InvalidCall);
  }
  if (!look(files, path)) {
    if (!create) throwError(ErrorCode::FileNotFound);
    if (mode == kForReading && !files.writeAll(path, unicode ? kMark : std::string_view())) {
      throwError(ErrorCode::PermissionDenied);
    }
  }
  if (mode == kForReading) return read(files, path, unicode);
  return write(files, path, mode == kForWriting, unicode);
}

Value create(const Files& files, const std::string& path, bool replace, bool unicode) {
  if (look(files, path) && !replace) throwError(ErrorCode::FileExists);
  return write(files, path, true, unicode);
}

}  // namespace quorvane::text_files
