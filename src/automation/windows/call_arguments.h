#pragma once

#include <vector>

#include "automation/windows/com.h"
#include "vbscript/values/object.h"

namespace quorvane::automation {

/// A script's arguments for a call of an object of the system's. What the script passes by
/// reference goes as a variant that may be changed.
class CallArguments {
 public:
  /// `args` outlive this. Throws ScriptError.
  CallArguments(vbs::Args args, vbs::CallKind kind);
  CallArguments(const CallArguments&) = delete;
  CallArguments& operator=(const CallArguments&) = delete;

  DISPPARAMS* all() { return &params_; }

  /// Gives the script's variables what the call has changed. Errors 10 and 13 for arrays that
  /// can't be replaced.
  void writeBack();

 private:
  vbs::Args args_;
  std::vector<Variant> given_;   ///< the last argument first
  std::vector<Variant> places_;  ///< of variables, at the same index; else empty
  DISPID named_ = DISPID_PROPERTYPUT;
  DISPPARAMS params_{};
};

}  // namespace quorvane::automation
