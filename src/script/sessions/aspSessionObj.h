#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/clock.h"
#include "support/keyed_collection.h"
#include "vbscript/values/memory_meter.h"
#include "vbscript/values/object.h"
#include "vbscript/values/text_locale.h"

namespace quorvane {

class SharedValues;

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

  /// `clock` outlives the session.
  explicit aspSessionObj(const Clock& clock);

  std::int16_t Timeout() const { return timeout_; }  ///< minutes, unchecked
  void setTimeout(std::int16_t minutes) { timeout_ = minutes; }

  std::int32_t SessionID() const { return sessionID_; }
  void setSessionID(std::int32_t number) { sessionID_ = number; }

  /// Empty when nothing is stored under the key.
  vbs::String Contents(std::string_view key) const;
  void setContents(std::string key, vbs::String value);  ///< lost once abandoned

  std::int32_t LCID() const { return lcid_; }  ///< the locale of this session's pages

  /// Whether any text or object is kept.
  bool holdsAnything() const;
  bool holdsObjects() const;

  void Abandon();
  void Refresh() { lastAccess_ = clock_.now(); }
  bool OutOfDate() const;

  /// The text of a value that a page wants kept; a script error when it has none.
  static vbs::String textToKeep(const vbs::Value& value, vbs::CallKind kind);

  /// For walking and pruning the contents as a whole.
  Values& values() { return values_; }

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
  SharedValues* objects() const;
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
};

}  // namespace quorvane
