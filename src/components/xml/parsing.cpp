#include "components/xml/parsing.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/xmlerror.h>

#include <algorithm>
#include <climits>
#include <utility>

#include "components/xml/external_files.h"
#include "components/xml/fault_texts.h"
#include "components/xml/library.h"
#include "vbscript/values/error.h"
#include "vbscript/values/time_check.h"

namespace quorvane::xml {

namespace {

constexpr std::size_t kLongestDocument = std::size_t{1} << 30;

/// What goes on while a document is read.
class Reading {
 public:
  Reading(std::string_view bytes, const ParseOptions& options) : bytes_(bytes), options_(options) {}

  xmlParserCtxt* context = nullptr;

  void start() {
    xmlSAXHandler& events = *context->sax;
    context->_private = this;
    events.serror = [](void* data, xmlErrorPtr error) { of(data).failed(*error); };
    events.startElementNs = [](void* data, const xmlChar* name, const xmlChar* prefix,
                               const xmlChar* address, int spaces, const xmlChar** space,
                               int attributes, int defaults, const xmlChar** attribute) {
      of(data).look();
      xmlSAX2StartElementNs(data, name, prefix, address, spaces, space, attributes, defaults,
                            attribute);
      of(data).made(of(data).context->node);
    };
    events.endElementNs = [](void* data, const xmlChar* name, const xmlChar* prefix,
                             const xmlChar* address) {
      of(data).ending();
      xmlSAX2EndElementNs(data, name, prefix, address);
    };
    events.characters = [](void* data, const xmlChar* text, int bytes) {
      if (!of(data).drops({reinterpret_cast<const char*>(text), static_cast<std::size_t>(bytes)})) {
        xmlSAX2Characters(data, text, bytes);
      }
    };
    events.ignorableWhitespace = events.characters;
    events.comment = [](void* data, const xmlChar* text) {
      xmlSAX2Comment(data, text);
      of(data).madeBelow();
    };
    events.processingInstruction = [](void* data, const xmlChar* target, const xmlChar* text) {
      xmlSAX2ProcessingInstruction(data, target, text);
      of(data).madeBelow();
    };
    events.cdataBlock = [](void* data, const xmlChar* text, int bytes) {
      xmlSAX2CDataBlock(data, text, bytes);
      of(data).madeBelow();
    };
    events.internalSubset = [](void* data, const xmlChar* name, const xmlChar* external,
                               const xmlChar* system) {
      of(data).typeDeclared();
      xmlSAX2InternalSubset(data, name, external, system);
    };
  }

  void end() { watch_.end(); }
  const ParseFault& fault() const { return fault_; }

 private:
  static Reading& of(void* data) {
    return *static_cast<Reading*>(static_cast<xmlParserCtxt*>(data)->_private);
  }

  /// The parser can be stopped from its events only, not from where it takes memory.
  void look() {
    constexpr unsigned kBetweenLooks = 64;
    if (++elements_ % kBetweenLooks == 0) Watch::look();
    if (watch_.stopped()) xmlStopParser(context);
  }

  /// White space between two pieces of markup, as most documents have it, never becomes a node;
  /// where that is not easily told, or the library would join what stands around it, SpaceCleaning
  /// takes it away.
  bool drops(std::string_view text) {
    const xmlNode* const parent = context->node;
    const bool preserves = context->space && *context->space == 1;
    if (options_.preservesSpace || preserves || !parent || !context->myDoc ||
        context->myDoc->intSubset || *context->input->cur != '<' ||
        (parent->last && isText(parent->last)) || !isSpace(text)) {
      return false;
    }
    droppedSpace_ = true;
    return true;
  }
  void made(xmlNode* node) {
    if (std::exchange(droppedSpace_, false) && node) markSpaceBefore(node);
  }
  void madeBelow() {
    if (context->node) made(context->node->last);
  }
  void ending() {
    xmlNode* const node = context->node;
    if (std::exchange(droppedSpace_, false) && node && node->last) markSpaceAtEnd(node);
  }

  void typeDeclared() {
    if (options_.allowsType || fault_.code != 0) return;
    fault_.code = FaultCode::TypeProhibited;
    fault_.reason = faultText(fault_.code);
    place(context->input ? context->input->line : 0, context->input ? context->input->col : 0);
    xmlStopParser(context);
  }

  /// The first fault counts.
  void failed(const xmlError& error) {
    if (fault_.code != 0 || error.level < XML_ERR_ERROR) return;
    describe(error);
    place(error.line, error.int2);
  }

  void describe(const xmlError& error) {
    FaultPlace at;
    for (int i = 0; i < context->nameNr; ++i) at.open.emplace_back(view(context->nameTab[i]));
    if (context->input) {
      at.rest = {reinterpret_cast<const char*>(context->input->cur),
                 static_cast<std::size_t>(context->input->end - context->input->cur)};
    }
    at.isBlank = isSpace(bytes_);
    const Described described = describeFault(error, at);
    fault_.code = described.code;
    fault_.reason = described.text;
  }

  void place(int line, int column) {
    fault_.line = line;
    fault_.column = column;
    std::size_t start = 0;
    for (int i = 1; i < line && start != bytes_.npos; ++i) {
      start = bytes_.find('\n', start);
      if (start != bytes_.npos) ++start;
    }
    if (start == bytes_.npos) return;
    constexpr std::size_t kLongestLine = 1024;
    const std::string_view rest = bytes_.substr(start);
    fault_.sourceText = rest.substr(0, std::min(rest.find_first_of("\r\n"), kLongestLine));
    fault_.position = static_cast<std::int32_t>(start) + std::max(column - 1, 0);
  }

