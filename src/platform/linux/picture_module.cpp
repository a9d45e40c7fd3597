#include <dlfcn.h>

#include "platform/linux/program_folder.h"
#include "platform/picture_tools.h"

#ifdef __SANITIZE_ADDRESS__
/// What the library of fonts has read of its settings is not given back before the process ends.
/// Only the program itself is asked for this, not what it loads.
extern "C" {
const char* __lsan_default_suppressions();
const char* __lsan_default_suppressions() {
  return "leak:libfontconfig\n";
}
const char* __lsan_default_options();
const char* __lsan_default_options() {
  // Where threads of modules keep what is theirs is guessed otherwise, at times wrongly, and the
  // search for leaks ends the process.
  return "print_suppressions=0:intercept_tls_get_addr=0";
}
}
#endif

namespace quorvane::picture_tools {

namespace {

/// It stays loaded: libraries that it brings have threads, and things to do when the process ends.
Loaded open() {
  const std::string file = programFolder() / kModule;
  void* const module = ::dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
  void* const entry = module ? ::dlsym(module, kModuleEntry) : nullptr;
  if (!entry) return {nullptr, ::dlerror()};
  return {reinterpret_cast<ModuleEntry*>(entry)(), {}};
}

}  // namespace

const Loaded& load() {
  static const Loaded loaded = open();
  return loaded;
}

}  // namespace quorvane::picture_tools
