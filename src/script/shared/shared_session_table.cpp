#include "script/shared/shared_session_table.h"

#include <utility>

#include "platform/random.h"
#include "script/shared/stored_contents.h"
#include "support/status_lines.h"

namespace quorvane::customary {

namespace {

constexpr std::string_view kValues = "=";
constexpr std::int32_t kNumbers = 900'000'000;

void fill(SharedValues& values, const KeptFields& fields) {
  for (const KeptFields::Entry& entry : fields.entries(kValues)) {
    values.store(entry.key, entry.value);
  }
}

void take(Session& session, const StoredSessions::Head& head) {
  session.number = head.number;
  session.timeout = std::chrono::minutes{head.timeout};
  session.locale = head.locale;
  session.codePage = head.codePage;
}

/// The values of a session, read when a page first uses them.
class LoadedContents final : public StoredContents {
 public:
  LoadedContents(StoredSessions& sessions, std::string id)
      : sessions_(sessions), id_(std::move(id)) {}

  void prepare(SharedValues& values) override {
    if (isLoaded_) return;
    fields_ = sessions_.load(id_);
    isLoaded_ = true;
    fill(values, fields_);
  }

  KeptFields::Changes changesOf(const SharedValues& values) {
    if (!isLoaded_) return {};
    values.visitAll([this](const vbs::Value& key, const vbs::Value& value) {
      fields_.note(kValues, SharedValues::foldedKey(key), key, value);
    });
    return fields_.changes();
  }

 private:
  StoredSessions& sessions_;
  std::string id_;
  KeptFields fields_;
  bool isLoaded_ = false;
};

/// A session as the store has it.
struct StoredSession : Session {
  StoredSession(StoredSessions& sessions, std::string text, const StoredSessions::Head& kept)
      : Session(std::move(text)), head(kept) {
    take(*this, head);
    backing = std::make_shared<LoadedContents>(sessions, id);
    contents->setBacking(backing);
  }

  StoredSessions::Head head;
  std::shared_ptr<LoadedContents> backing;
};

}  // namespace

SharedSessionTable::SharedSessionTable(SharedStore& store, const Services& services)
    : services_(services), sessions_(store, "visitor", kMostSessions) {}

std::shared_ptr<Session> SharedSessionTable::find(std::string_view id) {
  if (id.empty()) return nullptr;
  std::string text(id);
  const auto head = sessions_.find(text);
  return head ? std::make_shared<StoredSession>(sessions_, std::move(text), *head) : nullptr;
}

std::shared_ptr<Session> SharedSessionTable::create() {
  StoredSessions::Head head;
  const auto first = static_cast<std::int32_t>(services_.random.fraction() * kNumbers);
  const auto created =
      sessions_.create({newSessionId(services_.random)}, head, first, std::nullopt);
  noteEnded(created.ended);
  head.number = created.number;
  services_.log.LogLine("Session " + std::to_string(head.number) + " created");
  return std::make_shared<StoredSession>(sessions_, created.id, head);
}

/// All that are given here were made here.
void SharedSessionTable::noteRun(Session& given) {
  auto& session = static_cast<StoredSession&>(given);
  if (session.isAbandoned) {
    session.contents->count();  // its last words may want them
    session.contents->setBacking(nullptr);
    if (!sessions_.remove(session.id)) return;
    services_.log.LogLine("Session " + std::to_string(session.number) + " destroyed");
    auto ended = std::make_shared<Session>(session.id);
    take(*ended, session.head);
    ended->contents = session.contents;
    ended->objects = session.objects;
    ended_.push_back(std::move(ended));
    return;
  }
  const StoredSessions::Head head{static_cast<std::int32_t>(session.timeout.count()),
                                  session.number, session.locale, session.codePage};
  const KeptFields::Changes changes = session.backing->changesOf(*session.contents);
  if (changes.empty() && head == session.head) return;
  sessions_.save(session.id, head, changes, head.timeout != session.head.timeout);
}

void SharedSessionTable::expire() {
  try {
    noteEnded(sessions_.takeEnded(true));
  } catch (const vbs::ScriptError&) {  // the next sweep will do
  }
}

void SharedSessionTable::noteEnded(const std::vector<StoredSessions::Ended>& ended) {
  for (const StoredSessions::Ended& one : ended) {
    services_.log.LogLine("Session " + std::to_string(one.head.number) + " destroyed");
    auto session = std::make_shared<Session>(one.id);
    take(*session, one.head);
    fill(*session->contents, one.fields);
    ended_.push_back(std::move(session));
  }
}

std::shared_ptr<Session> SharedSessionTable::takeEnded() {
  if (ended_.empty()) return nullptr;
  auto session = std::move(ended_.front());
  ended_.pop_front();
  return session;
}

}  // namespace quorvane::customary
