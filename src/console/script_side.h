#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace quorvane {

class Clock;
class FileAliases;
class Files;
class LanguageTexts;
class PageEvents;
class Random;
class ScriptPages;
class StatusLines;
class clsWEncode;
struct ServerState;

/// The script pages of one running server, with the sessions and authorisation keys they keep.
/// It lives from start to stop; a forced restart keeps it.
class ScriptSide {
 public:
  virtual ~ScriptSide() = default;

  virtual ScriptPages& pages() = 0;

  virtual void expireSessions() = 0;
  virtual void expireKeys() = 0;
  virtual void forgetKeys() = 0;

  using SessionVisitor = std::function<void(std::int32_t number, bool outOfDate)>;
  virtual void forEachSession(const SessionVisitor& visit) const = 0;
};

/// What the script side works with. Everything outlives it.
struct ScriptSideParts {
  const ServerState& state;
  StatusLines& log;
  const Clock& clock;
  const Files& files;
  Random& random;
  const clsWEncode& encoder;
  FileAliases& aliases;
  const LanguageTexts& texts;
  PageEvents& events;
};

using MakeScriptSide = std::function<std::unique_ptr<ScriptSide>(const ScriptSideParts&)>;

}  // namespace quorvane
