#include "components/xml/transforming.h"

#include <libexslt/exslt.h>
#include <libxslt/extensions.h>
#include <libxslt/imports.h>
#include <libxslt/transform.h>
#include <libxslt/variables.h>
#include <libxslt/xsltInternals.h>
#include <libxslt/xsltutils.h>

#include <array>
#include <cstdarg>
#include <cstdio>
#include <memory>
#include <mutex>

#include "components/xml/document.h"
#include "components/xml/errors.h"
#include "components/xml/external_files.h"
#include "components/xml/library.h"
#include "components/xml/parsing.h"
#include "components/xml/writing.h"
#include "vbscript/values/time_check.h"

namespace quorvane::xml {

namespace {

/// Templates inside of templates; each takes some kilobytes of the C stack.
constexpr int kMostTemplates = 1000;

struct DocumentEnd {
  void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
};
struct StyleEnd {
  void operator()(xsltStylesheet* style) const { xsltFreeStylesheet(style); }
};
struct ContextEnd {
  void operator()(xsltTransformContext* context) const { xsltFreeTransformContext(context); }
};
using DocumentPtr = std::unique_ptr<xmlDoc, DocumentEnd>;
using StylePtr = std::unique_ptr<xsltStylesheet, StyleEnd>;

void prepareTransforming() {
  static std::once_flag once;
  std::call_once(once, [] {
    xsltInit();
    exsltCommonRegister();
    // By the name that sheets written for the customary component use.
    const xmlChar* name = libraryText("node-set");
    const auto nodeSet = xsltExtModuleFunctionLookup(name, libraryText("http://exslt.org/common"));
    xsltRegisterExtModuleFunction(name, libraryText("urn:schemas-microsoft-com:xslt"), nodeSet);
    xsltMaxDepth = kMostTemplates;
  });
}

/// The library's own messages: the first one counts.
class Messages {
 public:
  Messages() {
    xmlSetGenericErrorFunc(this, &Messages::add);
    xmlSetStructuredErrorFunc(this, &Messages::addError);
    xsltSetGenericErrorFunc(this, &Messages::add);
  }
  ~Messages() {
    xmlSetStructuredErrorFunc(nullptr, nullptr);
    xmlResetLastError();
    prepareLibrary();
  }
  Messages(const Messages&) = delete;
  Messages& operator=(const Messages&) = delete;

  [[noreturn]] void fail(std::string_view otherwise) const {
    std::string_view text = text_.empty() ? otherwise : text_;
    // A first line says where. Then the function speaks that found it, which is nobody's business.
    const std::size_t line = text.find('\n');
    const bool saysWhere =
        text.starts_with("compilation error") || text.starts_with("runtime error");
    if (saysWhere && line + 1 < text.size()) text.remove_prefix(line + 1);
    const std::size_t colon = text.find(" : ");
    if (text.starts_with("xslt") && colon < text.find(' ') + 1) text.remove_prefix(colon + 3);
    while (!text.empty() && std::isspace(static_cast<unsigned char>(text.back()))) {
      text.remove_suffix(1);
    }
    xml::fail(text);
  }
  bool any() const { return !text_.empty(); }

 private:
  static constexpr std::size_t kLongest = 1000;

  static void add(void* data, const char* format, ...) __attribute__((format(printf, 2, 3))) {
    auto& messages = *static_cast<Messages*>(data);
    std::array<char, kLongest> line{};
    va_list parts;
    va_start(parts, format);
    std::vsnprintf(line.data(), line.size(), format, parts);
    va_end(parts);
    if (messages.text_.size() < kLongest) messages.text_ += line.data();
  }
  static void addError(void* data, xmlErrorPtr error) {
    auto& messages = *static_cast<Messages*>(data);
    if (messages.text_.empty() && error->message) messages.text_ = error->message;
  }

