// Where the variables of a thread are. The compiler asks __emutls_get_address at every use of one,
// and the answer of its own library takes locks and five calls, a fifth of the time of scripts that
// work on texts. This one looks where the system keeps each thread's own section of the program.
// And it frees the variables of a thread when nothing of the thread can run any more: that
// library may do so before the last destructor that uses them.

#include <windows.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

extern "C" {
extern ULONG _tls_index;
extern const IMAGE_TLS_DIRECTORY _tls_used;
}

namespace {

/// What the compiler writes down of each variable, in the form of its own library.
struct Variable {
  std::size_t size;
  std::size_t alignment;
  std::atomic<std::size_t> number;  ///< from 1 on, 0 as long as it was never used
  const void* initial;              ///< zeros if null
};

/// A thread's variables, at their numbers.
struct Variables {
  std::size_t count;
  void** at;
};

// In the section of which the system makes a copy for each thread.
[[gnu::section(".tls$M"), gnu::used]] Variables copied{};

Variables& ofThisThread() {
  char** sections = nullptr;
  asm("movq %%gs:0x58, %0" : "=r"(sections));  // in the system's block of the thread
  const auto start = static_cast<std::uintptr_t>(_tls_used.StartAddressOfRawData);
  const auto place = reinterpret_cast<std::uintptr_t>(&copied) - start;
  return *reinterpret_cast<Variables*>(sections[_tls_index] + place);
}

std::size_t numberOf(Variable& variable) {
  static std::atomic<std::size_t> last{0};
  std::size_t number = variable.number.load();
  if (number != 0) return number;
  // Of two threads at once one is the first; the other's number stays unused.
  const std::size_t next = ++last;
  return variable.number.compare_exchange_strong(number, next) ? next : number;
}

void makeRoom(Variables& variables, std::size_t number) {
  if (number < variables.count) return;
  const std::size_t count = number + 16;
  auto* const larger = static_cast<void**>(std::realloc(variables.at, count * sizeof(void*)));
  if (!larger) std::abort();
  std::memset(larger + variables.count, 0, (count - variables.count) * sizeof(void*));
  variables = {count, larger};
}

/// Out of line: hardly ever needed.
[[gnu::noinline]] void* make(Variable& variable, Variables& variables) {
  const std::size_t number = numberOf(variable);
  makeRoom(variables, number);
  void* const made = _aligned_malloc(variable.size, variable.alignment);
  if (!made) std::abort();
  if (variable.initial) {
    std::memcpy(made, variable.initial, variable.size);
  } else {
    std::memset(made, 0, variable.size);
  }
  return variables.at[number] = made;
}

void WINAPI atEndOfThread(void*, DWORD reason, void*) {
  if (reason != DLL_THREAD_DETACH) return;
  Variables& variables = ofThisThread();
  for (std::size_t number = 0; number < variables.count; ++number) {
    _aligned_free(variables.at[number]);
  }
  std::free(variables.at);
  variables = {};
}

// The system goes through these by their names: the last, after those that run destructors.
[[gnu::section(".CRT$XLY"), gnu::used]] const PIMAGE_TLS_CALLBACK calledAtEnds = &atEndOfThread;

}  // namespace

// NOLINTNEXTLINE(bugprone-reserved-identifier): the compiler's name for it
extern "C" void* __emutls_get_address(Variable* variable) {
  Variables& variables = ofThisThread();
  const std::size_t number = variable->number.load(std::memory_order_relaxed);
  if (number < variables.count) [[likely]] {
    if (void* const place = variables.at[number]) [[likely]]
      return place;  // none at 0
  }
  return make(*variable, variables);
}
