#include "components/xml/writing.h"

#include <libxml/encoding.h>
#include <libxml/xmlIO.h>

#include <vector>

#include "components/xml/library.h"
#include "components/xml/tree.h"

namespace quorvane::xml {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

enum class Place { Text, Attribute };

void escape(std::string& out, std::string_view text, Place place) {
  for (const char c : text) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '\r':
        out += "&#xD;";
        break;
      case '\n':
        out += place == Place::Text ? kLineEnd : "&#xA;";
        break;
      case '"':
        if (place == Place::Attribute) {
          out += "&quot;";
          break;
        }
        [[fallthrough]];
      case '\t':
        if (place == Place::Attribute && c == '\t') {
          out += "&#x9;";
          break;
        }
        [[fallthrough]];
      default:
        out += c;
    }
  }
}

void lines(std::string& out, std::string_view text) {
  for (const char c : text) {
    if (c == '\n' && !out.ends_with('\r')) out += '\r';
    out += c;
  }
}

class Writer {
 public:
  Writer(const xmlNode* root, bool namesEncoding) : root_(root), namesEncoding_(namesEncoding) {}

  std::string write() {
    for (const xmlNode* at = root_; at;) {
      open(at);
      if (const xmlNode* child = firstChild(at); child && !isAttribute(at)) {
        at = child;
        continue;
      }
      close(at);
      for (; at != root_ && !at->next; close(at)) at = at->parent;
      at = at == root_ ? nullptr : at->next;
    }
    return std::move(out_);
  }

 private:
  struct Declared {
    std::string_view prefix;
    std::string_view address;
    std::size_t depth;
  };

  /// Inside of the element's start tag.
  void declare(std::string_view prefix, std::string_view address) {
    scope_.push_back({prefix, address, depth_});
    out_ += prefix.empty() ? " xmlns" : " xmlns:";
    out_.append(prefix).append("=\"");
    escape(out_, address, Place::Attribute);
    out_ += '"';
  }
  std::string_view addressOf(std::string_view prefix) const {
    for (auto at = scope_.rbegin(); at != scope_.rend(); ++at) {
      if (at->prefix == prefix) return at->address;
    }
    return prefix == "xml" ? "http://www.w3.org/XML/1998/namespace" : "";
  }
  void declareIfNeeded(const xmlNode* node) {
    const std::string_view prefix = node->ns ? view(node->ns->prefix) : "";
    const std::string_view address = node->ns ? view(node->ns->href) : "";
    if (isAttribute(node) && !node->ns) return;
    if (!node->ns && view(node->name).find(':') != std::string_view::npos) return;
    if (addressOf(prefix) != address) declare(prefix, address);
  }

  void startTag(const xmlNode* element) {
    ++depth_;
    out_.append("<").append(qualifiedName(element));
    for (const xmlNs* at = element->nsDef; at; at = at->next) {
      // The element's own prefix has to mean what the element is in.
      const bool own = element->ns && view(element->ns->prefix) == view(at->prefix);
      declare(view(at->prefix), own ? view(element->ns->href) : view(at->href));
    }
    declareIfNeeded(element);
    for (const xmlAttr* at = element->properties; at; at = at->next) {
      attribute(reinterpret_cast<const xmlNode*>(at));
    }
    out_ += element->children ? ">" : "/>";
  }

  void attribute(const xmlNode* node) {
    if (node->parent) declareIfNeeded(node);
    if (node->parent) out_ += ' ';
    out_.append(qualifiedName(node)).append("=\"");
    for (const xmlNode* part = node->children; part; part = part->next) {
      if (part->type == XML_ENTITY_REF_NODE) {
        out_.append("&").append(view(part->name)).append(";");
      } else {
        escape(out_, view(part->content), Place::Attribute);
      }
    }
    out_ += '"';
  }

  void instruction(const xmlNode* node) {
    out_.append("<?").append(view(node->name));
    std::string text(content(node));
    if (!namesEncoding_ && view(node->name) == "xml") text = withoutEncoding(text);
    if (!text.empty()) lines(out_.append(" "), text);
    out_ += "?>";
  }

  static std::string withoutEncoding(const std::string& declaration) {
    const std::string_view value = declared(declaration, "encoding");
    if (!value.data()) return declaration;
    const auto end = static_cast<std::size_t>(value.data() - declaration.data()) + value.size() + 1;
    std::size_t start = declaration.rfind("encoding", end);
    while (start > 0 && isSpace(declaration.substr(start - 1, 1))) --start;
    return declaration.substr(0, start) + declaration.substr(end);
  }

