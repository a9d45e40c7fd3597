#pragma once

#include "components/component.h"

namespace quorvane {

/// JMail.Message and JMail.SMTPMail.
extern const Component kJMailMessage;
extern const Component kJMailSmtp;

}  // namespace quorvane
