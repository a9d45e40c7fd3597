#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "http/targets.h"

namespace quorvane {

class Clock;
class clsHTTPParser;
class FileAliases;
struct RedirectedPage;
struct ServerState;

/// What a request wants. It begins as what the client asked for; a player or a page's redirection
/// makes another of it.
struct Wanted {
  std::string path;   ///< of the URL, up to its last "/"
  std::string title;  ///< what follows
  LocalTarget file;
  std::string info;                  ///< what the path has behind the page's name, from its "/" on
  bool isAlias = false;              ///< the file was asked for by a key, not by its name
  std::optional<std::string> query;  ///< in place of the variables that came with the request
  std::int32_t session = 0;

  std::string document() const { return path + title; }

  /// Pages find in the request what is wanted of them.
  void tell(clsHTTPParser& request) const;

  /// Whether everybody who asks by this path gets this file. Copies are kept of no other.
  bool isPublic() const { return !isAlias && file.isInside(); }

  static Wanted by(const clsHTTPParser& request, const ServerState& state,
                   const FileAliases& aliases, const Clock& clock);

  /// The page that plays a sound file of the same folder.
  Wanted player() const;

  /// What a page names in its place. No variable of the request goes there.
  Wanted redirected(const RedirectedPage& page, const std::string& documentRoot) const;
};

}  // namespace quorvane
