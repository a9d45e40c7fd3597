#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/services.h"
#include "script/objects/header_variables.h"
#include "script/objects/page_parts.h"
#include "vbscript/values/object.h"

namespace quorvane {

class clsHTTPParser;

/// What pages know as "Server": facts about server and request, encoders, keys, components. Made
/// for one run. A page may keep it longer than that, so detach() cuts it off from the run.
class aspServerObj final : public vbs::NativeObject<aspServerObj> {
 public:
  /// What the object asks of the page that runs.
  class Page {
   public:
    virtual ~Page() = default;
    virtual void objServer_DebugOutput(const std::string& dbgData) = 0;
    /// Runs another page of the document root with the same objects; its output follows what has
    /// been written. Throws what that page stopped with.
    virtual void execute(const std::string& target) = 0;
    /// How long the page may run, from its start on.
    virtual std::chrono::seconds timeLimit() const = 0;
    virtual void setTimeLimit(std::chrono::seconds limit) = 0;
    /// Ends the run at once; nothing is written any more. Does not return.
    virtual void endPage() = 0;
  };

  /// Seconds that a page may ask for. All clients wait while a page runs.
  static constexpr std::int32_t kLongestTimeout = 60;

  /// All outlive the run.
  aspServerObj(const Services& services, const PageParts& parts, Page& page)
      : services_(services), parts_(parts), page_(&page) {}

  void setRequest(const clsHTTPParser& request) { request_ = &request; }

  /// Either separator; a trailing one is dropped unless it stands for a whole drive.
  void setPageFolder(std::string_view folder);

  void detach();

  std::string Version() const;

  /// The system's current folder after changing to the page's folder and from there to `path`,
  /// where it exists. The change stays: pages open files relative to it.
  std::string MapPath(const std::string& path);

  std::string_view typeName() const override { return "Server"; }
  static std::span<const vbs::Member<aspServerObj>> members();
  static constexpr std::size_t kGlobalMembers = 16;  ///< the first rows of members()

 private:
  const HeaderVariables& headers();
  const clsHTTPParser& request() const;
  Page& page() const;

  vbs::Value getHeaderVar(vbs::Args args);
  vbs::Value getHeaderVarCount(vbs::Args);
  vbs::Value getVersion(vbs::Args);
  vbs::Value getHostAddr(vbs::Args);
  vbs::Value getClientIP(vbs::Args);
  vbs::Value callMapPath(vbs::Args args);
  vbs::Value callXCreateObject(vbs::Args args);
  vbs::Value callIssueAuthKey(vbs::Args args);
  vbs::Value callValidateAuthKey(vbs::Args args);
  vbs::Value callURLEncode(vbs::Args args);
  vbs::Value callURLDecode(vbs::Args args);
  vbs::Value callHTMLEncode(vbs::Args args);
  vbs::Value callHTMLDecode(vbs::Args args);
  vbs::Value callB64Encode(vbs::Args args);
  vbs::Value callB64Decode(vbs::Args args);
  vbs::Value callDebugOut(vbs::Args args);
  vbs::Value getScriptTimeout(vbs::Args);
  void putScriptTimeout(vbs::Args args, vbs::CallKind);
  vbs::Value callExecute(vbs::Args args);
  vbs::Value callTransfer(vbs::Args args);

  const Services& services_;
  const PageParts& parts_;
  Page* page_;
  const clsHTTPParser* request_ = nullptr;
  std::string pageFolder_;
  int debugLines_ = 0;
  std::optional<HeaderVariables> headers_;  ///< made on first use
};

}  // namespace quorvane
