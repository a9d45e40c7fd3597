#include "components/xml/kinds.h"

#include <algorithm>

#include "components/xml/document.h"
#include "components/xml/errors.h"
#include "components/xml/library.h"
#include "components/xml/lists.h"
#include "vbscript/values/convert.h"

namespace quorvane::xml {

using vbs::Args;
using vbs::Value;

namespace {

xmlNode* asNode(xmlAttr* attribute) {
  return reinterpret_cast<xmlNode*>(attribute);
}

std::string nameArgument(const Value& value) {
  return vbs::toString(value).utf8();
}

template <class Kind>
Value made(Document& document, std::shared_ptr<Tree> tree, xmlNode* node) {
  return Value::adopt(new Kind(&document, std::move(tree), node));
}

/// A new attribute. A prefix that the element knows takes its namespace along; other colons are
/// part of the name until a document is written and read again.
xmlAttr* newAttribute(Node& element, const std::string& name) {
  const std::size_t colon = name.find(':');
  const std::string_view prefix =
      colon == name.npos ? std::string_view() : std::string_view(name).substr(0, colon);
  xmlNs* space = nullptr;
  if (!prefix.empty()) {
    const std::string address(addressAt(element.node(), prefix));
    space = element.tree().space(prefix, address);
  }
  const std::string local = space ? name.substr(colon + 1) : name;
  xmlAttr* held = xmlNewDocProp(element.tree().document(), libraryText(local.c_str()), nullptr);
  if (!held) vbs::throwError(vbs::ErrorCode::OutOfMemory);
  held->ns = space;
  return held;
}

void putAttribute(Node& element, const std::string& name, const std::string& value) {
  checkName(name);
  if (isDeclarationName(name)) {
    declare(element.node(), name, value);
    return element.tree().changed();
  }
  xmlAttr* held = findAttribute(element.node(), name);
  if (!held) {
    held = newAttribute(element, name);
    linkAttribute(element.node(), held);
  }
  setText(element.tree(), asNode(held), value);
}

}  // namespace

Value makeNodeObject(Document& document, std::shared_ptr<Tree> tree, xmlNode* node) {
  switch (node->type) {
    case XML_ELEMENT_NODE:
      return made<Element>(document, std::move(tree), node);
    case XML_ATTRIBUTE_NODE:
      return made<Attribute>(document, std::move(tree), node);
    case XML_TEXT_NODE:
    case XML_CDATA_SECTION_NODE:
    case XML_COMMENT_NODE:
      return made<CharacterData>(document, std::move(tree), node);
    case XML_PI_NODE:
      return made<Instruction>(document, std::move(tree), node);
    default:
      return made<PlainNode>(document, std::move(tree), node);
  }
}

Value attributeNode(Node& element, const std::string& name) {
  if (xmlAttr* held = findAttribute(element.node(), name)) return element.valueOf(asNode(held));
  const xmlNs* declaration = findDeclaration(element.node(), name);
  if (!declaration) return Value::nothing();
  xmlAttr* shown = xmlNewDocProp(element.tree().document(), libraryText(name.c_str()), nullptr);
  Value object = element.valueOfNew(asNode(shown));
  setText(element.tree(), asNode(shown), std::string(view(declaration->href)));
  return object;
}

Value setAttributeNode(Node& element, Node& attribute) {
  xmlNode* added = attribute.node();
  if (!isAttribute(added)) vbs::throwError(vbs::ErrorCode::TypeMismatch);
  const std::string name = qualifiedName(added);
  if (isDeclarationName(name)) {
    declare(element.node(), name, rawText(added));
    element.tree().changed();
    return Value::nothing();
  }
  xmlAttr* old = findAttribute(element.node(), name);
  if (asNode(old) == added) return Value::object(&attribute);
  if (added->parent) fail("Attribute '" + name + "' already belongs to another element.");
  Value before = old ? element.valueOf(asNode(old)) : Value::nothing();
  if (old) xmlUnlinkNode(asNode(old));
  moveInto(element, added);
  linkAttribute(element.node(), reinterpret_cast<xmlAttr*>(added));
  element.tree().changed();
  return before;
}

Value removeAttribute(Node& element, const std::string& name) {
  Value gone = attributeNode(element, name);
  if (xmlAttr* held = findAttribute(element.node(), name)) {
    xmlUnlinkNode(asNode(held));
  } else {
    removeDeclaration(element.node(), name);
  }
  element.tree().changed();
  return gone;
}

std::span<const vbs::Member<Element>> Element::members() {
  using Row = vbs::Member<Element>;
  static constexpr auto kMembers = membersOf<Element>({
      Row{"tagname", 0, 0, &Element::getTagName},
      Row{"getattribute", 1, 1, &Element::getAttribute},
      Row{"setattribute", 2, 2, &Element::setAttribute},
      Row{"removeattribute", 1, 1, &Element::removeAttribute},
      Row{"getattributenode", 1, 1, &Element::getAttributeNode},
      Row{"setattributenode", 1, 1, &Element::setAttributeNode},
      Row{"removeattributenode", 1, 1, &Element::removeAttributeNode},
      Row{"getelementsbytagname", 1, 1, &Element::getElementsByTagName},
      Row{"normalize", 0, 0, &Element::normalize},
  });
  return kMembers;
}

Value Element::getTagName(Args) {
  return vbs::String::fromUtf8(qualifiedName(node()));
}

Value Element::getAttribute(Args args) {
  const std::string name = nameArgument(args[0]);
  if (xmlAttr* held = findAttribute(node(), name)) {
    return vbs::String::fromUtf8(rawText(asNode(held)));
  }
  const xmlNs* declaration = findDeclaration(node(), name);
  return declaration ? Value(scriptText(declaration->href)) : Value::null();
}

Value Element::setAttribute(Args args) {
  putAttribute(*this, nameArgument(args[0]), vbs::toString(args[1]).utf8());
  return Value();
}

Value Element::removeAttribute(Args args) {
  xml::removeAttribute(*this, nameArgument(args[0]));
  return Value();
}

Value Element::getAttributeNode(Args args) {
  return attributeNode(*this, nameArgument(args[0]));
}

Value Element::setAttributeNode(Args args) {
  return xml::setAttributeNode(*this, argument(args[0]));
}

Value Element::removeAttributeNode(Args args) {
  const Node& gone = argument(args[0]);
  if (!isAttribute(gone.node()) || gone.node()->parent != node()) {
    fail(kBadArgument, "The parameter Node is not a child of this Node.");
  }
  return xml::removeAttribute(*this, qualifiedName(gone.node()));
}

Value Element::getElementsByTagName(Args args) {
  return Value::adopt(new TagList(*this, nameArgument(args[0])));
}

/// Makes one of texts that stand side by side.
Value Element::normalize(Args) {
  xmlNode* next = nullptr;
  for (xmlNode* at = node(); at; at = next) {
    next = nextBelow(at, node());
    while (next && at->type == XML_TEXT_NODE && at->next == next && next->type == XML_TEXT_NODE) {
      setContent(at, std::string(content(at)) + std::string(content(next)));
      vbs::countWork(content(at).size());
      detach(next);
      next = nextBelow(at, node());
    }
  }
  tree().changed();
  return Value();
}

std::span<const vbs::Member<Attribute>> Attribute::members() {
  using Row = vbs::Member<Attribute>;
  static constexpr auto kMembers = membersOf<Attribute>({
      Row{"name", 0, 0, &Node::getNodeName},
      Row{"value", 0, 0, &Node::getNodeValue, &Node::putText},
  });
  return kMembers;
}

std::span<const vbs::Member<CharacterData>> CharacterData::members() {
  using Row = vbs::Member<CharacterData>;
  static constexpr auto kMembers = membersOf<CharacterData>({
      Row{"data", 0, 0, &Node::getNodeValue, &Node::putText},
      Row{"length", 0, 0, &CharacterData::getLength},
      Row{"substringdata", 2, 2, &CharacterData::substringData},
      Row{"appenddata", 1, 1, &CharacterData::appendData},
      Row{"insertdata", 2, 2, &CharacterData::insertData},
      Row{"deletedata", 2, 2, &CharacterData::deleteData},
      Row{"replacedata", 3, 3, &CharacterData::replaceData},
      Row{"splittext", 1, 1, &CharacterData::splitText},
  });
  return kMembers;
}

std::string_view CharacterData::typeName() const {
  switch (node()->type) {
    case XML_CDATA_SECTION_NODE:
      return "IXMLDOMCDATASection";
    case XML_COMMENT_NODE:
      return "IXMLDOMComment";
    default:
      return "IXMLDOMText";
  }
}

vbs::String CharacterData::data() const {
  return vbs::String::fromUtf8(content(node()));
}

void CharacterData::setData(const vbs::String& text) {
  setContent(node(), text.utf8());
  tree().changed();
}

std::size_t CharacterData::place(const Value& offset) const {
  const std::int32_t at = vbs::toLong(offset);
  if (at < 0 || static_cast<std::size_t>(at) > data().length()) failArgument();
  return static_cast<std::size_t>(at);
}

namespace {

std::size_t countArgument(const Value& value) {
  const std::int32_t count = vbs::toLong(value);
  if (count < 0) failArgument();
  return static_cast<std::size_t>(count);
}

constexpr std::size_t kRest = SIZE_MAX;

}  // namespace

Value CharacterData::getLength(Args) {
  return Value::longInt(static_cast<std::int32_t>(data().length()));
}

Value CharacterData::substringData(Args args) {
  return data().substr(place(args[0]), countArgument(args[1]));
}

Value CharacterData::appendData(Args args) {
  setData(vbs::String::joined(data(), vbs::toString(args[0])));
  return Value();
}

Value CharacterData::insertData(Args args) {
  const std::size_t at = place(args[0]);
  const vbs::String text = data();
  const vbs::String front = vbs::String::joined(text.substr(0, at), vbs::toString(args[1]));
  setData(vbs::String::joined(front, text.substr(at, kRest)));
  return Value();
}

Value CharacterData::deleteData(Args args) {
  const std::size_t at = place(args[0]);
  const vbs::String text = data();
  const std::size_t count = std::min(countArgument(args[1]), text.length() - at);
  setData(vbs::String::joined(text.substr(0, at), text.substr(at + count, kRest)));
  return Value();
}

Value CharacterData::replaceData(Args args) {
  const vbs::String inserted = vbs::toString(args[2]);
  deleteData(args.first(2));
  Value insertion[] = {args[0], Value(inserted)};
  return insertData(insertion);
}

/// The text behind a place becomes a text of its own.
Value CharacterData::splitText(Args args) {
  if (!isText(node())) vbs::throwError(vbs::ErrorCode::NoPropertyOrMethod);
  const std::size_t at = place(args[0]);
  const vbs::String text = data();
  xmlNode* rest = copyInto(tree(), node(), false);
  Value object = valueOfNew(rest);
  setContent(rest, text.substr(at, kRest).utf8());
  setContent(node(), text.substr(0, at).utf8());
  if (node()->parent) link(node()->parent, rest, node()->next);
  tree().changed();
  return object;
}

std::span<const vbs::Member<Instruction>> Instruction::members() {
  using Row = vbs::Member<Instruction>;
  static constexpr auto kMembers = membersOf<Instruction>({
      Row{"target", 0, 0, &Node::getNodeName},
      Row{"data", 0, 0, &Node::getNodeValue, &Node::putText},
  });
  return kMembers;
}

std::span<const vbs::Member<PlainNode>> PlainNode::members() {
  using Row = vbs::Member<PlainNode>;
  static constexpr auto kMembers = membersOf<PlainNode>({
      Row{"name", 0, 0, &PlainNode::getName},
  });
  return kMembers;
}

std::string_view PlainNode::typeName() const {
  switch (node()->type) {
    case XML_DOCUMENT_FRAG_NODE:
      return "IXMLDOMDocumentFragment";
    case XML_ENTITY_REF_NODE:
      return "IXMLDOMEntityReference";
    default:
      return "IXMLDOMDocumentType";
  }
}

Value PlainNode::getName(Args) {
  return getNodeName({});
}

}  // namespace quorvane::xml
