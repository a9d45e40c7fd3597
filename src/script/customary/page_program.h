#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "script/customary/code_page.h"
#include "script/translation/line_map.h"

namespace quorvane::customary {

using Place = LineMap::Place;

/// An object that a page or a site declares by a tag; made when it is first used.
struct StaticObject {
  enum class Scope { Page, Session, Application };

  std::string name;
  std::string progId;
  Scope scope = Scope::Page;
};

/// What a page's files become.
struct PageProgram {
  /// Text outside of code, as the file has it.
  struct Text {
    std::string bytes;
    std::int32_t codePage = kAnsi;
  };
  /// What stops the page before it runs.
  struct Fault {
    std::string text;
    Place place;
  };

  /// Writes the texts by `[%text] n`, n counting from 0, and values by `[%out] value`.
  std::string program;
  std::vector<Text> texts;
  LineMap lines;

  /// The page's JScript, if it has any, and its lines; see joinScript().
  std::string script;
  LineMap scriptLines;
  std::vector<std::string> scriptNames;  ///< that the program may use
  std::vector<std::string> scriptUses;   ///< that come from elsewhere

  // From the directive.
  std::optional<std::int32_t> codePage;
  std::optional<std::int32_t> lcid;
  bool usesSession = true;

  bool mentionsSession = false;  ///< as far as its code shows

  std::vector<StaticObject> objects;
  bool hasScriptBlocks = false;   ///< by a tag, in whatever language
  bool namesTypeLibrary = false;  ///< the constants of type libraries are known then
  std::optional<Fault> fault;
};

}  // namespace quorvane::customary
