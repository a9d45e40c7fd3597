// The members of nodes that change where nodes stand.

#include <libxml/parserInternals.h>
#include <libxml/tree.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "components/xml/document.h"
#include "components/xml/errors.h"
#include "components/xml/library.h"
#include "components/xml/node.h"
#include "vbscript/values/time_check.h"

namespace quorvane::xml {

using vbs::Args;
using vbs::Value;

namespace {

/// Whether a kind of node may stand below another at all.
bool mayStandBelow(const xmlNode* child, const xmlNode* parent) {
  switch (child->type) {
    case XML_ELEMENT_NODE:
    case XML_COMMENT_NODE:
    case XML_PI_NODE:
      return !isAttribute(parent);
    case XML_TEXT_NODE:
    case XML_ENTITY_REF_NODE:
      return parent->type != XML_DOCUMENT_NODE;
    case XML_CDATA_SECTION_NODE:
      return parent->type != XML_DOCUMENT_NODE && !isAttribute(parent);
    default:
      return false;
  }
}

bool canHaveChildren(const xmlNode* node) {
  return isElement(node) || isAttribute(node) || node->type == XML_DOCUMENT_NODE ||
         node->type == XML_DOCUMENT_FRAG_NODE;
}

[[noreturn]] void failOfKind(const xmlNode* node) {
  std::string name(nodeTypeName(node));
  for (char& c : name) c = static_cast<char>(std::toupper(c));
  fail("This operation can not be performed with a Node of type " + name + ".");
}

void checkDocumentElement(const xmlNode* document, const std::vector<xmlNode*>& added,
                          const xmlNode* replaced) {
  std::ptrdiff_t elements = std::count_if(added.begin(), added.end(), isElement);
  if (elements == 0) return;
  for (xmlNode* at = document->children; at; at = at->next) {
    const bool moves = std::find(added.begin(), added.end(), at) != added.end();
    if (isElement(at) && at != replaced && !moves) ++elements;
  }
  if (elements > 1) fail("Only one top level element is allowed in an XML document.");
}

/// Error where the nodes may not come to stand below `parent`.
void check(const xmlNode* parent, const std::vector<xmlNode*>& added, const xmlNode* replaced) {
  if (!canHaveChildren(parent)) failOfKind(parent);
  for (const xmlNode* node : added) {
    if (!mayStandBelow(node, parent)) failOfKind(node);
    for (const xmlNode* above = parent; above; above = above->parent) {
      if (above == node) fail("Inserting a Node or its ancestor under itself is not allowed.");
    }
    if (depthOf(parent) + heightOf(node) > kMostDepth) {
      fail("The document has more than " + std::to_string(kMostDepth) + " levels.");
    }
  }
  if (parent->type == XML_DOCUMENT_NODE) checkDocumentElement(parent, added, replaced);
}

void take(xmlNode* node) {
  xmlNode* from = node->parent;
  xmlUnlinkNode(node);
  if (from) freeUnlessHeld(from);
}

/// The node, or what stands in a fragment.
std::vector<xmlNode*> nodesOf(xmlNode* child) {
  if (child->type != XML_DOCUMENT_FRAG_NODE) return {child};
  std::vector<xmlNode*> nodes;
  for (xmlNode* at = child->children; at; at = at->next) nodes.push_back(at);
  return nodes;
}

}  // namespace

void moveInto(Node& place, xmlNode* part) {
  if (part->doc == place.tree().document()) return;
  std::vector<Node*> held;
  eachNode(part, [&held](xmlNode* node) {
    if (node->_private) held.push_back(static_cast<Node*>(node->_private));
  });
  place.tree().adopt(part);
  // The old tree may end with the last of these.
  for (Node* object : held) {
    object->tree_ = place.sharedTree();
    object->document_ = &place.document();
    object->documentHold_ = vbs::Ref<vbs::Object>(&place.document());
  }
}

void Node::insert(Node& child, xmlNode* before) {
  const std::vector<xmlNode*> nodes = nodesOf(child.node_);
  check(node_, nodes, nullptr);
  child.tree_->changed();
  for (xmlNode* node : nodes) {
    if (node == before) before = before->next;
    take(node);
    moveInto(*this, node);
    link(node_, node, before);
  }
  tree_->changed();
}

Value Node::insertBefore(Args args) {
  Node& child = argument(args[0]);
  const Node* before = argumentOrNull(args[1]);
  if (before && (before->node_->parent != node_ || isAttribute(before->node_))) failArgument();
  insert(child, before ? before->node_ : nullptr);
  return Value::object(&child);
}

Value Node::appendChild(Args args) {
  Node& child = argument(args[0]);
  insert(child, nullptr);
  return Value::object(&child);
}

Value Node::replaceChild(Args args) {
  Node& child = argument(args[0]);
  Node& old = argument(args[1]);
  if (old.node_->parent != node_ || isAttribute(old.node_)) failArgument();
  if (&child == &old) return Value::object(&old);
  check(node_, nodesOf(child.node_), old.node_);
  Value held = Value::object(&old);
  xmlNode* before = old.node_->next;
  if (before == child.node_) before = before->next;
  xmlUnlinkNode(old.node_);
  insert(child, before);
  return held;
}

Value Node::removeChild(Args args) {
  Node& child = argument(args[0]);
  if (child.node_->parent != node_ || isAttribute(child.node_)) {
    fail(kBadArgument, "The parameter Node is not a child of this Node.");
  }
  if (child.node_->type == XML_DTD_NODE) failOfKind(child.node_);
  xmlUnlinkNode(child.node_);
  tree_->changed();
  return Value::object(&child);
}

void checkName(const std::string& name) {
  if (xmlValidateQName(libraryText(name.c_str()), 0) == 0) return;
  if (name.empty()) failArgument();
  std::size_t bad = 0;
  while (bad < name.size() &&
         xmlValidateName(libraryText((name.substr(0, bad + 1) + "a").c_str()), 0) == 0) {
    ++bad;
  }
  const std::string_view text(name);
  const std::string at(text.substr(std::min(bad, text.size() - 1), 1));
  fail("This name may not contain the '" + at + "' character:\r\n" +
       std::string(text.substr(0, bad)) + "-->" + at + "<--" +
       std::string(text.substr(std::min(bad + 1, text.size()))));
}

}  // namespace quorvane::xml
