#include "components/xml/lists.h"

#include "components/xml/document.h"
#include "components/xml/errors.h"
#include "components/xml/kinds.h"
#include "components/xml/library.h"
#include "vbscript/values/convert.h"

namespace quorvane::xml {

using vbs::Args;
using vbs::Value;

namespace {

/// Walks by number, as the list is at each step.
template <class List>
class ListWalk final : public vbs::Enumerator, public vbs::InBlocks {
 public:
  explicit ListWalk(List& list) : list_(&list) {}
  bool next(Value& item) override {
    Value found = list_->at(index_++);
    if (!found.asObject()) return false;
    item = std::move(found);
    return true;
  }

 private:
  vbs::Ref<List> list_;
  std::size_t index_ = 0;
};

/// The place that a number names; behind every end for one below zero.
std::size_t indexArgument(const Value& value) {
  const std::int32_t index = vbs::toLong(value);
  return index < 0 ? SIZE_MAX : static_cast<std::size_t>(index);
}

Value count(std::size_t length) {
  return Value::longInt(static_cast<std::int32_t>(length));
}

}  // namespace

std::span<const vbs::Member<NodeList>> NodeList::members() {
  using Row = vbs::Member<NodeList>;
  static constexpr std::array kMembers = {
      Row{"item", 1, 1, &NodeList::getItem, nullptr, true},
      Row{"length", 0, 0, &NodeList::getLength},
      Row{"nextnode", 0, 0, &NodeList::nextNode},
      Row{"reset", 0, 0, &NodeList::reset},
  };
  return kMembers;
}

std::unique_ptr<vbs::Enumerator> NodeList::enumerate() {
  return std::make_unique<ListWalk<NodeList>>(*this);
}

Value NodeList::getItem(Args args) {
  return at(indexArgument(args[0]));
}

Value NodeList::getLength(Args) {
  return count(length());
}

Value NodeList::nextNode(Args) {
  return at(next_++);
}

Value NodeList::reset(Args) {
  next_ = 0;
  return Value();
}

bool ChildList::isCurrent() const {
  return changes_ == parent_->tree().changes();
}

std::size_t ChildList::length() {
  if (isCurrent()) return length_;
  found_ = nullptr;
  length_ = 0;
  for (const xmlNode* at = firstChild(parent_->node()); at; at = at->next) ++length_;
  vbs::countWork(length_ * sizeof(xmlNode));
  changes_ = parent_->tree().changes();
  return length_;
}

Value ChildList::at(std::size_t index) {
  if (index >= length()) return Value::nothing();
  if (!found_ || index < index_) {
    found_ = firstChild(parent_->node());
    index_ = 0;
  }
  vbs::countWork((index - index_) * sizeof(xmlNode));
  for (; index_ < index; ++index_) found_ = found_->next;
  return parent_->valueOf(found_);
}

void TagList::refresh() {
  if (changes_ == root_->tree().changes()) return;
  found_.clear();
  const xmlNode* root = root_->node();
  const bool any = name_ == "*";
  std::size_t seen = 0;
  for (xmlNode* at = nextBelow(root, root); at; at = nextBelow(at, root)) {
    ++seen;
    if (isElement(at) && (any || hasName(at, name_))) found_.push_back(at);
  }
  vbs::countWork(seen * sizeof(xmlNode));
  changes_ = root_->tree().changes();
}

std::size_t TagList::length() {
  refresh();
  return found_.size();
}

Value TagList::at(std::size_t index) {
  refresh();
  return index < found_.size() ? root_->valueOf(found_[index]) : Value::nothing();
}

FixedList::FixedList(std::vector<Value> nodes)
    : nodes_(std::move(nodes)), charge_(nodes_.size() * sizeof(Value)) {}

Value FixedList::at(std::size_t index) {
  return index < nodes_.size() ? nodes_[index] : Value::nothing();
}

void FixedList::visitReferences(vbs::ReferenceVisitor& visitor) {
  for (Value& node : nodes_) visitor.value(node);
}

std::span<const vbs::Member<AttributeMap>> AttributeMap::members() {
  using Row = vbs::Member<AttributeMap>;
  static constexpr std::array kMembers = {
      Row{"item", 1, 1, &AttributeMap::getItem, nullptr, true},
      Row{"length", 0, 0, &AttributeMap::getLength},
      Row{"getnameditem", 1, 1, &AttributeMap::getNamedItem},
      Row{"setnameditem", 1, 1, &AttributeMap::setNamedItem},
      Row{"removenameditem", 1, 1, &AttributeMap::removeNamedItem},
      Row{"getqualifieditem", 2, 2, &AttributeMap::getQualifiedItem},
      Row{"removequalifieditem", 2, 2, &AttributeMap::removeQualifiedItem},
      Row{"nextnode", 0, 0, &AttributeMap::nextNode},
      Row{"reset", 0, 0, &AttributeMap::reset},
  };
  return kMembers;
}

std::unique_ptr<vbs::Enumerator> AttributeMap::enumerate() {
  return std::make_unique<ListWalk<AttributeMap>>(*this);
}

Value AttributeMap::at(std::size_t index) {
  for (const xmlNs* held = element_->node()->nsDef; held; held = held->next) {
    if (index-- == 0) return attributeNode(*element_, declarationName(held));
  }
  for (xmlAttr* held = element_->node()->properties; held; held = held->next) {
    if (index-- == 0) return element_->valueOf(reinterpret_cast<xmlNode*>(held));
  }
  return Value::nothing();
}

Value AttributeMap::getItem(Args args) {
  return at(indexArgument(args[0]));
}

Value AttributeMap::getLength(Args) {
  std::size_t length = 0;
  for (const xmlNs* at = element_->node()->nsDef; at; at = at->next) ++length;
  for (const xmlAttr* at = element_->node()->properties; at; at = at->next) ++length;
  return count(length);
}

Value AttributeMap::getNamedItem(Args args) {
  return attributeNode(*element_, vbs::toString(args[0]).utf8());
}

Value AttributeMap::setNamedItem(Args args) {
  Node& attribute = Node::argument(args[0]);
  setAttributeNode(*element_, attribute);
  return Value::object(&attribute);
}

Value AttributeMap::removeNamedItem(Args args) {
  return removeAttribute(*element_, vbs::toString(args[0]).utf8());
}

xmlAttr* AttributeMap::findQualified(Args args) const {
  const std::string name = vbs::toString(args[0]).utf8();
  const std::string address = vbs::toString(args[1]).utf8();
  for (xmlAttr* at = element_->node()->properties; at; at = at->next) {
    if (view(at->name) == name && view(at->ns ? at->ns->href : nullptr) == address) return at;
  }
  return nullptr;
}

Value AttributeMap::getQualifiedItem(Args args) {
  return element_->valueOf(reinterpret_cast<xmlNode*>(findQualified(args)));
}

Value AttributeMap::removeQualifiedItem(Args args) {
  const xmlAttr* held = findQualified(args);
  if (!held) return Value::nothing();
  return removeAttribute(*element_, qualifiedName(reinterpret_cast<const xmlNode*>(held)));
}

Value AttributeMap::nextNode(Args) {
  return at(next_++);
}

Value AttributeMap::reset(Args) {
  next_ = 0;
  return Value();
}

}  // namespace quorvane::xml
