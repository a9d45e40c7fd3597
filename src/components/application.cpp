#include "components/application.h"

#include <array>
#include <chrono>
#include <optional>
#include <utility>
#include <vector>

#include "platform/clock.h"
#include "platform/random.h"
#include "support/server_state.h"
#include "support/text.h"
#include "vbscript/values/circles.h"
#include "vbscript/values/convert.h"

namespace quorvane {

namespace {

std::string text(const vbs::Value& value) {
  return vbs::toString(value).narrow();
}

}  // namespace

std::span<const vbs::Member<OfferedFiles>> OfferedFiles::members() {
  static constexpr std::array<vbs::Member<OfferedFiles>, 2> kMembers{{
      {"add", 1, 2, &OfferedFiles::callAdd},
      {"remove", 1, 1, &OfferedFiles::callRemove},
  }};
  return kMembers;
}

vbs::Value OfferedFiles::callAdd(vbs::Args args) {
  const std::string key = hexDigits(services_.random.guid());
  std::optional<TimePoint> expires;
  if (args.size() > 1 && !args[1].deref().isMissing()) {
    expires = services_.clock.now() + std::chrono::minutes{vbs::toLong(args[1])};
  }
  aliases_.offer(key, text(args[0]), expires);
  return vbs::Value(std::string_view(key));
}

vbs::Value OfferedFiles::callRemove(vbs::Args args) {
  aliases_.withdraw(text(args[0]));
  return {};
}

ApplicationComponent::ApplicationComponent(const Services& services, FileAliases& aliases)
    : version_(VersionText(services.state)), files_(vbs::make<OfferedFiles>(services, aliases)) {}

ApplicationComponent::~ApplicationComponent() {
  shared_->dropAll();
  vbs::endCircles(nullptr);
}

std::span<const vbs::Member<ApplicationComponent>> ApplicationComponent::members() {
  using Self = ApplicationComponent;
  static constexpr std::array<vbs::Member<Self>, kGlobalMembers> kMembers{{
      {"application", 0, 1, &Self::getApplication, &Self::putApplication},
      {"version", 0, 0, &Self::getVersion},
      {"files", 0, 0, &Self::getFiles},
      {"text", 1, 255, &Self::callText},
  }};
  return kMembers;
}

vbs::Value ApplicationComponent::getApplication(vbs::Args args) {
  return args.empty() ? vbs::Value::object(shared_.get()) : shared_->item(args[0]);
}

void ApplicationComponent::putApplication(vbs::Args args, vbs::CallKind) {
  if (args.size() != 2) vbs::throwError(vbs::ErrorCode::WrongArgumentCount);
  shared_->setItem(args[0], args[1]);
}

vbs::Value ApplicationComponent::getVersion(vbs::Args) {
  return vbs::Value(std::string_view(version_));
}

vbs::Value ApplicationComponent::getFiles(vbs::Args) {
  return vbs::Value::object(files_.get());
}

vbs::Value ApplicationComponent::callText(vbs::Args args) {
  const std::int32_t number = vbs::toLong(args[0]);
  std::vector<std::string> values;
  for (const vbs::Value& value : args.subspan(1)) values.push_back(text(value));
  const std::string found = texts_ ? texts_->numberedText(number, values) : std::string();
  return vbs::Value(std::string_view(found));
}

}  // namespace quorvane
