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

void clearRange(Value* first, const Value* last) {
  for (; first < last; ++first) {
    if (first->is(Type::Reference)) {
      first->setIntUncounted(Type::Empty, 0);
    } else if (needsCare(*first)) {
      release(*first);
    }
  }
}

void checkAssignable(const Value& variable) {
  if (variable.deref().isFixedArray()) throwError(ErrorCode::TypeMismatch);
}

}  // namespace quorvane::vbs
