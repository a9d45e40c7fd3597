#pragma once

#include "components/xml/node.h"

namespace quorvane::xml {

/// The object for a node of any kind but a document.
vbs::Value makeNodeObject(Document& document, std::shared_ptr<Tree> tree, xmlNode* node);

class Element final : public vbs::NativeObject<Element, Node> {
 public:
  using NativeObject::NativeObject;
  static std::span<const vbs::Member<Element>> members();
  std::string_view typeName() const override { return "IXMLDOMElement"; }

 private:
  vbs::Value getTagName(vbs::Args);
  vbs::Value getAttribute(vbs::Args args);
  vbs::Value setAttribute(vbs::Args args);
  vbs::Value removeAttribute(vbs::Args args);
  vbs::Value getAttributeNode(vbs::Args args);
  vbs::Value setAttributeNode(vbs::Args args);
  vbs::Value removeAttributeNode(vbs::Args args);
  vbs::Value getElementsByTagName(vbs::Args args);
  vbs::Value normalize(vbs::Args);
};

class Attribute final : public vbs::NativeObject<Attribute, Node> {
 public:
  using NativeObject::NativeObject;
  static std::span<const vbs::Member<Attribute>> members();
  std::string_view typeName() const override { return "IXMLDOMAttribute"; }
};

/// A text, a CDATA section or a comment.
class CharacterData final : public vbs::NativeObject<CharacterData, Node> {
 public:
  using NativeObject::NativeObject;
  static std::span<const vbs::Member<CharacterData>> members();
  std::string_view typeName() const override;

 private:
  vbs::String data() const;
  void setData(const vbs::String& text);
  /// The part that two arguments name: a place counted from 0 and a count.
  std::size_t place(const vbs::Value& offset) const;

  vbs::Value getLength(vbs::Args);
  vbs::Value substringData(vbs::Args args);
  vbs::Value appendData(vbs::Args args);
  vbs::Value insertData(vbs::Args args);
  vbs::Value deleteData(vbs::Args args);
  vbs::Value replaceData(vbs::Args args);
  vbs::Value splitText(vbs::Args args);
};

class Instruction final : public vbs::NativeObject<Instruction, Node> {
 public:
  using NativeObject::NativeObject;
  static std::span<const vbs::Member<Instruction>> members();
  std::string_view typeName() const override { return "IXMLDOMProcessingInstruction"; }
};

/// A fragment, a reference to an entity, a document's type.
class PlainNode final : public vbs::NativeObject<PlainNode, Node> {
 public:
  using NativeObject::NativeObject;
  static std::span<const vbs::Member<PlainNode>> members();
  std::string_view typeName() const override;

 private:
  vbs::Value getName(vbs::Args);
};

/// What scripts know of an element's attribute by its name: the attribute, or the declaration of a
/// namespace in the form of one. Nothing when there is neither.
vbs::Value attributeNode(Node& element, const std::string& name);
/// Puts an attribute's node on an element. The one that stood there before, or Nothing.
vbs::Value setAttributeNode(Node& element, Node& attribute);
/// Takes the attribute away and gives it back; Nothing when there is none of that name.
vbs::Value removeAttribute(Node& element, const std::string& name);

}  // namespace quorvane::xml
