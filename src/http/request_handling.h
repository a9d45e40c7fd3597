#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "http/representations.h"
#include "http/request_collector.h"
#include "http/response.h"
#include "platform/services.h"

namespace quorvane {

class Addresses;
class clsHTTPParser;
class Clients;
class clsQVMod;
class CookieJar;
class EventLoop;
class FileAliases;
class PageEvents;
class Protocol;
class ScriptPages;
struct Visitor;

/// What request handling works with besides the server's services. Everything is owned by the
/// caller and outlives it.
struct RequestHandlingParts {
  clsHTTPParser& parser;
  CookieJar& cookies;
  clsQVMod& modules;
  const FileAliases& aliases;
  ScriptPages& pages;
  PageEvents& events;  ///< of the pages that run
  Clients& clients;
  EventLoop& loop;
};

/// Takes the bytes that arrive on a slot and makes responses of them: collects a request, has it
/// parsed, maps its target to a file, a module file or a script page, and builds the whole answer.
/// It knows no sockets. One request at a time: `dataArrival` must not be called again for any slot
/// before it has returned. What takes long beside the loop gives its answer to the clients later.
class RequestHandling {
 public:
  RequestHandling(const Services& services, const RequestHandlingParts& parts);
  ~RequestHandling();
  RequestHandling(const RequestHandling&) = delete;
  RequestHandling& operator=(const RequestHandling&) = delete;

  /// Nothing: the request is not complete yet, or its answer comes later. (A client that waits to
  /// be told before it sends a body is told; that is no answer to its request.) A request whose
  /// page has to wait for its turn is put back whole into `record`; call again without data then.
  /// Otherwise `record` is not touched any more once a request is complete, `data` neither, so both
  /// may go away while a script page runs.
  std::optional<Response> dataArrival(int index, SlotRecord& record, std::string_view data,
                                      const std::string& remoteHostIP);

  Protocol& protocol() { return *protocol_; }

 private:
  class Answer;

  void prepare(Representations::Request request, Making making, int index,
               const std::string& address);
  std::string shown(std::string_view text) const;
  void logRefused(const std::string& client);
  void logHeaders(std::string_view request);
  std::optional<Response> refusal(int index, Visitor& visitor);

  const Services& services_;
  RequestHandlingParts parts_;
  std::unique_ptr<Protocol> protocol_;
  std::unique_ptr<Addresses> addresses_;
  std::unique_ptr<Representations> representations_;
  std::unique_ptr<SideWork> sideWork_;  ///< destroyed first: what is made goes to the others
};

}  // namespace quorvane
