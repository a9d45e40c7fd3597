#include <cstdlib>
#include <utility>

#include "jscript/heap_text.h"
#include "jscript/script_object.h"
#include "jscript/world.h"
#include "support/text.h"

namespace quorvane::jscript {

namespace {

using World = ScriptEngine::World;

// Names of properties that no script can spell.
constexpr const char* kHost = DUK_HIDDEN_SYMBOL("host");
constexpr const char* kMember = DUK_HIDDEN_SYMBOL("member");
constexpr const char* kObject = DUK_HIDDEN_SYMBOL("object");

/// Of the heap's stash.
constexpr const char* kTraps = "traps";

/// In front of the number of a call's arguments; no name of a member begins with it.
constexpr char kKeyMark = '\x01';

std::uint32_t keyOf(const std::string& name) {
  return static_cast<std::uint32_t>(std::strtoul(name.c_str() + 1, nullptr, 10));
}

/// Whether a member's name is a place in a collection: `nodes[0]`.
bool isPlace(std::string_view name) {
  constexpr std::size_t kMostDigits = 9;
  return !name.empty() && name.size() <= kMostDigits &&
         name.find_first_not_of("0123456789") == name.npos;
}

duk_ret_t endHost(duk_context* context) {
  duk_get_prop_string(context, 0, kHost);
  auto* host = static_cast<vbs::Value*>(duk_get_pointer(context, -1));
  duk_push_pointer(context, nullptr);
  duk_put_prop_string(context, 0, kHost);
  delete host;
  return 0;
}

vbs::Object& objectOf(const vbs::Value& host) {
  if (!host.isObject() || !host.asObject()) vbs::throwError(vbs::ErrorCode::NoPropertyOrMethod);
  return *host.asObject();
}

}  // namespace

/// How objects of the host behave; functions of the heap, called by it.
struct World::Traps {
  static std::vector<vbs::Value> argsFrom(duk_context* context, duk_idx_t first) {
    std::vector<vbs::Value> args;
    for (duk_idx_t i = first; i < duk_get_top(context); ++i) {
      args.push_back(of(context).valueAt(context, i));
    }
    return args;
  }

  /// `host` is the caller's own: the call may end who holds it.
  static vbs::Value invoke(const vbs::Value& host, vbs::MemberId id, vbs::CallKind kind,
                           std::vector<vbs::Value> args) {
    vbs::Object& object = objectOf(host);
    if (kind == vbs::CallKind::Get) id = object.objectMember(id);
    return object.invoke(id, kind, args);
  }

  /// As scripts assign: an object as such where the member takes one, else by what it is worth.
  static void assign(const vbs::Value& host, vbs::MemberId id, std::vector<vbs::Value> args) {
    const vbs::Value value = args.back();
    if (value.isObject() && value.asObject()) {
      try {
        invoke(host, id, vbs::CallKind::Set, args);
        return;
      } catch (const NotKept&) {
        throw;
      } catch (const vbs::ScriptError&) {
        args.back() = value.asObject()->defaultValue();
      }
    }
    invoke(host, id, vbs::CallKind::Let, std::move(args));
  }

  static vbs::MemberId find(const vbs::Value& host, std::string_view name) {
    return objectOf(host).findMember(lowerCase(name));
  }
  static vbs::MemberId require(const vbs::Value& host, std::string_view name) {
    if (name.empty()) return vbs::kDefaultMember;
    const vbs::MemberId id = find(host, name);
    if (id == vbs::kNoMember) vbs::throwError(vbs::ErrorCode::NoPropertyOrMethod, name);
    return id;
  }

  /// To a member with arguments, else to what it gives: `rows.Fields("a") = 1`.
  static void assign(const vbs::Value& host, Key key, const vbs::Value& value) {
    const vbs::MemberId id = require(host, key.member);
    std::vector<vbs::Value> args = key.args;
    args.push_back(value);
    try {
      assign(host, id, std::move(args));
    } catch (const vbs::ScriptError& error) {
      if (error.number != static_cast<std::int32_t>(vbs::ErrorCode::NoPropertyOrMethod)) throw;
      assign(invoke(host, id, vbs::CallKind::Get, std::move(key.args)), vbs::kDefaultMember,
             {value});
    }
  }

  /// Pushes a function that uses the member `id` of the object at `index`.
  static void pushMember(duk_context* context, duk_c_function function, duk_idx_t index,
                         vbs::MemberId id) {
    index = duk_require_normalize_index(context, index);
    duk_push_c_function(context, function, DUK_VARARGS);
    duk_dup(context, index);
    duk_put_prop_string(context, -2, kObject);
    duk_push_int(context, id);
    duk_put_prop_string(context, -2, kMember);
  }

