#include <iterator>

#include "components/ado/catalog.h"
#include "components/ado/command.h"
#include "components/ado/connection.h"
#include "components/ado/recordset.h"
#include "components/ado/stream.h"
#include "components/component.h"
#include "components/dictionary.h"
#include "components/file_system/file_system.h"
#include "components/http_request.h"
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

namespace quorvane {

namespace {

// A row each.
// clang-format off
constexpr const Component* kOnEverySystem[] = {
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
    &kJetEngine,
    &kJpeg,
    &kMd5,
    &kNetwork,
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

}  // namespace

std::vector<const Component*> allComponents() {
  std::vector<const Component*> all(std::begin(kOnEverySystem), std::end(kOnEverySystem));
  const auto mail = mailComponents();
  all.insert(all.end(), mail.begin(), mail.end());
  return all;
}

}  // namespace quorvane
