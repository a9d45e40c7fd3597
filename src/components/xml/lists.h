#pragma once

#include <string>
#include <vector>

#include "components/xml/node.h"

namespace quorvane::xml {

/// A list of nodes as scripts walk it: by number, by For Each, by nextNode.
class NodeList : public vbs::NativeObject<NodeList>, public vbs::InBlocks {
 public:
  static std::span<const vbs::Member<NodeList>> members();
  std::string_view typeName() const override { return "IXMLDOMNodeList"; }
  std::unique_ptr<vbs::Enumerator> enumerate() override;

  virtual std::size_t length() = 0;
  /// Nothing behind the end.
  virtual vbs::Value at(std::size_t index) = 0;

 private:
  vbs::Value getItem(vbs::Args args);
  vbs::Value getLength(vbs::Args);
  vbs::Value nextNode(vbs::Args);
  vbs::Value reset(vbs::Args);

  std::size_t next_ = 0;
};

/// The children of a node, at any time those of that time.
class ChildList final : public NodeList {
 public:
  explicit ChildList(Node& parent) : parent_(&parent) {}
  std::size_t length() override;
  vbs::Value at(std::size_t index) override;

 private:
  bool isCurrent() const;

  vbs::Ref<Node> parent_;
  // What was found last, for walks from one to the next.
  std::uint64_t changes_ = 0;
  std::size_t index_ = 0;
  xmlNode* found_ = nullptr;
  std::size_t length_ = 0;
};

/// The elements of a name below a node, at any time those of that time. "*" is any name.
class TagList final : public NodeList {
 public:
  TagList(Node& root, std::string name) : root_(&root), name_(std::move(name)) {}
  std::size_t length() override;
  vbs::Value at(std::size_t index) override;

 private:
  void refresh();

  vbs::Ref<Node> root_;
  std::string name_;
  std::uint64_t changes_ = 0;
  std::vector<xmlNode*> found_;
};

/// What an expression has selected.
class FixedList final : public NodeList {
 public:
  explicit FixedList(std::vector<vbs::Value> nodes);
  std::string_view typeName() const override { return "IXMLDOMSelection"; }
  std::size_t length() override { return nodes_.size(); }
  vbs::Value at(std::size_t index) override;
  void visitReferences(vbs::ReferenceVisitor& visitor) override;

 private:
  std::vector<vbs::Value> nodes_;
  vbs::MemoryCharge charge_;
};

/// The attributes of an element, declarations of namespaces among them, those first.
class AttributeMap final : public vbs::NativeObject<AttributeMap> {
 public:
  explicit AttributeMap(Node& element) : element_(&element) {}
  static std::span<const vbs::Member<AttributeMap>> members();
  std::string_view typeName() const override { return "IXMLDOMNamedNodeMap"; }
  std::unique_ptr<vbs::Enumerator> enumerate() override;

  vbs::Value at(std::size_t index);

 private:
  vbs::Value getItem(vbs::Args args);
  vbs::Value getLength(vbs::Args);
  vbs::Value getNamedItem(vbs::Args args);
  vbs::Value setNamedItem(vbs::Args args);
  vbs::Value removeNamedItem(vbs::Args args);
  vbs::Value getQualifiedItem(vbs::Args args);
  vbs::Value removeQualifiedItem(vbs::Args args);
  vbs::Value nextNode(vbs::Args);
  vbs::Value reset(vbs::Args);

  xmlAttr* findQualified(vbs::Args args) const;

  vbs::Ref<Node> element_;
  std::size_t next_ = 0;
};

}  // namespace quorvane::xml
