#pragma once

#include <memory>
#include <optional>
#include <string>

#include "http/content_cache.h"
#include "http/gzip_copies.h"
#include "http/picture_copies.h"
#include "http/resized_images.h"
#include "http/targets.h"
#include "platform/outgoing.h"
#include "platform/services.h"

namespace quorvane {

class clsHTTPParser;
class ContentTypes;

/// Bodies for requests of static files: a resized picture first, then byte ranges, then a
/// compressed copy, then the whole file.
class StaticFiles {
 public:
  struct Request {
    FoundFile file;
    const clsHTTPParser& parser;
    bool isPublic = true;  ///< everybody gets this file by this path
  };

  struct Answer {
    Body body;
    std::string headers;         ///< lines separated by CR LF; empty when there are none
    bool partial = false;        ///< a range answer
    bool unsatisfiable = false;  ///< a range set that can't be answered; nothing else counts then
    FoundFile file;              ///< what is served: the request's file or a resized copy of it
  };

  /// Both outlive the object.
  StaticFiles(const Services& services, ContentTypes& types);

  Answer answer(const Request& request);

 private:
  void answerRanges(const Request& request, Answer& answer);
  std::optional<Body> packed(const Request& request, const FoundFile& file, bool keepCopy);

  const Services& services_;
  ContentTypes& types_;
  ContentCache contents_;
  GzipCopies gzipCopies_;
  PictureCopies pictureCopies_;
  ResizedImages resizedImages_;
};

}  // namespace quorvane
