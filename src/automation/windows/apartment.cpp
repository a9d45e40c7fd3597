#include "automation/windows/apartment.h"

#include "automation/system_objects.h"
#include "automation/windows/com.h"

namespace quorvane::automation {

namespace {

thread_local bool entered = false;

}  // namespace

void enterApartment() {
  // A thread that is in an apartment of the other kind already keeps it, and its objects work.
  if (!entered) ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE);
  entered = true;
}

void takeCalls() {
  MSG message;
  while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
}

bool othersCall() {
  return true;
}

void sleep(std::chrono::milliseconds time) {
  using std::chrono::steady_clock;
  const auto end = steady_clock::now() + time;
  takeCalls();
  for (auto left = time; left.count() > 0;
       left = std::chrono::ceil<std::chrono::milliseconds>(end - steady_clock::now())) {
    // What comes wakes it, also when it has come before.
    ::MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(left.count()), QS_ALLINPUT,
                                  MWMO_INPUTAVAILABLE);
    takeCalls();
  }
}

}  // namespace quorvane::automation