  void type(const xmlNode* node) {
    xmlBuffer* buffer = xmlBufferCreate();
    if (!buffer) return;
    if (xmlNodeDump(buffer, node->doc, const_cast<xmlNode*>(node), 0, 0) >= 0) {
      lines(out_, view(xmlBufferContent(buffer)));
    }
    xmlBufferFree(buffer);
  }

  void open(const xmlNode* node) {
    if (node != root_ && hasSpaceBefore(node) && depth_ > 0) newLine();
    switch (node->type) {
      case XML_ELEMENT_NODE:
        return startTag(node);
      case XML_ATTRIBUTE_NODE:
        return attribute(node);
      case XML_TEXT_NODE:
        return escape(out_, view(node->content), Place::Text);
      case XML_CDATA_SECTION_NODE:
        lines(out_ += "<![CDATA[", view(node->content));
        out_ += "]]>";
        return;
      case XML_COMMENT_NODE:
        lines(out_ += "<!--", view(node->content));
        out_ += "-->";
        return;
      case XML_PI_NODE:
        return instruction(node);
      case XML_ENTITY_REF_NODE:
        out_.append("&").append(view(node->name)).append(";");
        return;
      case XML_DTD_NODE:
        return type(node);
      default:
        return;
    }
  }

  void close(const xmlNode* node) {
    if (isElement(node)) {
      if (node->children) {
        if (hasSpaceAtEnd(node)) newLine(1);
        out_.append("</").append(qualifiedName(node)).append(">");
      }
      while (!scope_.empty() && scope_.back().depth == depth_) scope_.pop_back();
      --depth_;
    }
    if (node != root_ && node->parent->type == XML_DOCUMENT_NODE) out_ += kLineEnd;
    vbs::countWork(out_.size() - counted_ > kBetweenCounts ? out_.size() - counted_ : 0);
    if (out_.size() - counted_ > kBetweenCounts) counted_ = out_.size();
  }

  void newLine(std::size_t outer = 0) {
    out_ += kLineEnd;
    out_.append(depth_ - outer, '\t');
  }

  static constexpr std::size_t kBetweenCounts = std::size_t{1} << 16;

  const xmlNode* root_;
  bool namesEncoding_;
  std::string out_;
  std::size_t counted_ = 0;
  std::size_t depth_ = 0;
  std::vector<Declared> scope_;
};

/// The declaration's node, which comes first.
const xmlNode* declarationOf(const xmlDoc* document) {
  const xmlNode* first = document->children;
  const bool is = first && first->type == XML_PI_NODE && view(first->name) == "xml";
  return is ? first : nullptr;
}

}  // namespace

std::string_view declared(std::string_view declaration, std::string_view name) {
  const std::size_t found = declaration.find(name);
  const std::size_t open =
      found == declaration.npos ? found : declaration.find_first_of("\"'", found);
  if (open == declaration.npos) return {};
  const std::size_t close = declaration.find(declaration[open], open + 1);
  return close == declaration.npos ? std::string_view()
                                   : declaration.substr(open + 1, close - open - 1);
}

std::string markup(const xmlNode* root) {
  return Writer(root, false).write();
}

std::string documentBytes(const xmlDoc* document) {
  const std::string text = Writer(reinterpret_cast<const xmlNode*>(document), true).write();
  const xmlNode* declaration = declarationOf(document);
  const std::string encoding(declaration ? declared(content(declaration), "encoding") : "");
  if (encoding.empty()) return text;
  xmlCharEncodingHandler* handler = xmlFindCharEncodingHandler(encoding.c_str());
  if (!handler || !handler->name || std::string_view(handler->name) == "UTF-8") return text;
  xmlBuffer* buffer = xmlBufferCreate();
  xmlOutputBuffer* output = xmlOutputBufferCreateBuffer(buffer, handler);
  if (!output) return text;
  // Characters that the encoding has not are written as references.
  xmlOutputBufferWrite(output, static_cast<int>(text.size()), text.data());
  xmlOutputBufferClose(output);
  const std::string bytes(view(xmlBufferContent(buffer)).data(),
                          static_cast<std::size_t>(xmlBufferLength(buffer)));
  xmlBufferFree(buffer);
  return bytes;
}

}  // namespace quorvane::xml
