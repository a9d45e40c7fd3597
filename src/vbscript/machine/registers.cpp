#include "vbscript/machine/registers.h"

#include "vbscript/values/error.h"

namespace quorvane::vbs {

void release(Value& value) {
  if (value.is(Type::Reference)) {
    value.setIntUncounted(Type::Empty, 0);
  } else if (value.is(Type::ArrayLock)) {
    ArrayRep* locked = value.asArray();
    value.setIntUncounted(Type::Empty, 0);
    if (--locked->locks == 0 && locked->references == 0) ArrayRep::destroy(locked);
  } else {
    const Value ended(std::move(value));
  }
}

void checkAssignable(const Value& variable) {
  if (variable.deref().isFixedArray()) throwError(ErrorCode::TypeMismatch);
}

}  // namespace quorvane::vbs
