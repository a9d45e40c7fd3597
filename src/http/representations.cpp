#include "http/representations.h"

#include "http/static_files.h"

namespace quorvane {

std::unique_ptr<Representations> makeRepresentations(const RepresentationParts& parts) {
  return std::make_unique<StaticFiles>(parts);
}

}  // namespace quorvane
