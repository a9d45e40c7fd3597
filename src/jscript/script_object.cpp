#include "jscript/script_object.h"

#include "support/text.h"

namespace quorvane::jscript {

namespace {

bool isPut(vbs::CallKind kind) {
  return kind == vbs::CallKind::Let || kind == vbs::CallKind::Set;
}

/// The items of an array, as many as there are now.
class Items final : public vbs::Enumerator {
 public:
  Items(vbs::Ref<ScriptObject> array, std::uint32_t count)
      : array_(std::move(array)), count_(count) {}

  bool next(vbs::Value& item) override {
    if (at_ >= count_) return false;
    vbs::Value index = vbs::Value::number(at_++);
    item = array_->invoke(vbs::kDefaultMember, vbs::CallKind::Get, {&index, 1});
    return true;
  }

 private:
  vbs::Ref<ScriptObject> array_;
  std::uint32_t count_;
  std::uint32_t at_ = 0;
};

/// What an object is worth as a plain value.
vbs::Value plainValue(ScriptEngine::World& world, duk_context* context) {
  duk_to_primitive(context, -1, DUK_HINT_NONE);
  vbs::Value value = world.valueAt(context, -1);
  duk_pop(context);
  return value;
}

}  // namespace

vbs::Value useProperty(ScriptEngine::World& world, duk_context* context, vbs::CallKind kind,
                       vbs::Args args) {
  if (isPut(kind)) {
    if (args.empty()) vbs::throwError(vbs::ErrorCode::WrongArgumentCount);
    if (args.size() > 1) {  // o.list(1) = x
      duk_get_prop(context, -2);
      duk_remove(context, -2);
      world.push(context, args.front());
      vbs::Value result = useProperty(world, context, kind, args.subspan(1));
      return result;
    }
    world.push(context, args.back());
    duk_put_prop(context, -3);
    duk_pop(context);
    return {};
  }
  duk_get_prop(context, -2);
  if (duk_is_callable(context, -1)) {
    duk_insert(context, -2);
    world.call(context, args);
  } else {
    duk_remove(context, -2);
    if (!args.empty()) {
      world.push(context, args.front());
      return useProperty(world, context, kind, args.subspan(1));
    }
  }
  vbs::Value value = world.valueAt(context, -1);
  duk_pop(context);
  return value;
}

ScriptObject::~ScriptObject() {
  world_->forget(key_);
}

vbs::MemberId ScriptObject::findMember(std::string_view lowerName) {
  vbs::MemberId id = vbs::kNoMember;
  world_->guarded([&](duk_context* context) {
    world_->pushKept(context, key_);
    if (duk_has_prop_lstring(context, -1, lowerName.data(), lowerName.size())) {
      id = world_->idOf(lowerName);
      return duk_pop(context);
    }
    duk_enum(context, -1, DUK_ENUM_INCLUDE_NONENUMERABLE);
    while (id == vbs::kNoMember && duk_next(context, -1, 0)) {
      duk_size_t size = 0;
      const char* name = duk_to_lstring(context, -1, &size);
      if (equalsNoCase({name, size}, lowerName)) id = world_->idOf({name, size});
      duk_pop(context);
    }
    duk_pop_2(context);
  });
  return id;
}

vbs::Value ScriptObject::invoke(vbs::MemberId id, vbs::CallKind kind, vbs::Args args) {
  const vbs::Ref<ScriptObject> self(this);
  vbs::Value result;
  world_->guarded([&](duk_context* context) {
    world_->pushKept(context, key_);
    if (id != vbs::kDefaultMember) {
      const std::string& name = world_->nameOf(id);
      duk_push_lstring(context, name.data(), name.size());
      result = useProperty(*world_, context, kind, args);
    } else if (!isPut(kind) && duk_is_callable(context, -1)) {
      duk_push_undefined(context);
      world_->call(context, args);
      result = world_->valueAt(context, -1);
      duk_pop(context);
    } else if (args.empty()) {
      result = plainValue(*world_, context);
    } else {
      world_->push(context, args.front());
      result = useProperty(*world_, context, kind, args.subspan(1));
    }
  });
  return result;
}

std::unique_ptr<vbs::Enumerator> ScriptObject::enumerate() {
  std::uint32_t count = 0;
  bool isArray = false;
  world_->guarded([&](duk_context* context) {
    world_->pushKept(context, key_);
    isArray = duk_is_array(context, -1);
    if (isArray) count = static_cast<std::uint32_t>(duk_get_length(context, -1));
    duk_pop(context);
  });
  if (!isArray) vbs::throwError(vbs::ErrorCode::NotACollection);
  return std::make_unique<Items>(vbs::Ref<ScriptObject>(this), count);
}

}  // namespace quorvane::jscript
