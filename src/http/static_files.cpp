#include "http/static_files.h"

#include <utility>
#include <vector>

#include "http/byte_ranges.h"
#include "http/clsHTTPParser.h"
#include "http/content_types.h"
#include "http/error_responses.h"
#include "http/header_lines.h"
#include "http/response_heads.h"
#include "http/serverMod.h"
#include "support/clsZipString.h"
#include "support/paths.h"
#include "support/server_state.h"

namespace quorvane {

/// What is sent of a file.
struct StaticFiles::Content {
  Body body;
  std::string headers;         ///< lines separated by CR LF; empty when there are none
  bool partial = false;        ///< a range answer
  bool unsatisfiable = false;  ///< a range set that can't be answered; nothing else counts then
  FoundFile file;              ///< what is served: the request's file or a resized copy of it
};

StaticFiles::StaticFiles(const RepresentationParts& parts)
    : parts_(parts),
      contents_(parts.services.files, parts.services.clock),
      gzipCopies_(parts.services.files, contents_),
      pictureCopies_(parts.services.files),
      resizedImages_(parts.services, pictureCopies_) {}

StaticFiles::Request StaticFiles::requestFor(FoundFile file, const clsHTTPParser& parser,
                                             bool isPublic) {
  Request request;
  request.file = std::move(file);
  request.urlFolder = parser.DocumentPath();
  request.ranges = parser.RangeRequest();
  request.acceptsGzip = parser.AcceptGZipEncoding();
  request.isPublic = isPublic;
  if (isResizableImage(request.file.path)) {
    request.picture = resizedImages_.wishFor(request.file, isPublic, parser);
  }
  return request;
}

Making StaticFiles::lacking(const Request& request) {
  return request.picture && !request.module ? resizedImages_.lacking(*request.picture) : Making();
}

Response StaticFiles::answer(const Request& request) {
  Content content =
      request.module ? Content{request.module, {}, false, false, request.file} : contentOf(request);
  if (content.unsatisfiable) return {error_responses::badRequest(parts_.heads), {}, false};
  const std::string modified =
      request.module ? "" : parts_.heads.dates().ofFile(content.file.info.modified);
  ResponseHeads::Ordinary head;
  if (content.partial) head.status = Status::PartialContent;
  head.contentLength = bodyLength(content.body);
  head.extraHeaders = content.headers;
  head.contentType = parts_.types.typeOf(content.file.path);
  head.lastModified = modified;
  head.keepAlive = request.keepAlive;
  head.cacheControl = request.isAlias ? "no-cache" : "";
  head.sessionNumber = request.session;
  head.cookieLines = request.cookieLines;
  Response response{parts_.heads.ordinary(head), {}, head.keepAlive};
  if (!request.headOnly) response.body = std::move(content.body);
  return response;
}

StaticFiles::Content StaticFiles::contentOf(const Request& request) {
  Content result;
  result.file = request.file;
  bool temporary = false;
  if (request.picture) {
    if (auto copy = resizedImages_.present(*request.picture)) {
      result.file = std::move(copy->file);
      temporary = copy->temporary;
    }
  }
  if (!request.ranges.empty()) {
    takeRanges(request, result);
  } else if (auto body = packed(request, result.file, !temporary && request.isPublic)) {
    result.body = std::move(*body);
    header_lines::add(result.headers, "Content-encoding", "gzip");
  } else {
    result.body = contents_.bodyOf(result.file.path, result.file.info);
  }
  if (temporary) parts_.services.files.remove(result.file.path);
  return result;
}

void StaticFiles::takeRanges(const Request& request, Content& content) {
  content.partial = true;
  const auto file = parts_.services.files.open(content.file.path);
  const std::uint64_t length = file ? file->info().size : 0;
  const auto ranges =
      file ? byte_ranges::parse(request.ranges, length) : std::vector<byte_ranges::Range>();
  if (ranges.empty()) {
    content.unsatisfiable = true;
    return;
  }
  // The brackets belong to the boundary.
  const std::string boundary =
      ranges.size() > 1 ? '<' + byte_ranges::newBoundary(parts_.services.random) + '>' : "";
  auto made = byte_ranges::answer(FileSlice{file, 0, length}, ranges,
                                  parts_.types.typeOf(content.file.path), boundary);
  content.body = std::move(made.body);
  content.headers = std::move(made.headers);
}

/// The compressed answer, or nothing when the file is to be sent as it is. Of a file
/// that somebody else may not get by the same path nothing is kept.
std::optional<Body> StaticFiles::packed(const Request& request, const FoundFile& file,
                                        bool keepCopy) {
  if (!request.acceptsGzip || !isGzipEligible(file.path, parts_.services.state)) {
    return std::nullopt;
  }
  const std::string urlPath = request.urlFolder + std::string(paths::fileNameOf(file.path));
  if (!keepCopy || !GzipCopies::isKept(urlPath)) return gzipCopies_.fresh(file);
  const std::string name = GzipCopies::nameOf(urlPath);
  const std::string path = paths::join(parts_.services.state.CacheFolder, name);
  auto body = gzipCopies_.stored(file, path);
  if (body && PictureCopies::isCopy(name)) pictureCopies_.used(path, bodyLength(*body));
  return body;
}

std::string_view StaticFiles::pack(const clsHTTPParser& parser, std::string&, std::string& output) {
  const bool packed = parser.AcceptGZipEncoding() && parts_.services.state.EncodeDynamic &&
                      clsZipString::CompressString(output, clsZipString::kGzip);
  return packed ? "gzip" : "";
}

}  // namespace quorvane
