#pragma once

#include <libxml/tree.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace quorvane::xml {

/// A document of the library's with what belongs to it. Nodes that were taken out of the document
/// belong to it too; they are freed when no script object stands for them or for a part of them
/// (a node's _private points to its script object).
///
/// Names, attributes and texts are the library's. Namespaces are the tree's own: no node's
/// namespace points to a declaration, which is an attribute like others and may go at any time.
class Tree {
 public:
  Tree();                         ///< an empty document
  explicit Tree(xmlDoc* parsed);  ///< takes over a document that the parser made
  ~Tree();
  Tree(const Tree&) = delete;
  Tree& operator=(const Tree&) = delete;

  xmlDoc* document() const { return document_; }
  xmlNode* top() const { return reinterpret_cast<xmlNode*>(document_); }

  /// The one namespace of that prefix and address, null for an empty address.
  xmlNs* space(std::string_view prefix, std::string_view address);
  /// The same for one of another tree's.
  xmlNs* space(const xmlNs* foreign);
  bool hasNamespaces() const { return !spaces_.empty(); }

  /// Every change is told, so that lists which look at the tree know. Throws when the run has
  /// taken too much memory.
  void changed();
  /// A number that no tree had before the last change.
  std::uint64_t changes() const { return changes_; }

  /// The part of the tree moves here from where it was.
  void adopt(xmlNode* part);

  /// Whether white space between elements counts; see textOf().
  bool preservesSpace = false;
  std::string url;  ///< where it was loaded from

 private:
  void ownNamespaces(xmlNode* part);

  xmlDoc* document_;
  std::unordered_map<std::string, xmlNs*> spaces_;  ///< the key: prefix, a NUL, address
  std::uint64_t changes_;
};

inline bool isElement(const xmlNode* node) {
  return node->type == XML_ELEMENT_NODE;
}
inline bool isAttribute(const xmlNode* node) {
  return node->type == XML_ATTRIBUTE_NODE;
}
inline bool isText(const xmlNode* node) {
  return node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE;
}

/// The first of the children that scripts see. What stands behind a reference to an entity belongs
/// to the entity.
xmlNode* firstChild(const xmlNode* node);

/// The next one of what stands below `root`, in the order of the document; null at the end.
xmlNode* nextBelow(const xmlNode* at, const xmlNode* root);

/// Calls `action` with `root` and all that is below it, attributes and their texts included.
template <class Action>
void eachNode(xmlNode* root, Action action) {
  for (xmlNode* at = root; at; at = nextBelow(at, root)) {
    action(at);
    if (!isElement(at)) continue;
    for (xmlAttr* held = at->properties; held; held = held->next) {
      action(reinterpret_cast<xmlNode*>(held));
      for (xmlNode* part = held->children; part; part = part->next) action(part);
    }
  }
}

/// How many nodes stand one above the other.
std::size_t depthOf(const xmlNode* node);
std::size_t heightOf(const xmlNode* node);
inline constexpr std::size_t kMostDepth = 256;

/// Puts `child` before `before`, or behind all children. Joins no texts, as the library would.
void link(xmlNode* parent, xmlNode* child, xmlNode* before);
/// Puts an attribute behind all others.
void linkAttribute(xmlNode* element, xmlAttr* attribute);
/// Takes a node out of where it stands. It stays as long as a script holds it or a part of it.
void detach(xmlNode* node);
/// Frees a part that stands nowhere, unless a script holds some of it.
void freeUnlessHeld(xmlNode* detached);

/// A copy in `tree` that stands nowhere yet. Null when there is no memory left.
xmlNode* copyInto(Tree& tree, const xmlNode* node, bool deep);

/// With its prefix.
std::string qualifiedName(const xmlNode* node);
bool hasName(const xmlNode* node, std::string_view qualified);

/// The text of a comment, a text and their like.
std::string_view content(const xmlNode* node);
/// The whole text of the part, as it stands there.
std::string rawText(const xmlNode* node);
/// The same with white space at both ends left out and that between two pieces made one blank,
/// except where the document says that it counts.
std::string textOf(const xmlNode* node, bool preserveSpace);
bool isSpace(std::string_view text);

/// Puts a text in the place of all children.
void setText(Tree& tree, xmlNode* node, const std::string& text);
void setContent(xmlNode* node, const std::string& text);

xmlAttr* findAttribute(const xmlNode* element, std::string_view qualified);
/// A declaration of a namespace by its attribute's name ("xmlns", "xmlns:x"), or null.
xmlNs* findDeclaration(const xmlNode* element, std::string_view qualified);
bool isDeclarationName(std::string_view qualified);
std::string declarationName(const xmlNs* declaration);
void declare(xmlNode* element, std::string_view qualified, const std::string& address);
void removeDeclaration(xmlNode* element, std::string_view qualified);

/// The address that a prefix stands for at an element, by the declarations there and above.
std::string_view addressAt(const xmlNode* element, std::string_view prefix);

/// Marks a node before which there was white space that does not count.
void markSpaceBefore(xmlNode* node);
bool hasSpaceBefore(const xmlNode* node);
/// The same for what stood before an element's end.
void markSpaceAtEnd(xmlNode* node);
bool hasSpaceAtEnd(const xmlNode* node);

}  // namespace quorvane::xml
