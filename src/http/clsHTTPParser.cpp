#include "http/clsHTTPParser.h"

#include <algorithm>
#include <array>
#include <utility>

#include "http/cookie_jar.h"
#include "http/header_lines.h"
#include "http/standard/head.h"
#include "support/clsWEncode.h"
#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::size_t kNowhere = std::string::npos;
constexpr std::string_view kHttpPrefix = "http://";

/// A piece "name=value" with a name of at least one character.
struct Assignment {
  std::string_view name;
  std::string_view value;
};

/// Calls `take` for every such piece between separators. Pieces of any kind are counted; what comes
/// beyond the bound is not looked at.
template <class Take>
void forEachAssignment(std::string_view text, char separator, Take take) {
  std::size_t start = 0;
  for (std::size_t count = 0; count < clsHTTPParser::kMostVariables && start <= text.size();
       ++count) {
    const std::size_t end = std::min(text.find(separator, start), text.size());
    const std::string_view piece = text.substr(start, end - start);
    const std::size_t equals = piece.find('=');
    if (equals != kNowhere && equals > 0) {
      take(Assignment{piece.substr(0, equals), piece.substr(equals + 1)});
    }
    start = end + 1;
  }
}

}  // namespace

/// What is done with the headers that the server goes by.
struct clsHTTPParser::HeaderRules {
  struct Rule {
    std::string_view name;  ///< in lower case, with the blanks that must follow it
    bool (clsHTTPParser::*take)(std::string_view value);  ///< false: the request can't be answered
  };
  static constexpr std::array<Rule, 5> kRules{{
      {"host:", &clsHTTPParser::takeHost},
      {"connection:", &clsHTTPParser::takeConnection},
      {"cookie: ", &clsHTTPParser::takeCookies},
      {"accept-encoding: ", &clsHTTPParser::takeAcceptEncoding},
      {"range: ", &clsHTTPParser::takeRange},
  }};
  static constexpr std::size_t kHost = 0;

  /// The value of each header where it stands first.
  using Values = std::array<std::optional<std::string_view>, kRules.size()>;

  static Values find(const RequestHead& head) {
    Values values;
    head.forEachLooseLine([&](std::string_view line) {
      if (line.empty()) return;
      const char first = lowerChar(line.front());
      for (std::size_t i = 0; i < kRules.size(); ++i) {
        const std::string_view name = kRules[i].name;
        if (first != name.front() || values[i] || !startsWithNoCase(line, name)) continue;
        values[i] = line.substr(name.size());
      }
    });
    return values;
  }
};

void clsHTTPParser::setHTTPData(std::string_view text, std::size_t bodyStart) {
  head_.assign(text, bodyStart);
  parse();
}

void clsHTTPParser::adoptHTTPData(std::string&& text, std::size_t bodyStart) {
  head_.adopt(std::move(text), bodyStart);
  parse();
}

void clsHTTPParser::parse() {
  Reset();
  const HeaderRules::Values values = HeaderRules::find(head_);
  const auto take = [&](std::size_t i) {
    return !values[i] || (this->*HeaderRules::kRules[i].take)(*values[i]);
  };
  // A bad host ends everything before the target is looked at.
  if (!take(HeaderRules::kHost) || !takeRequestLine()) return;
  takeForm();
  for (std::size_t i = HeaderRules::kHost + 1; i < values.size() && take(i);) ++i;
}

bool clsHTTPParser::takeHost(std::string_view value) {
  std::string_view host = trimBlanks(value);
  if (startsWithNoCase(host, kHttpPrefix)) host = trimBlanks(host.substr(kHttpPrefix.size()));
  if (host.empty() || host.find('/') != kNowhere) return false;
  hostAddr_ = lowerCase(host);
  return true;
}

void clsHTTPParser::setVisitor(Visitor visitor) {
  visitor_ = std::move(visitor);
  if (!visitor_.host.empty()) hostAddr_ = lowerCase(visitor_.host);
}

bool clsHTTPParser::takeRequestLine() {
  if (!head_.isWellFormed()) return false;
  formMethod_ = equalsNoCase(head_.method(), "POST") ? 1 : 0;
  std::string_view target = head_.target();
  const std::size_t question = target.find('?');
  if (question != kNowhere) {
    setDocumentQueryString(std::string(target.substr(question + 1)));
    target = target.substr(0, question);
  }
  takeTarget(target);
  return true;
}

void clsHTTPParser::takeTarget(std::string_view path) {
  documentUrl_ = path;
  std::replace(documentUrl_.begin(), documentUrl_.end(), '\\', '/');
  const std::size_t title = documentUrl_.rfind('/') + 1;  // 0 without a "/"
  documentTitle_ = documentUrl_.substr(title);
  documentPath_ = documentUrl_.substr(0, title);
  validRequest_ = true;
}

void clsHTTPParser::setRequest(const StandardHead& read, std::string_view text,
                               std::size_t bodyStart) {
  takeHead(read);
  head_.assign(text, bodyStart);
  takeForm();
}

void clsHTTPParser::adoptRequest(const StandardHead& read, std::string&& text,
                                 std::size_t bodyStart) {
  takeHead(read);  // its views are of the text
  head_.adopt(std::move(text), bodyStart);
  takeForm();
}

