#include "vbscript/library/regexp_code.h"

#define PCRE2_CODE_UNIT_WIDTH 16
#include <pcre2.h>

#include <unordered_map>

#include "vbscript/library/regexp_pattern.h"
#include "vbscript/values/error.h"
#include "vbscript/values/memory_meter.h"
#include "vbscript/values/time_check.h"

namespace quorvane::vbs {

namespace {

constexpr std::uint32_t kMatchLimit = 20'000'000;  ///< backtracking steps of one match
constexpr std::uint32_t kHeapLimitKiB = 32 << 10;
constexpr std::size_t kMaxPattern = 100'000;  ///< characters
constexpr std::size_t kJitStackStart = 32 << 10;
constexpr std::size_t kJitStackMost = 8 << 20;
constexpr std::size_t kCachedCodes = 128;
/// What the library keeps for an expression beside what it tells: measured as what 100,000
/// expressions make the process grow, less what was counted.
constexpr std::size_t kLibraryOverhead = 800;

struct Free {
  void operator()(pcre2_code* p) const { pcre2_code_free(p); }
  void operator()(pcre2_match_data* p) const { pcre2_match_data_free(p); }
  void operator()(pcre2_match_context* p) const { pcre2_match_context_free(p); }
  void operator()(pcre2_compile_context* p) const { pcre2_compile_context_free(p); }
  void operator()(pcre2_jit_stack* p) const { pcre2_jit_stack_free(p); }
};
template <class T>
using Owned = std::unique_ptr<T, Free>;

/// Limits and the stack that all matches share.
class MatchContext {
 public:
  MatchContext()
      : stack_(pcre2_jit_stack_create(kJitStackStart, kJitStackMost, nullptr)),
        context_(pcre2_match_context_create(nullptr)) {
    pcre2_set_match_limit(context_.get(), kMatchLimit);
    pcre2_set_heap_limit(context_.get(), kHeapLimitKiB);
    pcre2_jit_stack_assign(context_.get(), nullptr, stack_.get());
  }
  pcre2_match_context* get() const { return context_.get(); }

 private:
  Owned<pcre2_jit_stack> stack_;
  Owned<pcre2_match_context> context_;
};

PCRE2_SPTR unitsOf(std::u16string_view text) {
  return reinterpret_cast<PCRE2_SPTR>(text.data());
}

[[noreturn]] void throwCompileError(int error) {
  constexpr int kRangeOutOfOrder = 108;
  throwError(error == kRangeOutOfOrder ? ErrorCode::RegExpRange : ErrorCode::RegExpSyntax);
}

Owned<pcre2_code> compile(std::u16string_view pattern, bool ignoreCase) {
  std::uint32_t options = PCRE2_UTF | PCRE2_NO_UTF_CHECK | PCRE2_ALT_BSUX |
                          PCRE2_ALLOW_EMPTY_CLASS | PCRE2_DOLLAR_ENDONLY |
                          PCRE2_MATCH_UNSET_BACKREF;
  if (ignoreCase) options |= PCRE2_CASELESS;
  const Owned<pcre2_compile_context> context(pcre2_compile_context_create(nullptr));
  // A point stands for everything but the line feed.
  pcre2_set_newline(context.get(), PCRE2_NEWLINE_LF);
  int error = 0;
  PCRE2_SIZE place = 0;
  Owned<pcre2_code> code(
      pcre2_compile(unitsOf(pattern), pattern.size(), options, &error, &place, context.get()));
  if (!code) throwCompileError(error);
  // Without the just-in-time compiler matching goes on, only slower.
  pcre2_jit_compile(code.get(), PCRE2_JIT_COMPLETE);
  return code;
}

/// Lone halves of surrogate pairs give way to the replacement character.
void makeValid(std::u16string& text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] < 0xD800 || text[i] >= 0xE000) continue;
    const bool pair =
        text[i] < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000;
    if (pair) {
      ++i;
    } else {
      text[i] = 0xFFFD;
    }
  }
}

}  // namespace

struct RegExpCode::Pcre {
  Owned<pcre2_code> code;
  Owned<pcre2_match_data> data;
};

RegExpSubject::RegExpSubject(const String& text) : copy_(text) {
  if (!text.isAnsi()) makeValid(copy_.units());
}

std::size_t RegExpSubject::behind(std::size_t place) const {
  const bool pair = place < units().size() && units()[place] >= 0xD800 && units()[place] < 0xDC00;
  return place + (pair ? 2 : 1);
}

RegExpCode::RegExpCode(std::unique_ptr<Pcre> pcre) : pcre_(std::move(pcre)) {
  std::uint32_t count = 0;
  pcre2_pattern_info(pcre_->code.get(), PCRE2_INFO_CAPTURECOUNT, &count);
  groups_ = count;
  std::size_t code = 0;
  std::size_t machineCode = 0;
  pcre2_pattern_info(pcre_->code.get(), PCRE2_INFO_SIZE, &code);
  pcre2_pattern_info(pcre_->code.get(), PCRE2_INFO_JITSIZE, &machineCode);
  const std::size_t data = pcre2_get_match_data_size(pcre_->data.get());
  charge_.change(sizeof *this + sizeof *pcre_ + code + machineCode + data + kLibraryOverhead);
}

RegExpCode::~RegExpCode() = default;

namespace {

/// What lasts from one use of an expression to the next.
struct RegExpPart : RunPart {
  MatchContext context;
  std::unordered_map<std::u16string, std::shared_ptr<const RegExpCode>> codes;
};

RegExpPart& kept() {
  return runContext.parts.get<RegExpPart>();
}

}  // namespace

std::shared_ptr<const RegExpCode> RegExpCode::get(const String& pattern, RegExpFlags flags) {
  auto& cache = kept().codes;
  if (pattern.length() > kMaxPattern) throwError(ErrorCode::RegExpSyntax);
  std::u16string key = pattern.wide();
  makeValid(key);
  key.push_back(static_cast<char16_t>(flags.ignoreCase + 2 * flags.multiline));
  if (const auto found = cache.find(key); found != cache.end()) return found->second;

  const std::u16string translated =
      translatePattern(std::u16string_view(key).substr(0, key.size() - 1), flags.multiline);
  auto pcre = std::make_unique<Pcre>();
  pcre->code = compile(translated, flags.ignoreCase);
  pcre->data.reset(pcre2_match_data_create_from_pattern(pcre->code.get(), nullptr));
  std::shared_ptr<const RegExpCode> code(new RegExpCode(std::move(pcre)));
  if (cache.size() == kCachedCodes) cache.clear();
  cache.emplace(std::move(key), code);
  return code;
}

bool RegExpCode::match(const RegExpSubject& subject, std::size_t from,
                       MatchOffsets& offsets) const {
  checkTime();
  const std::u16string_view text = subject.units();
  const int result = pcre2_match(pcre_->code.get(), unitsOf(text), text.size(), from,
                                 PCRE2_NO_UTF_CHECK, pcre_->data.get(), kept().context.get());
  if (result == PCRE2_ERROR_NOMATCH) return false;
  if (result < 0) throwError(ErrorCode::OutOfStackSpace);
  const PCRE2_SIZE* found = pcre2_get_ovector_pointer(pcre_->data.get());
  offsets.resize((groups_ + 1) * 2);
  for (std::size_t i = 0; i < offsets.size(); ++i) {
    const bool set = i / 2 < static_cast<std::size_t>(result) && found[i] != PCRE2_UNSET;
    offsets[i] = set ? static_cast<std::uint32_t>(found[i]) : kUnsetOffset;
  }
  return true;
}

}  // namespace quorvane::vbs
