#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "components/ado/jet/saved_queries.h"
#include "components/ado/jet/stream_format.h"

/// Reads what qvimport writes. That program may have gone wrong on a damaged file in any way, so
/// nothing is believed.
namespace quorvane::ado::jet {

/// Why a file can't be imported.
struct ImportFailed {
  std::string reason;
};

struct JetColumn {
  std::string name;
  ColumnType type = ColumnType::Text;
  std::uint32_t bytes = 0;
  std::uint8_t digits = 0;
  std::uint8_t places = 0;
  bool autonumber = false;
  bool newGuid = false;  ///< gets one by itself
  std::string defaultValue;
};

struct JetIndex {
  struct Part {
    std::size_t column = 0;
    bool descending = false;
  };

  std::string name;
  bool primary = false;
  bool unique = false;
  std::vector<Part> parts;
};

struct JetTable {
  std::string name;
  std::uint32_t lastNumber = 0;
  bool isSystem = false;
  std::vector<JetColumn> columns;
  std::vector<JetIndex> indexes;
};

struct JetFile {
  bool isOld = false;
  std::uint16_t codePage = 0;
  std::vector<JetTable> tables;
  std::vector<SavedQuery> queries;  ///< their pieces stand in a table of the system's
};

/// A row's values as the file holds them.
using JetRow = std::vector<std::optional<std::string>>;

class ByteSource {
 public:
  /// How many of `length` bytes there were; 0 at the end.
  virtual std::size_t read(char* out, std::size_t length) = 0;

 protected:
  ~ByteSource() = default;
};

/// Takes what the stream tells, in this order: the tables once, then each one's rows.
class JetSink {
 public:
  virtual void tables(JetFile file) = 0;
  virtual void beginRows(std::size_t table) = 0;
  virtual void row(const JetRow& row) = 0;
  virtual void note(const std::string& text) = 0;

 protected:
  ~JetSink() = default;
};

/// Reads to the end. Throws ImportFailed when the stream is not whole or makes no sense.
void readStream(ByteSource& source, JetSink& sink);

}  // namespace quorvane::ado::jet
