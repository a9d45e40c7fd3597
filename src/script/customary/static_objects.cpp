#include "script/customary/static_objects.h"

#include <algorithm>
#include <array>
#include <utility>

#include "components/components.h"
#include "script/script_values.h"
#include "support/text.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/value_walk.h"

namespace quorvane::customary {

namespace {

vbs::Value nameValue(const StaticObject& declaration) {
  return vbs::Value(std::string_view(declaration.name));
}

Declarations::const_iterator named(const Declarations& set, std::string_view name) {
  return std::find_if(set.begin(), set.end(),
                      [&](const StaticObject& one) { return equalsNoCase(one.name, name); });
}

bool areSame(const Declarations& a, const Declarations& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](const StaticObject& one, const StaticObject& other) {
                      return one.name == other.name && one.progId == other.progId;
                    });
}

}  // namespace

std::shared_ptr<const Declarations> DeclarationSets::keep(Declarations set) {
  const auto known = std::find_if(sets_.begin(), sets_.end(),
                                  [&](const auto& held) { return areSame(*held, set); });
  if (known != sets_.end()) return *known;
  return sets_.emplace_back(std::make_shared<const Declarations>(std::move(set)));
}

StaticObjects::StaticObjects(const Services& services, std::shared_ptr<const Declarations> declared)
    : services_(services),
      declared_(std::move(declared)),
      objects_(declared_->size()),
      charge_(sizeof *this + objects_.size() * sizeof(vbs::Value)) {}

vbs::Value StaticObjects::object(std::size_t place) {
  if (objects_[place].isEmpty()) {
    objects_[place] = createComponent((*declared_)[place].progId, services_);
  }
  return objects_[place];
}

bool StaticObjects::holdsAny() const {
  return std::any_of(objects_.begin(), objects_.end(),
                     [](const vbs::Value& object) { return object.isObject(); });
}

std::unique_ptr<vbs::Enumerator> StaticObjects::enumerate() {
  std::vector<vbs::Value> names;
  for (const StaticObject& one : *declared_) names.push_back(nameValue(one));
  return std::make_unique<vbs::ValueWalk>(std::move(names));
}

void StaticObjects::visitReferences(vbs::ReferenceVisitor& visitor) {
  for (vbs::Value& object : objects_) visitor.value(object);
}

std::span<const vbs::Member<StaticObjects>> StaticObjects::members() {
  using Self = StaticObjects;
  static constexpr std::array<vbs::Member<Self>, 3> kMembers{{
      {"item", 1, 1, &Self::getItem, nullptr, true},
      {"count", 0, 0, &Self::getCount},
      {"key", 1, 1, &Self::getKey},
  }};
  return kMembers;
}

/// Past the end for a name that is not there. Error 9 for such a number.
std::size_t StaticObjects::placeOf(const vbs::Value& nameOrNumber) const {
  const vbs::Value plain = vbs::plainValue(nameOrNumber);
  if (!plain.isString()) return script_values::place(plain, declared_->size());
  const auto found = named(*declared_, script_values::text(plain));
  return static_cast<std::size_t>(found - declared_->begin());
}

vbs::Value StaticObjects::getItem(vbs::Args args) {
  const std::size_t place = placeOf(args[0]);
  return place < declared_->size() ? object(place) : vbs::Value();
}

vbs::Value StaticObjects::getCount(vbs::Args) {
  return vbs::Value::longInt(static_cast<std::int32_t>(declared_->size()));
}

vbs::Value StaticObjects::getKey(vbs::Args args) {
  const std::size_t place = placeOf(args[0]);
  return place < declared_->size() ? nameValue((*declared_)[place]) : vbs::Value();
}

StaticNames::StaticNames(const vbs::Ref<StaticObjects>& objects)
    : StaticNames(objects->declared(), [objects]() -> StaticObjects& { return *objects; }) {}

vbs::MemberId StaticNames::findMember(std::string_view lowerName) {
  const auto found = named(*declared_, lowerName);
  if (found == declared_->end()) return vbs::kNoMember;
  return static_cast<vbs::MemberId>(found - declared_->begin()) + 1;
}

vbs::Value StaticNames::invoke(vbs::MemberId id, vbs::CallKind kind, vbs::Args args) {
  if (id < 1 || static_cast<std::size_t>(id) > declared_->size()) {
    vbs::throwError(vbs::ErrorCode::NoPropertyOrMethod);
  }
  const vbs::Value object = objects_().object(static_cast<std::size_t>(id) - 1);
  const bool isPlain = args.empty() && kind == vbs::CallKind::Get;
  return isPlain ? object : vbs::invokeResult(object, kind, args);
}

}  // namespace quorvane::customary
