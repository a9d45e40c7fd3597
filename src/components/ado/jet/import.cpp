#include "components/ado/jet/import.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <memory>

#include "components/ado/jet/copy_writer.h"
#include "components/ado/jet/file_head.h"
#include "platform/clock.h"
#include "platform/entropy.h"
#include "platform/process.h"
#include "platform/services.h"
#include "support/files.h"
#include "support/paths.h"
#include "support/server_state.h"
#include "support/status_lines.h"
#include "support/visible_text.h"
#include "vbscript/values/time_check.h"

namespace quorvane::ado::jet {

namespace {

constexpr std::uint64_t kMegabyte = 1 << 20;
constexpr std::uint64_t kMostMemory = 512 * kMegabyte;
constexpr std::uint32_t kStartSeconds = 10;
constexpr std::uint32_t kSecondsPerMegabyte = 2;  ///< of a processor; a sound file takes a tenth
constexpr std::uint64_t kMostGrowth = 8;          ///< of a copy over its file
constexpr std::uint64_t kLeastBytes = 64 * kMegabyte;

/// "news.mdb" and ".sqlite" give "news.sqlite.mdb".
std::string beside(const std::string& path, std::string_view suffix) {
  const std::string end(paths::extensionOf(paths::fileNameOf(path)));
  return path.substr(0, path.size() - end.size()) + std::string(suffix) + end;
}

std::string newName(const std::string& path) {
  std::array<unsigned char, 8> random;
  fillWithEntropy(random.data(), random.size());
  std::string suffix = ".sqlite-import-";
  for (const unsigned char byte : random) {
    std::array<char, 3> digits;
    std::snprintf(digits.data(), digits.size(), "%02x", byte);
    suffix += digits.data();
  }
  return beside(path, suffix);
}

/// When the file was written, as its copy remembers it.
std::uint32_t stampOf(const FileInfo& info) {
  return static_cast<std::uint32_t>(
      std::chrono::duration_cast<std::chrono::seconds>(info.modified.time_since_epoch()).count());
}

std::uint32_t bigEndian(const char* bytes) {
  std::uint32_t number = 0;
  for (int i = 0; i < 4; ++i) number = number << 8 | static_cast<std::uint8_t>(bytes[i]);
  return number;
}

/// Whether a copy is there that was made of the file as it is now, or of a later one.
bool hasCopy(const Files& files, const std::string& path) {
  constexpr std::size_t kHead = 100;
  constexpr std::size_t kStampAt = 60;
  constexpr std::size_t kMarkAt = 68;
  const auto info = files.stat(path);
  const auto copy = files.open(copyPathOf(path));
  if (!info || !copy) return false;
  std::array<char, kHead> head{};
  if (copy->read(0, head.data(), head.size()) != head.size()) return false;
  return bigEndian(head.data() + kMarkAt) == CopyWriter::kMark &&
         bigEndian(head.data() + kStampAt) >= stampOf(*info);
}

/// What the reading program writes.
class ProgramOutput final : public ByteSource {
 public:
  ProgramOutput(ChildProcess& program, const Clock& clock, std::chrono::seconds atMost)
      : program_(program), clock_(clock), end_(clock.steadyNow() + atMost) {}

  std::size_t read(char* out, std::size_t length) override {
    constexpr int kTurn = 50;
    for (;;) {
      const auto count = program_.read(ChildProcess::Output::Standard, out, length, kTurn);
      passOverComplaints();
      if (count) return *count;
      vbs::checkTime();
      if (clock_.steadyNow() > end_) throw ImportFailed{"reading it takes too long"};
    }
  }

 private:
  /// The library's messages; nobody reads them, but they must go somewhere.
  void passOverComplaints() {
    std::array<char, 4096> text;
    for (int i = 0; i < 16; ++i) {
      if (program_.read(ChildProcess::Output::Error, text.data(), text.size(), 0).value_or(0) ==
          0) {
        return;
      }
    }
  }

  ChildProcess& program_;
  const Clock& clock_;
  std::chrono::steady_clock::time_point end_;
};

class Import {
 public:
  Import(const Services& services, const std::string& path)
      : services_(services),
        path_(path),
        info_(services.files.stat(path)),
        target_(newName(path)) {}
  ~Import() { services_.files.remove(target_); }
  Import(const Import&) = delete;
  Import& operator=(const Import&) = delete;

