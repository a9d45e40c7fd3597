#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quorvane {

/// Leads from the lines of a program back to those of the files that it was made of.
class LineMap {
 public:
  /// Where something stands in a file.
  struct Place {
    std::string file;  ///< local path
    std::uint32_t line = 0;
    std::uint32_t column = 0;  ///< 0: not known
  };

  /// The number of the file, which is added when it is new.
  std::uint32_t file(const std::string& path);

  /// The program's next line stands for this line of that file; a column of the program is one of
  /// the file when `shift` is added.
  void add(std::uint32_t file, std::uint32_t line, std::int32_t shift) {
    rows_.push_back({file, line, shift});
  }
  /// From `column` on, the line that was added last stands for something else. Columns come in
  /// their order.
  void turn(std::uint32_t column, std::uint32_t file, std::uint32_t line, std::int32_t shift) {
    turns_.push_back({rows_.size(), column, {file, line, shift}});
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
  /// Where a program's line goes on with what stands elsewhere in the files.
  struct Turn {
    std::size_t line;  ///< of the program
    std::uint32_t column;
    Row row;
  };

  std::vector<std::string> files_;
  std::vector<Row> rows_;
  std::vector<Turn> turns_;
};

}  // namespace quorvane