void clsHTTPParser::takeHead(const StandardHead& read) {
  Reset();
  acceptGZipEncoding_ = false;
  hostAddr_ = lowerCase(read.host());
  formMethod_ = read.method() == "POST" ? 1 : 0;
  if (read.target().hasQuery) setDocumentQueryString(std::string(read.target().query));
  takeTarget(read.target().path);
  keepAlive_ = read.keepsAlive();
  for (const auto& field : read.fields()) {
    if (equalsNoCase(field.name, "cookie")) {
      takeCookies(field.value);
    } else if (equalsNoCase(field.name, "accept-encoding")) {
      takeAcceptEncoding(field.value);
    } else if (equalsNoCase(field.name, "range") && read.method() == "GET") {
      takeRange(field.value);
    }
  }
}

void clsHTTPParser::takeForm() {
  if (formMethod_ == 1 && head_.hasBody()) takeVariables(head_.body(), formVariables_.emplace());
}

void clsHTTPParser::setDocumentQueryString(std::string text) {
  documentQueryString_ = std::move(text);
  takeVariables(documentQueryString_, queryVariables_.emplace());
}

/// Calls `put` with the name and the decoded value of each variable.
template <class Put>
void clsHTTPParser::decodeVariables(std::string_view text, Put put) const {
  forEachAssignment(text, '&', [&](const Assignment& variable) {
    auto value = encoder_.afDecodeURL(variable.value);
    if (value) put(variable.name, std::move(*value));
  });
}

void clsHTTPParser::takeVariables(std::string_view text, Variables& into) const {
  decodeVariables(text, [&](std::string_view name, std::string value) {
    into.put(lowerCase(name), std::move(value));
  });
}

void clsHTTPParser::listVariables(std::string_view text, std::vector<Variable>& into) const {
  decodeVariables(text, [&](std::string_view name, std::string value) {
    into.push_back({std::string(name), std::move(value)});
  });
}

bool clsHTTPParser::takeConnection(std::string_view value) {
  keepAlive_ = !equalsNoCase(trimBlanks(value), "close");
  return true;
}

bool clsHTTPParser::takeCookies(std::string_view value) {
  forEachAssignment(value, ';', [&](const Assignment& cookie) {
    takeCookie(trimBlanks(cookie.name), cookie.value);
  });
  return true;
}

void clsHTTPParser::takeCookie(std::string_view name, std::string_view value) {
  if (equalsNoCase(name, header_lines::kSessionCookie)) {
    if (const auto number = numericLong(value)) sessionID_ = *number;
    return;
  }
  auto decoded = encoder_.afDecodeURL(value);
  if (!decoded) return;
  if (clsCookieObj* held = cookies_.find(name)) {
    held->setValue(std::move(*decoded));
    held->setChanged(false);
  } else {
    cookies_.add({upperCase(name), std::move(*decoded), false});
  }
}

bool clsHTTPParser::takeAcceptEncoding(std::string_view value) {
  acceptGZipEncoding_ = findNoCase(value, "gzip") != kNowhere;
  return true;
}

bool clsHTTPParser::takeRange(std::string_view value) {
  constexpr std::string_view kUnit = "bytes=";
  std::string set = lowerCase(value);
  std::erase(set, ' ');
  if (set.starts_with(kUnit)) rangeRequest_ = set.substr(kUnit.size());
  return true;
}

std::string clsHTTPParser::RequestVar(std::string_view varID, std::int32_t varMethod) const {
  const auto valueIn = [&](const std::optional<Variables>& variables) {
    const std::string* value = variables && !varID.empty() ? variables->find(varID) : nullptr;
    return value ? *value : std::string();
  };
  switch (varMethod) {
    case QueryOnly:
      return valueIn(queryVariables_);
    case FormOnly:
      return valueIn(formVariables_);
    case ByMethod:
      return valueIn(formMethod_ == 1 ? formVariables_ : queryVariables_);
    case QueryThenForm: {
      std::string value = valueIn(queryVariables_);
      return value.empty() ? valueIn(formVariables_) : value;
    }
    default:
      return {};
  }
}

std::vector<clsHTTPParser::Variable> clsHTTPParser::variables(Source source) const {
  std::vector<Variable> all;
  if (source != FormOnly && queryVariables_) listVariables(documentQueryString_, all);
  if (source != QueryOnly && formVariables_) listVariables(head_.body(), all);
  return all;
}

void clsHTTPParser::ClearVars() {
  queryVariables_.reset();
  formVariables_.reset();
}

void clsHTTPParser::redirect() {
  ClearVars();
  redirected_ = true;
}

void clsHTTPParser::Reset() {
  ClearVars();
  redirected_ = false;
  documentTitle_.clear();
  documentUrl_.clear();
  documentQueryString_.clear();
  documentPath_.clear();
  pathInfo_.clear();
  hostAddr_.clear();
  rangeRequest_.clear();
  validRequest_ = false;
  keepAlive_ = true;
  sessionID_ = 0;
}

void clsHTTPParser::releaseText() {
  head_.release();
  std::string().swap(documentQueryString_);
  ClearVars();
}

}  // namespace quorvane
