#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <type_traits>
#include <vector>

#include "vbscript/values/value.h"

namespace quorvane::vbs {

/// How a member is used by a script.
enum class CallKind : std::uint8_t {
  Get,   ///< in an expression: a property's value or a function's result
  Call,  ///< as a statement: the result is dropped
  Let,   ///< assigned without Set; the last argument is the value
  Set,   ///< assigned with Set; the last argument is the object
};

/// The arguments of a call, owned by the caller. A Reference stands where a script passed a
/// variable; read through deref(), write through target() to change the script's variable.
/// Value::missing() stands for an omitted argument.
using Args = std::span<Value>;

using MemberId = std::int32_t;
inline constexpr MemberId kDefaultMember = 0;
inline constexpr MemberId kNoMember = -1;

/// Walks a collection for `For Each`. Holds what it needs of the collection.
class Enumerator {
 public:
  virtual ~Enumerator() = default;
  /// Puts the next item into `item`; false at the end.
  virtual bool next(Value& item) = 0;
};

/// Is shown the values that an object holds.
class ReferenceVisitor {
 public:
  virtual void value(Value& held) = 0;

 protected:
  ~ReferenceVisitor() = default;
};

/// What a member table says of one member.
struct MemberUse {
  std::string_view name;  ///< lower case
  std::uint8_t minArgs;   ///< without the assigned value
  std::uint8_t maxArgs;
  bool reads;  ///< can be read or called
  bool writes;
  bool isDefault;
};

/// What a member of a collection does that is called with a key for its one argument, so that a
/// caller may go by itemPlace() instead.
enum class ItemUse : std::uint8_t {
  None,    ///< something else
  Exists,  ///< tells whether there is an item
  Get,     ///< gives the item; what happens when there is none is for the member to do
};

/// A member that a place in the code has found, to be read or called with the number of arguments
/// it has there.
struct DirectMember {
  Value (*get)(Object& self, const void* row, Args args) = nullptr;  ///< null: use invoke()
  const void* row = nullptr;
  ItemUse itemUse = ItemUse::None;
};

/// What Object::classNumber() may be: of procedures, and of native objects the least.
inline constexpr std::uint32_t kProcedureClass = 1;
inline constexpr std::uint32_t kFirstNativeClass = 0x80000000;

/// Anything that a script holds by reference: objects of the host, of components, and instances
/// of a script's own classes. Counted; the last release ends it at once, because scripts rely on
/// the moment. One thread only.
class Object {
  friend class EndQueue;

 public:
  Object();
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

  void retain() { ++references_; }
  void release() {
    VBS_ASSERT(references_ > 0);
    if (--references_ == 0) end(this);
  }
  std::uint32_t references() const { return references_; }
  /// The serial number of a script's own class, kProcedureClass for procedures as objects (GetRef),
  /// a number from kFirstNativeClass on for the native objects of one class that have
  /// directMember(), 0 for all others.
  std::uint32_t classNumber() const { return classNumber_; }
  /// The one made last before this among the objects that are still there, or null.
  Object* older() const { return older_; }

  /// What TypeName shows.
  virtual std::string_view typeName() const = 0;

  /// The id of the member with this lower-cased name, or kNoMember.
  virtual MemberId findMember(std::string_view lowerName) = 0;

  /// Objects with the same non-null shape find the same id for a name, so a call site may keep
  /// it. Null: look up every time.
  virtual const void* shape() const { return nullptr; }

  /// How to read or call the member with so many arguments; the same for all objects with this
  /// classNumber(). Nothing where invoke() must decide.
  virtual DirectMember directMember(MemberId, std::size_t /*arguments*/) const { return {}; }

  /// The member to use in this one's place where a script needs an object: `For Each x In o.M`,
  /// `o.M.Count`, `Set x = o.M`. So a member can be a plain value and still have members. The same
  /// for all objects of one shape.
  virtual MemberId objectMember(MemberId id) const { return id; }

  /// Whether calling this member with one text and then with another is the same as calling it once
  /// with both joined, and can't fail in between. The same for all objects of one shape.
  virtual bool joinsTexts(MemberId) const { return false; }

  /// Whether a value can be assigned to this member. The same for all objects of one shape.
  virtual bool isAssignable(MemberId) const { return true; }

  /// Uses a member. `id` came from findMember or is kDefaultMember. Throws ScriptError.
  virtual Value invoke(MemberId id, CallKind kind, Args args) = 0;

