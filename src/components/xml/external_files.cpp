#include "components/xml/external_files.h"

#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/uri.h>
#include <libxml/xmlIO.h>
#include <libxslt/documents.h>
#include <libxslt/security.h>
#include <libxslt/xsltInternals.h>

#include <exception>

#include "components/script_files.h"
#include "components/xml/library.h"
#include "support/files.h"
#include "support/text.h"
#include "vbscript/values/error.h"

namespace quorvane::xml {

namespace {

thread_local ExternalFiles* current = nullptr;

/// Long enough for every drive ("C:"), too short for every scheme.
constexpr std::size_t kShortestScheme = 2;

std::string unescaped(const std::string& text) {
  char* plain = xmlURIUnescapeString(text.c_str(), 0, nullptr);
  if (!plain) return text;
  std::string result(plain);
  xmlFree(plain);
  return result;
}

xmlParserInputPtr openEntity(const char* location, const char*, xmlParserCtxtPtr context) {
  const auto content = location ? ExternalFiles::read(location) : std::nullopt;
  if (!content) return nullptr;
  xmlParserInputBufferPtr buffer = xmlParserInputBufferCreateMem(
      content->data(), static_cast<int>(content->size()), XML_CHAR_ENCODING_NONE);
  if (!buffer) return nullptr;
  xmlParserInputPtr input = xmlNewIOInputStream(context, buffer, XML_CHAR_ENCODING_NONE);
  if (!input) return nullptr;
  input->filename = reinterpret_cast<char*>(xmlStrdup(libraryText(location)));
  return input;
}

/// Documents that a style sheet names: parsed as others are, through the loader of entities.
xmlDocPtr openDocument(const xmlChar* location, xmlDictPtr dictionary, int options, void*,
                       xsltLoadType) {
  xmlParserCtxtPtr context = xmlNewParserCtxt();
  if (!context) return nullptr;
  if (dictionary && context->dict) {
    xmlDictFree(context->dict);
    context->dict = dictionary;
    xmlDictReference(dictionary);
  }
  xmlDocPtr document = nullptr;
  if (const auto content = ExternalFiles::read(view(location))) {
    document = xmlCtxtReadMemory(context, content->data(), static_cast<int>(content->size()),
                                 reinterpret_cast<const char*>(location), nullptr,
                                 options | XML_PARSE_NONET | XML_PARSE_NOERROR);
  }
  xmlFreeParserCtxt(context);
  return document;
}

}  // namespace

std::optional<std::string> filePath(std::string_view location) {
  const std::size_t colon = location.find(':');
  const std::size_t slash = location.find_first_of("/\\");
  if (colon == location.npos || colon < kShortestScheme || slash < colon) {
    return std::string(location);
  }
  if (!startsWithNoCase(location, "file:")) return std::nullopt;
  location.remove_prefix(5);
  // "file:///folder/name", "file:///C:/name"
  if (startsWithNoCase(location, "//localhost/")) location.remove_prefix(11);
  while (location.starts_with("//")) location.remove_prefix(1);
  if (location.size() > 2 && location[0] == '/' && location[2] == ':') location.remove_prefix(1);
  return unescaped(std::string(location));
}

ExternalFiles::ExternalFiles(const ScriptFiles* files) : files_(files), outer_(current) {
  current = this;
}

ExternalFiles::~ExternalFiles() {
  current = outer_;
}

std::optional<std::string> ExternalFiles::read(std::string_view location) {
  if (!current || !current->files_) return std::nullopt;
  try {
    const ScriptFiles& files = *current->files_;
    const auto path = filePath(location);
    if (!path) return std::nullopt;
    const std::string whole = files.fullPath(*path);
    if (!files.allows(whole)) return std::nullopt;
    return files.files().readAll(whole);
  } catch (const std::exception&) {  // called by C code, which nothing may pass
    return std::nullopt;
  } catch (const vbs::ScriptError&) {
    return std::nullopt;
  }
}

void ExternalFiles::install() {
  xmlSetExternalEntityLoader(&openEntity);
  xsltSetLoaderFunc(&openDocument);
  xsltSecurityPrefsPtr nothing = xsltNewSecurityPrefs();
  for (const xsltSecurityOption what : {XSLT_SECPREF_WRITE_FILE, XSLT_SECPREF_CREATE_DIRECTORY,
                                        XSLT_SECPREF_READ_NETWORK, XSLT_SECPREF_WRITE_NETWORK}) {
    xsltSetSecurityPrefs(nothing, what, &xsltSecurityForbid);
  }
  xsltSetDefaultSecurityPrefs(nothing);
}

}  // namespace quorvane::xml