  std::string text_;
};

/// A copy for the library, which changes what it works with.
DocumentPtr copyFor(const Node& node, int options) {
  const std::string text = markup(node.node());
  vbs::countWork(text.size());
  const std::string& url = node.tree().url;
  return DocumentPtr(xmlReadMemory(text.data(), static_cast<int>(text.size()),
                                   url.empty() ? nullptr : url.c_str(), "UTF-8",
                                   options | XML_PARSE_NONET | XML_PARSE_IGNORE_ENC));
}

/// A style sheet as the library holds it.
class Sheet {
 public:
  Sheet(Node& style, const Messages& messages) {
    DocumentPtr copy = copyFor(style, XSLT_PARSE_OPTIONS);
    if (!copy) messages.fail("The stylesheet is not well-formed.");
    style_.reset(xsltParseStylesheetDoc(copy.get()));
    if (style_) static_cast<void>(copy.release());  // now the sheet's
    if (!style_ || style_->errors > 0) {
      messages.fail("The stylesheet does not contain a document element.");
    }
  }
  xsltStylesheet* get() const { return style_.get(); }

 private:
  StylePtr style_;
};

std::string written(xmlDoc* document, xsltStylesheet* sheet) {
  xmlChar* text = nullptr;
  int length = 0;
  if (xsltSaveResultToString(&text, &length, document, sheet) < 0 || !text) return {};
  std::string copy(reinterpret_cast<const char*>(text), static_cast<std::size_t>(length));
  xmlFree(text);
  return copy;
}

void checkSource(const Node& source) {
  const int type = source.node()->type;
  if (type != XML_DOCUMENT_NODE && type != XML_ELEMENT_NODE) failArgument();
}

void hand(xsltTransformContext& context, const Parameters& parameters) {
  for (const auto& [name, parameter] : parameters) {
    const xmlChar* key = libraryText(name.c_str());
    const xmlChar* value = libraryText(parameter.value.c_str());
    if (parameter.isExpression) {
      xsltEvalOneUserParam(&context, key, value);
    } else {
      xsltQuoteOneUserParam(&context, key, value);
    }
  }
}

std::string transform(Node& source, Node& style, const Parameters& parameters,
                      const std::string& encoding) {
  prepareLibrary();
  prepareTransforming();
  checkSource(source);
  const ExternalFiles outside(style.document().externalFiles());
  Messages messages;
  const Sheet sheet(style, messages);
  const DocumentPtr document = copyFor(source, XML_PARSE_NOENT);
  if (!document) messages.fail("The document has no document element.");
  const std::unique_ptr<xsltTransformContext, ContextEnd> context(
      xsltNewTransformContext(sheet.get(), document.get()));
  if (!context) throw std::bad_alloc();
  Watch watch([&context] {
    context->state = XSLT_STATE_STOPPED;
    if (context->xpathCtxt) context->xpathCtxt->opLimit = 1;
  });
  hand(*context, parameters);
  const DocumentPtr result(xsltApplyStylesheetUser(sheet.get(), document.get(), nullptr, nullptr,
                                                   nullptr, context.get()));
  const bool failed = !result || context->state != XSLT_STATE_OK;
  std::string text;
  if (!failed) {
    if (!encoding.empty()) {
      xmlFree(sheet.get()->encoding);
      sheet.get()->encoding = xmlStrdup(libraryText(encoding.c_str()));
    }
    text = written(result.get(), sheet.get());
  }
  watch.end();
  if (failed) messages.fail("The stylesheet could not be applied.");
  return text;
}

/// Texts of a script are of 16 bits a character, and say so.
void nameScriptEncoding(std::string& text) {
  constexpr std::string_view kNamed = "encoding=\"UTF-8\"";
  const std::size_t end = text.find("?>");
  const std::size_t at = text.starts_with("<?xml ") ? text.find(kNamed) : text.npos;
  if (at < end) text.replace(at, kNamed.size(), "encoding=\"UTF-16\"");
}

}  // namespace

vbs::Value transformToText(Node& source, Node& style, const Parameters& parameters) {
  std::string text = transform(source, style, parameters, "UTF-8");
  nameScriptEncoding(text);
  return vbs::String::fromUtf8(text);
}

void transformToObject(Node& source, Node& style, const vbs::Value& destination,
                       const Parameters& parameters) {
  deliver(source.document(), destination, transform(source, style, parameters, ""));
}

void checkStyle(Node& style) {
  prepareLibrary();
  prepareTransforming();
  const ExternalFiles outside(style.document().externalFiles());
  const Messages messages;
  const Sheet sheet(style, messages);
}

}  // namespace quorvane::xml
