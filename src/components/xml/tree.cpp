#include "components/xml/tree.h"

#include <algorithm>
#include <new>

#include "components/xml/library.h"
#include "components/xml/node.h"

namespace quorvane::xml {

namespace {

// In xmlNode::extra, which the library leaves to its users.
constexpr unsigned short kSpaceBefore = 1;
constexpr unsigned short kSpaceAtEnd = 2;

constexpr std::string_view kSpaces = " \t\r\n";

const xmlChar* chars(const std::string& text) {
  return libraryText(text.c_str());
}

xmlNode* topOf(xmlNode* node) {
  while (node->parent) node = node->parent;
  return node;
}

std::uint64_t nextChange() {
  thread_local std::uint64_t last = 0;
  return ++last;
}

bool isDocument(const xmlNode* node) {
  return node->type == XML_DOCUMENT_NODE;
}

}  // namespace

Tree::Tree() : Tree(xmlNewDoc(libraryText("1.0"))) {}

Tree::Tree(xmlDoc* parsed) : document_(parsed), changes_(nextChange()) {
  if (!document_) throw std::bad_alloc();
  ownNamespaces(top());
}

Tree::~Tree() {
  xmlFreeDoc(document_);
}

xmlNs* Tree::space(std::string_view prefix, std::string_view address) {
  if (address.empty()) return nullptr;
  std::string key(prefix);
  key += '\0';
  key += address;
  xmlNs*& known = spaces_[key];
  if (known) return known;
  const std::string addressText(address);
  const std::string prefixText(prefix);
  known = xmlNewNs(nullptr, chars(addressText), prefix.empty() ? nullptr : chars(prefixText));
  if (!known) {  // the library makes none for "xml": it has one
    return known = xmlSearchNs(document_, top(), libraryText("xml"));
  }
  // The first of the document's list is always that of "xml".
  if (!document_->oldNs) xmlSearchNs(document_, top(), libraryText("xml"));
  known->next = document_->oldNs->next;
  document_->oldNs->next = known;
  return known;
}

xmlNs* Tree::space(const xmlNs* foreign) {
  return foreign ? space(view(foreign->prefix), view(foreign->href)) : nullptr;
}

void Tree::ownNamespaces(xmlNode* part) {
  const xmlNs* last = nullptr;
  xmlNs* own = nullptr;
  eachNode(part, [&](xmlNode* node) {
    if ((!isElement(node) && !isAttribute(node)) || !node->ns) return;
    if (node->ns != last) {
      last = node->ns;
      own = space(last);
    }
    node->ns = own;
  });
}

void Tree::changed() {
  changes_ = nextChange();
  checkMemory();
}

void Tree::adopt(xmlNode* part) {
  if (part->doc == document_) return;
  // Before the move: then the namespaces are still there.
  ownNamespaces(part);
  xmlSetTreeDoc(part, document_);
}

xmlNode* firstChild(const xmlNode* node) {
  switch (node->type) {
    case XML_ELEMENT_NODE:
    case XML_ATTRIBUTE_NODE:
    case XML_DOCUMENT_NODE:
    case XML_DOCUMENT_FRAG_NODE:
      return node->children;
    default:
      return nullptr;
  }
}

xmlNode* nextBelow(const xmlNode* at, const xmlNode* root) {
  if (xmlNode* child = firstChild(at)) return child;
  for (; at != root; at = at->parent) {
    if (at->next) return at->next;
  }
  return nullptr;
}

std::size_t depthOf(const xmlNode* node) {
  std::size_t depth = 0;
  for (; node; node = node->parent) ++depth;
  return depth;
}

std::size_t heightOf(const xmlNode* root) {
  std::size_t most = 1;
  std::size_t depth = 1;
  for (const xmlNode* at = root;;) {
    if (const xmlNode* child = firstChild(at)) {
      at = child;
      most = std::max(most, ++depth);
      continue;
    }
    for (; at != root && !at->next; at = at->parent) --depth;
    if (at == root) return most;
    at = at->next;
  }
}

void link(xmlNode* parent, xmlNode* child, xmlNode* before) {
  child->parent = parent;
  child->next = before;
  child->prev = before ? before->prev : parent->last;
  (child->prev ? child->prev->next : parent->children) = child;
  (before ? before->prev : parent->last) = child;
}

void linkAttribute(xmlNode* element, xmlAttr* attribute) {
  xmlAttr* last = element->properties;
  while (last && last->next) last = last->next;
  attribute->parent = element;
  attribute->prev = last;
  attribute->next = nullptr;
  (last ? last->next : element->properties) = attribute;
}

void detach(xmlNode* node) {
  xmlUnlinkNode(node);
  freeUnlessHeld(node);
}

void freeUnlessHeld(xmlNode* part) {
  xmlNode* root = topOf(part);
  if (isDocument(root)) return;
  bool held = false;
  for (xmlNode* at = root; at && !held; at = nextBelow(at, root)) {
    held = at->_private;
    if (!isElement(at)) continue;
    for (xmlAttr* owned = at->properties; owned && !held; owned = owned->next) {
      held = owned->_private;
      for (xmlNode* text = owned->children; text && !held; text = text->next) {
        held = text->_private;
      }
    }
  }
  if (!held) xmlFreeNode(root);
}

namespace {

xmlNode* newNode(Tree& tree, const xmlNode* like) {
  xmlDoc* document = tree.document();
  const int length = static_cast<int>(content(like).size());
  switch (like->type) {
    case XML_ELEMENT_NODE:
      return xmlNewDocNode(document, tree.space(like->ns), like->name, nullptr);
    case XML_ATTRIBUTE_NODE: {
      xmlAttr* made = xmlNewDocProp(document, like->name, nullptr);
      if (made) made->ns = tree.space(like->ns);
      return reinterpret_cast<xmlNode*>(made);
    }
    case XML_TEXT_NODE:
      return xmlNewDocTextLen(document, like->content, length);
    case XML_CDATA_SECTION_NODE:
      return xmlNewCDataBlock(document, like->content, length);
    case XML_COMMENT_NODE:
      return xmlNewDocComment(document, like->content);
    case XML_PI_NODE:
      return xmlNewDocPI(document, like->name, like->content);
    case XML_ENTITY_REF_NODE:
      return xmlNewReference(document, like->name);
    case XML_DOCUMENT_FRAG_NODE:
      return xmlNewDocFragment(document);
    default:
      return nullptr;
  }
}

/// The node with its attributes and their texts.
xmlNode* copyOne(Tree& tree, const xmlNode* node) {
  xmlNode* copy = newNode(tree, node);
  if (!copy) return nullptr;
  if (hasSpaceBefore(node)) markSpaceBefore(copy);
  if (!isElement(node)) return copy;
  if (hasSpaceAtEnd(node)) markSpaceAtEnd(copy);
  for (const xmlNs* at = node->nsDef; at; at = at->next) xmlNewNs(copy, at->href, at->prefix);
  for (const xmlAttr* at = node->properties; at; at = at->next) {
    auto* attribute = copyInto(tree, reinterpret_cast<const xmlNode*>(at), true);
    if (attribute) linkAttribute(copy, reinterpret_cast<xmlAttr*>(attribute));
  }
  return copy;
}

}  // namespace

xmlNode* copyInto(Tree& tree, const xmlNode* root, bool deep) {
  xmlNode* copiedRoot = copyOne(tree, root);
  if (!copiedRoot || (!deep && !isAttribute(root))) return copiedRoot;
  xmlNode* parent = copiedRoot;
  for (const xmlNode* at = root;;) {
    if (const xmlNode* child = firstChild(at)) {
      at = child;
    } else {
      for (; at != root && !at->next; at = at->parent) parent = parent->parent;
      if (at == root) return copiedRoot;
      at = at->next;
      parent = parent->parent;
    }
    xmlNode* copy = copyOne(tree, at);
    if (!copy) {
      xmlFreeNode(copiedRoot);
      return nullptr;
    }
    link(parent, copy, nullptr);
    parent = copy;
  }
}

std::string qualifiedName(const xmlNode* node) {
  std::string name;
  if (node->ns && node->ns->prefix) name.append(view(node->ns->prefix)).append(":");
  return name.append(view(node->name));
}

bool hasName(const xmlNode* node, std::string_view qualified) {
  if (node->ns && node->ns->prefix) {
    const std::string_view prefix = view(node->ns->prefix);
    if (!qualified.starts_with(prefix) || qualified.size() <= prefix.size() ||
        qualified[prefix.size()] != ':') {
      return false;
    }
    qualified.remove_prefix(prefix.size() + 1);
  }
  return view(node->name) == qualified;
}

std::string_view content(const xmlNode* node) {
  switch (node->type) {
    case XML_TEXT_NODE:
    case XML_CDATA_SECTION_NODE:
    case XML_COMMENT_NODE:
    case XML_PI_NODE:
      return view(node->content);
    default:
      return {};
  }
}

namespace {

std::string_view entityText(const xmlNode* reference) {
  const xmlEntity* entity = xmlGetDocEntity(reference->doc, reference->name);
  return entity ? view(entity->content) : std::string_view();
}

}  // namespace

std::string rawText(const xmlNode* root) {
  std::string text;
  if (!firstChild(root) && !isText(root)) return std::string(content(root));
  for (const xmlNode* at = root; at; at = nextBelow(at, root)) {
    if (isText(at)) text += content(at);
    if (at->type == XML_ENTITY_REF_NODE) text += entityText(at);
  }
  return text;
}

bool isSpace(std::string_view text) {
  return text.find_first_not_of(kSpaces) == text.npos;
}

namespace {

/// Puts pieces of text together.
class Joiner {
 public:
  void add(std::string_view piece) {
    const std::size_t first = piece.find_first_not_of(kSpaces);
    if (first == piece.npos) return addSpace(!piece.empty());
    const std::size_t end = piece.find_last_not_of(kSpaces) + 1;
    addSpace(first > 0);
    addExactly(piece.substr(first, end - first));
    addSpace(end < piece.size());
  }
  void addExactly(std::string_view piece) {
    if (pending_ && !text_.empty()) text_ += ' ';
    pending_ = false;
    text_ += piece;
  }
  void addSpace(bool there) { pending_ = pending_ || there; }
  std::string take() { return std::move(text_); }

