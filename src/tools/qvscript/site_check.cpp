#include "qvscript/site_check.h"

#include <algorithm>
#include <map>
#include <vector>

#include "jscript/script_engine.h"
#include "qvscript/page_program.h"
#include "qvscript/site_causes.h"
#include "qvscript/source_file.h"
#include "script/customary/page_store.h"
#include "script/translation/mapped_page.h"
#include "support/files.h"
#include "support/paths.h"
#include "support/server_state.h"
#include "support/text.h"
#include "vbscript/engine.h"

namespace quorvane::qvscript {

namespace {

const std::string kPageFiles = ".asp files are pages";
const std::string kGlobal = "global.asa";
const std::string kDefaults = "default documents in folders";

constexpr std::size_t kDeepest = 64;  ///< folders inside each other

/// One page as both dialects see it.
struct PageReport {
  std::string own;        ///< what fails in the default dialect; empty: nothing
  std::string customary;  ///< the same in the other
  Causes causes;
  bool beginsWithDirective = false;
};

class Check {
 public:
  Check(const std::string& root, const Services& services)
      : root_(root),
        services_(services),
        all_{state_,         services.log,    services.clock,
             services.files, services.random, services.process},
        store_(all_) {
    state_.ScriptsFolder = root;
  }

  SiteReport run();

 private:
  void walk(const std::string& folder, std::size_t depth);
  PageReport look(const std::string& path, const std::string& text);
  PageReport lookAtGlobal(const std::string& path, const std::string& text);
  void count(const Causes& causes);
  std::string ownFault(const std::string& path, const std::string& text,
                       const customary::PageProgram& page, Causes& causes);
  std::string compileFault(const std::string& program, const LineMap& lines) const;
  std::string faultAt(const std::string& why, const std::optional<LineMap::Place>& at) const;
  std::string customaryFault(const customary::PageProgram& page) const;
  std::string named(const std::string& path) const { return paths::asAddress(path, root_); }
  std::string_view setting(bool runsOwn, bool runsCustomary) const;
  std::string advice() const;

  std::string root_;
  const Services& services_;
  ServerState state_;
  Services all_;
  customary::PageStore store_;

