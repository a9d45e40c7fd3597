#include "http/clsHTTPParser.h"

#include <algorithm>
#include <utility>

#include "http/cookie_jar.h"
#include "support/clsWEncode.h"
#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::size_t kNowhere = std::string::npos;
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kSessionCookie = "QVS_SESSIONID";
constexpr std::string_view kHttpPrefix = "http://";

/// A piece "name=value" with a name of at least one character.
struct Assignment {
  std::string_view name;
  std::string_view value;
};

/// Calls `take` for every such piece between separators, until it returns false.
template <class Take>
void forEachAssignment(std::string_view text, char separator, Take take) {
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t end = std::min(text.find(separator, start), text.size());
    const std::string_view piece = text.substr(start, end - start);
    const std::size_t equals = piece.find('=');
    if (equals != kNowhere && equals > 0 &&
        !take(Assignment{piece.substr(0, equals), piece.substr(equals + 1)})) {
      return;
    }
    start = end + 1;
  }
}

std::string_view lineAt(std::string_view text, std::size_t start) {
  return text.substr(start, text.find(kLineEnd, start) - start);
}

}  // namespace

/// Places in the request found in one pass: where the value of each header begins, each by its
/// first occurrence.
struct clsHTTPParser::Marks {
  std::size_t firstLineEnd = kNowhere;
  std::size_t body = kNowhere;
  std::size_t host = kNowhere;
  std::size_t connection = kNowhere;
  std::size_t cookie = kNowhere;
  std::size_t acceptEncoding = kNowhere;
  std::size_t range = kNowhere;

  explicit Marks(std::string_view text) {
    for (std::size_t end = text.find(kLineEnd); end != kNowhere;
         end = text.find(kLineEnd, end + kLineEnd.size())) {
      if (firstLineEnd == kNowhere) firstLineEnd = end;
      markLine(text, end + kLineEnd.size());
    }
  }

 private:
  void markLine(std::string_view text, std::size_t start) {
    if (start >= text.size()) return;
    const std::string_view line = text.substr(start);
    const auto mark = [&](std::string_view name, std::size_t& place) {
      if (place == kNowhere && startsWithNoCase(line, name)) place = start + name.size();
    };
    switch (lowerChar(line.front())) {
      case 'h':
        return mark("host:", host);
      case 'c':
        mark("connection:", connection);
        return mark("cookie: ", cookie);
      case 'a':
        return mark("accept-encoding: ", acceptEncoding);
      case 'r':
        return mark("range: ", range);
      case '\r':
        return mark(kLineEnd, body);
      default:
        return;
    }
  }
};

void clsHTTPParser::setHTTPData(std::string_view text) {
  data_.assign(text);
  parse();
}

void clsHTTPParser::adoptHTTPData(std::string&& text) {
  data_ = std::move(text);
  parse();
}

void clsHTTPParser::parse() {
  Reset();
  const std::string_view text = data_;
  const Marks marks(text);
  if (marks.host != kNowhere && !takeHost(lineAt(text, marks.host))) return;
  if (marks.firstLineEnd == kNowhere || !takeRequestLine(text.substr(0, marks.firstLineEnd))) {
    return;
  }
  if (formMethod_ == 1 && marks.body != kNowhere) {
    formStart_ = marks.body;
    takeVariables(text.substr(marks.body), formVariables_.emplace());
  }
  if (marks.connection != kNowhere) {
    keepAlive_ = !equalsNoCase(trimBlanks(lineAt(text, marks.connection)), "close");
  }
  if (marks.cookie != kNowhere) takeCookies(lineAt(text, marks.cookie));
  if (marks.acceptEncoding != kNowhere) {
    acceptGZipEncoding_ = findNoCase(lineAt(text, marks.acceptEncoding), "gzip") != kNowhere;
  }
  if (marks.range != kNowhere) takeRange(lineAt(text, marks.range));
}

