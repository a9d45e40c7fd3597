#pragma once

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "platform/process.h"
#include "support/paths.h"

namespace quorvane {

/// A process that says what a test wants to hear, on a system that has the folders named, with "/"
/// between their parts.
class FakeProcess final : public Process {
 public:
  std::string commandLine() const override { return line; }
  std::string programFolder() const override { return folder; }
  std::string currentFolder() const override { return current; }
  bool setCurrentFolder(const std::string& wanted) override {
    std::string path = wanted;
    std::replace(path.begin(), path.end(), paths::kSeparator, '/');
    if (!path.starts_with('/')) path = current + '/' + path;
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    if (!folders.contains(path)) return false;
    current = path;
    return true;
  }
  std::string systemFolder(SystemFolder which) const override {
    return which == SystemFolder::Temporary ? "/temporary" : "/system";
  }
  bool userIsAdmin() const override { return admin; }
  bool isAskedToEnd() const override { return askedToEnd; }
  HostVersion hostVersion() const override {
    ++versionQueries;
    return version;
  }

  std::string computerName() const override { return "HERE"; }
  std::string userName() const override { return "somebody"; }
  std::vector<std::string> environment() const override { return variables; }
  std::unique_ptr<ChildProcess> start(const ChildCommand&) override { return nullptr; }
  bool startDetached(const ChildCommand&) override { return false; }

  std::string line;
  std::string folder = "/program";
  std::string current = "/";
  std::set<std::string> folders;
  bool admin = true;
  bool askedToEnd = false;
  std::vector<std::string> variables{"HOME=/home/somebody", "EMPTY="};
  HostVersion version{2, 6, 1, 42, ""};
  mutable int versionQueries = 0;
};

}  // namespace quorvane
