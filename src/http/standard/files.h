#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "http/content_cache.h"
#include "http/picture_copies.h"
#include "http/representations.h"
#include "http/resized_images.h"
#include "http/standard/accepted_codings.h"
#include "http/standard/coded_copies.h"
#include "http/standard/validators.h"
#include "http/status.h"

namespace quorvane {

/// Representations by RFC 9110 and 9111: validators, conditions, ranges, and codings that the
/// client takes.
///
/// Ranges are of a file as it is, never of a coded copy: what clients keep of a broken download is
/// decoded. A coded answer says therefore that it has no ranges, and its entity tag, which is not
/// the file's, makes a range that is asked for with it the whole.
class StandardFiles final : public Representations {
 public:
  explicit StandardFiles(const RepresentationParts& parts);

  Request requestFor(FoundFile file, const clsHTTPParser& parser, bool isPublic) override;
  Making lacking(const Request& request) override;
  Response answer(const Request& request) override;
  std::string_view pack(const clsHTTPParser& parser, std::string& lines,
                        std::string& output) override;

 private:
  struct Source;
  struct Found;

  Source sourceOf(const Request& request);
  Response answerWith(const Request& request, const Source& source);
  std::optional<Response> ranges(const Request& request, const Source& source);
  std::optional<Response> inCoding(const Request& request, const Source& source,
                                   ContentCoding coding);
  std::optional<Found> contentIn(const Source& source, ContentCoding coding);
  std::optional<Found> packed(const FoundFile& file, ContentCoding coding);
  static std::optional<ContentCoding> codingFor(const Source& source);
  Validators validatorsOf(const Source& source, ContentCoding coding);
  const std::string& tagOf(const std::shared_ptr<const std::string>& module);
  std::optional<Response> refusal(const Request& request, const Source& source,
                                  const Validators& validators);
  void addCommonLines(std::string& lines, const Request& request, const Source& source,
                      const Validators& validators) const;
  Response answered(const Request& request, Status status, const std::string& lines, Body body);
  Response error(const Request& request, Status status, std::string lines = {});

  using Modules = std::map<std::weak_ptr<const std::string>, std::string, std::owner_less<>>;

  const RepresentationParts parts_;
  ContentCache contents_;
  CodedCopies codedCopies_;
  PictureCopies pictureCopies_;
  ResizedImages resizedImages_;
  Modules moduleTags_;
};

}  // namespace quorvane
