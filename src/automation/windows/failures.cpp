#include "automation/windows/failures.h"

#include <string>
#include <utility>

#include "vbscript/values/string.h"

namespace quorvane::automation {

namespace {

constexpr std::int32_t kLargestScriptNumber = 0xFFFF;
constexpr std::uint32_t kScriptErrors = 0x800A0000;

std::string narrow(BSTR text) {
  if (!text) return {};
  const auto* units = reinterpret_cast<const char16_t*>(text);
  return vbs::String::fromWide({units, ::SysStringLen(text)}).narrow();
}

BSTR systemText(std::string_view text) {
  const std::u16string wide = vbs::String(text).wide();
  return ::SysAllocStringLen(reinterpret_cast<const OLECHAR*>(wide.data()),
                             static_cast<UINT>(wide.size()));
}

/// What the system says of a code, without the line end behind it.
std::string systemDescription(HRESULT code) {
  wchar_t* text = nullptr;
  const DWORD length = ::FormatMessageW(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
      nullptr, static_cast<DWORD>(code), 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
  std::string description =
      vbs::String::fromWide({reinterpret_cast<const char16_t*>(text), length}).narrow();
  ::LocalFree(text);
  while (!description.empty() && static_cast<unsigned char>(description.back()) <= ' ') {
    description.pop_back();
  }
  return description;
}

vbs::ScriptError errorOf(HRESULT code) {
  vbs::ScriptError error;
  error.number = vbs::scriptErrorNumber(code);
  error.description = error.number >= 0 ? std::string(vbs::errorText(error.number)) : "";
  if (error.description.empty()) error.description = systemDescription(code);
  if (error.description.empty()) error.description = vbs::errorText(error.number);
  return error;
}

thread_local int callsUnderWay = 0;
thread_local std::exception_ptr pending;

}  // namespace

// ---- From objects of others ----

ExceptionTexts::~ExceptionTexts() {
  ::SysFreeString(info_.bstrSource);
  ::SysFreeString(info_.bstrDescription);
  ::SysFreeString(info_.bstrHelpFile);
}

const EXCEPINFO& ExceptionTexts::complete() {
  if (const auto fill = std::exchange(info_.pfnDeferredFillIn, nullptr)) fill(&info_);
  return info_;
}

void throwFailure(HRESULT code) {
  throw errorOf(code);
}

void throwFailure(HRESULT code, ExceptionTexts& texts) {
  if (code != DISP_E_EXCEPTION) throwFailure(code);
  const EXCEPINFO& info = texts.complete();
  // One of the two says it; wCode is a number as scripts know them.
  const HRESULT said = info.scode != 0 ? info.scode : info.wCode != 0 ? info.wCode : E_FAIL;
  vbs::ScriptError error = errorOf(said);
  if (info.bstrDescription) error.description = narrow(info.bstrDescription);
  error.source = narrow(info.bstrSource);
  error.helpFile = narrow(info.bstrHelpFile);
  error.helpContext = static_cast<std::int32_t>(info.dwHelpContext);
  throw error;
}

// ---- To callers of scripts ----

HRESULT codeOf(const vbs::ScriptError& error) {
  const bool isSmall = error.number > 0 && error.number <= kLargestScriptNumber;
  if (error.number == 0) return E_FAIL;
  return isSmall ? static_cast<HRESULT>(kScriptErrors | static_cast<std::uint32_t>(error.number))
                 : error.number;
}

HRESULT report(const vbs::ScriptError& error, EXCEPINFO* texts) {
  if (!texts) return codeOf(error);
  *texts = {};
  texts->scode = codeOf(error);
  texts->bstrDescription = systemText(vbs::fullDescription(error));
  texts->bstrSource =
      systemText(error.source.empty() ? "Microsoft VBScript runtime error" : error.source);
  if (!error.helpFile.empty()) texts->bstrHelpFile = systemText(error.helpFile);
  texts->dwHelpContext = static_cast<DWORD>(error.helpContext);
  return DISP_E_EXCEPTION;
}

// ---- Ends of runs ----

CallToOthers::CallToOthers() {
  ++callsUnderWay;
}

CallToOthers::~CallToOthers() {
  if (--callsUnderWay == 0) pending = nullptr;
}

void CallToOthers::throwLater(std::exception_ptr end) {
  if (callsUnderWay > 0) pending = std::move(end);
}

void CallToOthers::throwPending() {
  if (pending) std::rethrow_exception(std::exchange(pending, nullptr));
}

}  // namespace quorvane::automation
