#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "http/request_head.h"
#include "proxies/visitor.h"
#include "support/keyed_collection.h"

namespace quorvane {

class clsWEncode;
class CookieJar;
class StandardHead;

/// Turns the complete text of one request into the fields that request handling and the script
/// objects read. One parser serves every request of every connection; it never touches a socket
/// and never fails loudly: a request outside the grammar leaves `ValidRequest` false.
///
/// It goes by the loose grammar of `RequestHead`, and by the first place of each header.
///
/// Strings returned by reference last until the next assignment of `HTTPData`.
class clsHTTPParser {
 public:
  /// Variables beyond this many in one query, form or cookie line are ignored, duplicates counted,
  /// so that a large body of tiny ones takes neither a multiple of its size nor its time.
  static constexpr std::size_t kMostVariables = 65536;

  /// Where `RequestVar` looks.
  enum Source : std::int32_t {
    QueryOnly = 0,
    FormOnly = 1,
    ByMethod = 3,  ///< the form of a POST, else the query string
    QueryThenForm = 4,
  };

  /// Both must outlive the parser. The jar is filled, never emptied, by parsing.
  clsHTTPParser(const clsWEncode& encoder, CookieJar& cookies)
      : encoder_(encoder), cookies_(cookies) {}

  bool ValidRequest() const { return validRequest_; }
  bool KeepAlive() const { return keepAlive_; }
  /// Kept from the last request that named its encodings when this one doesn't.
  bool AcceptGZipEncoding() const { return acceptGZipEncoding_; }
  const std::string& RangeRequest() const { return rangeRequest_; }  ///< text after "bytes="
  const std::string& HostAddr() const { return hostAddr_; }
  const Visitor& visitor() const { return visitor_; }
  void setVisitor(Visitor visitor);  ///< whose host, if any, is the request's
  const std::string& RemoteIP() const { return visitor_.address; }
  void setRemoteIP(std::string address) { visitor_.address = std::move(address); }
  std::int32_t SessionID() const { return sessionID_; }  ///< 0 when absent
  void setSessionID(std::int32_t number) { sessionID_ = number; }
  const std::string& HTTPData() const { return head_.text(); }
  const RequestHead& head() const { return head_; }  ///< of that text
  /// Stores and parses. Who knows where the body begins saves the parser from looking for it.
  void setHTTPData(std::string_view text, std::size_t bodyStart = 0);
  void adoptHTTPData(std::string&& text, std::size_t bodyStart = 0);  ///< the same without a copy

  /// The same of a request by the standard, whose head has been read; the text goes by it. Only
  /// what stands in the head counts then.
  void setRequest(const StandardHead& read, std::string_view text, std::size_t bodyStart);
  void adoptRequest(const StandardHead& read, std::string&& text, std::size_t bodyStart);

  const std::string& DocumentQueryString() const { return documentQueryString_; }
  void setDocumentQueryString(std::string text);  ///< and the variables in it
  const std::string& DocumentTitle() const { return documentTitle_; }
  void setDocumentTitle(std::string title) { documentTitle_ = std::move(title); }
  const std::string& DocumentUrl() const { return documentUrl_; }
  void setDocumentUrl(std::string url) { documentUrl_ = std::move(url); }
  /// What stands behind a page's name, from its "/" on.
  const std::string& pathInfo() const { return pathInfo_; }
  void setPathInfo(std::string info) { pathInfo_ = std::move(info); }
  const std::string& DocumentPath() const { return documentPath_; }
  void setDocumentPath(std::string path) { documentPath_ = std::move(path); }
  std::int32_t formMethod() const { return formMethod_; }  ///< 0 not POST, 1 POST

  /// What pages see of the method and the body.
  std::string_view method() const { return redirected_ ? "GET" : head_.method(); }
  std::string_view body() const { return redirected_ ? std::string_view() : head_.body(); }

  /// Another page takes over: it sees a GET without a body and without variables, so that what was
  /// posted is not taken twice.
  void redirect();
  bool redirected() const { return redirected_; }

  /// The variable's value; empty when it or the source is unknown.
  std::string RequestVar(std::string_view varID, std::int32_t varMethod) const;

  struct Variable {
    std::string name;
    std::string value;
  };

  /// The variables of the query string, of the form or else of both one after the other, as they
  /// came: a name as often as it was sent.
  std::vector<Variable> variables(Source source) const;

  void ClearVars();
  void Reset();

  /// Hands the text out again; `HTTPData` is empty afterwards.
  std::string takeText() { return head_.take(); }

  /// Gives back the memory that a large request took; `HTTPData` is empty afterwards.
  void releaseText();

 private:
  using Variables = KeyedCollection<std::string>;
  struct HeaderRules;

  void parse();
  void takeHead(const StandardHead& read);
  bool takeHost(std::string_view value);
  bool takeRequestLine();
  void takeTarget(std::string_view path);
  void takeForm();
  bool takeConnection(std::string_view value);
  bool takeCookies(std::string_view value);
  void takeCookie(std::string_view name, std::string_view value);
  bool takeAcceptEncoding(std::string_view value);
  bool takeRange(std::string_view value);
  template <class Put>
  void decodeVariables(std::string_view text, Put put) const;
  void takeVariables(std::string_view text, Variables& into) const;
  void listVariables(std::string_view text, std::vector<Variable>& into) const;

  const clsWEncode& encoder_;
  CookieJar& cookies_;

  RequestHead head_;
  std::string rangeRequest_;
  std::string hostAddr_;
  Visitor visitor_;
  std::string documentQueryString_;
  std::string documentTitle_;
  std::string documentUrl_;
  std::string documentPath_;
  std::string pathInfo_;
  std::optional<Variables> queryVariables_;
  std::optional<Variables> formVariables_;
  std::int32_t sessionID_ = 0;
  std::int32_t formMethod_ = 0;
  bool validRequest_ = false;
  bool keepAlive_ = true;
  bool acceptGZipEncoding_ = false;
  bool redirected_ = false;
};

}  // namespace quorvane
