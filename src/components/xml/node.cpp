#include "components/xml/node.h"

#include <algorithm>
#include <array>
#include <vector>

#include "components/xml/document.h"
#include "components/xml/errors.h"
#include "components/xml/kinds.h"
#include "components/xml/library.h"
#include "components/xml/lists.h"
#include "components/xml/selecting.h"
#include "components/xml/transforming.h"
#include "components/xml/typed_values.h"
#include "components/xml/writing.h"
#include "vbscript/values/convert.h"

namespace quorvane::xml {

using vbs::Args;
using vbs::CallKind;
using vbs::Value;

namespace {

constexpr std::string_view kDataTypes = "urn:schemas-microsoft-com:datatypes";

constexpr std::array<std::string_view, 13> kTypeNames = {"",
                                                         "element",
                                                         "attribute",
                                                         "text",
                                                         "cdatasection",
                                                         "entityreference",
                                                         "entity",
                                                         "processinginstruction",
                                                         "comment",
                                                         "document",
                                                         "documenttype",
                                                         "documentfragment",
                                                         "notation"};

xmlAttr* typeAttribute(const xmlNode* element) {
  for (xmlAttr* at = element->properties; at; at = at->next) {
    if (at->ns && view(at->name) == "dt" && view(at->ns->href) == kDataTypes) return at;
  }
  return nullptr;
}

std::string dataType(const xmlNode* node) {
  const xmlAttr* held = isElement(node) ? typeAttribute(node) : nullptr;
  return held ? rawText(reinterpret_cast<const xmlNode*>(held)) : std::string();
}

}  // namespace

Node::Node(Document* document, std::shared_ptr<Tree> tree, xmlNode* node)
    : documentHold_(document),
      document_(document),
      tree_(std::move(tree)),
      node_(node ? node : tree_->top()) {
  node_->_private = this;
}

Node::~Node() {
  node_->_private = nullptr;
  freeUnlessHeld(node_);
}

void Node::become(std::shared_ptr<Tree> tree, xmlNode* node) {
  node_->_private = nullptr;
  tree_ = std::move(tree);
  node_ = node;
  node_->_private = this;
}

Value Node::valueOf(xmlNode* node) {
  if (!node) return Value::nothing();
  if (node->type == XML_DOCUMENT_NODE) return Value::object(&document());
  if (node->_private) return Value::object(static_cast<Node*>(node->_private));
  return makeNodeObject(document(), tree_, node);
}

Value Node::valueOfNew(xmlNode* made) {
  if (!made) vbs::throwError(vbs::ErrorCode::OutOfMemory);
  try {
    return valueOf(made);
  } catch (...) {
    xmlFreeNode(made);
    throw;
  }
}

Node* Node::argumentOrNull(const Value& value) {
  const Value& plain = value.deref();
  if (plain.isNull() || plain.isMissing() || (plain.isObject() && !plain.asObject())) {
    return nullptr;
  }
  auto* node = plain.isObject() ? dynamic_cast<Node*>(plain.asObject()) : nullptr;
  if (!node) vbs::throwError(vbs::ErrorCode::TypeMismatch);
  return node;
}

Node& Node::argument(const Value& value) {
  Node* node = argumentOrNull(value);
  if (!node) failArgument();
  return *node;
}

void Node::failOfType() const {
  std::string name(nodeTypeName(node_));
  std::transform(name.begin(), name.end(), name.begin(), [](char c) { return std::toupper(c); });
  fail("This operation can not be performed with a Node of type " + name + ".");
}

std::int32_t nodeType(const xmlNode* node) {
  return node->type == XML_DTD_NODE ? XML_DOCUMENT_TYPE_NODE : node->type;
}

std::string_view nodeTypeName(const xmlNode* node) {
  const auto type = static_cast<std::size_t>(nodeType(node));
  return type < kTypeNames.size() ? kTypeNames[type] : "";
}

std::string nodeName(const xmlNode* node) {
  switch (node->type) {
    case XML_ELEMENT_NODE:
    case XML_ATTRIBUTE_NODE:
      return qualifiedName(node);
    case XML_TEXT_NODE:
      return "#text";
    case XML_CDATA_SECTION_NODE:
      return "#cdata-section";
    case XML_COMMENT_NODE:
      return "#comment";
    case XML_DOCUMENT_NODE:
      return "#document";
    case XML_DOCUMENT_FRAG_NODE:
      return "#document-fragment";
    default:
      return std::string(view(node->name));
  }
}

Value Node::getNodeName(Args) {
  return vbs::String::fromUtf8(nodeName(node_));
}

Value Node::getNodeValue(Args) {
  if (isAttribute(node_)) return vbs::String::fromUtf8(rawText(node_));
  switch (node_->type) {
    case XML_TEXT_NODE:
    case XML_CDATA_SECTION_NODE:
    case XML_COMMENT_NODE:
    case XML_PI_NODE:
      return vbs::String::fromUtf8(content(node_));
    default:
      return Value::null();
  }
}

void Node::putNodeValue(Args args, CallKind) {
  if (isElement(node_) || node_->type == XML_DOCUMENT_FRAG_NODE) failOfType();
  setValue(vbs::toString(args.back()).utf8());
}

void Node::setValue(const std::string& text) {
  switch (node_->type) {
    case XML_ELEMENT_NODE:
    case XML_ATTRIBUTE_NODE:
    case XML_DOCUMENT_FRAG_NODE:
      return setText(*tree_, node_, text);
    case XML_TEXT_NODE:
    case XML_CDATA_SECTION_NODE:
    case XML_COMMENT_NODE:
    case XML_PI_NODE:
      setContent(node_, text);
      return tree_->changed();
    default:
      failOfType();
  }
}

Value Node::getNodeType(Args) {
  return Value::longInt(nodeType(node_));
}

Value Node::getNodeTypeString(Args) {
  return Value(nodeTypeName(node_));
}

Value Node::getParentNode(Args) {
  return isAttribute(node_) ? Value::nothing() : valueOf(node_->parent);
}

Value Node::getChildNodes(Args) {
  return Value::adopt(new ChildList(*this));
}

Value Node::getFirstChild(Args) {
  return valueOf(firstChild(node_));
}

Value Node::getLastChild(Args) {
  return valueOf(firstChild(node_) ? node_->last : nullptr);
}

Value Node::getPreviousSibling(Args) {
  return valueOf(isAttribute(node_) || node_->type == XML_DOCUMENT_NODE ? nullptr : node_->prev);
}

Value Node::getNextSibling(Args) {
  return valueOf(isAttribute(node_) || node_->type == XML_DOCUMENT_NODE ? nullptr : node_->next);
}

Value Node::getAttributes(Args) {
  return isElement(node_) ? Value::adopt(new AttributeMap(*this)) : Value::nothing();
}

Value Node::getOwnerDocument(Args) {
  return node_->type == XML_DOCUMENT_NODE ? Value::nothing() : Value::object(&document());
}

Value Node::getNamespaceUri(Args) {
  const bool named = isElement(node_) || isAttribute(node_);
  return scriptText(named && node_->ns ? node_->ns->href : nullptr);
}

Value Node::getPrefix(Args) {
  const bool named = isElement(node_) || isAttribute(node_);
  if (named && node_->ns) return scriptText(node_->ns->prefix);
  const std::string name = nodeName(node_);
  const std::size_t colon = named ? name.find(':') : name.npos;
  return vbs::String::fromUtf8(colon == name.npos ? std::string_view()
                                                  : std::string_view(name).substr(0, colon));
}

Value Node::getBaseName(Args) {
  const bool named = isElement(node_) || isAttribute(node_);
  const std::string_view name =
      named || node_->type == XML_PI_NODE ? view(node_->name) : std::string_view();
  const std::size_t colon = name.find(':');
  return vbs::String::fromUtf8(colon == name.npos ? name : name.substr(colon + 1));
}

Value Node::getText(Args) {
  return vbs::String::fromUtf8(textOf(node_, tree_->preservesSpace));
}

void Node::putText(Args args, CallKind) {
  setValue(vbs::toString(args.back()).utf8());
}

Value Node::getXml(Args) {
  return vbs::String::fromUtf8(markup(node_));
}

Value Node::getDataType(Args) {
  const std::string type = dataType(node_);
  return type.empty() ? Value::null() : Value(std::string_view(type));
}

void Node::putDataType(Args args, CallKind) {
  if (!isElement(node_)) failOfType();
  const std::string type = vbs::toString(args.back()).utf8();
  if (!isDataType(type)) failArgument();
  xmlAttr* held = typeAttribute(node_);
  if (!held) {
    held = xmlNewDocProp(tree_->document(), libraryText("dt"), nullptr);
    if (!held) vbs::throwError(vbs::ErrorCode::OutOfMemory);
    held->ns = tree_->space("dt", kDataTypes);
    linkAttribute(node_, held);
  }
  setText(*tree_, reinterpret_cast<xmlNode*>(held), type);
}

Value Node::getNodeTypedValue(Args) {
  const std::string type = dataType(node_);
  if (!type.empty()) return typedValue(type, textOf(node_, false));
  return isElement(node_) ? getText({}) : getNodeValue({});
}

void Node::putNodeTypedValue(Args args, CallKind) {
  setValue(typedText(dataType(node_), args.back().deref()));
}

Value Node::getSpecified(Args) {
  return Value::boolean(true);
}

Value Node::getDefinition(Args) {
  return Value::nothing();
}

Value Node::getParsed(Args) {
  return Value::boolean(true);
}

Value Node::hasChildNodes(Args) {
  return Value::boolean(firstChild(node_) != nullptr);
}

Value Node::cloneNode(Args args) {
  const bool deep = vbs::toBoolean(args[0]);
  if (node_->type == XML_DOCUMENT_NODE) return document().clone(deep);
  vbs::countWork(deep ? rawText(node_).size() : 0);
  return valueOfNew(copyInto(*tree_, node_, deep));
}

Value Node::selectNodes(Args args) {
  const std::string expression = vbs::toString(args[0]).utf8();
  std::vector<Value> found;
  for (xmlNode* node : select(*this, expression)) found.push_back(valueOf(node));
  return Value::adopt(new FixedList(std::move(found)));
}

Value Node::selectSingleNode(Args args) {
  const auto found = select(*this, vbs::toString(args[0]).utf8());
  return found.empty() ? Value::nothing() : valueOf(found.front());
}

Value Node::transformNode(Args args) {
  return transformToText(*this, argument(args[0]), {});
}

Value Node::transformNodeToObject(Args args) {
  transformToObject(*this, argument(args[0]), args[1], {});
  return Value();
}

}  // namespace quorvane::xml