  std::string_view bytes_;
  const ParseOptions& options_;
  ParseFault fault_;
  unsigned elements_ = 0;
  bool droppedSpace_ = false;  ///< just before what comes now
  Watch watch_{[] {}};
};

struct ContextEnd {
  void operator()(xmlParserCtxt* context) const { xmlFreeParserCtxt(context); }
};
struct DocumentEnd {
  void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
};

bool preserves(const xmlNode* element, bool inherited) {
  const xmlAttr* held = element->properties ? findAttribute(element, "xml:space") : nullptr;
  if (!held) return inherited;
  return rawText(reinterpret_cast<const xmlNode*>(held)) == "preserve";
}

/// Takes away the white space that does not count, and notes where it stood.
class SpaceCleaning {
 public:
  void clean(xmlNode* document) {
    preserving_.push_back(false);
    xmlNode* at = document->children;
    while (at) {
      if (isElement(at) && at->children) {
        preserving_.push_back(preserves(at, preserving_.back()));
        at = at->children;
        continue;
      }
      at = behind(at, document);
    }
  }

 private:
  /// Deals with a node whose children are done, and those that end with it.
  xmlNode* behind(xmlNode* at, const xmlNode* document) {
    for (;;) {
      xmlNode* next = at->next;
      xmlNode* parent = at->parent;
      if (drops(at)) {
        if (next) {
          markSpaceBefore(next);
        } else if (at->prev) {
          markSpaceAtEnd(parent);
        }
        xmlUnlinkNode(at);
        xmlFreeNode(at);
      }
      if (next) return next;
      if (parent == document) return nullptr;
      preserving_.pop_back();
      at = parent;
    }
  }
  bool drops(const xmlNode* at) const {
    return at->type == XML_TEXT_NODE && !preserving_.back() && isSpace(content(at));
  }

  std::vector<bool> preserving_;
};

/// The declaration stands among the nodes.
void addDeclaration(Tree& tree, std::string_view bytes) {
  const xmlDoc* document = tree.document();
  std::string text;
  constexpr std::string_view kStart = "<?xml";
  const std::size_t start = bytes.substr(0, 8).find(kStart);
  const std::size_t end = bytes.find("?>");
  if (start != bytes.npos && end != bytes.npos && end > start + kStart.size() &&
      isSpace(bytes.substr(start + kStart.size(), 1))) {
    text = std::string(bytes.substr(start + kStart.size(), end - start - kStart.size()));
    text.erase(0, text.find_first_not_of(" \t\r\n"));
    text.erase(text.find_last_not_of(" \t\r\n") + 1);
    std::replace(text.begin(), text.end(), '\'', '"');
  } else if (document->encoding) {  // it was there in an encoding of another width
    text = "version=\"1.0\" encoding=\"" + std::string(view(document->encoding)) + "\"";
    if (!bytes.starts_with("\xFF\xFE") && !bytes.starts_with("\xFE\xFF")) return;
  } else {
    return;
  }
  xmlNode* made = xmlNewDocPI(tree.document(), libraryText("xml"), libraryText(text.c_str()));
  if (made) link(tree.top(), made, tree.top()->children);
}

}  // namespace

ParseFault sourceFault(SourceFault code, std::string url) {
  ParseFault fault;
  fault.code = static_cast<std::int32_t>(code);
  fault.reason = faultText(fault.code);
  fault.url = std::move(url);
  return fault;
}

Parsed parse(std::string_view bytes, const char* encoding, const std::string& url,
             const ParseOptions& options) {
  prepareLibrary();
  vbs::countWork(bytes.size());
  if (bytes.size() > kLongestDocument) vbs::throwError(vbs::ErrorCode::OutOfMemory);
  const ExternalFiles outside(options.external);
  Reading reading(bytes, options);
  const std::unique_ptr<xmlParserCtxt, ContextEnd> context(xmlNewParserCtxt());
  if (!context) throw std::bad_alloc();
  reading.context = context.get();
  reading.start();
  int flags = XML_PARSE_NOENT | XML_PARSE_NONET | XML_PARSE_NODICT | XML_PARSE_COMPACT;
  if (encoding) flags |= XML_PARSE_IGNORE_ENC;
  if (options.external) flags |= XML_PARSE_DTDLOAD | XML_PARSE_DTDATTR;
  std::unique_ptr<xmlDoc, DocumentEnd> document(
      xmlCtxtReadMemory(context.get(), bytes.data(), static_cast<int>(bytes.size()),
                        url.empty() ? nullptr : url.c_str(), encoding, flags));
  reading.end();
  Parsed parsed;
  parsed.fault = reading.fault();
  parsed.fault.url = url;
  if (parsed.fault.code != 0) return parsed;
  if (!document) {
    parsed.fault.code = FaultCode::MissingRoot;
    parsed.fault.reason = faultText(FaultCode::MissingRoot);
    return parsed;
  }
  if (!options.preservesSpace) SpaceCleaning().clean(reinterpret_cast<xmlNode*>(document.get()));
  parsed.tree = std::make_shared<Tree>(document.release());
  parsed.tree->preservesSpace = options.preservesSpace;
  parsed.tree->url = url;
  addDeclaration(*parsed.tree, bytes);
  checkMemory();
  return parsed;
}

}  // namespace quorvane::xml
