#include "vbscript/values/circles.h"

#include <cstdint>
#include <new>
#include <unordered_map>
#include <vector>

namespace quorvane::vbs {

namespace {

/// The objects in question and the arrays that they hold. What has more references than the others
/// account for is held from outside; what that leads to stays with it.
class Census final : ReferenceVisitor {
 public:
  explicit Census(const Object* since) : since_(since) {
    eachObject([this](Object& object) { bodies_.emplace(&object, Body{}); });
    eachObject([this](Object& object) { object.visitReferences(*this); });
    countArrays();
    spread();
  }

  std::vector<Ref<Object>> unheld() {
    std::vector<Ref<Object>> found;
    eachObject([&](Object& object) {
      const auto body = bodies_.find(&object);
      if (body != bodies_.end() && !body->second.stays) found.emplace_back(&object);
    });
    return found;
  }

 private:
  struct Body {
    std::uint32_t inner = 0;  ///< references from objects in question and their arrays
    bool stays = false;
  };

  /// Objects on their way out already (no reference is left) are none of these: what they hold
  /// counts as held from outside.
  template <class Action>
  void eachObject(Action action) {
    for (Object* at = runContext.newestObject; at && at != since_; at = at->older()) {
      if (at->references() > 0) action(*at);
    }
  }

  void value(Value& held) override {
    if (held.isObject()) {
      meet(held.asObject());
    } else if (held.isArray() && held.asArray()->elements) {
      const bool isNew = bodies_.try_emplace(held.asArray()).second;
      if (isNew) arrays_.push_back(held.asArray());
      meet(held.asArray());
    }
  }

  /// While counting: one more reference. Then: it stays, and so does what it leads to.
  template <class T>
  void meet(T* reached) {
    const auto found = bodies_.find(reached);
    if (found == bodies_.end()) return;
    if (!spreading_) {
      ++found->second.inner;
    } else if (!found->second.stays) {
      keep(found->second, reached);
    }
  }

  void keep(Body& body, Object* object) {
    body.stays = true;
    keptObjects_.push_back(object);
  }
  void keep(Body& body, ArrayRep* array) {
    body.stays = true;
    keptArrays_.push_back(array);
  }

  void visitElements(const ArrayRep& array) {
    for (std::size_t i = 0; i < array.count; ++i) value(array.elements[i]);
  }

  void countArrays() {
    for (std::size_t i = 0; i < arrays_.size(); ++i) visitElements(*arrays_[i]);
  }

  void spread() {
    spreading_ = true;
    eachObject([this](Object& object) { keepIfHeld(object.references(), &object); });
    for (ArrayRep* array : arrays_) keepIfHeld(array->references, array);
    while (!keptObjects_.empty() || !keptArrays_.empty()) {
      if (!keptObjects_.empty()) {
        taken(keptObjects_)->visitReferences(*this);
      } else {
        visitElements(*taken(keptArrays_));
      }
    }
  }

  template <class T>
  void keepIfHeld(std::uint32_t references, T* counted) {
    Body& body = bodies_.find(counted)->second;
    if (!body.stays && references > body.inner) keep(body, counted);
  }

  template <class T>
  static T* taken(std::vector<T*>& list) {
    T* last = list.back();
    list.pop_back();
    return last;
  }

  const Object* since_;
  bool spreading_ = false;
  std::unordered_map<const void*, Body> bodies_;
  std::vector<ArrayRep*> arrays_;
  std::vector<Object*> keptObjects_;  ///< whose references are still to be followed
  std::vector<ArrayRep*> keptArrays_;
};

}  // namespace

void endCircles(const Object* since) {
  if (runContext.newestObject == since) return;
  try {
    for (const auto& object : Census(since).unheld()) object->dropReferences();
  } catch (const std::bad_alloc&) {  // without the memory to look for them, circles stay
  }
}

}  // namespace quorvane::vbs
