#include "vbscript/compile/script_class.h"

#include <algorithm>

#include "vbscript/values/object.h"

namespace quorvane::vbs {

const ClassMember* ScriptClass::find(std::string_view lower) const {
  const auto found = std::find_if(members.begin(), members.end(),
                                  [&](const ClassMember& member) { return member.lower == lower; });
  return found == members.end() ? nullptr : &*found;
}

std::uint32_t ScriptClass::nextSerial() {
  return kProcedureClass + ++runContext.lastClassSerial;
}

}  // namespace quorvane::vbs
