#pragma once

#include "components/component.h"

namespace quorvane {

/// CDONTS.NewMail: a mail in one call of Send.
extern const Component kNewMail;

}  // namespace quorvane
