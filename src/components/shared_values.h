#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "support/keyed_collection.h"
#include "vbscript/values/memory_meter.h"
#include "vbscript/values/object.h"

namespace quorvane {

/// Values and objects that outlast the page that stored them: those that all pages share while the
/// server runs, or those of one session. Keys compare without regard to letter case; each counts
/// against the memory of the page that brings it. Pages of one process run one at a time, so Lock
/// and Unlock have nothing to do unless the values have a backing.
class SharedValues final : public vbs::NativeObject<SharedValues> {
 public:
  /// Keeps the values outside of this process as well. Whatever it throws reaches the page, and the
  /// change is not made then.
  class Backing {
   public:
    virtual ~Backing() = default;
    /// Before any use: the values must stand in `values` afterwards.
    virtual void prepare(SharedValues& values) = 0;
    virtual void put(const vbs::Value& key, const vbs::Value& value) = 0;  ///< before a change
    virtual void remove(const vbs::Value& key) = 0;
    virtual void clear() = 0;
    virtual void lock(SharedValues&) {}
    virtual void unlock() {}
    virtual void endPage() {}  ///< throws nothing
  };

  /// `typeName` is what TypeName shows; it outlives the object.
  explicit SharedValues(std::string_view typeName) : typeName_(typeName) {}

  /// Null: the values stand here alone.
  void setBacking(std::shared_ptr<Backing> backing) { backing_ = std::move(backing); }

  vbs::Value item(const vbs::Value& key);  ///< Empty when nothing is stored
  void setItem(const vbs::Value& key, const vbs::Value& value);
  void remove(const vbs::Value& key);
  void clear();
  bool empty() { return count() == 0; }
  std::size_t count();
  /// The key at a place, counted from 0, in its first spelling. The place must be there.
  vbs::Value keyAt(std::size_t place);

  void lock() {
    if (backing_) backing_->lock(*this);
  }
  void unlock() {
    if (backing_) backing_->unlock();
  }
  /// What one page has locked is free again.
  void endPage() {
    if (backing_) backing_->endPage();
  }

  // For a backing, which none of these asks.
  void store(const vbs::Value& key, const vbs::Value& value);
  void dropAll();
  using Visit = std::function<void(const vbs::Value& key, const vbs::Value& value)>;
  void visitAll(const Visit& visit) const;
  /// The same bytes for keys that are one.
  static std::string foldedKey(const vbs::Value& key);

  std::string_view typeName() const override { return typeName_; }
  std::unique_ptr<vbs::Enumerator> enumerate() override;  ///< the keys
  void visitReferences(vbs::ReferenceVisitor& visitor) override;
  static std::span<const vbs::Member<SharedValues>> members();

 private:
  vbs::Value getItem(vbs::Args args);
  void putItem(vbs::Args args, vbs::CallKind);
  vbs::Value getContents(vbs::Args args);
  vbs::Value getCount(vbs::Args);
  vbs::Value callRemove(vbs::Args args);
  vbs::Value callRemoveAll(vbs::Args);
  vbs::Value callLock(vbs::Args);
  vbs::Value callUnlock(vbs::Args);
  void prepare() {
    if (backing_) backing_->prepare(*this);
  }

  struct Kept {
    vbs::Value value;
    vbs::MemoryCharge charge;
    vbs::String name;  ///< of a key with characters beyond Windows-1252
  };
  using Values = KeyedCollection<Kept>;

  static vbs::Value nameOf(const Values::Entry& entry);

  std::string_view typeName_;
  Values values_;
  std::shared_ptr<Backing> backing_;
};

}  // namespace quorvane
