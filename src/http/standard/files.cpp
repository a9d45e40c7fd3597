#include "http/standard/files.h"

#include <array>
#include <utility>

#include "http/byte_ranges.h"
#include "http/clsHTTPParser.h"
#include "http/content_types.h"
#include "http/header_lines.h"
#include "http/response_heads.h"
#include "http/serverMod.h"
#include "http/standard/errors.h"
#include "http/standard/preconditions.h"
#include "http/standard/range_set.h"
#include "support/server_state.h"
#include "support/text.h"

namespace quorvane {

namespace {

using content_coding::Effort;
using header_lines::addOwn;
using preconditions::Verdict;

/// What is coded for one answer alone is coded while others wait.
constexpr std::uint64_t kMostPackedAtOnce = std::uint64_t{1} << 20;

constexpr std::size_t kUsualLines = 256;  ///< bytes

// The one first that the server likes best: where copies are kept the smallest, else the quickest.
constexpr std::array kKeptCodings{ContentCoding::Brotli, ContentCoding::Zstd, ContentCoding::Gzip,
                                  ContentCoding::Identity};
constexpr std::array kQuickCodings{ContentCoding::Zstd, ContentCoding::Brotli, ContentCoding::Gzip,
                                   ContentCoding::Identity};

/// Whether content of that type comes out much smaller.
bool isText(std::string_view type) {
  constexpr std::array<std::string_view, 5> kEnds{"json", "xml", "javascript", "wasm",
                                                  "ecmascript"};
  if (type.starts_with("text/")) return true;
  for (const std::string_view end : kEnds) {
    if (type.ends_with(end)) return true;
  }
  return false;
}

}  // namespace

/// What a request's file turns out to be, and what can be made of it for this client.
struct StandardFiles::Source {
  FoundFile file;
  std::shared_ptr<const std::string> module;
  std::string_view type;
  TimePoint now;
  AcceptedCodings accepted;
  bool isTemporary = false;  ///< to be removed once it is open
  bool isCodable = false;    ///< its answers depend on what codings clients take
  bool isKept = false;       ///< coded copies stay for others