bool clsHTTPParser::takeHost(std::string_view line) {
  std::string_view host = trimBlanks(line);
  if (startsWithNoCase(host, kHttpPrefix)) host = trimBlanks(host.substr(kHttpPrefix.size()));
  if (host.empty() || host.find('/') != kNowhere) return false;
  hostAddr_ = lowerCase(host);
  return true;
}

bool clsHTTPParser::takeRequestLine(std::string_view line) {
  if (std::count(line.begin(), line.end(), ' ') != 2) return false;
  const std::size_t targetStart = line.find(' ') + 1;
  const std::size_t targetEnd = line.find(' ', targetStart);
  formMethod_ = equalsNoCase(line.substr(0, targetStart - 1), "POST") ? 1 : 0;

  std::string_view target = line.substr(targetStart, targetEnd - targetStart);
  const std::size_t question = target.find('?');
  if (question != kNowhere) {
    setDocumentQueryString(std::string(target.substr(question + 1)));
    target = target.substr(0, question);
  }
  documentUrl_ = target;
  std::replace(documentUrl_.begin(), documentUrl_.end(), '\\', '/');
  const std::size_t title = documentUrl_.rfind('/') + 1;  // 0 without a "/"
  documentTitle_ = documentUrl_.substr(title);
  documentPath_ = documentUrl_.substr(0, title);
  validRequest_ = true;
  return true;
}

void clsHTTPParser::setDocumentQueryString(std::string text) {
  documentQueryString_ = std::move(text);
  takeVariables(documentQueryString_, queryVariables_.emplace());
}

/// Puts the name and the decoded value of each variable into a collection, up to the bound.
template <class Collection, class Put>
void clsHTTPParser::decodeVariables(std::string_view text, Collection& into, Put put) const {
  forEachAssignment(text, '&', [&](const Assignment& variable) {
    auto value = encoder_.afDecodeURL(variable.value);
    if (value) put(variable.name, std::move(*value));
    return into.size() < kMostVariables;
  });
}

void clsHTTPParser::takeVariables(std::string_view text, Variables& into) const {
  decodeVariables(text, into, [&](std::string_view name, std::string value) {
    into.put(lowerCase(name), std::move(value));
  });
}

void clsHTTPParser::listVariables(std::string_view text, std::vector<Variable>& into) const {
  decodeVariables(text, into, [&](std::string_view name, std::string value) {
    into.push_back({std::string(name), std::move(value)});
  });
}

void clsHTTPParser::takeCookies(std::string_view line) {
  forEachAssignment(line, ';', [&](const Assignment& cookie) {
    takeCookie(trimBlanks(cookie.name), cookie.value);
    return cookies_.size() < kMostVariables;
  });
}

void clsHTTPParser::takeCookie(std::string_view name, std::string_view value) {
  if (equalsNoCase(name, kSessionCookie)) {
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

void clsHTTPParser::takeRange(std::string_view line) {
  constexpr std::string_view kUnit = "bytes=";
  std::string set = lowerCase(line);
  std::erase(set, ' ');
  if (set.starts_with(kUnit)) rangeRequest_ = set.substr(kUnit.size());
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
  if (source != QueryOnly && formVariables_) {
    listVariables(std::string_view(data_).substr(formStart_), all);
  }
  return all;
}

void clsHTTPParser::ClearVars() {
  queryVariables_.reset();
  formVariables_.reset();
}

void clsHTTPParser::Reset() {
  ClearVars();
  documentTitle_.clear();
  documentUrl_.clear();
  documentQueryString_.clear();
  documentPath_.clear();
  hostAddr_.clear();
  rangeRequest_.clear();
  validRequest_ = false;
  keepAlive_ = true;
  sessionID_ = 0;
}

void clsHTTPParser::releaseText() {
  std::string().swap(data_);
  std::string().swap(documentQueryString_);
  ClearVars();
}

}  // namespace quorvane
