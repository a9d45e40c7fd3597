#pragma once

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "components/script_host.h"
#include "script/customary/page_reader.h"
#include "script/customary/server_object.h"
#include "script/customary/site.h"
#include "script/run/keeping.h"
#include "script/script_values.h"
#include "testing/fake_services.h"
#include "vbscript/engine.h"

namespace quorvane::customary {

/// Takes what a script writes.
class Written final : public vbs::NativeObject<Written> {
 public:
  std::string text;

  std::string_view typeName() const override { return "Response"; }
  static std::span<const vbs::Member<Written>> members() {
    static constexpr std::array<vbs::Member<Written>, 1> kMembers{
        {{"write", 1, 1, &Written::callWrite}}};
    return kMembers;
  }

 private:
  vbs::Value callWrite(vbs::Args args) {
    text += script_values::text(args[0]);
    return {};
  }
};

/// A site below "/srv" and a browser that visits it with pages made of nothing but code.
class SiteTest : public ::testing::Test, protected FakeServices<ScriptedRandom>, protected Page {
 protected:
  SiteTest() {
    state.ScriptsFolder = "/srv";
    files.addFolder("/srv");
    clock.step = std::chrono::milliseconds{0};
  }
  // An abandoned site would end its sessions after the services.
  void TearDown() override { site_.reset(); }

  Site& site() {
    if (!site_) {
      site_.emplace(services, programs_, shared, *keeping_,
                    [](const std::string& path, const std::string& text) {
                      return readScriptBlocks(path, text, kAnsi, [](auto&&...) {
                        return std::optional<IncludedFile>();
                      });
                    });
    }
    return *site_;
  }
  void stop() { site_.reset(); }

  /// In a script block.
  void putGlobal(const std::string& code, const std::string& tags = {}) {
    files.put("/srv/Global.asa",
              tags + "<script language=vbscript runat=server>\n" + code + "\n</script>");
    clock.advance(std::chrono::seconds{2});
  }

  /// What a page writes, or the error that it stops with. `held` is the browser's cookie.
  std::string visit(std::string_view code, std::string& held, Declarations ofPage = {}) {
    site().open();
    const auto written = vbs::make<Written>();
    const auto server = vbs::make<ServerObject>(services, static_cast<Page&>(*this));
    const auto session = site().session(*this, held);
    const std::array<PublishedObject, 2> objects{
        {{"Response", written.get()}, {"Server", server.get()}}};
    if (refusesSession) session->refuse();
    if (!refusesSession) site().startSession(session, objects);
    {
      ScriptHost host(services);
      vbs::Engine engine(host, programs_, limits);
      const auto add = [&](std::string_view name, vbs::Object& object, bool globalMembers) {
        engine.addObject(name, object, globalMembers);
      };
      for (const PublishedObject& one : objects) add(one.name, *one.object, false);
      site().publish(add, session);
      site().publish(add, std::move(ofPage));
      if (const auto error = engine.run(code)) {
        written->text += "error " + std::to_string(error->number);
      }
    }
    site().close(*session);
    if (session->isNew()) held = session->session()->id;
    server->detach();
    return written->text;
  }
  std::string visit(std::string_view code) { return visit(code, cookie); }

  std::string folder() const override { return pageFolder; }
  std::int32_t codePage() const override { return page; }
  void setCodePage(std::int32_t number) override { page = number; }
  bool isConnected() const override { return true; }
  std::string localAddress() const override { return "127.0.0.1"; }
  std::chrono::seconds timeLimit() const override { return limit; }
  void setTimeLimit(std::chrono::seconds wanted) override { limit = wanted; }
  void execute(const std::string& target) override { executed.push_back(target); }
  [[noreturn]] void transfer(const std::string& target) override {
    executed.push_back(target);
    throw vbs::EndOfRun{};
  }
  PageError lastError() const override { return failed; }

  std::string cookie;  ///< of the one browser of most tests
  vbs::Ref<SharedValues> shared = vbs::make<SharedValues>("Application");
  vbs::Limits limits;
  bool refusesSession = false;
  std::string pageFolder = "/srv";
  std::int32_t page = kAnsi;
  std::chrono::seconds limit{10};
  std::vector<std::string> executed;
  PageError failed;

 private:
  vbs::ProgramCache programs_;
  std::unique_ptr<Keeping> keeping_ = makeMemoryKeeping(services);
  std::optional<Site> site_;
};

}  // namespace quorvane::customary