  std::map<std::string, PageReport> pages_;
  std::map<std::string, std::size_t> differences_;
  std::map<std::string, std::size_t> components_;
  std::map<Letters, std::size_t> letters_;
};

bool isPageFile(const std::string& path) {
  return isPage(path) || equalsNoCase(paths::extensionOf(path), ".asp");
}

bool isDefaultDocument(const std::string& path) {
  const std::string name = lowerCase(paths::fileNameOf(path));
  return name == "default.asp" || name == "index.asp";
}

void Check::walk(const std::string& folder, std::size_t depth) {
  std::vector<std::string> names = services_.files.list(folder);
  std::sort(names.begin(), names.end());
  for (const std::string& name : names) {
    std::string path = folder;
    path.append(1, paths::kSeparator).append(name);
    const auto info = services_.files.stat(path);
    if (!info) continue;
    if (info->isFolder) {
      if (depth < kDeepest) walk(path, depth + 1);
      continue;
    }
    const bool isGlobal = equalsNoCase(name, kGlobal);
    if (!isGlobal && !isPageFile(path)) continue;
    const auto text = services_.files.readAll(path);
    if (text) pages_.emplace(named(path), isGlobal ? lookAtGlobal(path, *text) : look(path, *text));
  }
}

std::string faultText(std::string_view description, std::string_view file, std::uint32_t line) {
  std::string text(description);
  text.append(" (").append(file).append(", line ").append(std::to_string(line)).append(")");
  return text;
}

std::string Check::customaryFault(const customary::PageProgram& page) const {
  if (page.fault) {
    return faultText(page.fault->text, named(page.fault->place.file), page.fault->place.line);
  }
  std::string fault = compileFault(page.program, page.lines);
  if (!fault.empty()) return fault;
  if (const auto found = jscript::findFault(page.script)) {
    fault = faultAt(found->error.description, page.scriptLines.place(found->line, 0));
  }
  return fault;
}

std::string Check::faultAt(const std::string& why, const std::optional<LineMap::Place>& at) const {
  return faultText(why, at ? named(at->file) : "", at ? at->line : 0);
}

/// Why the program does not compile, or nothing.
std::string Check::compileFault(const std::string& program, const LineMap& lines) const {
  vbs::ProgramCache cache(0);
  vbs::ErrorReport error;
  if (cache.get(program, error)) return {};
  return faultAt(error.description, lines.place(error.line, error.column));
}

std::string Check::ownFault(const std::string& path, const std::string& text,
                            const customary::PageProgram& page, Causes& causes) {
  const std::string folder(paths::folderOf(path));
  std::size_t included = 0;
  std::string missing;
  const MappedPage mapped = mapPage({path, text}, [&](const std::string& name) {
    ++included;
    auto file = readInclude(services_.files, root_, folder, name, true);
    if (!file) missing = name;
    return file;
  });
  if (!missing.empty()) {
    causes.differences.insert("includes relative to the including file, or virtual");
    return "Include file not found '" + missing + "'";
  }
  if (included + 1 < page.lines.files().size()) {
    causes.differences.insert("includes behind comments, beside text, or virtual");
  }
  if (equalsNoCase(paths::extensionOf(path), ".asp")) {
    causes.differences.insert(kPageFiles);
  }
  if (isDefaultDocument(path)) causes.differences.insert(kDefaults);
  return compileFault(mapped.program, mapped.lines);
}

PageReport Check::look(const std::string& path, const std::string& text) {
  const auto page = store_.of(path, text);
  PageReport report;
  report.causes = causesIn(*page);
  report.own = ownFault(path, text, *page, report.causes);
  report.customary = customaryFault(*page);
  report.beginsWithDirective = customary::beginsWithDirective(text);
  count(report.causes);
  if (!page->codePage) ++letters_[lettersOf(text)];
  return report;
}

PageReport Check::lookAtGlobal(const std::string& path, const std::string& text) {
  const customary::PageProgram program = store_.scriptBlocks(path, text);
  PageReport report;
  report.causes.components = causesIn(program).components;
  report.causes.differences.insert(kGlobal);
  report.customary = customaryFault(program);
  report.beginsWithDirective = true;  // those pages that do see it
  count(report.causes);
  return report;
}

void Check::count(const Causes& causes) {
  for (const std::string& words : causes.differences) ++differences_[words];
  for (const std::string& name : causes.components) ++components_[name];
}

std::string_view Check::setting(bool runsOwn, bool runsCustomary) const {
  if (runsOwn && !runsCustomary) {
    return "These pages are written for the default dialect: Customary 0 fits.\n";
  }
  if (runsOwn && differences_.empty()) {
    return "These pages run as they are; Customary can stay 0.\n";
  }
  const bool byDirective = std::all_of(pages_.begin(), pages_.end(), [](const auto& page) {
    const PageReport& report = page.second;
    return report.beginsWithDirective || (report.own.empty() && report.causes.differences.empty());
  });
  if (byDirective && !differences_.contains(kPageFiles) && !differences_.contains(kDefaults)) {
    return "Customary 1 fits: what needs it begins with a directive.\n";
  }
  return "Customary 2 fits.\n";
}

std::string Check::advice() const {
  const auto failing = [&](std::string PageReport::*fault) {
    return std::count_if(pages_.begin(), pages_.end(),
                         [&](const auto& page) { return !(page.second.*fault).empty(); });
  };
  std::string text = "\n" + std::to_string(pages_.size()) + " pages; " +
                     std::to_string(failing(&PageReport::own)) + " fail under 0, " +
                     std::to_string(failing(&PageReport::customary)) + " under 2\n";
  text += setting(failing(&PageReport::own) == 0, failing(&PageReport::customary) == 0);
  const auto count = [&](Letters letters) {
    const auto found = letters_.find(letters);
    return found == letters_.end() ? 0 : found->second;
  };
  if (count(Letters::Utf8) > 0 && count(Letters::Other) == 0) {
    text += "Pages that name no code page are UTF-8: PageCodePage 65001 fits.\n";
  } else if (count(Letters::Other) > 0) {
    text += std::to_string(count(Letters::Other)) +
            " pages name no code page and are not UTF-8: see whether PageCodePage has to be set.\n";
  }
  return text;
}

SiteReport Check::run() {
  walk(root_, 0);
  SiteReport report;
  std::string& text = report.text;
  bool fails = false;
  for (const auto& [name, page] : pages_) {
    std::string differs;
    for (const std::string& words : page.causes.differences) {
      differs.append(differs.empty() ? "differs: " : ", ").append(words);
    }
    fails = fails || !page.customary.empty();
    text.append(name).append("\t0: ");
    text.append(!page.own.empty() ? "fails: " + page.own : differs.empty() ? "ok" : differs);
    text.append("\t2: ").append(page.customary.empty() ? "ok" : "fails: " + page.customary);
    text.append("\n");
  }
  const auto list = [&](std::string_view title, const std::map<std::string, std::size_t>& rows) {
    if (rows.empty()) return;
    text.append("\n").append(title).append("\n");
    for (const auto& [words, count] : rows) {
      text.append("  ").append(std::to_string(count)).append("\t").append(words).append("\n");
    }
  };
  list("What the default dialect does otherwise, by pages:", differences_);
  list("Components that are not there, by pages:", components_);
  text += advice();
  report.hasFailures = fails || !components_.empty();
  return report;
}

}  // namespace

SiteReport checkSite(const std::string& folder, const Services& services) {
  std::string root = absolutePath(folder);
  while (root.size() > 1 && paths::isSeparator(root.back())) root.pop_back();
  return Check(root, services).run();
}

}  // namespace quorvane::qvscript
