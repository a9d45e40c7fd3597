#include "http/resized_images.h"

#include <algorithm>

#include "http/clsHTTPParser.h"
#include "http/picture_copies.h"
#include "platform/random.h"
#include "support/files.h"
#include "support/paths.h"
#include "support/server_state.h"
#include "support/status_lines.h"
#include "support/text.h"

namespace quorvane {

namespace {

std::string queryVariable(const clsHTTPParser& parser, std::string_view name) {
  return parser.RequestVar(name, clsHTTPParser::QueryOnly);
}

int sideOf(const clsHTTPParser& parser, std::string_view name) {
  return std::max(numericLong(queryVariable(parser, name)).value_or(0), 0);
}

std::optional<ImageRendering> wantedRendering(const clsHTTPParser& parser) {
  ImageRendering wanted;
  wanted.width = sideOf(parser, "rx");
  wanted.height = sideOf(parser, "ry");
  if (wanted.width < 1 && wanted.height < 1) return std::nullopt;
  if (std::max(wanted.width, wanted.height) > ResizedImages::kMostPixels) return std::nullopt;
  wanted.keepAspect = queryVariable(parser, "ar") != "0";
  wanted.grey = queryVariable(parser, "gr") == "1";
  return wanted;
}

}  // namespace

std::optional<ResizedImages::Wish> ResizedImages::wishFor(const FoundFile& source, bool isPublic,
                                                          const clsHTTPParser& parser) {
  if (source.info.isFolder) return std::nullopt;
  const auto wanted = wantedRendering(parser);
  if (!wanted) return std::nullopt;
  const std::string fileName(paths::fileNameOf(source.path));
  const bool temporary = !isPublic || queryVariable(parser, "nc") == "1";
  const std::string name =
      temporary ? temporaryName(fileName) : PictureCopies::nameOf(*wanted, fileName);
  return Wish{source, *wanted, paths::join(services_.state.CacheFolder, name), temporary};
}

Making ResizedImages::lacking(const Wish& wish) {
  if (!services_.images || present(wish)) return {};
  return {wish.target, [library = services_.images, wish] {
            library->render(wish.source.path, wish.target, wish.rendering);
          }};
}

std::optional<ResizedImages::Copy> ResizedImages::present(const Wish& wish) {
  const auto copy = services_.files.stat(wish.target);
  if (!copy || wish.source.info.modified > copy->modified) {
    complain();
    return std::nullopt;
  }
  if (!wish.temporary) copies_.used(wish.target, copy->size);
  return Copy{{wish.target, *copy}, wish.temporary};
}

/// Once: it will be the same for every picture.
void ResizedImages::complain() {
  const std::string why =
      services_.images && !hasComplained_ ? services_.images->complaint() : std::string();
  if (why.empty()) return;
  hasComplained_ = true;
  services_.log.LogLine("Pictures can't be resized: " + why);
}

std::string ResizedImages::temporaryName(const std::string& fileName) {
  return "^N" + hexDigits(services_.random.guid()) + fileName;
}

}  // namespace quorvane
