#pragma once

#include <filesystem>
#include <memory>

#include "components/page_context.h"
#include "components/script_host.h"
#include "members/watched_objects.h"
#include "platform/fake/fake_clock.h"
#include "platform/fake/fake_random.h"
#include "platform/services.h"
#include "platform/system.h"
#include "support/paths.h"
#include "support/server_state.h"
#include "testing/recorded_lines.h"
#include "testing/temporary_folder.h"

namespace quorvane {

/// A page that was asked for with a form of two texts and two files.
class PageWithForm final : public PageContext {
 public:
  std::string header(std::string_view name) const override;
  std::string_view body() const override;
  std::string folder() const override {
    return paths::withSeparator(std::filesystem::current_path().string());
  }
  void write(std::string_view bytes) override { written += bytes; }

  std::string written;
};

/// Scripts see the system's own files and programs, from an empty folder on.
class MembersHost {
 public:
  explicit MembersHost(WatchedObjects& book);
  ~MembersHost();
  MembersHost(const MembersHost&) = delete;
  MembersHost& operator=(const MembersHost&) = delete;

  vbs::Host& host() { return *host_; }

 private:
  TemporaryFolder folder_;
  ServerState state_;
  RecordedLines log_;
  FakeClock clock_;
  std::unique_ptr<Files> files_ = makeFiles();
  CountingRandom random_;
  std::unique_ptr<Process> process_ = makeProcess(0, nullptr);
  std::unique_ptr<SettingsStorage> settings_;
  PageWithForm page_;
  std::unique_ptr<Services> services_;
  std::unique_ptr<ScriptHost> host_;
};

/// `Base` with its objects watched.
template <class Base>
class Watching final : public Base {
 public:
  template <class... Arguments>
  explicit Watching(WatchedObjects& book, Arguments&&... arguments)
      : Base(std::forward<Arguments>(arguments)...), book_(book) {}

  vbs::Value createObject(std::string_view progId) override {
    return book_.created(Base::createObject(progId), progId);
  }
  std::chrono::steady_clock::time_point steadyNow() override {
    return std::chrono::steady_clock::now();
  }

 private:
  WatchedObjects& book_;
};

}  // namespace quorvane
