#pragma once

#include <memory>

#include "console/console_language.h"
#include "http/clsHTTPParser.h"
#include "http/cookie_jar.h"
#include "http/request_handling.h"
#include "platform/services.h"
#include "script/run/running_scripts.h"
#include "support/clsQVMod.h"
#include "support/clsWEncode.h"
#include "support/file_aliases.h"

namespace quorvane {

/// What lives as long as the server runs: made by a start, released whole by a stop.
class RunningServer {
 public:
  struct Parts {
    PageEvents& events;
    Clients& clients;
    EventLoop& loop;
    std::int32_t userDefaultLCID;
  };

  /// Call renew() before anything else. The services and the parts outlive this object.
  RunningServer(const Services& services, const Parts& parts);

  /// What every start does, forced or not: settings and modules are taken anew, the modules'
  /// variants in `language` preferred, and issued authorisation keys are lost; sessions stay.
  void renew(std::int32_t language);

  RequestHandling& handling() { return *handling_; }
  RunningScripts& scripts() { return scripts_; }
  FileAliases& aliases() { return aliases_; }
  ConsoleLanguage& language() { return language_; }

 private:
  const Services& services_;
  const Parts parts_;
  clsWEncode encoder_;
  CookieJar cookies_;
  clsHTTPParser parser_{encoder_, cookies_};
  clsQVMod modules_;
  FileAliases aliases_;
  ConsoleLanguage language_;
  RunningScripts scripts_;
  std::unique_ptr<RequestHandling> handling_;
};

}  // namespace quorvane
