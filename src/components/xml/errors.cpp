#include "components/xml/errors.h"

#include "vbscript/values/string.h"

namespace quorvane::xml {

void fail(std::int32_t number, std::string_view text) {
  throw vbs::ScriptError{number, vbs::String::fromUtf8(text).narrow(), "msxml3.dll", {}};
}

void failArgument() {
  fail(kBadArgument, "The parameter is incorrect.");
}

}  // namespace quorvane::xml