  static duk_ret_t callMember(duk_context* context) {
    return native(context, [&] {
      World& world = of(context);
      std::vector<vbs::Value> args = argsFrom(context, 0);
      duk_push_current_function(context);
      duk_get_prop_string(context, -1, kObject);
      duk_get_prop_string(context, -2, kMember);
      const vbs::Value host = *world.hostAt(context, -2);
      const auto id = static_cast<vbs::MemberId>(duk_get_int(context, -1));
      world.push(context, invoke(host, id, vbs::CallKind::Get, std::move(args)));
      return 1;
    });
  }

  static duk_ret_t plainOf(duk_context* context) {
    return native(context, [&] {
      World& world = of(context);
      duk_push_current_function(context);
      duk_get_prop_string(context, -1, kObject);
      const vbs::Value host = *world.hostAt(context, -1);
      world.push(context, objectOf(host).defaultValue());
      return 1;
    });
  }

  static duk_ret_t get(duk_context* context) {
    return native(context, [&] {
      World& world = of(context);
      if (duk_is_symbol(context, 1)) return 0;
      const std::string name(duk_to_string(context, 1));
      const bool isCall = std::exchange(world.called_, {}) == name;
      const vbs::Value host = *world.hostAt(context, 0);
      if (name.starts_with(kKeyMark)) {
        const auto found = world.keys_.find(keyOf(name));
        if (found == world.keys_.end()) return 0;
        const Key key = found->second;
        world.push(context, invoke(host, require(host, key.member), vbs::CallKind::Get, key.args));
        return 1;
      }
      const bool isObject = host.isObject();
      const vbs::MemberId id = isObject ? find(host, name) : vbs::kNoMember;
      if (id == vbs::kNoMember) {
        if (isObject && isPlace(name)) {
          const auto place = vbs::Value::longInt(std::stoi(name));
          world.push(context, invoke(host, vbs::kDefaultMember, vbs::CallKind::Get, {place}));
          return 1;
        }
        if (isObject && (name == "valueOf" || name == "toString")) {
          pushMember(context, &Traps::plainOf, 0, 0);
          return 1;
        }
        if (!isObject || name == "toJSON" || name == "constructor") return 0;
        vbs::throwError(vbs::ErrorCode::NoPropertyOrMethod, name);
      }
      if (isCall) {
        pushMember(context, &Traps::callMember, 0, id);
      } else {
        world.push(context, invoke(host, id, vbs::CallKind::Get, {}));
      }
      return 1;
    });
  }

  /// For `with`, which asks each name of its body.
  static duk_ret_t has(duk_context* context) {
    return native(context, [&] {
      const bool isName = !duk_is_symbol(context, 1);
      const vbs::Value host = *of(context).hostAt(context, 0);
      const bool isThere =
          isName && host.isObject() && find(host, duk_to_string(context, 1)) != vbs::kNoMember;
      duk_push_boolean(context, isThere);
      return 1;
    });
  }

  static duk_ret_t set(duk_context* context) {
    return native(context, [&] {
      World& world = of(context);
      const std::string name(duk_to_string(context, 1));
      const vbs::Value host = *world.hostAt(context, 0);
      const vbs::Value value = world.valueAt(context, 2);
      if (name.starts_with(kKeyMark)) {
        auto kept = world.keys_.extract(keyOf(name));
        if (kept) assign(host, std::move(kept.mapped()), value);
      } else {
        assign(host, require(host, name), {value});
      }
      duk_push_true(context);
      return 1;
    });
  }

  static duk_ret_t apply(duk_context* context) {
    return native(context, [&] {
      World& world = of(context);
      std::vector<vbs::Value> args;
      const auto count = static_cast<duk_uarridx_t>(duk_get_length(context, 2));
      for (duk_uarridx_t i = 0; i < count; ++i) {
        duk_get_prop_index(context, 2, i);
        args.push_back(world.valueAt(context, -1));
        duk_pop(context);
      }
      const vbs::Value host = *world.hostAt(context, 0);
      world.push(context, invoke(host, vbs::kDefaultMember, vbs::CallKind::Get, std::move(args)));
      return 1;
    });
  }

  static duk_ret_t getGlobal(duk_context* context) {
    duk_set_top(context, 0);
    return callMember(context);
  }

  /// See ScriptText.
  static duk_ret_t markCall(duk_context* context) {
    return native(context, [&] {
      of(context).called_ = textAt(context, 0);
      duk_set_top(context, 1);
      return 1;
    });
  }

