#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/services.h"
#include "script/customary/page_program.h"
#include "vbscript/engine.h"

namespace quorvane::customary {

class PageScript;

/// An object that a script is to see.
struct PublishedObject {
  std::string_view name;
  vbs::Object* object;
  bool globalMembers = false;
};

/// The procedures of a site's global.asa. Each is run by an engine of its own, so what it leaves in
/// variables is gone, and pages see none of it. Whatever goes wrong is told to the log alone.
class SiteEvents {
 public:
  enum class Event : std::uint8_t { ApplicationStart, SessionStart, SessionEnd, ApplicationEnd };

  /// Gives the program of a file's text.
  using Translate = std::function<PageProgram(const std::string& path, const std::string& text)>;

  /// All outlive this object.
  SiteEvents(const Services& services, vbs::ProgramCache& programs, Translate translate,
             vbs::Limits limits);

  /// Takes the text of global.asa, a local path, in place of the one before.
  void setText(const std::string& path, const std::string& text);
  const PageProgram& program() const { return program_; }

  bool has(Event event) const;

  /// Nothing where there is no such procedure, or while one of them is running.
  void run(Event event, std::span<const PublishedObject> objects);

 private:
  void tell(std::string_view what, const vbs::ErrorReport& error, const PageScript* script);
  void tell(std::string_view what, std::int32_t number, const std::string& description,
            const std::optional<Place>& place);
  void tell(std::string_view what, std::string_view why, const std::optional<Place>& place);

  const Services& services_;
  vbs::ProgramCache& programs_;
  Translate translate_;
  vbs::Limits limits_;
  PageProgram program_;
  std::set<std::string, std::less<>> procedures_;  ///< of both languages, in lower case
  bool isRunning_ = false;
};

}  // namespace quorvane::customary
