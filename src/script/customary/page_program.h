#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "script/customary/code_page.h"

namespace quorvane::customary {

/// Where something stands in the files of a page.
struct Place {
  std::string file;  ///< local path
  std::uint32_t line = 0;
  std::uint32_t column = 0;  ///< 0: not known
};

/// Leads from the lines of a program back to those of the files that it was made of.
class LineMap {
 public:
  /// The number of the file, which is added when it is new.
  std::uint32_t file(const std::string& path);

  /// The program's next line stands for this line of that file; a column of the program is one of
  /// the file when `shift` is added.
  void add(std::uint32_t file, std::uint32_t line, std::int32_t shift) {
    rows_.push_back({file, line, shift});
  }

  /// What lies behind the program's end stands at its last line. Nothing for line 0; lines and
  /// columns count from 1.
  std::optional<Place> place(std::uint32_t line, std::uint32_t column) const;

  const std::vector<std::string>& files() const { return files_; }  ///< the page first
  std::size_t size() const { return rows_.size(); }                 ///< lines

 private:
  struct Row {
    std::uint32_t file;
    std::uint32_t line;
    std::int32_t shift;
  };

  std::vector<std::string> files_;
  std::vector<Row> rows_;
};

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
  bool namesTypeLibrary = false;  ///< the constants of type libraries are known then
  std::optional<Fault> fault;
};

}  // namespace quorvane::customary
