#include "script/shared/shared_session_store.h"

#include <memory>
#include <utility>

#include "platform/random.h"
#include "script/shared/stored_contents.h"
#include "support/status_lines.h"
#include "support/text.h"

namespace quorvane {

namespace {

constexpr int kMostDraws = 4;
constexpr std::string_view kTexts = "=";
constexpr std::string_view kObjects = "#";

/// A session as the store has it.
class StoredSession final : public aspSessionObj::Backing {
 public:
  StoredSession(StoredSessions& sessions, std::int32_t number, StoredSessions::Head head,
                TimePoint begun, StatusLines& log)
      : sessions_(sessions), id_(std::to_string(number)), head_(head), begun_(begun), log_(log) {}

  void prepare(aspSessionObj& session) override {
    if (isLoaded_ || session.isAbandoned()) return;
    fields_ = sessions_.load(id_);
    isLoaded_ = true;
    for (const KeptFields::Entry& entry : fields_.entries(kTexts)) {
      if (entry.value.isString()) {
        session.store(vbs::String(entry.key.asString()).narrow(), entry.value.asString());
      }
    }
    const auto objects = fields_.entries(kObjects);
    if (objects.empty()) return;
    const auto kept = session.makeObjects();
    for (const KeptFields::Entry& entry : objects) kept->store(entry.key, entry.value);
  }

  void keep(aspSessionObj& session) override {
    if (session.isAbandoned()) {
      if (sessions_.remove(id_)) log_.LogLine("Session " + id_ + " destroyed");
      return;
    }
    StoredSessions::Head head = head_;
    head.timeout = session.Timeout();
    head.locale = session.LCID();
    head.codePage = session.CodePage();
    const KeptFields::Changes changes = isLoaded_ ? changesOf(session) : KeptFields::Changes();
    const bool isRenewed = head.timeout != head_.timeout || session.lastAccess() != begun_;
    if (changes.empty() && !isRenewed && head == head_) return;
    sessions_.save(id_, head, changes, isRenewed);
  }

  std::shared_ptr<SharedValues::Backing> ofObjects() override {
    return std::make_shared<StoredContents>();
  }

 private:
  KeptFields::Changes changesOf(aspSessionObj& session) {
    for (const auto& entry : session.values()) {
      const vbs::Value key{std::string_view(entry.key)};
      fields_.note(kTexts, lowerCase(entry.key), key, entry.value.text);
    }
    if (const SharedValues* objects = session.objects()) {
      objects->visitAll([this](const vbs::Value& key, const vbs::Value& value) {
        fields_.note(kObjects, SharedValues::foldedKey(key), key, value);
      });
    }
    return fields_.changes();
  }

  StoredSessions& sessions_;
  std::string id_;
  StoredSessions::Head head_;
  TimePoint begun_;
  StatusLines& log_;
  KeptFields fields_;
  bool isLoaded_ = false;
};

/// A session that can't be reached.
class LostSession final : public aspSessionObj::Backing {
 public:
  explicit LostSession(vbs::ScriptError why) : why_(std::move(why)) {}
  void prepare(aspSessionObj&) override { throw vbs::ScriptError(why_); }
  void keep(aspSessionObj&) override {}
  std::shared_ptr<SharedValues::Backing> ofObjects() override { return nullptr; }

 private:
  vbs::ScriptError why_;
};

}  // namespace

SharedSessionStore::SharedSessionStore(SharedStore& store, const Services& services)
    : services_(services), sessions_(store, "session", kHighestNumber + 1) {}

vbs::Ref<aspSessionObj> SharedSessionStore::getOrCreate(std::int32_t number) {
  try {
    if (number > 0) {
      if (const auto head = sessions_.find(std::to_string(number))) return make(number, *head);
    }
    return create();
  } catch (const vbs::ScriptError& error) {
    auto session = vbs::make<aspSessionObj>(services_.clock);
    session->setSessionID(number);
    session->setBacking(std::make_unique<LostSession>(error));
    return session;
  }
}

vbs::Ref<aspSessionObj> SharedSessionStore::make(std::int32_t number,
                                                 const StoredSessions::Head& head) {
  auto session = vbs::make<aspSessionObj>(services_.clock);
  session->setSessionID(number);
  session->setTimeout(static_cast<std::int16_t>(head.timeout));
  session->takeLocale(head.locale, head.codePage);
  session->setBacking(std::make_unique<StoredSession>(sessions_, number, head,
                                                      session->lastAccess(), services_.log));
  return session;
}

vbs::Ref<aspSessionObj> SharedSessionStore::create() {
  const auto fresh = vbs::make<aspSessionObj>(services_.clock);
  const StoredSessions::Head head{fresh->Timeout(), 0, fresh->LCID(), fresh->CodePage()};
  SharedStore::Words numbers;
  for (int draw = 0; draw < kMostDraws; ++draw) {
    const double drawn = roundHalfEven(services_.random.fraction() * kHighestNumber);
    numbers.push_back(std::to_string(static_cast<std::int32_t>(drawn)));
  }
  const auto created = sessions_.create(numbers, head, 0, kHighestNumber);
  tellDestroyed(created.ended);
  services_.log.LogLine("Session " + created.id + " created");
  return make(created.number, head);
}

void SharedSessionStore::remove(std::int32_t number) {
  try {
    sessions_.remove(std::to_string(number));
  } catch (const vbs::ScriptError&) {  // it ends by itself
  }
}

void SharedSessionStore::expire() {
  try {
    tellDestroyed(sessions_.takeEnded(false));
  } catch (const vbs::ScriptError&) {  // the next sweep will do
  }
}

void SharedSessionStore::tellDestroyed(const std::vector<StoredSessions::Ended>& ended) {
  for (const StoredSessions::Ended& one : ended) {
    services_.log.LogLine("Session " + one.id + " destroyed");
  }
}

}  // namespace quorvane