  void run() {
    checkFile();
    say("begins");
    const auto begin = services_.clock.steadyNow();
    const CopySize size = read();
    putInPlace();
    const std::chrono::duration<double> time = services_.clock.steadyNow() - begin;
    std::array<char, 32> seconds;
    std::snprintf(seconds.data(), seconds.size(), "%.1f", time.count());
    say("done, " + std::to_string(size.tables) +
        (size.tables == 1 ? " table with " : " tables with ") + std::to_string(size.rows) +
        " rows in " + seconds.data() + " seconds");
  }

  void say(const std::string& text) { services_.log.LogLine(title() + text); }

 private:
  std::string title() const { return "Import of " + visible(path_) + ": "; }

  void checkFile() {
    const auto file = services_.files.open(path_);
    if (!file) throw ImportFailed{"it can't be read"};
    std::string bytes(FileHead::kBytes, '\0');
    bytes.resize(file->read(0, bytes.data(), bytes.size()));
    const auto head = fileHead(bytes);
    if (!head) throw ImportFailed{"it is no Access file"};
    if (head->isEncrypted) throw ImportFailed{"it is encrypted"};
    info_ = file->info();
  }

  ChildCommand command() const {
    const std::string program = paths::join(services_.process.programFolder(), "qvimport");
    ChildCommand command{{program, path_}, true, kMostMemory, processorSeconds()};
    if (services_.state.JetCodePage != 0) {
      command.words.push_back("CP" + std::to_string(services_.state.JetCodePage));
    }
    return command;
  }

  std::uint32_t processorSeconds() const {
    return kStartSeconds +
           static_cast<std::uint32_t>(info_->size / kMegabyte) * kSecondsPerMegabyte;
  }

  std::unique_ptr<SqliteCore> newCopy() const {
    SqliteOptions options;
    options.path = target_;
    options.create = true;
    try {
      auto core = std::make_unique<SqliteCore>(services_, options);
      core->run("PRAGMA application_id = 1");  // the file comes to be with the first writing
      return core;
    } catch (const DatabaseError&) {
      throw ImportFailed{"no copy can be made beside it"};
    }
  }

  CopySize read() {
    const auto core = newCopy();
    CopyWriter writer(
        *core, services_.log,
        {title(), services_.state.JetCodePage, std::max(kLeastBytes, info_->size * kMostGrowth)});
    const auto program = services_.process.start(command());
    if (!program) throw ImportFailed{"the program qvimport can't be started"};
    constexpr int kWaiting = 4;  // for a processor that others have too
    ProgramOutput output(*program, services_.clock,
                         std::chrono::seconds(std::uint64_t{processorSeconds()} * kWaiting));
    readStream(output, writer);
    constexpr int kPatience = 2000;
    if (program->exitStatus(kPatience) != 0) throw ImportFailed{"it can't be read to its end"};
    return writer.finish(stampOf(*info_));
  }

  /// Whoever opens the copy finds a whole one, or for a moment none and makes it as well. One that
  /// is being written to stays.
  void putInPlace() {
    const Files& files = services_.files;
    const std::string copy = copyPathOf(path_);
    if (files.stat(copy)) {
      SqliteOptions options;
      options.path = copy;
      SqliteCore old(services_, options);
      old.run("BEGIN EXCLUSIVE");  // brings what was interrupted to its end first
      const std::string kept = beside(path_, ".sqlite-before");
      files.remove(kept);
      files.rename(copy, kept);
    }
    // Where somebody else was faster, theirs is as good.
    if (!files.rename(target_, copy) && !hasCopy(files, path_)) {
      throw ImportFailed{"the copy can't be put in its place"};
    }
  }

  const Services& services_;
  const std::string path_;
  std::optional<FileInfo> info_;
  const std::string target_;
};

}  // namespace

std::string copyPathOf(const std::string& path) {
  return beside(path, ".sqlite");
}

std::string importFile(const Services& services, const std::string& path) {
  Import import(services, path);
  std::string reason;
  try {
    import.run();
    return {};
  } catch (const ImportFailed& failed) {
    reason = failed.reason;
  } catch (const DatabaseError& error) {
    reason = error.description;
  }
  import.say("failed, " + reason);
  return reason;
}

std::string importIfNeeded(const Services& services, const std::string& path) {
  return hasCopy(services.files, path) ? std::string() : importFile(services, path);
}

}  // namespace quorvane::ado::jet
