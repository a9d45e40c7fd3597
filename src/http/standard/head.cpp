#include "http/standard/head.h"

#include <algorithm>

#include "http/header_lines.h"
#include "support/text.h"

namespace quorvane {

namespace {

using standard_grammar::Field;
using standard_grammar::forEachElement;

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::size_t kNowhere = std::string_view::npos;

/// "HTTP/", a digit, a dot, a digit.
bool isVersion(std::string_view text) {
  return text.size() == 8 && text.starts_with("HTTP/") && isDigit(text[5]) && text[6] == '.' &&
         isDigit(text[7]);
}

/// Whether a method usually comes with a body.
bool bringsBody(std::string_view method) {
  return method == "POST" || method == "PUT" || method == "PATCH";
}

}  // namespace

std::optional<Status> StandardHead::read(std::string_view text) {
  *this = StandardHead(std::move(fields_));
  const std::size_t end = text.find(kLineEnd);
  if (const auto refusal = readRequestLine(text.substr(0, end))) return refusal;
  if (const auto refusal = readFields(text.substr(end + kLineEnd.size()))) return refusal;
  return judge();
}

std::optional<Status> StandardHead::readRequestLine(std::string_view line) {
  const std::size_t first = line.find(' ');
  const std::size_t second = first == kNowhere ? kNowhere : line.find(' ', first + 1);
  if (second == kNowhere) return Status::BadRequest;
  method_ = line.substr(0, first);
  targetText_ = line.substr(first + 1, second - first - 1);
  version_ = line.substr(second + 1);
  if (!standard_grammar::isToken(method_) || !isVersion(version_)) return Status::BadRequest;
  if (version_[5] != '1') return Status::VersionNotSupported;
  minor_ = version_[7] - '0';
  if (method_.size() > kMostMethod || method_ == "CONNECT") return Status::NotImplemented;
  auto target = StandardTarget::read(targetText_);
  if (!target || (target->isAsterisk() && method_ != "OPTIONS")) return Status::BadRequest;
  target_ = std::move(*target);
  // Without a path an absolute target of OPTIONS means the server as a whole.
  const bool meansAll = target_.origin.empty() && method_ == "OPTIONS";
  if (meansAll) target_.path = "*";
  isPlain_ = target_.authority.empty();
  return std::nullopt;
}

std::optional<Status> StandardHead::readFields(std::string_view text) {
  for (;;) {
    const std::size_t end = text.find(kLineEnd);
    if (end == 0) return std::nullopt;
    if (end == kNowhere) return Status::BadRequest;
    const std::string_view line = text.substr(0, end);
    const auto field = standard_grammar::fieldOf(line);
    if (!field) return Status::BadRequest;
    fields_.push_back(*field);
    const std::string_view value = line.substr(field->name.size() + 1);
    const std::size_t blanks = std::min(value.find_first_not_of(' '), value.size());
    if (value.size() - blanks != field->value.size()) isPlain_ = false;
    text.remove_prefix(end + kLineEnd.size());
  }
}

std::optional<Status> StandardHead::judge() {
  if (const auto refusal = judgeHost()) return refusal;
  judgeConnection();
  if (const auto refusal = judgeFraming()) return refusal;
  if (isOldVersion()) return std::nullopt;  // nobody waits for a word there
  for (const Field& field : fields_) {
    if (!equalsNoCase(field.name, "expect")) continue;
    bool isKnown = true;
    forEachElement(field.value, [&](std::string_view expectation) {
      isKnown = isKnown && equalsNoCase(expectation, "100-continue");
    });
    if (!isKnown) return Status::ExpectationFailed;
    expectsContinue_ = true;
  }
  return std::nullopt;
}

std::optional<Status> StandardHead::judgeHost() {
  std::size_t count = 0;
  for (const Field& field : fields_) {
    if (!equalsNoCase(field.name, "host")) continue;
    ++count;
    host_ = field.value;
  }
  const bool isMissing = count == 0 && !isOldVersion();
  if (isMissing || count > 1) return Status::BadRequest;
  if (count == 1 && !standard_grammar::isAuthority(host_)) return Status::BadRequest;
  if (!target_.authority.empty()) host_ = target_.authority;
  return std::nullopt;
}

void StandardHead::judgeConnection() {
  bool closes = false;
  bool stays = false;
  for (const Field& field : fields_) {
    if (!equalsNoCase(field.name, "connection")) continue;
    forEachElement(field.value, [&](std::string_view option) {
      closes = closes || equalsNoCase(option, "close");
      stays = stays || equalsNoCase(option, "keep-alive");
    });
  }
  keepsAlive_ = !closes && (stays || !isOldVersion());
}

/// Whatever could be read in two ways is refused: a proxy in front may read it in the other.
std::optional<Status> StandardHead::judgeFraming() {
  std::optional<std::string_view> announced;
  std::vector<std::string_view> codings;
  bool describesBody = false;
  for (const Field& field : fields_) {
    if (equalsNoCase(field.name, "content-length")) {
      if (announced) return Status::BadRequest;
      announced = field.value;
    } else if (equalsNoCase(field.name, "transfer-encoding")) {
      codings.push_back(field.value);
    } else if (equalsNoCase(field.name, "content-type")) {
      describesBody = true;
    }
  }
  if (!codings.empty()) {
    if (announced || isOldVersion()) return Status::BadRequest;
    return judgeCodings(codings);
  }
  if (!announced) {
    const bool isMissing = describesBody && bringsBody(method_);
    return isMissing ? std::optional(Status::LengthRequired) : std::nullopt;
  }
  const bool isNumber =
      !announced->empty() && std::all_of(announced->begin(), announced->end(), isDigit);
  if (!isNumber) return Status::BadRequest;
  framing_ = BodyFraming::Length;
  const auto length = wholeNumber<std::uint64_t>(*announced);
  length_ = length.value_or(0);
  return length ? std::nullopt : std::optional(Status::ContentTooLarge);
}

std::optional<Status> StandardHead::judgeCodings(const std::vector<std::string_view>& lists) {
  std::size_t count = 0;
  std::size_t chunked = 0;
  std::string_view last;
  for (const std::string_view list : lists) {
    forEachElement(list, [&](std::string_view coding) {
      ++count;
      last = coding;
      if (equalsNoCase(coding, "chunked")) ++chunked;
    });
  }
  if (chunked != 1 || !equalsNoCase(last, "chunked")) return Status::BadRequest;
  if (count > 1) return Status::NotImplemented;
  framing_ = BodyFraming::Chunked;
  isPlain_ = false;
  return std::nullopt;
}

std::string StandardHead::plain(std::size_t bodyLength) const {
  const std::string_view path = target_.isAsterisk() ? "*" : "/";
  const std::string_view origin = target_.origin;
  std::string text(method_);
  text += ' ';
  if (!origin.starts_with(path)) text += path;
  text.append(origin).append(" ").append(version_).append(kLineEnd);
  for (const Field& field : fields_) {
    const bool isCoding = equalsNoCase(field.name, "transfer-encoding");
    const bool isHost = equalsNoCase(field.name, "host");
    if (isCoding) {
      header_lines::writeOwn(text, "Content-Length", std::to_string(bodyLength));
    } else {
      header_lines::writeOwn(text, field.name, isHost ? host_ : field.value);
    }
    text += kLineEnd;
  }
  return text.append(kLineEnd);
}

}  // namespace quorvane