 private:
  std::string text_;
  bool pending_ = false;
};

bool keepsSpace(const xmlNode* node) {
  for (; node; node = node->parent) {
    if (!isElement(node)) continue;
    const xmlAttr* held = findAttribute(node, "xml:space");
    if (held) return rawText(reinterpret_cast<const xmlNode*>(held)) == "preserve";
  }
  return false;
}

}  // namespace

std::string textOf(const xmlNode* root, bool preserveSpace) {
  if (preserveSpace || (!isElement(root) && root->type != XML_DOCUMENT_NODE &&
                        root->type != XML_DOCUMENT_FRAG_NODE)) {
    return rawText(root);
  }
  if (keepsSpace(root)) return rawText(root);
  Joiner joiner;
  for (const xmlNode* at = root; at; at = nextBelow(at, root)) {
    if (at != root) joiner.addSpace(hasSpaceBefore(at));
    if (at->type == XML_CDATA_SECTION_NODE) joiner.addExactly(content(at));
    if (at->type == XML_TEXT_NODE) joiner.add(content(at));
    if (at->type == XML_ENTITY_REF_NODE) joiner.add(entityText(at));
  }
  return joiner.take();
}

void setContent(xmlNode* node, const std::string& text) {
  xmlNodeSetContent(node, chars(text));
}

void setText(Tree& tree, xmlNode* node, const std::string& text) {
  while (xmlNode* child = firstChild(node)) detach(child);
  if (!text.empty()) {
    xmlNode* child = xmlNewDocText(tree.document(), chars(text));
    if (!child) throw std::bad_alloc();
    link(node, child, nullptr);
  }
  tree.changed();
}

xmlAttr* findAttribute(const xmlNode* element, std::string_view qualified) {
  xmlAttr* at = element->properties;
  while (at && !hasName(reinterpret_cast<xmlNode*>(at), qualified)) at = at->next;
  return at;
}

bool isDeclarationName(std::string_view qualified) {
  return qualified == "xmlns" || qualified.starts_with("xmlns:");
}

namespace {

std::string_view declaredPrefix(std::string_view qualified) {
  return qualified.size() > 6 ? qualified.substr(6) : std::string_view();
}

}  // namespace

std::string declarationName(const xmlNs* declaration) {
  return declaration->prefix ? "xmlns:" + std::string(view(declaration->prefix)) : "xmlns";
}

xmlNs* findDeclaration(const xmlNode* element, std::string_view qualified) {
  if (!isDeclarationName(qualified)) return nullptr;
  xmlNs* at = element->nsDef;
  while (at && view(at->prefix) != declaredPrefix(qualified)) at = at->next;
  return at;
}

void declare(xmlNode* element, std::string_view qualified, const std::string& address) {
  if (xmlNs* known = findDeclaration(element, qualified)) {
    xmlChar* copy = xmlStrdup(chars(address));
    xmlFree(const_cast<xmlChar*>(known->href));
    known->href = copy;
    return;
  }
  const std::string prefix(declaredPrefix(qualified));
  xmlNewNs(element, chars(address), prefix.empty() ? nullptr : chars(prefix));
}

void removeDeclaration(xmlNode* element, std::string_view qualified) {
  const xmlNs* gone = findDeclaration(element, qualified);
  if (!gone) return;
  xmlNs** place = &element->nsDef;
  while (*place != gone) place = &(*place)->next;
  xmlNs* removed = *place;
  *place = removed->next;
  xmlFreeNs(removed);
}

std::string_view addressAt(const xmlNode* element, std::string_view prefix) {
  if (prefix == "xml") return "http://www.w3.org/XML/1998/namespace";
  for (; element && isElement(element); element = element->parent) {
    for (const xmlNs* at = element->nsDef; at; at = at->next) {
      if (view(at->prefix) == prefix) return view(at->href);
    }
    // A namespace need not be declared to be there: it is when the document is written.
    if (element->ns && view(element->ns->prefix) == prefix) return view(element->ns->href);
  }
  return {};
}

namespace {

/// Attributes, documents and their types are smaller than nodes.
bool canBeMarked(const xmlNode* node) {
  return isElement(node) || node->type == XML_COMMENT_NODE || node->type == XML_PI_NODE;
}

}  // namespace

void markSpaceBefore(xmlNode* node) {
  if (canBeMarked(node)) node->extra |= kSpaceBefore;
}
bool hasSpaceBefore(const xmlNode* node) {
  return canBeMarked(node) && (node->extra & kSpaceBefore);
}
void markSpaceAtEnd(xmlNode* node) {
  if (isElement(node)) node->extra |= kSpaceAtEnd;
}
bool hasSpaceAtEnd(const xmlNode* node) {
  return isElement(node) && (node->extra & kSpaceAtEnd);
}

}  // namespace quorvane::xml
