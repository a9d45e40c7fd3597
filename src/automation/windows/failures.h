#pragma once

#include <exception>
#include <string_view>

#include "automation/windows/com.h"
#include "vbscript/values/error.h"

/// Errors on their way between scripts and the system's objects.
namespace quorvane::automation {

/// An EXCEPINFO that frees its texts.
class ExceptionTexts {
 public:
  ExceptionTexts() = default;
  ExceptionTexts(const ExceptionTexts&) = delete;
  ExceptionTexts& operator=(const ExceptionTexts&) = delete;
  ~ExceptionTexts();

  EXCEPINFO* address() { return &info_; }
  const EXCEPINFO& complete();  ///< with what the object tells only when it is asked for

 private:
  EXCEPINFO info_{};
};

/// Throws the script's error for a call that failed; `texts` say more when the code is
/// DISP_E_EXCEPTION.
[[noreturn]] void throwFailure(HRESULT code);
[[noreturn]] void throwFailure(HRESULT code, ExceptionTexts& texts);

inline void throwIfFailed(HRESULT code) {
  if (FAILED(code)) throwFailure(code);
}

/// The code that others know a script's error by.
HRESULT codeOf(const vbs::ScriptError& error);

/// For whom called a script that failed: DISP_E_EXCEPTION, with `texts` (may be null) filled.
HRESULT report(const vbs::ScriptError& error, EXCEPINFO* texts);

/// What ends a run passes through every trap of a script's, but never through code of others. So it
/// waits while their calls return: an object of theirs that a script has called looks here when the
/// call is done.
class CallToOthers {
 public:
  CallToOthers();
  CallToOthers(const CallToOthers&) = delete;
  CallToOthers& operator=(const CallToOthers&) = delete;
  ~CallToOthers();

  static void throwLater(std::exception_ptr end);  ///< dropped when no call is under way
  void throwPending();                             ///< of this call, when there is something
};

}  // namespace quorvane::automation
