#include <algorithm>
#include <vector>

#include "vbscript/library/arguments.h"

namespace quorvane::vbs::intrinsic {

namespace {

std::int32_t extentAt(Args args) {
  const std::int32_t dimension = longOr(args, 1, 1);  // first: it may take code that ends the array
  const Operand array(args[0]);
  if (!array->isArray()) throwError(ErrorCode::TypeMismatch);
  const auto extents = array->asArray()->extents();
  if (dimension < 1 || static_cast<std::size_t>(dimension) > extents.size()) {
    throwError(ErrorCode::SubscriptOutOfRange);
  }
  return extents[static_cast<std::size_t>(dimension) - 1];
}

}  // namespace

Value array(Runtime&, Args args) {
  std::vector<Value> values;
  values.reserve(args.size());
  for (const Value& argument : args) values.push_back(argument.deref());
  return Value::array(ArrayRep::fromValues(std::move(values)));
}

Value lBound(Runtime&, Args args) {
  extentAt(args);
  return Value::longInt(0);
}

Value uBound(Runtime&, Args args) {
  return Value::longInt(extentAt(args) - 1);
}

}  // namespace quorvane::vbs::intrinsic

namespace quorvane::vbs {

void eraseArray(Value& variable) {
  Value& target = variable.deref();
  if (!target.isArray()) throwError(ErrorCode::TypeMismatch);
  if (target.asArray()->locks > 0) throwError(ErrorCode::ArrayLocked);
  const bool fixed = target.isFixedArray();
  const auto extents = target.asArray()->extents();
  ArrayRep* empty = ArrayRep::create(fixed ? extents : extents.subspan(extents.size()));
  const Value old(std::move(target));  // the end of its elements may run script code
  target = Value::array(empty);
  if (fixed) target.fixArray();
}

}  // namespace quorvane::vbs
