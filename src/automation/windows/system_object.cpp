#include "automation/windows/system_object.h"

#include "automation/windows/apartment.h"
#include "automation/windows/call_arguments.h"
#include "automation/windows/failures.h"
#include "automation/windows/script_dispatch.h"
#include "automation/windows/type_names.h"
#include "automation/windows/value_conversion.h"
#include "vbscript/values/text_locale.h"
#include "vbscript/values/time_check.h"

namespace quorvane::automation {

using vbs::CallKind;
using vbs::Value;

namespace {

/// More than any type has; names that a script makes up don't pile up.
constexpr std::size_t kMostNames = 1000;

using Known = std::unordered_map<IUnknown*, SystemObject*>;

/// Never destroyed: objects may outlive everything local to the thread.
Known& known() {
  thread_local Known* const all = new Known;
  return *all;
}

LCID localeId() {
  return static_cast<LCID>(vbs::activeLocale().id);
}

WORD useOf(CallKind kind) {
  switch (kind) {
    case CallKind::Get:
      return DISPATCH_METHOD | DISPATCH_PROPERTYGET;
    case CallKind::Call:
      return DISPATCH_METHOD;
    case CallKind::Let:
      return DISPATCH_PROPERTYPUT;
    case CallKind::Set:
      return DISPATCH_PROPERTYPUTREF;
  }
  return 0;
}

/// What is tried where an object has no such use of a member. 0: nothing.
WORD otherUseOf(CallKind kind) {
  switch (kind) {
    case CallKind::Call:
      return DISPATCH_METHOD | DISPATCH_PROPERTYGET;
    case CallKind::Set:
      return DISPATCH_PROPERTYPUT;
    default:
      return 0;
  }
}

class SystemItems final : public vbs::Enumerator {
 public:
  explicit SystemItems(ComPtr<IEnumVARIANT> items) : items_(std::move(items)) {}

  bool next(Value& item) override {
    Variant found;
    ULONG count = 0;
    CallToOthers call;
    const HRESULT code = items_->Next(1, found.address(), &count);
    call.throwPending();
    throwIfFailed(code);
    if (code != S_OK) return false;
    vbs::checkTime();
    item = fromVariant(*found);
    return true;
  }

 private:
  ComPtr<IEnumVARIANT> items_;
};

}  // namespace

SystemObject::SystemObject(IUnknown& key, IDispatch* dispatch) : key_(&key), dispatch_(dispatch) {
  known()[&key] = this;
}

SystemObject::~SystemObject() {
  known().erase(key_.get());
}

Value SystemObject::of(IUnknown& key, IDispatch* dispatch) {
  const auto found = known().find(&key);
  if (found != known().end()) return Value::object(found->second);
  if (vbs::Object* own = ScriptDispatch::objectBehind(key)) return Value::object(own);
  return Value::adopt(new SystemObject(key, dispatch));
}

IDispatch* SystemObject::sharedDispatch() const {
  return ComPtr<IDispatch>(dispatch_).release();
}

std::string_view SystemObject::typeName() const {
  if (typeName_.empty()) typeName_ = typeNameOf(dispatch_.get());
  return typeName_;
}

vbs::MemberId SystemObject::findMember(std::string_view lowerName) {
  const auto found = ids_.find(std::string(lowerName));
  if (found != ids_.end()) return found->second;
  if (!dispatch_) return vbs::kNoMember;
  std::u16string name = vbs::String(lowerName).wide();
  auto* text = reinterpret_cast<LPOLESTR>(name.data());
  DISPID id = DISPID_UNKNOWN;
  CallToOthers call;
  const HRESULT code = dispatch_->GetIDsOfNames(IID_NULL, &text, 1, localeId(), &id);
  call.throwPending();
  if (code == DISP_E_UNKNOWNNAME || code == DISP_E_MEMBERNOTFOUND) return vbs::kNoMember;
  throwIfFailed(code);
  if (ids_.size() >= kMostNames) ids_.clear();
  ids_.emplace(lowerName, id);
  return id;
}

Value SystemObject::invoke(vbs::MemberId id, CallKind kind, vbs::Args args) {
  if (!dispatch_) vbs::throwError(vbs::ErrorCode::NoPropertyOrMethod);
  const vbs::Ref<Object> alive(this);
  CallArguments arguments(args, kind);
  Variant result;
  ExceptionTexts texts;
  UINT wrongArgument = 0;
  VARIANT* const place = kind == CallKind::Get ? result.address() : nullptr;
  CallToOthers call;
  const auto use = [&](WORD how, VARIANT* into) {
    return dispatch_->Invoke(id, IID_NULL, localeId(), how, arguments.all(), into, texts.address(),
                             &wrongArgument);
  };
  HRESULT code = use(useOf(kind), place);
  if (code == DISP_E_MEMBERNOTFOUND && otherUseOf(kind) != 0) {
    code = use(otherUseOf(kind), kind == CallKind::Call ? result.address() : nullptr);
  }
  call.throwPending();
  if (FAILED(code)) throwFailure(code, texts);
  vbs::checkTime();
  Value value = kind == CallKind::Get ? fromVariant(*result) : Value();
  arguments.writeBack();
  return value;
}

std::unique_ptr<vbs::Enumerator> SystemObject::enumerate() {
  if (!dispatch_) vbs::throwError(vbs::ErrorCode::NotACollection);
  Variant result;
  DISPPARAMS none{};
  CallToOthers call;
  const HRESULT code = dispatch_->Invoke(DISPID_NEWENUM, IID_NULL, localeId(),
                                         DISPATCH_METHOD | DISPATCH_PROPERTYGET, &none,
                                         result.address(), nullptr, nullptr);
  call.throwPending();
  const bool isObject = result->vt == VT_UNKNOWN || result->vt == VT_DISPATCH;
  auto items = queryFor<IEnumVARIANT>(SUCCEEDED(code) && isObject ? result->punkVal : nullptr);
  if (!items) vbs::throwError(vbs::ErrorCode::NotACollection);
  return std::make_unique<SystemItems>(std::move(items));
}

Value objectValue(IDispatch* object) {
  return object ? SystemObject::of(*object, object) : Value::nothing();
}

Value unknownValue(IUnknown* object) {
  if (const auto dispatch = queryFor<IDispatch>(object)) return objectValue(dispatch.get());
  return object ? SystemObject::of(*object, nullptr) : Value::nothing();
}

}  // namespace quorvane::automation
