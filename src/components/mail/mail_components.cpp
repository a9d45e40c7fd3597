#include "components/component.h"
#include "components/mail/cdo_message.h"
#include "components/mail/cdonts.h"
#include "components/mail/jmail.h"
#include "components/mail/mail_senders.h"

namespace quorvane {

std::span<const Component* const> mailComponents() {
  static constexpr const Component* kComponents[] = {
      &kCdoConfiguration, &kCdoMessage, &kJMailMessage, &kJMailSmtp,
      &kMailSender,       &kMailer,     &kNewMail,
  };
  return kComponents;
}

}  // namespace quorvane
