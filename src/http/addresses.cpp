#include "http/addresses.h"

#include <utility>

#include "http/clsHTTPParser.h"
#include "http/customary_addresses.h"
#include "http/serverMod.h"
#include "support/clsQVMod.h"
#include "support/paths.h"
#include "support/server_state.h"
#include "support/text.h"

namespace quorvane {

namespace {

bool isSound(std::string_view path) {
  const std::string_view extension = paths::extensionOf(path);
  return equalsNoCase(extension, ".mp3") || equalsNoCase(extension, ".wma") ||
         equalsNoCase(extension, ".wav");
}

/// The server's own: names are taken as they come, any folder at any depth stands for the default
/// document of the document root, and few kinds of files are served.
class OwnAddresses final : public Addresses {
 public:
  explicit OwnAddresses(const FileSources& sources) : sources_(sources) {}

  Wanted asked(clsHTTPParser& request) const override {
    const ServerState& state = sources_.services.state;
    if (request.DocumentTitle().empty()) {
      request.setDocumentTitle(state.DefaultDocument);
      request.setDocumentPath("/");
      request.setDocumentUrl("/" + state.DefaultDocument);
    }
    return Wanted::by(request, state, sources_.aliases, sources_.services.clock);
  }

  Place placeOf(Wanted& wanted, clsHTTPParser& request) override {
    if (isPlayed(wanted, request)) {
      wanted = wanted.player();
      wanted.tell(request);
    }
    const std::string& path = wanted.file.path;
    Place place;
    if (!isAllowedExtension(path)) {
      place.kind = Place::Kind::Refused;
    } else if (auto found = sources_.find(wanted)) {
      place = std::move(*found);
      const bool isPage = equalsNoCase(paths::extensionOf(path), ".qvs");
      place.kind = isPage ? Place::Kind::Page : Place::Kind::File;
    }
    return place;
  }

  std::optional<Wanted> standIn(const Wanted&, const clsHTTPParser&) const override {
    return std::nullopt;
  }

  std::string missingName(const std::string& localFile, const clsHTTPParser&) const override {
    return std::string(paths::fileNameOf(localFile));
  }

  ContentTypes& types() override { return types_; }

 private:
  /// Sound files asked for with an "id" are played by a page.
  static bool isPlayed(const Wanted& wanted, const clsHTTPParser& request) {
    return isSound(wanted.file.path) && !request.RequestVar("id", clsHTTPParser::ByMethod).empty();
  }

  const FileSources sources_;
  ContentTypes types_;
};

}  // namespace

std::optional<Place> FileSources::find(const Wanted& wanted) const {
  if (wanted.file.reach == LocalTarget::Reach::Nowhere) return std::nullopt;
  if (!services.state.NoQvm && !modules.empty()) {
    if (auto content = modules.sharedFile(wanted.document())) {
      Place place;
      place.module = std::move(content);
      return place;
    }
  }
  return onDisk(wanted);
}

std::optional<Place> FileSources::onDisk(const Wanted& wanted) const {
  auto found = targets::locate(services.files, wanted.file, services.state.FollowLinks);
  if (!found) return std::nullopt;
  Place place;
  place.file = std::move(*found);
  return place;
}

std::unique_ptr<Addresses> makeAddresses(const FileSources& sources) {
  const ServerState& state = sources.services.state;
  if (state.Customary == 2) {
    using Spelling = CustomaryAddresses::Spelling;
    const Spelling spelling = state.StandardHTTP ? Spelling::Decoded : Spelling::AsItCame;
    return std::make_unique<CustomaryAddresses>(sources, spelling);
  }
  return std::make_unique<OwnAddresses>(sources);
}

}  // namespace quorvane
