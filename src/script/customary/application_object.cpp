#include "script/customary/application_object.h"

#include <array>

#include "script/customary/contents_object.h"

namespace quorvane::customary {

std::span<const vbs::Member<ApplicationObject>> ApplicationObject::members() {
  using Self = ApplicationObject;
  static constexpr std::array<vbs::Member<Self>, 5> kMembers{{
      {"value", 1, 1, &Self::getValue, &Self::putValue, true},
      {"contents", 0, 1, &Self::getContents, &Self::putContents},
      {"staticobjects", 0, 1, &Self::getStaticObjects},
      {"lock", 0, 0, &Self::callLock},
      {"unlock", 0, 0, &Self::callUnlock},
  }};
  return kMembers;
}

vbs::Value ApplicationObject::getValue(vbs::Args args) {
  return values_->item(args[0]);
}

void ApplicationObject::putValue(vbs::Args args, vbs::CallKind kind) {
  values_->setItem(args[0], keptValue(args[1], kind));
}

vbs::Value ApplicationObject::getContents(vbs::Args args) {
  return itemOrAll(vbs::make<ContentsObject>(values_), args);
}

void ApplicationObject::putContents(vbs::Args args, vbs::CallKind kind) {
  vbs::make<ContentsObject>(values_)->invoke(vbs::kDefaultMember, kind, args);
}

vbs::Value ApplicationObject::getStaticObjects(vbs::Args args) {
  return itemOrAll(objects_, args);
}

vbs::Value ApplicationObject::callLock(vbs::Args) {
  values_->lock();
  return {};
}

vbs::Value ApplicationObject::callUnlock(vbs::Args) {
  values_->unlock();
  return {};
}

}  // namespace quorvane::customary
