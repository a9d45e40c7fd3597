#include "script/customary/site_events.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "components/script_host.h"
#include "script/customary/page_script.h"
#include "support/status_lines.h"
#include "support/text.h"
#include "vbscript/syntax/parser.h"

namespace quorvane::customary {

namespace {

/// Of what runs when the server stops: whoever stopped it waits.
constexpr std::chrono::milliseconds kLongestEnd{5000};

constexpr std::string_view kNotRead = "not read";

constexpr std::string_view nameOf(SiteEvents::Event event) {
  switch (event) {
    case SiteEvents::Event::ApplicationStart:
      return "Application_OnStart";
    case SiteEvents::Event::SessionStart:
      return "Session_OnStart";
    case SiteEvents::Event::SessionEnd:
      return "Session_OnEnd";
    default:
      return "Application_OnEnd";
  }
}

constexpr bool isEnd(SiteEvents::Event event) {
  return event == SiteEvents::Event::SessionEnd || event == SiteEvents::Event::ApplicationEnd;
}

/// The outside of a procedure. Those of ends run just when the program is asked to end.
class EventHost final : public ScriptHost {
 public:
  EventHost(const Services& services, bool runsToItsEnd)
      : ScriptHost(services), runsToItsEnd_(runsToItsEnd) {}
  bool mustEnd() override { return !runsToItsEnd_ && ScriptHost::mustEnd(); }

 private:
  bool runsToItsEnd_;
};

vbs::ErrorReport reportOf(std::string_view description) {
  vbs::ErrorReport error;
  error.number = static_cast<std::int32_t>(vbs::ErrorCode::InternalError);
  error.description = description;
  return error;
}

}  // namespace

SiteEvents::SiteEvents(const Services& services, vbs::ProgramCache& programs, Translate translate,
                       vbs::Limits limits)
    : services_(services), programs_(programs), translate_(std::move(translate)), limits_(limits) {}

void SiteEvents::setText(const std::string& path, const std::string& text) {
  procedures_.clear();
  program_ = translate_(path, text);
  if (program_.fault) return tell(kNotRead, program_.fault->text, program_.fault->place);
  try {
    const auto program = vbs::parseScript(program_.program);
    if (const auto fault = jscript::findFault(program_.script)) {
      return tell(kNotRead, fault->error.number, fault->error.description,
                  program_.scriptLines.place(fault->line, 0));
    }
    for (const vbs::Procedure& one : program->procedures) procedures_.emplace(one.name.lower);
    for (const std::string& name : program_.scriptNames) procedures_.emplace(lowerCase(name));
  } catch (const vbs::CompileError& fault) {
    tell(kNotRead, vbs::compileErrorReport(fault, program_.program), nullptr);
  }
}

bool SiteEvents::has(Event event) const {
  return procedures_.contains(lowerCase(nameOf(event)));
}

void SiteEvents::run(Event event, std::span<const PublishedObject> objects) {
  if (isRunning_ || !has(event)) return;
  isRunning_ = true;
  try {
    vbs::Limits limits = limits_;
    if (isEnd(event)) limits.time = std::min(limits.time, kLongestEnd);
    EventHost host(services_, isEnd(event));
    const auto script = scriptOf(program_, nullptr);
    vbs::Engine engine(host, programs_, limits);
    for (const PublishedObject& one : objects) {
      engine.addObject(one.name, *one.object, one.globalMembers);
      if (script) script->addObject(one.name, *one.object, one.globalMembers);
    }
    if (script) script->join(engine);
    const auto error = engine.run(program_.program + "\r\n" + std::string(nameOf(event)));
    if (error) tell(nameOf(event), *error, script.get());
  } catch (const std::exception& error) {
    tell(nameOf(event), reportOf(error.what()), nullptr);
  }
  isRunning_ = false;
}

void SiteEvents::tell(std::string_view what, const vbs::ErrorReport& error,
                      const PageScript* script) {
  tell(what, error.number, error.description, placeOf(error, program_, script));
}

void SiteEvents::tell(std::string_view what, std::int32_t number, const std::string& description,
                      const std::optional<Place>& place) {
  tell(what, "error " + std::to_string(number) + ", " + description, place);
}

void SiteEvents::tell(std::string_view what, std::string_view why,
                      const std::optional<Place>& place) {
  std::string line = "global.asa, ";
  line.append(what).append(": ").append(why);
  if (place) line.append(" (").append(place->file) += ", line " + std::to_string(place->line) + ')';
  services_.log.LogLine(line);
}

}  // namespace quorvane::customary
