#include "platform/image_library.h"

#include <atomic>
#include <cstdint>

#include "platform/picture_tools.h"
#include "support/files.h"

namespace quorvane {

namespace {

/// Bytes of a source; it is held in memory while it is rendered.
constexpr std::uint64_t kMostSourceBytes = std::uint64_t{128} << 20;

class Images final : public ImageLibrary {
 public:
  explicit Images(const Files& files) : files_(files) {}

  bool render(const std::string& source, const std::string& target,
              const ImageRendering& wanted) override {
    const picture_tools::Loaded& pictures = picture_tools::load();
    isLoaded_ = true;
    const auto info = files_.stat(source);
    if (!pictures.library || !info || info->isFolder || info->size > kMostSourceBytes) return false;
    const auto bytes = files_.readAll(source);
    const auto result = bytes ? pictures.library->rendered(*bytes, wanted) : std::nullopt;
    return result && files_.writeAll(target, *result);
  }

  std::string complaint() const override {
    return isLoaded_ ? picture_tools::load().complaint : std::string();
  }

 private:
  const Files& files_;
  std::atomic<bool> isLoaded_ = false;
};

}  // namespace

std::unique_ptr<ImageLibrary> makeImageLibrary(const Files& files) {
  return std::make_unique<Images>(files);
}

}  // namespace quorvane
