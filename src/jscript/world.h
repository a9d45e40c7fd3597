#pragma once

#include <duktape.h>

#include <cstdint>
#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "jscript/script_engine.h"
#include "vbscript/machine/time_limit.h"
#include "vbscript/values/host.h"
#include "vbscript/values/object.h"

namespace quorvane::jscript {

/// The file of a page's text, where errors name one.
inline constexpr const char* kPage = "page";

/// The heap of a ScriptEngine, and what leads values in and out of it. Every use of the heap from
/// outside goes through guarded(); the functions that take a context are for use in there.
class ScriptEngine::World : public std::enable_shared_from_this<World> {
 public:
  World();
  ~World();
  World(const World&) = delete;
  World& operator=(const World&) = delete;

  /// The heap goes; the world stays for those who hold it.
  void end();
  bool isEnded() const { return heap_ == nullptr; }

  /// Runs `use` on the heap. Throws ScriptError for what the script throws.
  template <class Use>
  void guarded(Use use) {
    guardedCall(
        [](duk_context* context, void* data) -> duk_ret_t {
          return native(context, [&] {
            (*static_cast<Use*>(data))(context);
            return 0;
          });
        },
        &use);
  }

  void push(duk_context* context, const vbs::Value& value);
  vbs::Value valueAt(duk_context* context, duk_idx_t index);
  void pushText(duk_context* context, const vbs::String& text);

  /// Calls the function at the top but one with the object above it as its `this`; both go, the
  /// result comes.
  void call(duk_context* context, vbs::Args args);

  /// Pushes the script's own object that is kept under `key`.
  void pushKept(duk_context* context, std::uint32_t key);
  void forget(std::uint32_t key) noexcept;

  /// A member's name in the script's spelling, by number.
  vbs::MemberId idOf(std::string_view name);
  const std::string& nameOf(vbs::MemberId id) const {
    return names_[static_cast<std::size_t>(id) - 1];
  }

  /// Pushes a text as a function.
  static void compile(duk_context* context, std::string_view code, const char* file);
  void run(std::string_view code);
  void defineGetter(duk_context* context, const std::string& name, vbs::Object& object,
                    vbs::MemberId id);

  struct Published {
    std::string lower;
    vbs::Value object;
    bool globalMembers;
  };
  /// Whether the run is to end; the heap asks now and then.
  bool mustEnd() noexcept;

  std::vector<Published> published;
  std::uint32_t failedLine = 0;

 private:
  struct Traps;

  /// Runs `body` where the heap is in use: nothing but what the heap itself throws comes out.
  template <class Body>
  static duk_ret_t native(duk_context* context, Body body) {
    World& world = of(context);
    try {
      if (world.ending_) std::rethrow_exception(world.ending_);
      return body();
    } catch (const vbs::ScriptError& error) {
      world.pushError(context, error);
    } catch (const vbs::EndOfRun&) {
      world.keepEnding(context);
    } catch (const vbs::RunStopped&) {
      world.keepEnding(context);
    } catch (const std::exception&) {
      world.keepEnding(context);
    }
    return duk_throw(context);
  }
  static World& of(duk_context* context);

  void guardedCall(duk_safe_call_function function, void* data);
  void pushError(duk_context* context, const vbs::ScriptError& error);
  [[noreturn]] void throwFailure();
  vbs::ScriptError errorAt(duk_context* context, duk_idx_t index);
  // Objects of the host in the heap: what they do is in a file of its own.
  static void prepareHostObjects(duk_context* context);
  void pushHost(duk_context* context, const vbs::Value& value);
  vbs::Value* hostAt(duk_context* context, duk_idx_t index);
  vbs::Value plainAt(duk_context* context, duk_idx_t index);
  void keepEnding(duk_context* context);
  void* allocate(void* old, std::size_t size) noexcept;

  duk_context* heap_ = nullptr;
  std::exception_ptr ending_;  ///< what ends the run, on its way through the script
  std::uint32_t allocations_ = 0;

  std::string called_;  ///< the member that is read next is read for a call
  /// See ScriptText: the name of a member, or nothing for the default one, and what it takes.
  struct Key {
    std::string member;
    std::vector<vbs::Value> args;
  };
  std::unordered_map<std::uint32_t, Key> keys_;
  std::uint32_t lastKey_ = 0;
  std::uint32_t lastKept_ = 0;
  std::vector<std::string> names_;
  std::unordered_map<std::string, vbs::MemberId> ids_;
};

}  // namespace quorvane::jscript