  bool takesPlain() const { return accepted.accepts(ContentCoding::Identity); }
};

/// Content and what the file was that it is of.
struct StandardFiles::Found {
  Body body;
  FileInfo info;
};

StandardFiles::StandardFiles(const RepresentationParts& parts)
    : parts_(parts),
      contents_(parts.services.files, parts.services.clock),
      codedCopies_(parts.services, contents_),
      pictureCopies_(parts.services.files),
      resizedImages_(parts.services, pictureCopies_) {}

StandardFiles::Request StandardFiles::requestFor(FoundFile file, const clsHTTPParser& parser,
                                                 bool isPublic) {
  Request request;
  request.file = std::move(file);
  request.isPublic = isPublic;
  request.wishes = std::make_shared<const ClientWishes>(ClientWishes::of(parser.head()));
  if (isResizableImage(request.file.path)) {
    request.picture = resizedImages_.wishFor(request.file, isPublic, parser);
  }
  return request;
}

Making StandardFiles::lacking(const Request& request) {
  if (request.module) return {};
  if (request.picture) {
    if (auto rendering = resizedImages_.lacking(*request.picture)) return rendering;
  }
  const ClientWishes& wishes = *request.wishes;
  if (!wishes.acceptEncoding || (wishes.range && !request.headOnly)) return {};
  const Source source = sourceOf(request);
  const auto coding = codingFor(source);
  if (!source.isKept || !coding || *coding == ContentCoding::Identity) return {};
  const auto verdict = preconditions::judge(wishes, validatorsOf(source, *coding), source.now);
  return verdict == Verdict::Proceed ? codedCopies_.lacking(source.file, *coding) : Making();
}

Response StandardFiles::answer(const Request& request) {
  const Source source = sourceOf(request);
  Response response = answerWith(request, source);
  if (source.isTemporary) parts_.services.files.remove(source.file.path);
  return response;
}

StandardFiles::Source StandardFiles::sourceOf(const Request& request) {
  Source source;
  source.file = request.file;
  source.module = request.module;
  source.now = parts_.services.clock.now();
  if (request.picture && !request.module) {
    if (auto copy = resizedImages_.present(*request.picture)) {
      source.file = std::move(copy->file);
      source.isTemporary = copy->temporary;
    }
  }
  source.type = parts_.types.typeOf(source.file.path);
  const auto& accepted = request.wishes->acceptEncoding;
  if (accepted) source.accepted = AcceptedCodings::read(*accepted);
  const ServerState& state = parts_.services.state;
  source.isCodable =
      !source.module && (state.EncodeStatic || state.EncodeImages) &&
      (isGzipEligible(source.file.path, state) || (state.EncodeStatic && isText(source.type)));
  // Of a file that somebody else may not get by the same path, or that may change again without a
  // trace, no copy is kept.
  source.isKept = source.isCodable && request.isPublic && !source.isTemporary &&
                  Validators::isSettled(source.file.info, source.now);
  return source;
}

Response StandardFiles::answerWith(const Request& request, const Source& source) {
  if (source.file.info.isFolder) return error(request, Status::NotFound);
  if (auto response = ranges(request, source)) return std::move(*response);
  const auto coding = codingFor(source);
  if (coding) {
    if (auto response = inCoding(request, source, *coding)) return std::move(*response);
  }
  // A copy that could not be made: the file as it is has to do.
  if (source.takesPlain() && coding && *coding != ContentCoding::Identity) {
    if (auto response = inCoding(request, source, ContentCoding::Identity)) {
      return std::move(*response);
    }
  }
  if (source.takesPlain()) return error(request, Status::Forbidden);  // there, and can't be read
  std::string lines;
  addOwn(lines, "Vary", "Accept-Encoding");
  return error(request, Status::NotAcceptable, std::move(lines));
}

/// The answer to a request for parts; nothing when it is to get the whole.
std::optional<Response> StandardFiles::ranges(const Request& request, const Source& source) {
  const ClientWishes& wishes = *request.wishes;
  if (!wishes.range || request.headOnly || !source.takesPlain()) return std::nullopt;

  Source opened = source;
  BodySegment content = source.module;
  if (!source.module) {
    auto file = parts_.services.files.open(source.file.path);
    if (!file) return std::nullopt;
    opened.file.info = file->info();
    content = FileSlice{std::move(file), 0, opened.file.info.size};
  }
  const Validators validators = validatorsOf(opened, ContentCoding::Identity);
  const auto set = range_set::read(*wishes.range, segmentLength(content));
  if (!set || !preconditions::holdsForRange(wishes, validators, source.now)) return std::nullopt;
  if (auto response = refusal(request, opened, validators)) return response;
  if (set->empty()) {
    std::string lines;
    addOwn(lines, "Content-Range", "bytes */" + std::to_string(segmentLength(content)));
    return error(request, Status::RangeNotSatisfiable, std::move(lines));
  }
  auto parts = byte_ranges::answer(
      content, *set, source.type,
      set->size() > 1 ? byte_ranges::newBoundary(parts_.services.random) : std::string());
  std::string lines = std::move(parts.headers);
  addOwn(lines, "Accept-Ranges", "bytes");
  addCommonLines(lines, request, opened, validators);
  return answered(request, Status::PartialContent, lines, std::move(parts.body));
}

/// The whole in that coding, if the client has it not; nothing when there is no such content.
std::optional<Response> StandardFiles::inCoding(const Request& request, const Source& source,
                                                ContentCoding coding) {
  Validators validators = validatorsOf(source, coding);
  if (auto response = refusal(request, source, validators)) return response;
  auto found = contentIn(source, coding);
  if (!found) return std::nullopt;
  if (found->info != source.file.info) {  // it has changed since it was looked for
    validators = Validators::ofFile(found->info, coding, source.now);
  }
  std::string lines;
  lines.reserve(kUsualLines);
  addOwn(lines, "Content-Type", source.type);
  if (coding == ContentCoding::Identity) {
    addOwn(lines, "Accept-Ranges", "bytes");
  } else {
    addOwn(lines, "Content-Encoding", content_coding::nameOf(coding));
    addOwn(lines, "Accept-Ranges", "none");
  }
  addCommonLines(lines, request, source, validators);
  return answered(request, Status::Ok, lines, std::move(found->body));
}

std::optional<StandardFiles::Found> StandardFiles::contentIn(const Source& source,
                                                             ContentCoding coding) {
  if (source.module) return Found{source.module, source.file.info};
  if (coding == ContentCoding::Identity) {
    auto content = contents_.contentOf(source.file.path, source.file.info);
    if (!content) return std::nullopt;
    return Found{std::move(content->body), content->info};
  }
  if (source.isKept) {
    if (auto body = codedCopies_.present(source.file, coding)) {
      return Found{std::move(*body), source.file.info};
    }
  }
  return packed(source.file, coding);
}

/// Coded for this answer alone.
std::optional<StandardFiles::Found> StandardFiles::packed(const FoundFile& file,
                                                          ContentCoding coding) {
  if (file.info.size > kMostPackedAtOnce) return std::nullopt;
  const auto open = parts_.services.files.open(file.path);
  if (!open || open->info().size > kMostPackedAtOnce) return std::nullopt;
  std::string bytes(static_cast<std::size_t>(open->info().size), '\0');
  bytes.resize(open->read(0, bytes.data(), bytes.size()));
  if (!content_coding::pack(bytes, coding, Effort::Quick)) return std::nullopt;
  return Found{std::move(bytes), open->info()};
}

/// The coding that the client gets; nothing when it takes none that there is.
std::optional<ContentCoding> StandardFiles::codingFor(const Source& source) {
  if (source.isCodable && source.file.info.size > 0) {
    return source.accepted.best(source.isKept ? kKeptCodings : kQuickCodings);
  }
  if (!source.takesPlain()) return std::nullopt;
  return ContentCoding::Identity;
}

Validators StandardFiles::validatorsOf(const Source& source, ContentCoding coding) {
  if (source.module) return {tagOf(source.module), std::nullopt};
  return Validators::ofFile(source.file.info, coding, source.now);
}

const std::string& StandardFiles::tagOf(const std::shared_ptr<const std::string>& module) {
  const auto known = moduleTags_.find(module);
  if (known != moduleTags_.end()) return known->second;
  std::erase_if(moduleTags_, [](const auto& tag) { return tag.first.expired(); });
  return moduleTags_.emplace(module, Validators::ofContent(*module).tag).first->second;
}

/// The answer when the client's conditions keep the content back.
std::optional<Response> StandardFiles::refusal(const Request& request, const Source& source,
                                               const Validators& validators) {
  switch (preconditions::judge(*request.wishes, validators, source.now)) {
    case Verdict::Proceed:
      return std::nullopt;
    case Verdict::NotModified: {
      std::string lines;
      addCommonLines(lines, request, source, {validators.tag, {}});
      return answered(request, Status::NotModified, lines, {});
    }
    case Verdict::Failed:
      return error(request, Status::PreconditionFailed);
  }
  return std::nullopt;
}

/// Adds what stands in heads with and without content. Shared caches keep what sets cookies or was
/// chosen by a page too, unless they are told.
void StandardFiles::addCommonLines(std::string& lines, const Request& request, const Source& source,
                                   const Validators& validators) const {
  addOwn(lines, "ETag", validators.tag);
  if (validators.modified) {
    addOwn(lines, "Last-Modified", parts_.heads.dates().standard(*validators.modified));
  }
  if (source.isCodable) addOwn(lines, "Vary", "Accept-Encoding");
  if (request.isOfPage) {
    addOwn(lines, "Cache-Control", "private");
  } else if (request.isAlias) {
    addOwn(lines, "Cache-Control", "no-cache");
  }
  if (request.isOfPage && request.session > 0) {
    addOwn(lines, "Set-Cookie", header_lines::sessionCookie(request.session));
  }
  if (!request.cookieLines.empty()) lines.append("\r\n").append(request.cookieLines);
}

Response StandardFiles::answered(const Request& request, Status status, const std::string& lines,
                                 Body body) {
  Response response{
      parts_.heads.own(status, lines, bodyLength(body), request.keepAlive), {}, request.keepAlive};
  if (!request.headOnly) response.body = std::move(body);
  return response;
}

Response StandardFiles::error(const Request& request, Status status, std::string lines) {
  return standardError(parts_.heads, status, {request.headOnly, request.keepAlive},
                       std::move(lines));
}

std::string_view StandardFiles::pack(const clsHTTPParser& parser, std::string& lines,
                                     std::string& output) {
  if (output.empty() || header_lines::bring(lines, "content-encoding")) return {};
  const auto wish = ClientWishes::of(parser.head()).acceptEncoding;
  const AcceptedCodings accepted = wish ? AcceptedCodings::read(*wish) : AcceptedCodings();
  const bool isCodable = parts_.services.state.EncodeDynamic;
  if (isCodable) addOwn(lines, "Vary", "Accept-Encoding");
  if (!isCodable && accepted.accepts(ContentCoding::Identity)) return {};
  const auto coding = accepted.best(kQuickCodings);
  const bool isPacked = coding && content_coding::pack(output, *coding, Effort::Quick);
  return isPacked ? content_coding::nameOf(*coding) : "";
}

}  // namespace quorvane
