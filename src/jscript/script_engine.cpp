#include "jscript/script_engine.h"

#include "jscript/script_object.h"
#include "jscript/world.h"
#include "support/text.h"

namespace quorvane::jscript {

namespace {

/// An unspecified error of an object of the system.
constexpr std::int32_t kNotKept = -2147467259;

bool isKnown(duk_context* context, const std::string& name) {
  duk_push_global_object(context);
  const bool known = duk_has_prop_lstring(context, -1, name.data(), name.size()) != 0;
  duk_pop(context);
  return known;
}

void define(ScriptEngine::World& world, duk_context* context, const std::string& name) {
  const std::string lower = lowerCase(name);
  for (const auto& [known, value, globalMembers] : world.published) {
    vbs::Object& object = *value.asObject();
    if (!known.empty() && known == lower) {
      world.push(context, value);
      duk_put_global_lstring(context, name.data(), name.size());
      return;
    }
    if (!globalMembers) continue;
    const vbs::MemberId id = object.findMember(lower);
    if (id != vbs::kNoMember) return world.defineGetter(context, name, object, id);
  }
}

}  // namespace

ScriptEngine::ScriptEngine() : world_(std::make_shared<World>()) {}

ScriptEngine::~ScriptEngine() {
  world_->end();
}

void ScriptEngine::addObject(std::string_view name, vbs::Object& object, bool globalMembers) {
  world_->published.push_back({lowerCase(name), vbs::Value::object(&object), globalMembers});
}

void ScriptEngine::findNames(const std::vector<std::string>& names) {
  world_->guarded([&](duk_context* context) {
    define(*world_, context, "Server");  // which ActiveXObject uses
    for (const std::string& name : names) {
      if (!isKnown(context, name)) define(*world_, context, name);
    }
  });
}

void ScriptEngine::addProcedure(std::string_view name, const vbs::Value& procedure) {
  world_->guarded([&](duk_context* context) {
    if (isKnown(context, std::string(name))) return;
    world_->push(context, procedure);
    duk_put_global_lstring(context, name.data(), name.size());
  });
}

void ScriptEngine::addVariable(std::string_view name, const vbs::Value& get,
                               const vbs::Value& put) {
  world_->guarded([&](duk_context* context) {
    if (isKnown(context, std::string(name))) return;
    duk_get_global_string(context, "qv$variable");
    duk_push_lstring(context, name.data(), name.size());
    world_->push(context, get);
    world_->push(context, put);
    duk_call(context, 3);
    duk_pop(context);
  });
}

void ScriptEngine::compile(std::string_view code) {
  world_->guarded([&](duk_context* context) { World::compile(context, code, kPage); });
}

void ScriptEngine::run(std::string_view code) {
  world_->run(code);
}

vbs::Value ScriptEngine::use(std::string_view name, vbs::CallKind kind, vbs::Args args) {
  vbs::Value result;
  world_->guarded([&](duk_context* context) {
    duk_push_global_object(context);
    duk_push_lstring(context, name.data(), name.size());
    result = useProperty(*world_, context, kind, args);
  });
  return result;
}

std::uint32_t ScriptEngine::failedLine() const {
  return world_->failedLine;
}

void requireKeepable(const vbs::Value& value) {
  if (value.isArray()) {
    const vbs::ArrayRep& array = *value.asArray();
    for (std::size_t i = 0; i < array.count; ++i) requireKeepable(array.element(i).deref());
  }
  if (!value.isObject() || !dynamic_cast<const ScriptObject*>(value.asObject())) return;
  NotKept error;
  error.number = kNotKept;
  error.description = "An object or array of JScript ends with its page and can't be kept";
  error.source = "JScript runtime error";
  throw error;
}

std::optional<CompileFault> findFault(std::string_view code) {
  ScriptEngine engine;
  try {
    engine.compile(code);
    return std::nullopt;
  } catch (const vbs::ScriptError& error) {
    return CompileFault{error, engine.failedLine()};
  }
}

}  // namespace quorvane::jscript
