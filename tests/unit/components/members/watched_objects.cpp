#include "members/watched_objects.h"

#include <algorithm>

#include "support/text.h"

namespace quorvane {

using vbs::Args;
using vbs::CallKind;
using vbs::MemberId;
using vbs::Object;
using vbs::Value;

/// The script's side of one object.
class WatchedObjects::Watched final : public Object {
 public:
  Watched(WatchedObjects& book, Object& real, std::string family)
      : book_(book), real_(&real), kind_(book.kindOf(real)), family_(std::move(family)) {
    book_.watching_[real_.get()] = this;
  }
  ~Watched() override { book_.watching_.erase(real_.get()); }

  Object& real() { return *real_; }

  std::string_view typeName() const override { return real_->typeName(); }
  MemberId findMember(std::string_view name) override {
    const MemberId id = real_->findMember(name);
    asked_[id] = name;
    return id;
  }
  const void* shape() const override { return real_->shape(); }
  MemberId objectMember(MemberId id) const override { return real_->objectMember(id); }
  bool joinsTexts(MemberId id) const override { return real_->joinsTexts(id); }
  bool isAssignable(MemberId id) const override { return real_->isAssignable(id); }
  std::vector<vbs::MemberUse> listMembers() const override { return real_->listMembers(); }
  /// None for objects, which would come unwatched.
  Value* itemPlace(const Value& key) override {
    Value* const place = real_->itemPlace(key);
    return place && place->isObject() ? nullptr : place;
  }
  std::unique_ptr<vbs::Enumerator> enumerate() override;
  void visitReferences(vbs::ReferenceVisitor& visitor) override {
    Value held = Value::object(real_.get());
    visitor.value(held);
  }
  Value defaultValue() override {
    use(vbs::kDefaultMember);
    return book_.watched(real_->defaultValue(), family_);
  }

  Value invoke(MemberId id, CallKind kind, Args args) override {
    use(id);
    std::vector<Value> plain;
    for (Value& arg : args) plain.push_back(unwatched(arg));
    return book_.watched(real_->invoke(id, kind, plain), family_);
  }

 private:
  /// Components know their own kinds of objects only.
  static Value unwatched(const Value& arg) {
    const Value& value = arg.deref();
    auto* const watched = value.isObject() ? dynamic_cast<Watched*>(value.asObject()) : nullptr;
    return watched ? Value::object(&watched->real()) : arg;
  }

  void use(MemberId id) {
    const std::string_view member = nameOf(id);
    if (!member.empty()) kind_.used.insert(member);
  }

  std::string_view nameOf(MemberId id) const {
    constexpr MemberId kMarks = 1 << 30;  // tell how a member is used
    const MemberId row = id & ~kMarks;
    for (std::size_t i = 0; i < kind_.members.size(); ++i) {
      const vbs::MemberUse& member = kind_.members[i];
      const bool isIt = row == vbs::kDefaultMember ? member.isDefault
                        : real_->shape()           ? row == static_cast<MemberId>(i) + 1
                                                   : askedFor(row) == member.name;
      if (isIt) return member.name;
    }
    return {};
  }
  std::string_view askedFor(MemberId id) const {
    const auto found = asked_.find(id);
    return found == asked_.end() ? std::string_view() : found->second;
  }

  WatchedObjects& book_;
  vbs::Ref<Object> real_;
  Kind& kind_;
  std::string family_;
  std::map<MemberId, std::string> asked_;

  friend class WatchedObjects;
};

class WatchedObjects::Walk final : public vbs::Enumerator {
 public:
  Walk(WatchedObjects& book, std::unique_ptr<vbs::Enumerator> real, Watched& owner)
      : book_(book), real_(std::move(real)), owner_(&owner) {}

  bool next(Value& item) override {
    Value found;
    if (!real_->next(found)) return false;
    item = book_.watched(found, owner_->family_);
    return true;
  }

 private:
  WatchedObjects& book_;
  std::unique_ptr<vbs::Enumerator> real_;
  vbs::Ref<Watched> owner_;
};

std::unique_ptr<vbs::Enumerator> WatchedObjects::Watched::enumerate() {
  return std::make_unique<Walk>(book_, real_->enumerate(), *this);
}

std::string WatchedObjects::Kind::name() const {
  const std::string& from = makers.empty() ? *families.begin() : makers.front();
  return from.substr(0, from.find('.')) + '.' + typeName;
}

/// The family is that of the name which has made such an object first.
Value WatchedObjects::created(const Value& object, std::string_view progId) {
  if (object.asObject()->listMembers().empty()) return object;
  std::vector<std::string>& makers = kindOf(*object.asObject()).makers;
  const std::string name = lowerCase(progId);
  if (std::find(makers.begin(), makers.end(), name) == makers.end()) makers.push_back(name);
  return watched(object, makers.front().substr(0, makers.front().find('.')));
}

/// What has no table of members is left alone, as a script's own objects.
Value WatchedObjects::watched(const Value& value, const std::string& family) {
  if (!value.isObject() || !value.asObject()) return value;
  Object& object = *value.asObject();
  const auto known = watching_.find(&object);
  if (known != watching_.end()) return Value::object(known->second);
  if (object.listMembers().empty()) return value;
  Watched* const made = new Watched(*this, object, family);
  made->kind_.families.insert(family);
  return Value::adopt(made);
}

WatchedObjects::Kind& WatchedObjects::kindOf(const Object& object) {
  const void* const key = object.shape() ? object.shape() : object.typeName().data();
  Kind& kind = kinds_[key];
  if (kind.members.empty()) {
    kind.typeName = object.typeName();
    kind.members = object.listMembers();
  }
  return kind;
}

}  // namespace quorvane
