#include <algorithm>
#include <vector>

#include "vbscript/library/arguments.h"

namespace quorvane::vbs::intrinsic {

namespace {

struct Bounds {
  std::int32_t lower;
  std::int32_t upper;
};

Bounds boundsAt(Args args) {
  const std::int32_t dimension = longOr(args, 1, 1);  // first: it may take code that ends the array
  const Operand array(args[0]);
  if (!array->isArray()) throwError(ErrorCode::TypeMismatch);
  const ArrayRep& body = *array->asArray();
  if (dimension < 1 || dimension > body.rank) throwError(ErrorCode::SubscriptOutOfRange);
  const std::size_t i = static_cast<std::size_t>(dimension) - 1;
  const std::int32_t lower = body.lowerBounds()[i];
  return {lower, static_cast<std::int32_t>(std::int64_t{lower} + body.extents()[i] - 1)};
}

}  // namespace

Value array(Runtime&, Args args) {
  std::vector<Value> values;
  values.reserve(args.size());
  for (const Value& argument : args) values.push_back(argument.deref());
  return Value::array(ArrayRep::fromValues(std::move(values)));
}

Value lBound(Runtime&, Args args) {
  return Value::longInt(boundsAt(args).lower);
}

Value uBound(Runtime&, Args args) {
  return Value::longInt(boundsAt(args).upper);
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
