#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "components/shared_values.h"
#include "platform/clock.h"
#include "support/keyed_collection.h"
#include "vbscript/values/memory_meter.h"
#include "vbscript/values/object.h"
#include "vbscript/values/text_locale.h"

namespace quorvane {

/// What pages know as "Session": the texts, and apart from them the objects, kept for one browser
/// between its requests. The session store holds it; a running page holds it as well, so it may
/// outlive its place in the store, empty then.
class aspSessionObj final : public vbs::NativeObject<aspSessionObj> {
 public:
  /// A text, whose place counts against the memory of the page that brings it.
  struct Kept {
    vbs::String text;
    vbs::MemoryCharge charge;
  };
  using Values = KeyedCollection<Kept>;

  /// Keeps a session outside of this process. What it throws reaches the page.
  class Backing {
   public:
    virtual ~Backing() = default;
    /// Before the first use of what is kept, which store() and makeObjects() take.
    virtual void prepare(aspSessionObj& session) = 0;
    /// The page has run: what it has changed is written back.
    virtual void keep(aspSessionObj& session) = 0;
    virtual std::shared_ptr<SharedValues::Backing> ofObjects() = 0;
  };

  /// `clock` outlives the session.
  explicit aspSessionObj(const Clock& clock);

  std::int16_t Timeout() const { return timeout_; }  ///< minutes, unchecked
  void setTimeout(std::int16_t minutes) { timeout_ = minutes; }

  std::int32_t SessionID() const { return sessionID_; }
  void setSessionID(std::int32_t number) { sessionID_ = number; }

  /// Empty when nothing is stored under the key.
  vbs::String Contents(std::string_view key);
  void setContents(std::string key, vbs::String value);  ///< lost once abandoned

  /// Null: the session stands here alone.
  void setBacking(std::unique_ptr<Backing> backing) { backing_ = std::move(backing); }
  void store(std::string key, vbs::String value);
  vbs::Ref<SharedValues> makeObjects();  ///< kept from now on
  SharedValues* objects() const;         ///< null: none yet
  void keep() {
    if (backing_) backing_->keep(*this);
  }

  std::int32_t LCID() const { return lcid_; }  ///< the locale of this session's pages
  std::int32_t CodePage() const { return codePage_; }
  void takeLocale(std::int32_t lcid, std::int32_t codePage) {
    lcid_ = lcid;
    codePage_ = codePage;
  }

  /// Whether any text or object is kept.
  bool holdsAnything() const;
  bool holdsObjects() const;

  void Abandon();
  void Refresh() { lastAccess_ = clock_.now(); }
  bool OutOfDate() const;
  bool isAbandoned() const { return abandoned_; }
  TimePoint lastAccess() const { return lastAccess_; }

  /// The text of a value that a page wants kept; a script error when it has none.
  static vbs::String textToKeep(const vbs::Value& value, vbs::CallKind kind);

  /// For walking and pruning the contents as a whole.
  Values& values() {
    prepare();
    return values_;
  }

  std::string_view typeName() const override { return "Session"; }
  void visitReferences(vbs::ReferenceVisitor& visitor) override { visitor.value(objects_); }
  void dropReferences() override { objects_ = {}; }
  static std::span<const vbs::Member<aspSessionObj>> members();
  static constexpr std::size_t kGlobalMembers = 6;  ///< the first rows of members()

 private:
  vbs::Value getTimeout(vbs::Args);
  void putTimeout(vbs::Args args, vbs::CallKind);
  vbs::Value getSessionID(vbs::Args);
  void putSessionID(vbs::Args args, vbs::CallKind);
  vbs::Value getContents(vbs::Args args);
  void putContents(vbs::Args args, vbs::CallKind kind);
  vbs::Value callAbandon(vbs::Args);
  vbs::Value callRefresh(vbs::Args);
  vbs::Value callOutOfDate(vbs::Args);
  void prepare() {
    if (backing_) backing_->prepare(*this);
  }
  vbs::Value getObjects(vbs::Args args);
  void putObjects(vbs::Args args, vbs::CallKind);
  vbs::Value getLcid(vbs::Args);
  void putLcid(vbs::Args args, vbs::CallKind);
  vbs::Value getCodePage(vbs::Args);
  void putCodePage(vbs::Args args, vbs::CallKind);

  const Clock& clock_;
  Values values_;
  vbs::Value objects_;  ///< SharedValues, made on first use
  TimePoint lastAccess_;
  std::int32_t sessionID_ = 0;
  std::int32_t lcid_ = vbs::kDefaultLocale;
  std::int32_t codePage_ = 1252;  ///< as the page set it, without effect
  std::int16_t timeout_ = 20;
  bool abandoned_ = false;
  std::unique_ptr<Backing> backing_;
};

}  // namespace quorvane
