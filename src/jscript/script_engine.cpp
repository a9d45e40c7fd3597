#include "jscript/script_engine.h"

#include "jscript/script_object.h"
#include "jscript/world.h"
#include "support/text.h"

namespace quorvane::jscript {

namespace {

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

void ScriptEngine::run(std::string_view code) {
  world_->run(code, "page");
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

}  // namespace quorvane::jscript
