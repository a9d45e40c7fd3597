#pragma once

#include "components/component.h"

namespace quorvane {

/// Persits.MailSender and SMTPsvg.Mailer.
extern const Component kMailSender;
extern const Component kMailer;

}  // namespace quorvane
