#pragma once

#include <cstddef>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/services.h"
#include "script/customary/page_program.h"
#include "script/customary/page_reader.h"
#include "support/files.h"

namespace quorvane::customary {

/// The programs of pages, kept as long as none of a page's files has changed.
class PageStore {
 public:
  /// The services outlive the store.
  explicit PageStore(const Services& services) : services_(services) {}

  using Program = std::shared_ptr<const PageProgram>;

  /// Of the page at `path`; null when it can't be read.
  Program get(const std::string& path);
  /// Of a page that is no file, with this text.
  Program of(const std::string& path, std::string_view text) const;
  /// Of a file of script blocks.
  PageProgram scriptBlocks(const std::string& path, std::string_view text) const;

  /// What a page in `folder` names by `target`, "/" being the document root. Nothing when it leads
  /// out of that or is not there.
  std::optional<std::string> find(std::string_view folder, std::string_view target) const;

 private:
  struct Kept {
    std::string path;
    Program program;
    std::vector<std::pair<std::string, FileInfo>> files;
    std::size_t bytes = 0;
  };
  using List = std::list<Kept>;  ///< the latest used first

  std::optional<IncludedFile> include(const std::string& from, const std::string& name,
                                      bool isVirtual) const;
  bool isCurrent(const Kept& kept) const;
  void drop(List::iterator at);

  const Services& services_;
  List kept_;
  std::unordered_map<std::string_view, List::iterator> byPath_;  ///< keys are views of the entries'
  std::size_t bytes_ = 0;
};

}  // namespace quorvane::customary
