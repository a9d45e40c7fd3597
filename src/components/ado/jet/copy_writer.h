#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "components/ado/jet/stream_reader.h"
#include "components/ado/sqlite/core.h"
#include "vbscript/values/memory_meter.h"

namespace quorvane {
class StatusLines;
}

namespace quorvane::ado::jet {

/// How much a copy holds.
struct CopySize {
  std::size_t tables = 0;
  std::uint64_t rows = 0;
};

/// Makes an SQLite database of what a stream tells. What can't be kept (a second row of the same
/// key, an index of values that are not unique) is left out and noted. Throws ImportFailed and
/// DatabaseError when nothing can be kept at all.
class CopyWriter final : public JetSink {
 public:
  /// Tells a copy from other databases, as its application_id.
  static constexpr std::uint32_t kMark = 0x51764A74;

  struct Options {
    std::string title;           ///< of the file, in front of status lines
    std::uint32_t codePage = 0;  ///< of texts that have one; 0: the file's own
    std::uint64_t mostBytes = 0;
  };

  /// Into the empty database `core`, which outlives the writer. finish() is the end of it; without
  /// that nothing is kept.
  CopyWriter(SqliteCore& core, StatusLines& log, Options options);

  void tables(JetFile file) override;
  void beginRows(std::size_t table) override;
  void row(const JetRow& row) override;
  void note(const std::string& text) override;

  /// `stamp`, the time of the file it was made of, becomes the copy's user_version.
  CopySize finish(std::uint32_t stamp);

 private:
  struct Relation {
    std::string name;
    std::string table;
    std::string other;
    std::uint32_t flags = 0;
    std::vector<std::pair<std::string, std::string>> columns;  ///< each with the other's
  };
  struct State {
    bool made = false;
    std::uint64_t rows = 0;
    std::uint64_t leftOut = 0;
    std::uint64_t damaged = 0;  ///< values
  };

  void define(const std::string& text);
  bool tryDefining(const std::string& text);
  void makeTables();
  void makeTable(const JetTable& table, State& state);
  std::string columnText(const JetTable& table, const JetColumn& column);
  std::string keyText(const JetTable& table) const;
  std::string relationTexts(const JetTable& table) const;
  std::string defaultText(const JetColumn& column, const std::string& type);
  vbs::Value systemValue(const JetRow& row, const char* name) const;
  std::string systemText(const JetRow& row, const char* name) const;
  std::uint32_t systemNumber(const JetRow& row, const char* name) const;
  void addRelation(const JetRow& row);
  void addQueryPart(const JetRow& row);
  bool isKept(const Relation& relation) const;
  const JetTable* tableOf(std::string_view name) const;
  void endRows();
  bool makeIndex(const JetTable& table, const std::string& name, const std::string& columns,
                 bool unique);
  void makeIndexes(const JetTable& table);
  void makeViews();
  std::string freeName(const std::string& wanted, const std::string& table);

  SqliteCore& core_;
  StatusLines& log_;
  Options options_;
  JetFile file_;
  std::string charset_;
  std::vector<State> states_;
  std::vector<Relation> relations_;
  vbs::MemoryCharge queryBytes_;
  std::set<std::string> names_;  ///< of tables and indexes, in lower case
  const JetTable* current_ = nullptr;
  State* state_ = nullptr;
  SqliteStatement insertion_;
};

}  // namespace quorvane::ado::jet
