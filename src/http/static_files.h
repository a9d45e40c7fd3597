#pragma once

#include <optional>
#include <string>

#include "http/content_cache.h"
#include "http/gzip_copies.h"
#include "http/picture_copies.h"
#include "http/representations.h"
#include "http/resized_images.h"
#include "platform/outgoing.h"

namespace quorvane {

/// The server's own way. Files: a resized picture first, then byte ranges, then a compressed copy,
/// then the whole file.
class StaticFiles final : public Representations {
 public:
  explicit StaticFiles(const RepresentationParts& parts);

  Request requestFor(FoundFile file, const clsHTTPParser& parser, bool isPublic) override;
  Making lacking(const Request& request) override;
  Response answer(const Request& request) override;
  std::string_view pack(const clsHTTPParser& parser, std::string& lines,
                        std::string& output) override;

 private:
  struct Content;

  Content contentOf(const Request& request);
  void takeRanges(const Request& request, Content& content);
  std::optional<Body> packed(const Request& request, const FoundFile& file, bool keepCopy);

  const RepresentationParts parts_;
  ContentCache contents_;
  GzipCopies gzipCopies_;
  PictureCopies pictureCopies_;
  ResizedImages resizedImages_;
};

}  // namespace quorvane
