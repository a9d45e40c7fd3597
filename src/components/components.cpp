#include "components/components.h"

#include <string>
#include <unordered_map>
#include <vector>

#include "components/ado/catalog.h"
#include "components/ado/command.h"
#include "components/ado/connection.h"
#include "components/ado/recordset.h"
#include "components/ado/stream.h"
#include "components/component.h"
#include "components/dictionary.h"
#include "components/file_system/file_system.h"
#include "components/http_request.h"
#include "components/mail/cdo_message.h"
#include "components/mail/cdonts.h"
#include "components/mail/jmail.h"
#include "components/mail/mail_senders.h"
#include "components/pictures/jpeg.h"
#include "components/regexp.h"
#include "components/shell/network.h"
#include "components/shell/shell.h"
#include "components/site/ad_rotator.h"
#include "components/site/browser_type.h"
#include "components/site/content_rotator.h"
#include "components/site/counters.h"
#include "components/system/array_list.h"
#include "components/system/hashes.h"
#include "components/system/utf8_encoding.h"
#include "components/type_library.h"
#include "components/uploads/upload_objects.h"
#include "components/xml_document.h"
#include "support/text.h"

namespace quorvane {

namespace {

// A row each.
// clang-format off
constexpr const Component* kComponents[] = {
    &kAdRotator,
    &kAdoCommand,
    &kAdoConnection,
    &kAdoParameter,
    &kAdoRecordset,
    &kAdoxCatalog,
    &kAdoxColumn,
    &kAdoxIndex,
    &kAdoxTable,
    &kArrayList,
    &kBrowserType,
    &kCdoConfiguration,
    &kCdoMessage,
    &kContentRotator,
    &kCounters,
    &kDictionary,
    &kFileSystemObject,
    &kFileUp,
    &kHmacMd5,
    &kHmacSha1,
    &kHmacSha256,
    &kHmacSha384,
    &kHmacSha512,
    &kJMailMessage,
    &kJMailSmtp,
    &kJetEngine,
    &kJpeg,
    &kMailSender,
    &kMailer,
    &kMd5,
    &kNetwork,
    &kNewMail,
    &kRegExp,
    &kServerXmlHttp,
    &kServerXmlHttp6,
    &kSha1,
    &kSha256,
    &kSha384,
    &kSha512,
    &kShell,
    &kSmartUpload,
    &kStream,
    &kTypeLibrary,
    &kUpload,
    &kUtf8Encoding,
    &kWinHttpRequest,
    &kXmlDocument,
    &kXmlDocument4,
    &kXmlDocument6,
    &kXmlHttp,
    &kXmlHttp6,
    &kXslTemplate,
};
// clang-format on

using Names = std::unordered_map<std::string_view, const Component*>;

Names allNames() {
  Names names;
  for (const Component* component : kComponents) {
    for (const std::string_view name : split(component->progIds, ' ')) {
      VBS_ASSERT(!names.contains(name) && lowerCase(name) == name);
      names[name] = component;
    }
  }
  return names;
}

const Component* componentOf(std::string_view lowerName) {
  static const Names names = allNames();
  const auto found = names.find(lowerName);
  return found == names.end() ? nullptr : found->second;
}

std::string_view withoutVersion(std::string_view progId) {
  for (;;) {
    const std::size_t end = progId.find_last_not_of("0123456789");
    if (end == progId.npos || end + 1 == progId.size() || progId[end] != '.') return progId;
    progId = progId.substr(0, end);
  }
}

/// Null when there is none.
const Component* findComponent(std::string_view progId) {
  const std::string lowerName = lowerCase(progId);
  const Component* component = componentOf(lowerName);
  return component ? component : componentOf(withoutVersion(lowerName));
}

}  // namespace

bool isComponent(std::string_view progId) {
  return findComponent(progId) != nullptr;
}

std::vector<std::string_view> componentNames() {
  std::vector<std::string_view> names;
  for (const Component* component : kComponents) {
    for (const std::string_view name : split(component->progIds, ' ')) names.push_back(name);
  }
  return names;
}

vbs::Value createComponent(std::string_view progId, const Services& services) {
  const Component* component = findComponent(progId);
  if (!component) vbs::throwError(vbs::ErrorCode::CannotCreateObject, progId);
  return component->create(services);
}

}  // namespace quorvane
