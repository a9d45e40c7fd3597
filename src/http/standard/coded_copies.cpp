#include "http/standard/coded_copies.h"

#include <chrono>

#include "http/standard/validators.h"
#include "platform/clock.h"
#include "support/files.h"
#include "support/paths.h"
#include "support/server_state.h"

namespace quorvane {

namespace {

constexpr std::string_view kMark = "^E";

}  // namespace

std::string CodedCopies::nameOf(const FoundFile& source, ContentCoding coding) {
  const auto time = source.info.modified.time_since_epoch().count();
  std::string version = source.path;
  version.append(1, '\0').append(std::to_string(source.info.size));
  version.append(1, '\0').append(std::to_string(time));
  std::string name(kMark);
  name.append(std::to_string(fingerprint(version)))
      .append(".")
      .append(content_coding::nameOf(coding));
  return name;
}

bool CodedCopies::isCopy(std::string_view name) {
  if (!name.starts_with(kMark)) return false;
  name.remove_prefix(kMark.size());
  const std::size_t end = name.find_first_not_of("0123456789");
  if (end == 0 || end == std::string_view::npos || name[end] != '.') return false;
  for (const ContentCoding coding : content_coding::kAll) {
    if (name.substr(end + 1) == content_coding::nameOf(coding)) return true;
  }
  return false;
}

std::optional<Body> CodedCopies::present(const FoundFile& source, ContentCoding coding) {
  const std::string& path = pathOf(source, coding);
  const auto info = services_.files.stat(path);
  if (!info) return std::nullopt;
  auto content = contents_.contentOf(path, *info);
  if (!content) return std::nullopt;
  kept_.used(path, info->size);
  return std::move(content->body);
}

Making CodedCopies::lacking(const FoundFile& source, ContentCoding coding) {
  if (source.info.size > kMostSourceBytes) return {};
  const std::string& path = pathOf(source, coding);
  if (services_.files.stat(path)) return {};
  const TimePoint now = services_.clock.now();
  if (const TimePoint last = lastFailure_->load(); last > now - kPause && last <= now) {
    return {};
  }
  auto make = [&files = services_.files, failure = lastFailure_, now, source, coding, path] {
    auto bytes = files.readAll(source.path);
    const bool isPacked =
        bytes && content_coding::pack(*bytes, coding, content_coding::Effort::Kept);
    if (!isPacked || files.stat(source.path) != source.info)
      return;  // it is another file meanwhile
    if (!files.writeAll(path, *bytes)) failure->store(now);
  };
  return {path, std::move(make)};
}

const std::string& CodedCopies::pathOf(const FoundFile& source, ContentCoding coding) {
  if (coding != lastCoding_ || source.info != lastSource_.info || source.path != lastSource_.path) {
    lastPath_ = paths::join(services_.state.CacheFolder, nameOf(source, coding));
    lastSource_ = source;
    lastCoding_ = coding;
  }
  return lastPath_;
}

}  // namespace quorvane