  /// Whether this is a script procedure (GetRef) that takes arguments through its default member.
  virtual bool isProcedure() const { return false; }

  /// Where a collection holds the item that its default member has under `key`, which is no
  /// reference. Null when there is no such item or no such place. Runs no script code.
  virtual Value* itemPlace(const Value& key);

  /// Error 451 unless the object is a collection.
  virtual std::unique_ptr<Enumerator> enumerate();

  /// Shows every value that the object holds. A kind of object that holds values and does not show
  /// them all stays for ever once it is part of a circle (see circles.h); nothing worse.
  virtual void visitReferences(ReferenceVisitor&) {}
  /// Gives up what visitReferences() shows. Called on an object that only a circle holds, and on
  /// objects that outlive what made them.
  virtual void dropReferences();

  /// The members of its table, by their ids from 1. None where an object has no table.
  virtual std::vector<MemberUse> listMembers() const { return {}; }

  /// What the object is worth where a plain value is wanted: its default member without
  /// arguments. Error 438 when there is none.
  virtual Value defaultValue() { return invoke(kDefaultMember, CallKind::Get, {}); }

 protected:
  virtual ~Object();

  /// Runs when the count falls to zero; deletes the object. Script classes run their
  /// Class_Terminate here first.
  virtual void lastRelease() { delete this; }

  std::uint32_t references_ = 1;  ///< the maker's own
  std::uint32_t classNumber_ = 0;

 private:
  Object* older_;
  Object* newer_ = nullptr;

  /// Calls lastRelease(), now or, in a long chain of objects that hold each other, as soon as the
  /// objects in progress are done: the C stack stays small however long the chain is.
  static void end(Object* object) noexcept;

  static constexpr std::size_t kObjectCharge = 64;  ///< bytes, a fair average with overhead
};

inline Object::Object() : older_(runContext.newestObject) {
  runContext.memory.charge(kObjectCharge);
  if (older_) older_->newer_ = this;
  runContext.newestObject = this;
}

inline Object::~Object() {
  (newer_ ? newer_->older_ : runContext.newestObject) = older_;
  if (older_) older_->newer_ = newer_;
  runContext.memory.release(kObjectCharge);
}

/// An owning pointer to an Object.
template <class T>
class Ref {
 public:
  Ref() = default;
  static Ref adopt(T* owned) {
    Ref r;
    r.object_ = owned;
    return r;
  }
  explicit Ref(T* object) : object_(object) {
    if (object_) object_->retain();
  }
  Ref(const Ref& other) : Ref(other.object_) {}
  Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  Ref& operator=(Ref other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~Ref() {
    if (object_) object_->release();
  }
  T* get() const { return object_; }
  T* operator->() const { return object_; }
  T& operator*() const { return *object_; }
  explicit operator bool() const { return object_ != nullptr; }

 private:
  T* object_ = nullptr;
};

template <class T, class... A>
Ref<T> make(A&&... args) {
  return Ref<T>::adopt(new T(std::forward<A>(args)...));
}

/// One row of a native object's member table. Argument counts leave out the assigned value.
template <class Self>
struct Member {
  std::string_view name;  ///< lower case
  std::uint8_t minArgs = 0;
  std::uint8_t maxArgs = 0;
  Value (Self::*get)(Args) = nullptr;                ///< method or property read
  void (Self::*put)(Args, CallKind kind) = nullptr;  ///< Let or Set; value is the last argument
  bool isDefault = false;
  bool joinsTexts = false;                   ///< see Object::joinsTexts
  Value (Self::*getObject)(Args) = nullptr;  ///< see Object::objectMember
  ItemUse itemUse = ItemUse::None;
};

/// Arguments that a property itself does not take go to the object that it gives:
/// `match.SubMatches(0)`. Error 450 when it gives none.
Value invokeResult(const Value& result, CallKind kind, Args args);

/// The next number for a class of native objects.
std::uint32_t newNativeClass();

/// Counts the texts that a call of an object may read to their ends as work.
inline void countTexts(Args args) {
  for (const Value& arg : args) {
    const Value& value = arg.deref();
    if (value.isString() && value.stringRep()) countWork(value.stringRep()->bytes);
  }
}

/// An object whose members stand in a table: `static std::span<const Member<Self>> members()`.
/// A wrong number of arguments is error 450, a member used in a way it has not is error 438. Kinds
/// of objects that have members in common put the functions of these into a `Base`, derived from
/// Object.
template <class Self, class Base = Object>
class NativeObject : public Base {
 public:
  template <class... A>
  explicit NativeObject(A&&... arguments) : Base(std::forward<A>(arguments)...) {
    this->classNumber_ = nativeClass();
  }

