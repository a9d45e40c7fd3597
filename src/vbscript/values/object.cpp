#include "vbscript/values/object.h"

#include <atomic>
#include <memory>
#include <new>
#include <vector>

#include "vbscript/values/heap.h"

namespace quorvane::vbs {

/// Ends bodies whose last reference is gone. When too many ends are in progress inside each other
/// further ones wait in a queue, which the outermost end empties before it returns.
class EndQueue {
 public:
  static void end(Object* object) { run(object, &EndQueue::objects_); }
  static void end(ArrayRep* array) { run(array, &EndQueue::arrays_); }

 private:
  static constexpr int kMaxDepth = 128;

  static void finish(Object* object) { object->lastRelease(); }
  static void finish(ArrayRep* array) {
    array->~ArrayRep();
    ::operator delete(array);
  }

  template <class Body>
  static void run(Body* body, std::vector<Body*> EndQueue::*queue) {
    EndsInProgress& ends = runContext.ends;
    if (ends.depth >= kMaxDepth) {
      if (!ends.waiting) ends.waiting = new EndQueue;
      (ends.waiting->*queue).push_back(body);
      return;
    }
    ++ends.depth;
    finish(body);
    if (ends.depth == 1 && ends.waiting) empty(ends);
    --ends.depth;
  }

  static void empty(EndsInProgress& ends) {
    EndQueue& queue = *ends.waiting;
    while (!queue.objects_.empty() || !queue.arrays_.empty()) {
      if (!queue.objects_.empty()) {
        finish(take(queue.objects_));
      } else {
        finish(take(queue.arrays_));
      }
    }
    delete std::exchange(ends.waiting, nullptr);
  }

  template <class Body>
  static Body* take(std::vector<Body*>& queue) {
    Body* body = queue.back();
    queue.pop_back();
    return body;
  }

  std::vector<Object*> objects_;
  std::vector<ArrayRep*> arrays_;
};

void Object::end(Object* object) noexcept {
  EndQueue::end(object);
}

void ArrayRep::destroy(ArrayRep* rep) noexcept {
  VBS_ASSERT(rep->references == 0);
  if (rep->locks > 0) return;  // an element is still passed by reference; its lock frees the body
  EndQueue::end(rep);
}

ArrayRep::~ArrayRep() {
  runContext.memory.release(sizeof(ArrayRep) + 2 * extents().size_bytes());
  if (!elements) return;
  std::destroy_n(elements, count);
  runContext.memory.release(count * sizeof(Value));
  giveMemoryBack(elements);
}

Value invokeResult(const Value& result, CallKind kind, Args args) {
  if (!result.isObject() || !result.asObject()) throwError(ErrorCode::WrongArgumentCount);
  return result.asObject()->invoke(kDefaultMember, kind, args);
}

std::uint32_t newNativeClass() {
  static std::atomic<std::uint32_t> next{kFirstNativeClass};
  return next++;
}

Value* Object::itemPlace(const Value&) {
  return nullptr;
}

namespace {

/// Takes away what it is shown. The values end when all are taken: their end may run code that
/// meets the object again.
class Taker final : public ReferenceVisitor {
 public:
  void value(Value& held) override { taken_.push_back(std::move(held)); }

 private:
  std::vector<Value> taken_;
};

}  // namespace

void Object::dropReferences() {
  Taker taker;
  visitReferences(taker);
}

std::unique_ptr<Enumerator> Object::enumerate() {
  throwError(ErrorCode::NotACollection);
}

}  // namespace quorvane::vbs
