#include "script/customary/page_store.h"

#include <algorithm>

#include "support/paths.h"
#include "support/server_state.h"
#include "support/text.h"

namespace quorvane::customary {

namespace {

constexpr std::size_t kMostBytes = std::size_t{32} << 20;  ///< of all programs and texts kept

std::size_t bytesOf(const PageProgram& page) {
  std::size_t bytes = sizeof page + page.program.size() + page.lines.size() * 16 +
                      page.script.size() + page.scriptLines.size() * 16;
  for (const PageProgram::Text& text : page.texts) bytes += sizeof text + text.bytes.size();
  return bytes;
}

}  // namespace

std::optional<std::string> PageStore::find(std::string_view folder, std::string_view target) const {
  const auto path = RootedPath::ofPage(services_.state.ScriptsFolder, folder, target);
  return path ? findBelow(services_.files, *path, services_.state.FollowLinks) : std::nullopt;
}

std::optional<IncludedFile> PageStore::include(const std::string& from, const std::string& name,
                                               bool isVirtual) const {
  auto path = find(isVirtual ? services_.state.ScriptsFolder : paths::folderOf(from), name);
  if (!path) return std::nullopt;
  auto text = services_.files.readAll(*path);
  if (!text) return std::nullopt;
  return IncludedFile{std::move(*path), std::move(*text)};
}

PageStore::Program PageStore::of(const std::string& path, std::string_view text) const {
  auto page = std::make_shared<PageProgram>(
      readPage(path, text, services_.state.PageCodePage,
               [this](const std::string& from, const std::string& name, bool isVirtual) {
                 return include(from, name, isVirtual);
               }));
  const auto mentions = [](const std::string& code) {
    return findNoCase(code, "session") != std::string::npos;
  };
  page->mentionsSession = mentions(page->program) || mentions(page->script);
  return page;
}

PageProgram PageStore::scriptBlocks(const std::string& path, std::string_view text) const {
  return readScriptBlocks(path, text, services_.state.PageCodePage,
                          [this](const std::string& from, const std::string& name, bool isVirtual) {
                            return include(from, name, isVirtual);
                          });
}

bool PageStore::isCurrent(const Kept& kept) const {
  return std::all_of(kept.files.begin(), kept.files.end(), [&](const auto& file) {
    return services_.files.stat(file.first) == std::optional(file.second);
  });
}

void PageStore::drop(List::iterator at) {
  byPath_.erase(at->path);
  bytes_ -= at->bytes;
  kept_.erase(at);
}

PageStore::Program PageStore::get(const std::string& path) {
  if (const auto found = byPath_.find(path); found != byPath_.end()) {
    kept_.splice(kept_.begin(), kept_, found->second);
    if (isCurrent(kept_.front())) return kept_.front().program;
    drop(kept_.begin());
  }
  // Looked at before they are read: what changes in between is read again next time.
  const auto before = services_.files.stat(path);
  const auto text = services_.files.readAll(path);
  if (!before || !text) return nullptr;
  Program program = of(path, *text);
  if (program->fault) return program;

  Kept kept{path, program, {}, bytesOf(*program)};
  for (const std::string& file : program->lines.files()) {
    const auto info = file == path ? before : services_.files.stat(file);
    if (!info) return program;
    kept.files.emplace_back(file, *info);
  }
  kept_.push_front(std::move(kept));
  byPath_.emplace(kept_.front().path, kept_.begin());
  bytes_ += kept_.front().bytes;
  while (bytes_ > kMostBytes && kept_.size() > 1) drop(std::prev(kept_.end()));
  return program;
}

}  // namespace quorvane::customary
