#include "tools/qvmpack_trial.h"

#include <map>
#include <memory>
#include <optional>

#include "console/running_server.h"
#include "http/clients.h"
#include "http/script_pages.h"
#include "platform/system.h"
#include "script/run/error_page.h"
#include "support/paths.h"
#include "support/server_state.h"
#include "support/status_lines.h"
#include "support/text.h"
#include "tools/qvmpack_folder.h"

namespace quorvane {

namespace {

/// A folder of its own with the module in it, as long as the trial lasts.
class TrialFolder {
 public:
  TrialFolder(const Files& files, const std::string& parent, Random& random,
              std::string_view module)
      : files_(files), path_(parent + paths::kSeparator + "qvmpack-") {
    for (const std::uint8_t byte : random.guid()) path_ += static_cast<char>('a' + byte % 26);
    isMade_ = files_.makeFolder(path_) && files_.writeAll(modulePath(), module);
  }
  ~TrialFolder() {
    files_.remove(modulePath());
    files_.removeFolder(path_);
  }
  TrialFolder(const TrialFolder&) = delete;
  TrialFolder& operator=(const TrialFolder&) = delete;

  bool isMade() const { return isMade_; }
  const std::string& path() const { return path_; }

 private:
  std::string modulePath() const { return paths::join(path_, "trial.qvm"); }

  const Files& files_;
  std::string path_;
  bool isMade_ = false;
};

/// The one client of the trial: it takes whatever it is sent.
class TrialClient final : public Clients, public PageEvents, public StatusLines {
 public:
  Client inSlot(int) const override { return {}; }
  bool isThere(const Client&) const override { return true; }
  Turn turnOf(int) override { return Turn::Now; }
  void answerLater(int) override {}
  void answer(const Client&, Response) override {}
  void vbsParser_DebugOutput(const std::string&) override {}
  bool vbsParser_Dispatch(std::int32_t, std::string data, bool) override {
    flushed += data;
    return true;
  }
  void LogLine(std::string_view) override {}

  std::string flushed;  ///< what a page has sent while it ran
};

void append(std::string& text, const BodySegment& segment) {
  if (const auto* own = std::get_if<std::string>(&segment)) text += *own;
  if (const auto* shared = std::get_if<std::shared_ptr<const std::string>>(&segment)) {
    text += **shared;
  }
}

std::string textOf(const Response& response) {
  std::string text = response.head;
  append(text, response.body.first);
  for (const BodySegment& segment : response.body.rest) append(text, segment);
  return text;
}

class TrialServer {
 public:
  TrialServer(const Files& files, std::string_view module)
      : files_(files), process_(makeProcess(0, nullptr)) {
    folder_.emplace(files, process_->systemFolder(SystemFolder::Temporary), *random_, module);
    state_.MainPath = paths::withSeparator(folder_->path());
    state_.ScriptsFolder = folder_->path();
    state_.CacheFolder = folder_->path();
  }

  bool isReady() const { return folder_->isMade(); }

  /// The whole answer, head and body.
  std::string get(const std::string& path, std::int32_t language) {
    server_.renew(language);
    visitor_.flushed.clear();
    SlotRecord record;
    const auto response = server_.handling().dataArrival(
        0, record, "GET " + path + " HTTP/1.1\r\nHost: localhost\r\n\r\n", "127.0.0.1");
    return visitor_.flushed + (response ? textOf(*response) : std::string());
  }

 private:
  const Files& files_;
  std::unique_ptr<Clock> clock_ = makeClock();
  std::unique_ptr<Random> random_ = makeRandom();
  std::unique_ptr<Process> process_;
  std::unique_ptr<EventLoop> loop_ = makeEventLoop();
  std::optional<TrialFolder> folder_;
  ServerState state_;
  TrialClient visitor_;
  Services services_{state_, visitor_, *clock_, files_, *random_, *process_};
  RunningServer server_{services_, {visitor_, visitor_, *loop_, 0}};
};

/// How every page begins that tells an error.
std::string errorPageStart() {
  constexpr std::string_view kBeforeNumber = "Error #";
  const std::string page = errorPage(0, {}, {}, 0);
  return page.substr(0, page.find(kBeforeNumber) + kBeforeNumber.size());
}

/// What is wrong with an answer; empty when it is as it should be.
std::string faultOf(const std::string& answer, const ModuleFile& file) {
  constexpr std::string_view kGood = "HTTP/1.1 200 ";
  if (!answer.starts_with(kGood)) {
    return "is answered with " + answer.substr(0, answer.find("\r\n"));
  }
  const std::size_t body = answer.find("\r\n\r\n");
  const std::string_view content = std::string_view(answer).substr(body + 4);
  if (equalsNoCase(paths::extensionOf(file.name), ".qvs")) {
    if (content.starts_with(errorPageStart())) return "ends with an error page";
    if (content.starts_with("Include file not found")) return "lacks an include";
    return {};
  }
  return content == file.content ? std::string() : "is answered with another content";
}

}  // namespace

std::vector<std::string> failedEntries(std::string_view bytes, const ModuleContents& contents,
                                       const Files& files) {
  TrialServer server(files, bytes);
  if (!server.isReady()) return {"The temporary folder can't be used for a trial."};
  std::vector<std::string> sentences;
  for (const ModuleFile& file : contents.files) {
    const auto served = servedAs(file);
    if (!served) continue;  // the reader's own findings tell why
    const std::string fault = faultOf(server.get(served->path, served->language), file);
    if (!fault.empty()) sentences.push_back(served->path + " " + fault + ".");
  }
  return sentences;
}

}  // namespace quorvane
