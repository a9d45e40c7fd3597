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
  /// What an answer depends on.
  struct Request {
    FoundFile file;
    std::string urlFolder;  ///< the path that was asked for, without the file's name
    std::string ranges;     ///< empty: the whole file
    bool acceptsGzip = false;
    bool isPublic = true;  ///< everybody gets this file by this path
    std::optional<ResizedImages::Wish> picture;
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

  /// Takes what it needs out of the parser, which may serve others before the answer is made.
  Request requestFor(FoundFile file, const clsHTTPParser& parser, bool isPublic);

  /// Whether a picture has to be rendered before the request is answered.
  bool lacksPicture(const Request& request);

  /// A picture that is lacking is one that could not be rendered: its source is sent.
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
