#include "jscript/world.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

#include "jscript/heap_text.h"
#include "jscript/prelude.h"
#include "jscript/script_object.h"
#include "support/text.h"
#include "vbscript/values/heap.h"

namespace quorvane::jscript {

namespace {

using World = ScriptEngine::World;

// The name of a property that no script can spell.
constexpr const char* kSource = DUK_HIDDEN_SYMBOL("source");

// Of the heap's stash.
constexpr const char* kKept = "kept";
constexpr const char* kPlain = "qv$plain";
constexpr const char* kDate = "qv$date";

constexpr std::string_view kErrorSource = "JScript runtime error";
constexpr std::string_view kSyntaxSource = "JScript compilation error";
constexpr std::string_view kLineInMessage = " (line ";
constexpr std::int32_t kThrown = 5022;  ///< something that is no error was thrown
constexpr std::int32_t kFacility = static_cast<std::int32_t>(0x800A0000);

constexpr duk_idx_t kStack = 64;
constexpr std::size_t kHead = 16;  ///< in front of each block, its size
constexpr std::uint32_t kBetweenLooks = 1024;
constexpr std::size_t kLargeBlock = std::size_t{64} << 10;

/// The innermost of a page's lines among the calls that were open; 0: none.
std::uint32_t pageLineIn(std::string_view stack) {
  constexpr std::string_view kCall = "\n    at ";
  constexpr std::string_view kLine = "(page:";
  const std::size_t calls = std::min(stack.find(kCall), stack.size());
  const std::size_t found = stack.find(kLine, calls);
  std::uint32_t line = 0;
  if (found == stack.npos) return line;
  std::from_chars(stack.data() + found + kLine.size(), stack.data() + stack.size(), line);
  return line;
}

/// Compiled once: most pages use little of it.
void pushPrelude(duk_context* context) {
  thread_local std::string compiled;
  if (compiled.empty()) {
    World::compile(context, kPrelude, "prelude");
    duk_dump_function(context);
    duk_size_t size = 0;
    const auto* bytes = static_cast<const char*>(duk_get_buffer(context, -1, &size));
    compiled.assign(bytes, size);
    duk_pop(context);
  }
  void* bytes = duk_push_fixed_buffer(context, compiled.size());
  std::memcpy(bytes, compiled.data(), compiled.size());
  duk_load_function(context);
}

}  // namespace

World::World() {
  heap_ = duk_create_heap(
      [](void* world, duk_size_t size) {
        return static_cast<World*>(world)->allocate(nullptr, size);
      },
      [](void* world, void* old, duk_size_t size) {
        return static_cast<World*>(world)->allocate(old, size);
      },
      [](void* world, void* old) { static_cast<World*>(world)->allocate(old, 0); }, this, nullptr);
  if (!heap_) vbs::throwError(vbs::ErrorCode::OutOfMemory);
  guarded([](duk_context* context) {
    duk_push_heap_stash(context);
    duk_push_object(context);
    duk_put_prop_string(context, -2, kKept);
    duk_pop(context);
    prepareHostObjects(context);
  });
  guarded([](duk_context* context) {
    pushPrelude(context);
    duk_push_global_object(context);
    duk_call_method(context, 0);
    duk_pop(context);
  });
  guarded([](duk_context* context) {
    duk_push_heap_stash(context);
    for (const char* name : {kPlain, kDate}) {
      duk_get_global_string(context, name);
      duk_put_prop_string(context, -2, name);
    }
    duk_pop(context);
  });
}

World::~World() {
  end();
}

void World::end() {
  keys_.clear();
  published.clear();
  duk_context* const heap = std::exchange(heap_, nullptr);
  if (heap) duk_destroy_heap(heap);
}

World& World::of(duk_context* context) {
  duk_memory_functions functions;
  duk_get_memory_functions(context, &functions);
  return *static_cast<World*>(functions.udata);
}

/// Values of scripts and what the heap holds count together. The heap can't bear a throw here: it
/// is told that there is no memory, and looks itself whether it is to end.
void* World::allocate(void* old, std::size_t size) noexcept {
  auto* const block = old ? static_cast<char*>(old) - kHead : nullptr;
  const std::size_t before = block ? *reinterpret_cast<std::size_t*>(block) : 0;
  vbs::MemoryMeter& meter = vbs::runContext.memory;
  if (size == 0) {
    vbs::giveMemoryBack(block);
    meter.release(before);
    return nullptr;
  }
  if (++allocations_ >= kBetweenLooks || size >= kLargeBlock) {
    allocations_ = 0;
    if (mustEnd()) return nullptr;
  }
  const auto more = static_cast<std::int64_t>(size) - static_cast<std::int64_t>(before);
  if (more > 0 && meter.used > meter.limit - more) return nullptr;
  auto* const made = static_cast<char*>(vbs::resizeMemory(block, kHead + size));
  if (!made) return nullptr;
  meter.used += more;
  *reinterpret_cast<std::size_t*>(made) = size;
  return made + kHead;
}

bool World::mustEnd() noexcept {
  if (ending_) return true;
  try {
    vbs::checkTime();
  } catch (...) {
    ending_ = std::current_exception();
  }
  return ending_ != nullptr;
}

void World::keepEnding(duk_context* context) {
  ending_ = std::current_exception();
  duk_push_null(context);
}

void World::guardedCall(duk_safe_call_function function, void* data) {
  if (!heap_) vbs::throwError(vbs::ErrorCode::ObjectNotSet);
  if (ending_) std::rethrow_exception(ending_);
  if (!duk_check_stack(heap_, kStack)) vbs::throwError(vbs::ErrorCode::OutOfStackSpace);
  const duk_int_t failed = duk_safe_call(heap_, function, data, 0, 1);
  if (failed == DUK_EXEC_SUCCESS) return duk_pop(heap_);
  throwFailure();
}

void World::pushError(duk_context* context, const vbs::ScriptError& error) {
  const std::string text = vbs::String(vbs::fullDescription(error)).utf8();
  const bool isSmall = error.number > 0 && error.number <= 0xFFFF;
  duk_push_error_object_raw(context, DUK_ERR_ERROR, nullptr, 0, "%s", text.c_str());
  duk_push_int(context, isSmall ? kFacility | error.number : error.number);
  duk_put_prop_string(context, -2, "number");
  if (error.source.empty()) return;
  const std::string source = vbs::String(error.source).utf8();
  duk_push_lstring(context, source.data(), source.size());
  duk_put_prop_string(context, -2, kSource);
}

/// What the thrown value at `index` is to the world outside.
vbs::ScriptError World::errorAt(duk_context* context, duk_idx_t index) {
  vbs::ScriptError error;
  error.number = kThrown;
  error.source = kErrorSource;
  failedLine = 0;
  const auto narrowAt = [&](duk_idx_t at) {
    return vbs::String::fromWide(decoded(textAt(context, at))).narrow();
  };
  if (!duk_is_error(context, index)) {
    duk_safe_to_string(context, index);
    error.description = "Exception thrown and not caught: " + narrowAt(index);
    return error;
  }
  duk_get_prop_string(context, index, "message");
  error.description = narrowAt(-1);
  duk_get_prop_string(context, index, "fileName");
  const bool isOfPage = textAt(context, -1) == kPage;
  duk_get_prop_string(context, index, "lineNumber");
  if (isOfPage) {
    failedLine = duk_get_uint(context, -1);
  } else {
    duk_get_prop_string(context, index, "stack");
    failedLine = pageLineIn(textAt(context, -1));
  }
  duk_get_prop_string(context, index, "number");
  error.number = duk_get_int(context, -1);
  if ((error.number & ~0xFFFF) == kFacility) error.number &= 0xFFFF;
  duk_get_prop_string(context, index, kSource);
  if (duk_is_string(context, -1)) error.source = narrowAt(-1);
  if (duk_get_error_code(context, index) == DUK_ERR_SYNTAX_ERROR) {
    error.source = kSyntaxSource;
    // The line there is one of the text, which no file has.
    error.description.resize(
        std::min(error.description.rfind(kLineInMessage), error.description.size()));
  }
  const bool isMemory = error.description == "alloc failed";
  const bool isStack =
      error.description.ends_with("stack limit") || error.description.ends_with("recursion limit");
  if (isMemory || isStack) {
    const auto code = isMemory ? vbs::ErrorCode::OutOfMemory : vbs::ErrorCode::OutOfStackSpace;
    error.number = static_cast<std::int32_t>(code);
    error.description = vbs::errorText(error.number);
  }
  return error;
}

/// Ends the use of the heap that has failed: what was thrown is at the top.
void World::throwFailure() {
  if (ending_) {
    duk_pop(heap_);
    std::rethrow_exception(ending_);
  }
  vbs::ScriptError error;
  error.number = kThrown;
  error.description = "Exception thrown and not caught";
  error.source = kErrorSource;
  duk_safe_call(
      heap_,
      [](duk_context* context, void* made) -> duk_ret_t {
        *static_cast<vbs::ScriptError*>(made) =
            of(context).errorAt(context, duk_get_top_index(context));
        return 0;
      },
      &error, 1, 1);
  duk_pop(heap_);
  if (ending_) std::rethrow_exception(ending_);
  throw error;
}

void World::pushText(duk_context* context, const vbs::String& text) {
  if (text.isAnsi() && isAscii(text.ansi())) {
    duk_push_lstring(context, text.ansi().data(), text.ansi().size());
    return;
  }
  const vbs::MemoryCharge charge(text.length() * 5);
  const std::string bytes = encoded(text.wide());
  duk_push_lstring(context, bytes.data(), bytes.size());
}

void World::push(duk_context* context, const vbs::Value& given) {
  const vbs::Value& value = given.deref();
  duk_require_stack(context, kStack);
  switch (value.type()) {
    case vbs::Type::Null:
      return duk_push_null(context);
    case vbs::Type::Boolean:
      return duk_push_boolean(context, value.asBoolean());
    case vbs::Type::Byte:
    case vbs::Type::Integer:
    case vbs::Type::Long:
      return duk_push_int(context, value.asInt());
    case vbs::Type::Single:
    case vbs::Type::Double:
      return duk_push_number(context, value.asDouble());
    case vbs::Type::Currency:
      return duk_push_number(context, static_cast<double>(value.asCurrency()) / 10'000);
    case vbs::Type::String:
      return pushText(context, value.asString());
    case vbs::Type::Date:
      duk_push_heap_stash(context);
      duk_get_prop_string(context, -1, kDate);
      duk_remove(context, -2);
      duk_push_number(context, value.asDouble());
      return duk_call(context, 1);
    case vbs::Type::Array:
      return pushHost(context, value);
    case vbs::Type::Object: {
      if (!value.asObject()) return duk_push_null(context);
      const auto* own = dynamic_cast<const ScriptObject*>(value.asObject());
      return own && own->world() == this ? pushKept(context, own->key()) : pushHost(context, value);
    }
    default:
      return duk_push_undefined(context);
  }
}

vbs::Value World::valueAt(duk_context* context, duk_idx_t index) {
  switch (duk_get_type(context, index)) {
    case DUK_TYPE_NULL:
      return vbs::Value::null();
    case DUK_TYPE_BOOLEAN:
      return vbs::Value::boolean(duk_get_boolean(context, index));
    case DUK_TYPE_NUMBER: {
      const double number = duk_get_number(context, index);
      const bool isWhole =
          number >= INT32_MIN && number <= INT32_MAX && std::trunc(number) == number;
      return isWhole ? vbs::Value::longInt(static_cast<std::int32_t>(number))
                     : vbs::Value::number(number);
    }
    case DUK_TYPE_STRING: {
      if (duk_is_symbol(context, index)) vbs::throwError(vbs::ErrorCode::TypeMismatch);
      const std::string_view text = textAt(context, index);
      if (isAscii(text)) return vbs::Value(text);
      const vbs::MemoryCharge charge(text.size() * 2);
      return vbs::Value(vbs::String::fromWide(decoded(text)));
    }
    case DUK_TYPE_OBJECT:
    case DUK_TYPE_LIGHTFUNC:
      if (const vbs::Value* host = hostAt(context, index)) return *host;
      return plainAt(context, index);
    default:
      return {};
  }
}

/// An object of the script's own: dates and the like by what they are worth.
vbs::Value World::plainAt(duk_context* context, duk_idx_t index) {
  duk_require_stack(context, kStack);
  index = duk_require_normalize_index(context, index);
  duk_push_heap_stash(context);
  duk_get_prop_string(context, -1, kPlain);
  duk_dup(context, index);
  duk_call(context, 1);
  vbs::Value value;
  if (!duk_is_object(context, -1)) {
    value = valueAt(context, -1);
  } else if (!duk_strict_equals(context, -1, index)) {
    duk_get_prop_string(context, -1, "days");
    value = vbs::Value::date(duk_get_number(context, -1));
    duk_pop(context);
  } else {
    const std::uint32_t key = ++lastKept_;
    duk_get_prop_string(context, -2, kKept);
    duk_dup(context, index);
    duk_put_prop_index(context, -2, key);
    duk_pop(context);
    value = vbs::Value::adopt(new ScriptObject(shared_from_this(), key));
  }
  duk_pop_2(context);
  return value;
}

void World::pushKept(duk_context* context, std::uint32_t key) {
  duk_push_heap_stash(context);
  duk_get_prop_string(context, -1, kKept);
  duk_get_prop_index(context, -1, key);
  duk_remove(context, -2);
  duk_remove(context, -2);
}

void World::forget(std::uint32_t key) noexcept {
  if (!heap_ || !duk_check_stack(heap_, kStack)) return;
  duk_safe_call(
      heap_,
      [](duk_context* context, void* given) -> duk_ret_t {
        duk_push_heap_stash(context);
        duk_get_prop_string(context, -1, kKept);
        duk_del_prop_index(context, -1, *static_cast<std::uint32_t*>(given));
        return 0;
      },
      &key, 0, 1);
  duk_pop(heap_);
}

void World::call(duk_context* context, vbs::Args args) {
  duk_require_stack(context, static_cast<duk_idx_t>(args.size()) + kStack);
  for (const vbs::Value& arg : args) push(context, arg);
  duk_call_method(context, static_cast<duk_idx_t>(args.size()));
}

vbs::MemberId World::idOf(std::string_view name) {
  const auto [found, isNew] =
      ids_.try_emplace(std::string(name), static_cast<vbs::MemberId>(names_.size()) + 1);
  if (isNew) names_.emplace_back(name);
  return found->second;
}

void World::compile(duk_context* context, std::string_view code, const char* file) {
  duk_push_string(context, file);
  duk_compile_lstring_filename(context, 0, code.data(), code.size());
}

void World::run(std::string_view code) {
  guarded([&](duk_context* context) {
    compile(context, code, kPage);
    duk_push_global_object(context);
    duk_call_method(context, 0);
    duk_pop(context);
  });
}

}  // namespace quorvane::jscript

extern "C" int quorvaneTimeIsOver(void* world) {
  return static_cast<quorvane::jscript::ScriptEngine::World*>(world)->mustEnd() ? 1 : 0;
}
