#include "vbscript/values/object.h"

#include <cstdlib>
#include <memory>
#include <new>
#include <vector>

namespace quorvane::vbs {

/// Ends bodies whose last reference is gone. When too many ends are in progress inside each other
/// further ones wait in a queue, which the outermost end empties before it returns.
class EndQueue {
 public:
  void end(Object* object) { run(object, objects_); }
  void end(ArrayRep* array) { run(array, arrays_); }

 private:
  static constexpr int kMaxDepth = 128;

  static void finish(Object* object) { object->lastRelease(); }
  static void finish(ArrayRep* array) {
    array->~ArrayRep();
    ::operator delete(array);
  }

  template <class Body>
  void run(Body* body, std::vector<Body*>& queue) {
    if (depth_ >= kMaxDepth) {
      queue.push_back(body);
      return;
    }
    ++depth_;
    finish(body);
    if (depth_ == 1) empty();
    --depth_;
  }

  void empty() {
    while (!objects_.empty() || !arrays_.empty()) {
      if (!objects_.empty()) {
        finish(take(objects_));
      } else {
        finish(take(arrays_));
      }
    }
  }

  template <class Body>
  static Body* take(std::vector<Body*>& queue) {
    Body* body = queue.back();
    queue.pop_back();
    return body;
  }

  int depth_ = 0;
  std::vector<Object*> objects_;
  std::vector<ArrayRep*> arrays_;
};

namespace {
thread_local EndQueue endQueue;
}

void Object::end(Object* object) noexcept {
  endQueue.end(object);
}

void ArrayRep::destroy(ArrayRep* rep) noexcept {
  if (rep->locks > 0) return;  // an element is still passed by reference; its lock frees the body
  endQueue.end(rep);
}

ArrayRep::~ArrayRep() {
  memoryMeter.release(sizeof(ArrayRep) + extents().size_bytes());
  if (!elements) return;
  std::destroy_n(elements, count);
  memoryMeter.release(count * sizeof(Value));
  std::free(elements);
}

Value invokeResult(const Value& result, CallKind kind, Args args) {
  if (!result.isObject() || !result.asObject()) throwError(ErrorCode::WrongArgumentCount);
  return result.asObject()->invoke(kDefaultMember, kind, args);
}

Value* Object::itemPlace(const Value&) {
  return nullptr;
}

std::unique_ptr<Enumerator> Object::enumerate() {
  throwError(ErrorCode::NotACollection);
}

}  // namespace quorvane::vbs
