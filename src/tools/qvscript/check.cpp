#include "qvscript/check.h"

#include <cstdio>

#include "qvscript/page_program.h"
#include "qvscript/source_file.h"

namespace quorvane::qvscript {

namespace {

constexpr std::size_t kLongList = 20;

/// The line that tells how far it has come. Messages take its place.
class Progress {
 public:
  Progress(std::size_t total, bool shown) : total_(total), shown_(shown && total >= kLongList) {}
  ~Progress() { wipe(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void show(std::size_t done) const {
    if (shown_) std::fprintf(stderr, "\r%zu of %zu", done, total_);
  }
  void tell(const std::string& message) const {
    wipe();
    std::fputs(message.c_str(), stderr);
  }

 private:
  void wipe() const {
    if (shown_) std::fputs("\r\033[K", stderr);
  }

  std::size_t total_;
  bool shown_;
};

/// What is wrong with a file's text, or nothing.
std::string faultOf(const std::string& file, std::string text) {
  const std::string path = absolutePath(file);
  MappedPage page;
  if (isPage(file)) {
    page = pageProgram(path, std::move(text));
    text = std::move(page.program);
  }
  vbs::ProgramCache cache(0);
  vbs::ErrorReport error;
  if (cache.get(text, error)) return {};
  const auto place = page.lines.place(error.line, error.column);
  if (!place) return describe(file, error);
  error.line = place->line;
  error.column = place->column;
  return describe(place->file == path ? file : place->file, error);
}

}  // namespace

CheckResult checkFiles(const std::vector<std::string>& files, bool showsProgress) {
  CheckResult result;
  const Progress progress(files.size(), showsProgress);
  for (std::size_t i = 0; i < files.size(); ++i) {
    progress.show(i);
    SourceFile source = readSource(files[i]);
    if (!source.complaint.empty()) {
      ++result.unread;
      progress.tell("qvscript: " + source.complaint + '\n');
      continue;
    }
    const std::string fault = faultOf(files[i], std::move(source.text));
    if (fault.empty()) continue;
    ++result.faulty;
    progress.tell(fault);
  }
  return result;
}

}  // namespace quorvane::qvscript
