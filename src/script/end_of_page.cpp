#include "script/end_of_page.h"

#include "vbscript/error.h"

void endPage() {
  throw vbs::ScriptError{kEndOfPage, {}, {}, {}, 0};
}
