#include "automation/system_objects.h"

#include <string>

#include "automation/windows/apartment.h"
#include "automation/windows/failures.h"
#include "automation/windows/system_object.h"

namespace quorvane::automation {

using vbs::ErrorCode;
using vbs::Value;

namespace {

constexpr DWORD kAnyServer = CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER | CLSCTX_REMOTE_SERVER;

std::wstring wide(std::string_view text) {
  const std::u16string units = vbs::String(text).wide();
  return {units.begin(), units.end()};
}

HRESULT findClass(std::string_view progId, CLSID& id) {
  enterApartment();
  return ::CLSIDFromProgID(wide(progId).c_str(), &id);
}

/// Calls that make objects run code of others, which may call scripts.
template <class Call>
HRESULT calling(Call call) {
  CallToOthers guard;
  const HRESULT code = call();
  guard.throwPending();
  return code;
}

HRESULT makeInstance(REFCLSID id, ComPtr<IUnknown>& made) {
  return calling(
      [&] { return ::CoCreateInstance(id, nullptr, kAnyServer, IID_IUnknown, made.outVoid()); });
}

Value callable(const ComPtr<IUnknown>& object) {
  const auto dispatch = queryFor<IDispatch>(object.get());
  if (!dispatch) vbs::throwError(ErrorCode::NoSuchAutomation);
  return objectValue(dispatch.get());
}

/// The object that a program has made known to all as the one of its class.
Value activeObject(std::string_view progId) {
  CLSID id{};
  throwIfFailed(findClass(progId, id));
  ComPtr<IUnknown> active;
  throwIfFailed(calling([&] { return ::GetActiveObject(id, nullptr, active.out()); }));
  return callable(active);
}

/// A new object of the class, with the content of the file.
Value loadedObject(std::string_view pathName, std::string_view progId) {
  CLSID id{};
  throwIfFailed(findClass(progId, id));
  ComPtr<IUnknown> made;
  throwIfFailed(makeInstance(id, made));
  const auto file = queryFor<IPersistFile>(made.get());
  if (!file) vbs::throwError(ErrorCode::NameNotFound);
  const std::wstring path = wide(pathName);
  throwIfFailed(calling([&] { return file->Load(path.c_str(), STGM_READ); }));
  return callable(made);
}

Value namedObject(std::string_view pathName) {
  enterApartment();
  ComPtr<IUnknown> found;
  const std::wstring name = wide(pathName);
  const HRESULT code =
      calling([&] { return ::CoGetObject(name.c_str(), nullptr, IID_IUnknown, found.outVoid()); });
  if (code == MK_E_SYNTAX || code == MK_E_CANTOPENFILE) vbs::throwError(ErrorCode::NameNotFound);
  throwIfFailed(code);
  return callable(found);
}

}  // namespace

std::optional<Value> createObject(std::string_view progId) {
  CLSID id{};
  ComPtr<IUnknown> made;
  if (FAILED(findClass(progId, id)) || FAILED(makeInstance(id, made))) return std::nullopt;
  return callable(made);
}

bool hasClass(std::string_view progId) {
  CLSID id{};
  return SUCCEEDED(findClass(progId, id));
}

Value getObject(std::string_view pathName, std::string_view progId) {
  if (pathName.empty() && progId.empty()) vbs::throwError(ErrorCode::InvalidCall);
  if (pathName.empty()) return activeObject(progId);
  return progId.empty() ? namedObject(pathName) : loadedObject(pathName, progId);
}

}  // namespace quorvane::automation
