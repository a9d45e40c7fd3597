#include "components/xml/library.h"

#include <libxml/parser.h>
#include <libxml/xmlerror.h>
#include <libxml/xmlmemory.h>
#include <libxslt/xsltutils.h>

#include <cstring>
#include <mutex>
#include <utility>

#include "components/xml/external_files.h"
#include "platform/allocation.h"
#include "vbscript/values/block_pool.h"
#include "vbscript/values/heap.h"
#include "vbscript/values/time_check.h"

namespace quorvane::xml {

namespace {

thread_local Watch* innermost = nullptr;
thread_local unsigned allocations = 0;

constexpr unsigned kBetweenLooks = 256;  ///< allocations
constexpr std::size_t kMuch = std::size_t{1} << 20;

std::size_t bytesOf(void* memory) {
  return vbs::isPooled(memory) ? vbs::BlockPool::bytesOf(memory) : allocatedBytes(memory);
}

/// Nothing can be thrown from here; what is over the limit is found by the next look.
void* counted(void* memory) {
  if (!memory) return nullptr;
  const std::size_t bytes = bytesOf(memory);
  vbs::runContext.memory.used += static_cast<std::int64_t>(bytes);
  if (innermost && (++allocations % kBetweenLooks == 0 || bytes >= kMuch)) Watch::look();
  return memory;
}

/// Threads without a pool, of libraries that use this one too, may give one another what they have
/// taken, so they get none here.
void* allocate(std::size_t bytes) {
  return counted(vbs::threadPool ? vbs::allocateBlock(bytes) : vbs::takeMemory(bytes));
}

void release(void* memory) {
  if (!memory) return;
  vbs::runContext.memory.release(bytesOf(memory));
  vbs::releaseBlock(memory);
}

void* reallocate(void* memory, std::size_t bytes) {
  if (!memory) return allocate(bytes);
  const std::size_t before = bytesOf(memory);
  void* const moved = vbs::resizeBlock(memory, before, bytes);
  if (!moved) return nullptr;
  vbs::runContext.memory.release(before);
  return counted(moved);
}

char* duplicate(const char* text) {
  const std::size_t bytes = std::strlen(text) + 1;
  auto* copy = static_cast<char*>(allocate(bytes));
  if (copy) std::memcpy(copy, text, bytes);
  return copy;
}

void ignore(void*, const char*, ...) {}

}  // namespace

void prepareLibrary() {
  static std::once_flag once;
  std::call_once(once, [] {
    xmlMemSetup(&release, &allocate, &reallocate, &duplicate);
    xmlInitParser();
    ExternalFiles::install();
  });
  vbs::makeThreadPool();
  // These two are kept for each thread.
  xmlSetGenericErrorFunc(nullptr, &ignore);
  xsltSetGenericErrorFunc(nullptr, &ignore);
}

Watch::Watch(std::function<void()> stop) : outer_(innermost), stop_(std::move(stop)) {
  innermost = this;
}

Watch::~Watch() {
  innermost = outer_;
}

void Watch::end() {
  innermost = outer_;
  xmlResetLastError();
  if (thrown_) std::rethrow_exception(std::exchange(thrown_, nullptr));
  checkMemory();
}

void Watch::look() {
  Watch& watch = *innermost;
  if (watch.thrown_) return;
  try {
    checkMemory();
    vbs::checkTime();
  } catch (...) {
    watch.thrown_ = std::current_exception();
    watch.stop_();
  }
}

}  // namespace quorvane::xml
