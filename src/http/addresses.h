#pragma once

#include <memory>
#include <optional>
#include <string>

#include "http/content_types.h"
#include "http/targets.h"
#include "http/wanted.h"
#include "platform/services.h"

namespace quorvane {

class clsHTTPParser;
class clsQVMod;
class FileAliases;

/// What was found where a request leads.
struct Place {
  enum class Kind {
    Nothing,
    Refused,  ///< not served, whether it is there or not
    File,
    Page,   ///< a script page, which is run
    Moved,  ///< it has another address, where the client is sent
  };

  Kind kind = Kind::Nothing;
  FoundFile file;                             ///< of a file or page, unless a module holds it
  std::shared_ptr<const std::string> module;  ///< the content when one does
  std::string address;                        ///< of what has moved, fit for a header line

  bool isThere() const { return kind != Kind::Nothing && kind != Kind::Refused; }
};

/// What the addresses of requests stand for, decided before any page is known: which file is meant,
/// whether and as what it is served, and what speaks for a file that isn't there. A server goes by
/// one of these as long as it runs.
///
/// What an address comes to mean is told to the request, where pages read of it.
class Addresses {
 public:
  virtual ~Addresses() = default;

  /// What the request asks for.
  virtual Wanted asked(clsHTTPParser& request) const = 0;

  /// What is there. `wanted` may become another file that is served in its place.
  virtual Place placeOf(Wanted& wanted, clsHTTPParser& request) = 0;

  /// What is to run where a request finds nothing; its query string takes the place of the
  /// request's.
  virtual std::optional<Wanted> standIn(const Wanted& missing,
                                        const clsHTTPParser& request) const = 0;

  /// The name by which the client is told that nothing is there.
  virtual std::string missingName(const std::string& localFile,
                                  const clsHTTPParser& request) const = 0;

  virtual ContentTypes& types() = 0;
};

/// The files that requests may want. The members outlive the object.
struct FileSources {
  const Services& services;
  clsQVMod& modules;
  const FileAliases& aliases;

  /// Modules come before the disk. The place's kind is left to the caller.
  std::optional<Place> find(const Wanted& wanted) const;
  std::optional<Place> onDisk(const Wanted& wanted) const;
};

/// Those that the server's settings name.
std::unique_ptr<Addresses> makeAddresses(const FileSources& sources);

}  // namespace quorvane
