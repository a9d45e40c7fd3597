#include "platform/windows/event_record.h"

#include <windows.h>

#include "platform/windows/wide_text.h"

namespace quorvane::event_record {

namespace {

/// The one message of the program's own table, which is the text that comes with it.
constexpr DWORD kSentence = 1;

std::wstring keyOf(const std::wstring& source) {
  return L"SYSTEM\\CurrentControlSet\\Services\\EventLog\\Application\\" + source;
}

}  // namespace

void registerSource(const std::wstring& source, const std::wstring& program) {
  const std::wstring key = keyOf(source);
  const DWORD kinds = EVENTLOG_ERROR_TYPE | EVENTLOG_WARNING_TYPE | EVENTLOG_INFORMATION_TYPE;
  const auto bytes = static_cast<DWORD>((program.size() + 1) * sizeof(wchar_t));
  ::RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), L"EventMessageFile", REG_EXPAND_SZ,
                    program.c_str(), bytes);
  ::RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), L"TypesSupported", REG_DWORD, &kinds,
                    sizeof kinds);
}

void forgetSource(const std::wstring& source) {
  ::RegDeleteKeyW(HKEY_LOCAL_MACHINE, keyOf(source).c_str());
}

void note(const std::wstring& source, const std::string& sentence) {
  const HANDLE record = ::RegisterEventSourceW(nullptr, source.c_str());
  if (!record) return;
  const std::wstring text = wideOf(sentence);
  const wchar_t* texts = text.c_str();
  ::ReportEventW(record, EVENTLOG_INFORMATION_TYPE, 0, kSentence, nullptr, 1, 0, &texts, nullptr);
  ::DeregisterEventSource(record);
}

}  // namespace quorvane::event_record