  const void* shape() const override { return Self::members().data(); }

  MemberId findMember(std::string_view lowerName) override {
    const auto table = Self::members();
    for (std::size_t i = 0; i < table.size(); ++i) {
      if (table[i].name == lowerName) return static_cast<MemberId>(i) + 1;
    }
    return kNoMember;
  }

  MemberId objectMember(MemberId id) const override {
    const Member<Self>* member = row(id);
    return member && member->getObject ? id | kAsObject : id;
  }

  DirectMember directMember(MemberId id, std::size_t arguments) const override {
    const Member<Self>* member = row(id);
    if (nativeClass() == 0 || !member || !member->get) return {};
    if (arguments < member->minArgs || arguments > member->maxArgs) return {};
    return {&getDirectly, member, arguments == 1 ? member->itemUse : ItemUse::None};
  }

  bool joinsTexts(MemberId id) const override {
    const Member<Self>* member = row(id);
    return member && member->joinsTexts;
  }

  bool isAssignable(MemberId id) const override {
    const Member<Self>* member = row(id);
    return member && member->put;
  }

  std::vector<MemberUse> listMembers() const override {
    std::vector<MemberUse> list;
    for (const Member<Self>& row : Self::members()) {
      list.push_back({row.name, row.minArgs, row.maxArgs, row.get != nullptr, row.put != nullptr,
                      row.isDefault});
    }
    return list;
  }

  Value invoke(MemberId id, CallKind kind, Args args) override {
    const Member<Self>* member = row(id & ~kAsObject);
    if (!member) throwError(ErrorCode::NoPropertyOrMethod);
    countTexts(args);
    const bool assigns = kind == CallKind::Let || kind == CallKind::Set;
    const std::size_t count = args.size() - (assigns ? 1 : 0);
    if (count > 0 && member->maxArgs == 0 && member->get) {
      return invokeResult((static_cast<Self&>(*this).*member->get)({}), kind, args);
    }
    if (assigns ? !member->put : !member->get) throwError(ErrorCode::NoPropertyOrMethod);
    if (count < member->minArgs || count > member->maxArgs) {
      throwError(ErrorCode::WrongArgumentCount);
    }
    auto& self = static_cast<Self&>(*this);
    if (!assigns) return (self.*(id & kAsObject ? member->getObject : member->get))(args);
    (self.*member->put)(args, kind);
    return Value();
  }

 private:
  static constexpr MemberId kAsObject = 1 << 30;

  /// A kind of object that finds or uses members in a way of its own has no number.
  static std::uint32_t nativeClass() {
    constexpr bool kIsPlain =
        std::is_same_v<decltype(&Self::findMember), decltype(&NativeObject::findMember)> &&
        std::is_same_v<decltype(&Self::invoke), decltype(&NativeObject::invoke)>;
    static const std::uint32_t kNumber = kIsPlain ? newNativeClass() : 0;
    return kNumber;
  }

  static Value getDirectly(Object& self, const void* row, Args args) {
    return (static_cast<Self&>(self).*static_cast<const Member<Self>*>(row)->get)(args);
  }

  static const Member<Self>* row(MemberId id) {
    const auto table = Self::members();
    if (id > 0 && static_cast<std::size_t>(id) <= table.size()) return &table[id - 1];
    if (id == kDefaultMember) {
      for (const auto& member : table) {
        if (member.isDefault) return &member;
      }
    }
    return nullptr;
  }
};

inline Value Value::object(Object* retained) {
  if (retained) retained->retain();
  return adopt(retained);
}
inline Value Value::adopt(Object* owned) {
  Value v = tagged(Type::Object);
  v.payload_.o = owned;
  return v;
}
inline void Value::retain() const {
  if (type_ == Type::String) {
    if (payload_.s) ++payload_.s->references;
  } else if (type_ == Type::Object) {
    if (payload_.o) payload_.o->retain();
  } else {
    ++payload_.a->references;
  }
}
inline void Value::drop() {
  if (type_ == Type::String) {
    if (payload_.s && --payload_.s->references == 0) String::destroy(payload_.s);
  } else if (type_ == Type::Object) {
    if (payload_.o) payload_.o->release();
  } else if (--payload_.a->references == 0) {
    ArrayRep::destroy(payload_.a);
  }
}

}  // namespace quorvane::vbs
