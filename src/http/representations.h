#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "http/resized_images.h"
#include "http/response.h"
#include "http/side_work.h"
#include "http/targets.h"
#include "platform/services.h"

namespace quorvane {

class clsHTTPParser;
class ContentTypes;
class ResponseHeads;
struct ClientWishes;

/// How what was found or made goes out: whole or in ranges, as it is or compressed, or not at all
/// when the client has it. A server goes by one of these as long as it runs.
class Representations {
 public:
  /// A request for a file, as far as its answer depends on it. It stands apart from the parser,
  /// which may serve others before the answer is made.
  struct Request {
    FoundFile file;                             ///< of a module's file only the path counts
    std::shared_ptr<const std::string> module;  ///< the content when a module holds it
    std::string urlFolder;  ///< the path that was asked for, without the file's name
    std::string ranges;     ///< empty: the whole file
    bool acceptsGzip = false;
    bool isPublic = true;  ///< everybody gets this file by this path
    std::optional<ResizedImages::Wish> picture;
    std::shared_ptr<const ClientWishes> wishes;  ///< of standard HTTP alone

    // What the head of the answer says beside.
    bool isAlias = false;   ///< the file was asked for by a key
    bool isOfPage = false;  ///< a page named the file
    bool headOnly = false;
    bool keepAlive = false;
    std::int32_t session = 0;
    std::string cookieLines;  ///< whole lines separated by CR LF, or empty
  };

  virtual ~Representations() = default;

  /// Takes what it needs out of the parser. What the head says is left to the caller.
  virtual Request requestFor(FoundFile file, const clsHTTPParser& parser, bool isPublic) = 0;

  /// What the answer waits for; empty when nothing is lacking.
  virtual Making lacking(const Request& request) = 0;

  /// What is still lacking is something that could not be made: the answer does without.
  virtual Response answer(const Request& request) = 0;

  /// Compresses a page's output where its client wants it so; the name of the coding, or empty. May
  /// add to the page's header lines.
  virtual std::string_view pack(const clsHTTPParser& parser, std::string& lines,
                                std::string& output) = 0;
};

/// What representations work with. The members outlive them.
struct RepresentationParts {
  const Services& services;
  ContentTypes& types;
  ResponseHeads& heads;
};

/// Those that the server's settings name.
std::unique_ptr<Representations> makeRepresentations(const RepresentationParts& parts);

}  // namespace quorvane
