#include "http/representations.h"

#include "http/standard/files.h"
#include "http/static_files.h"
#include "support/server_state.h"

namespace quorvane {

std::unique_ptr<Representations> makeRepresentations(const RepresentationParts& parts) {
  if (parts.services.state.StandardHTTP) return std::make_unique<StandardFiles>(parts);
  return std::make_unique<StaticFiles>(parts);
}

}  // namespace quorvane
