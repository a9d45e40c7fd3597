#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <string>

#include "components/member_tables.h"
#include "components/xml/tree.h"
#include "vbscript/values/block_pool.h"
#include "vbscript/values/object.h"

namespace quorvane::xml {

class Document;

/// What a script holds of a node: one object a node for as long as anything holds it. It keeps the
/// whole tree in memory.
class Node : public vbs::Object, public vbs::InBlocks {
 public:
  /// `node` null: the whole tree.
  Node(Document* document, std::shared_ptr<Tree> tree, xmlNode* node);

  xmlNode* node() const { return node_; }
  Tree& tree() const { return *tree_; }
  const std::shared_ptr<Tree>& sharedTree() const { return tree_; }
  virtual Document& document() { return *document_; }

  /// The script object of a node of this tree; Nothing for null.
  vbs::Value valueOf(xmlNode* node);
  /// The same for a node that was just made and stands nowhere; error 7 for null.
  vbs::Value valueOfNew(xmlNode* made);

  /// The node that an argument is. `what` must be one, error otherwise.
  static Node& argument(const vbs::Value& value);
  /// The same, or null for Nothing and Null.
  static Node* argumentOrNull(const vbs::Value& value);

  // Members of all nodes.
  vbs::Value getNodeName(vbs::Args);
  vbs::Value getNodeValue(vbs::Args);
  void putNodeValue(vbs::Args args, vbs::CallKind);
  vbs::Value getNodeType(vbs::Args);
  vbs::Value getNodeTypeString(vbs::Args);
  vbs::Value getParentNode(vbs::Args);
  vbs::Value getChildNodes(vbs::Args);
  vbs::Value getFirstChild(vbs::Args);
  vbs::Value getLastChild(vbs::Args);
  vbs::Value getPreviousSibling(vbs::Args);
  vbs::Value getNextSibling(vbs::Args);
  vbs::Value getAttributes(vbs::Args);
  vbs::Value getOwnerDocument(vbs::Args);
  vbs::Value getNamespaceUri(vbs::Args);
  vbs::Value getPrefix(vbs::Args);
  vbs::Value getBaseName(vbs::Args);
  vbs::Value getText(vbs::Args);
  void putText(vbs::Args args, vbs::CallKind);
  vbs::Value getXml(vbs::Args);
  vbs::Value getDataType(vbs::Args);
  void putDataType(vbs::Args args, vbs::CallKind);
  vbs::Value getNodeTypedValue(vbs::Args);
  void putNodeTypedValue(vbs::Args args, vbs::CallKind);
  vbs::Value getSpecified(vbs::Args);
  vbs::Value getDefinition(vbs::Args);
  vbs::Value getParsed(vbs::Args);
  vbs::Value insertBefore(vbs::Args args);
  vbs::Value replaceChild(vbs::Args args);
  vbs::Value removeChild(vbs::Args args);
  vbs::Value appendChild(vbs::Args args);
  vbs::Value hasChildNodes(vbs::Args);
  vbs::Value cloneNode(vbs::Args args);
  vbs::Value selectNodes(vbs::Args args);
  vbs::Value selectSingleNode(vbs::Args args);
  vbs::Value transformNode(vbs::Args args);
  vbs::Value transformNodeToObject(vbs::Args args);

 protected:
  ~Node() override;

  /// Makes the object stand for another tree's node. What stood there before must be no node that
  /// others hold.
  void become(std::shared_ptr<Tree> tree, xmlNode* node);

 private:
  friend void moveInto(Node& place, xmlNode* part);

  void insert(Node& child, xmlNode* before);
  void setValue(const std::string& text);
  [[noreturn]] void failOfType() const;

  vbs::Ref<vbs::Object> documentHold_;
  Document* document_;  ///< null in the document itself
  std::shared_ptr<Tree> tree_;
  xmlNode* node_;
};

/// The node's type as scripts count them, and its name.
std::int32_t nodeType(const xmlNode* node);
std::string_view nodeTypeName(const xmlNode* node);
std::string nodeName(const xmlNode* node);

/// The part comes to the tree and document that `place` belongs to, with its script objects.
void moveInto(Node& place, xmlNode* part);

/// Error of the customary wording unless the text is the name of an element or attribute.
void checkName(const std::string& name);

/// The members of all nodes, with the functions that the objects of type Self inherit from Node.
template <class Self>
constexpr auto nodeMembers() {
  using Row = vbs::Member<Self>;
  return std::array{
      Row{"nodename", 0, 0, &Node::getNodeName},
      Row{"nodevalue", 0, 0, &Node::getNodeValue, &Node::putNodeValue},
      Row{"nodetype", 0, 0, &Node::getNodeType},
      Row{"nodetypestring", 0, 0, &Node::getNodeTypeString},
      Row{"parentnode", 0, 0, &Node::getParentNode},
      Row{"childnodes", 0, 0, &Node::getChildNodes},
      Row{"firstchild", 0, 0, &Node::getFirstChild},
      Row{"lastchild", 0, 0, &Node::getLastChild},
      Row{"previoussibling", 0, 0, &Node::getPreviousSibling},
      Row{"nextsibling", 0, 0, &Node::getNextSibling},
      Row{"attributes", 0, 0, &Node::getAttributes},
      Row{"ownerdocument", 0, 0, &Node::getOwnerDocument},
      Row{"namespaceuri", 0, 0, &Node::getNamespaceUri},
      Row{"prefix", 0, 0, &Node::getPrefix},
      Row{"basename", 0, 0, &Node::getBaseName},
      Row{"text", 0, 0, &Node::getText, &Node::putText},
      Row{"xml", 0, 0, &Node::getXml},
      Row{"datatype", 0, 0, &Node::getDataType, &Node::putDataType},
      Row{"nodetypedvalue", 0, 0, &Node::getNodeTypedValue, &Node::putNodeTypedValue},
      Row{"specified", 0, 0, &Node::getSpecified},
      Row{"definition", 0, 0, &Node::getDefinition},
      Row{"parsed", 0, 0, &Node::getParsed},
      Row{"insertbefore", 2, 2, &Node::insertBefore},
      Row{"replacechild", 2, 2, &Node::replaceChild},
      Row{"removechild", 1, 1, &Node::removeChild},
      Row{"appendchild", 1, 1, &Node::appendChild},
      Row{"haschildnodes", 0, 0, &Node::hasChildNodes},
      Row{"clonenode", 1, 1, &Node::cloneNode},
      Row{"selectnodes", 1, 1, &Node::selectNodes},
      Row{"selectsinglenode", 1, 1, &Node::selectSingleNode},
      Row{"transformnode", 1, 1, &Node::transformNode},
      Row{"transformnodetoobject", 2, 2, &Node::transformNodeToObject},
  };
}

/// Those of one kind of node: the members of all and its own.
template <class Self, std::size_t Count>
constexpr auto membersOf(const vbs::Member<Self> (&own)[Count]) {
  return joinedMembers(nodeMembers<Self>(), own);
}

}  // namespace quorvane::xml