  static duk_ret_t keepArgs(duk_context* context) {
    return native(context, [&] {
      World& world = of(context);
      const std::uint32_t key = ++world.lastKey_;
      world.keys_.emplace(key, Key{std::string(textAt(context, 0)), argsFrom(context, 1)});
      const std::string name = kKeyMark + std::to_string(key);
      duk_push_lstring(context, name.data(), name.size());
      return 1;
    });
  }

  static duk_ret_t items(duk_context* context) {
    return native(context, [&] {
      World& world = of(context);
      vbs::Value* const found = world.hostAt(context, 0);
      if (!found) {
        duk_set_top(context, 1);
        return 1;
      }
      const vbs::Value host = *found;
      duk_uarridx_t at = 0;
      const duk_idx_t list = duk_push_array(context);
      const auto add = [&](const vbs::Value& item) {
        world.push(context, item);
        duk_put_prop_index(context, list, at++);
      };
      if (host.isArray()) {
        for (std::size_t i = 0; i < host.asArray()->count; ++i) add(host.asArray()->element(i));
        return 1;
      }
      const auto all = objectOf(host).enumerate();
      for (vbs::Value item; all->next(item);) {
        vbs::checkTime();
        add(item);
      }
      return 1;
    });
  }

  static duk_ret_t extents(duk_context* context) {
    return native(context, [&] {
      const vbs::Value* const host = of(context).hostAt(context, 0);
      if (!host || !host->isArray()) vbs::throwError(vbs::ErrorCode::TypeMismatch);
      const duk_idx_t list = duk_push_array(context);
      duk_uarridx_t at = 0;
      for (const std::int32_t extent : host->asArray()->extents()) {
        duk_push_int(context, extent);
        duk_put_prop_index(context, list, at++);
      }
      return 1;
    });
  }

  static duk_ret_t nothing(duk_context*) { return 0; }
};

void World::prepareHostObjects(duk_context* context) {
  duk_push_heap_stash(context);
  static constexpr duk_function_list_entry kTrapList[] = {{"get", &Traps::get, 3},
                                                          {"set", &Traps::set, 4},
                                                          {"has", &Traps::has, 2},
                                                          {"apply", &Traps::apply, 3},
                                                          {nullptr, nullptr, 0}};
  duk_push_object(context);
  duk_put_function_list(context, -1, kTrapList);
  duk_put_prop_string(context, -2, kTraps);
  duk_pop(context);
  static constexpr duk_function_list_entry kGlobals[] = {{"qv$call", &Traps::markCall, 1},
                                                         {"qv$key", &Traps::keepArgs, DUK_VARARGS},
                                                         {"qv$items", &Traps::items, 1},
                                                         {"qv$extents", &Traps::extents, 1},
                                                         {nullptr, nullptr, 0}};
  duk_push_global_object(context);
  duk_put_function_list(context, -1, kGlobals);
  duk_pop(context);
}

void World::pushHost(duk_context* context, const vbs::Value& value) {
  duk_push_c_function(context, &Traps::nothing, DUK_VARARGS);
  duk_push_c_function(context, &endHost, 1);
  duk_set_finalizer(context, -2);
  auto held = std::make_unique<vbs::Value>(value);
  duk_push_pointer(context, held.get());
  duk_put_prop_string(context, -2, kHost);
  static_cast<void>(held.release());  // the finalizer's
  duk_push_heap_stash(context);
  duk_get_prop_string(context, -1, kTraps);
  duk_remove(context, -2);
  duk_push_proxy(context, 0);
}

/// What of the host stands there; null for what is the script's own.
vbs::Value* World::hostAt(duk_context* context, duk_idx_t index) {
  if (!duk_is_object(context, index)) return nullptr;
  duk_get_prop_string(context, index, kHost);
  auto* host = static_cast<vbs::Value*>(duk_get_pointer(context, -1));
  duk_pop(context);
  return host;
}

void World::defineGetter(duk_context* context, const std::string& name, vbs::Object& object,
                         vbs::MemberId id) {
  duk_push_global_object(context);
  duk_push_lstring(context, name.data(), name.size());
  push(context, vbs::Value::object(&object));
  Traps::pushMember(context, &Traps::getGlobal, -1, id);
  duk_remove(context, -2);
  duk_def_prop(context, -3, DUK_DEFPROP_HAVE_GETTER | DUK_DEFPROP_SET_CONFIGURABLE);
  duk_pop(context);
}

}  // namespace quorvane::jscript
