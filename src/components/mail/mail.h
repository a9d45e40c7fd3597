#pragma once

#include <string>
#include <utility>
#include <vector>

#include "vbscript/values/memory_meter.h"
#include "vbscript/values/string.h"

/// Mail as scripts write it, whichever object they write it with.
namespace quorvane::mail {

struct Address {
  vbs::String name;
  vbs::String address;
};

struct Attachment {
  std::string name;
  std::string content;
  std::string type;       ///< empty: told by the name
  std::string contentId;  ///< of what the HTML text shows; empty: it is a file apart
  vbs::MemoryCharge charge;
};

struct Mail {
  std::vector<Address> from;
  std::vector<Address> sender;
  std::vector<Address> replyTo;
  std::vector<Address> to;
  std::vector<Address> cc;
  std::vector<Address> bcc;
  vbs::String subject;
  vbs::String text;
  vbs::String html;
  std::string charset = "utf-8";
  std::vector<std::pair<std::string, vbs::String>> headers;  ///< in addition
  std::vector<Attachment> attachments;
};

}  // namespace quorvane::mail
