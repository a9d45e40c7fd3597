#include "http/static_files.h"

#include <utility>

#include "http/byte_ranges.h"
#include "http/clsHTTPParser.h"
#include "http/content_types.h"
#include "http/header_lines.h"
#include "http/serverMod.h"
#include "support/paths.h"
#include "support/server_state.h"

namespace quorvane {

StaticFiles::StaticFiles(const Services& services, ContentTypes& types)
    : services_(services),
      types_(types),
      contents_(services.files, services.clock),
      gzipCopies_(services.files, contents_),
      pictureCopies_(services.files),
      resizedImages_(services.files, services.random, pictureCopies_) {}

StaticFiles::Request StaticFiles::requestFor(FoundFile file, const clsHTTPParser& parser,
                                             bool isPublic) {
  Request request{
      std::move(file), parser.DocumentPath(), parser.RangeRequest(), parser.AcceptGZipEncoding(),
      isPublic,        std::nullopt};
  if (isResizableImage(request.file.path)) {
    request.picture =
        resizedImages_.wishFor(request.file, isPublic, parser, services_.state.CacheFolder);
  }
  return request;
}

bool StaticFiles::lacksPicture(const Request& request) {
  return request.picture && !resizedImages_.present(*request.picture);
}

StaticFiles::Answer StaticFiles::answer(const Request& request) {
  Answer result;
  result.file = request.file;
  bool temporary = false;
  if (request.picture) {
    if (auto copy = resizedImages_.present(*request.picture)) {
      result.file = std::move(copy->file);
      temporary = copy->temporary;
    }
  }
  if (!request.ranges.empty()) {
    answerRanges(request, result);
  } else if (auto body = packed(request, result.file, !temporary && request.isPublic)) {
    result.body = std::move(*body);
    header_lines::add(result.headers, "Content-encoding", "gzip");
  } else {
    result.body = contents_.bodyOf(result.file.path, result.file.info);
  }
  if (temporary) services_.files.remove(result.file.path);
  return result;
}

void StaticFiles::answerRanges(const Request& request, Answer& answer) {
  answer.partial = true;
  const auto file = services_.files.open(answer.file.path);
  const auto ranges = file ? byte_ranges::parse(request.ranges, file->info().size)
                           : std::vector<byte_ranges::Range>();
  if (ranges.empty()) {
    answer.unsatisfiable = true;
    return;
  }
  auto made = byte_ranges::answer(file, ranges, types_.typeOf(answer.file.path), services_.random);
  answer.body = std::move(made.body);
  answer.headers = std::move(made.headers);
}

/// The compressed answer, or nothing when the file is to be sent as it is. Of a file
/// that somebody else may not get by the same path nothing is kept.
std::optional<Body> StaticFiles::packed(const Request& request, const FoundFile& file,
                                        bool keepCopy) {
  if (!request.acceptsGzip || !isGzipEligible(file.path, services_.state)) {
    return std::nullopt;
  }
  const std::string urlPath = request.urlFolder + std::string(paths::fileNameOf(file.path));
  if (!keepCopy || !GzipCopies::isKept(urlPath)) return gzipCopies_.fresh(file);
  const std::string name = GzipCopies::nameOf(urlPath);
  const std::string path = paths::join(services_.state.CacheFolder, name);
  auto body = gzipCopies_.stored(file, path);
  if (body && PictureCopies::isCopy(name)) pictureCopies_.used(path, bodyLength(*body));
  return body;
}

}  // namespace quorvane
