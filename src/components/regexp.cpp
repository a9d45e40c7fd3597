#include "components/regexp.h"

#include "vbscript/library/regexp.h"

namespace quorvane {

const Component kRegExp{"vbscript.regexp", [](const Services&) { return vbs::createRegExp(); },
                        /*isOurs=*/true};

}  // namespace quorvane
