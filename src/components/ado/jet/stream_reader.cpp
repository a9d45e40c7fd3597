#include "components/ado/jet/stream_reader.h"

#include <algorithm>
#include <array>
#include <memory>

#include "vbscript/values/memory_meter.h"

namespace quorvane::ado::jet {

namespace {

constexpr std::size_t kMostTables = 4096;  ///< twice what fits in a file
constexpr std::size_t kMostQueries = 2048;
constexpr std::size_t kMostColumns = 256;
constexpr std::size_t kMostIndexes = 256;
constexpr std::uint32_t kLongestText = 64 * 1024;
constexpr std::uint32_t kLongestValue = std::uint32_t{256} << 20;

class StreamReader {
 public:
  StreamReader(ByteSource& source, JetSink& sink) : source_(source), sink_(sink) {}

  void run() {
    if (record() != Record::File) failDamaged();
    file_.isOld = number<std::uint8_t>() == 0;
    file_.codePage = number<std::uint16_t>();
    for (;;) {
      switch (record()) {
        case Record::Table:
          readTable();
          break;
        case Record::Column:
          readColumn();
          break;
        case Record::Index:
          readIndex();
          break;
        case Record::Query:
          readQuery();
          break;
        case Record::Rows:
          beginRows();
          break;
        case Record::Row:
          readRow();
          break;
        case Record::Note:
          sink_.note(text(kLongestText));
          break;
        case Record::End:
          tell();
          return;
        default:
          failDamaged();
      }
    }
  }

 private:
  [[noreturn]] static void failDamaged() { throw ImportFailed{"it is damaged"}; }

  char byte() {
    if (at_ == end_) {
      at_ = 0;
      end_ = source_.read(block_.data(), block_.size());
      if (end_ == 0) throw ImportFailed{"it can't be read to its end"};
    }
    return block_[at_++];
  }
  Record record() { return static_cast<Record>(byte()); }

  template <class Number>
  Number number() {
    Number value = 0;
    for (std::size_t i = 0; i < sizeof(Number); ++i) {
      value = static_cast<Number>(value | static_cast<Number>(static_cast<std::uint8_t>(byte()))
                                              << (8 * i));
    }
    return value;
  }

  /// Grows as the bytes come, whatever length was announced.
  void bytes(std::uint32_t length, std::string& out) {
    out.clear();
    while (out.size() < length) {
      out += byte();
      const std::size_t part = std::min<std::size_t>(end_ - at_, length - out.size());
      held_.change(held_.bytes() + part + 1);
      out.append(block_.data() + at_, part);
      at_ += part;
    }
  }

  std::string text(std::uint32_t longest) {
    const auto length = number<std::uint32_t>();
    if (length > longest) failDamaged();
    std::string text;
    bytes(length, text);
    return text;
  }

  JetTable& table() {
    if (told_ || file_.tables.empty()) failDamaged();
    return file_.tables.back();
  }

  void readTable() {
    if (told_ || file_.tables.size() == kMostTables) failDamaged();
    JetTable table;
    table.name = text(kLongestText);
    table.lastNumber = number<std::uint32_t>();
    table.isSystem = byte() != 0;
    file_.tables.push_back(std::move(table));
  }

  void readColumn() {
    JetColumn column;
    column.name = text(kLongestText);
    column.type = static_cast<ColumnType>(number<std::uint8_t>());
    column.bytes = number<std::uint32_t>();
    column.digits = number<std::uint8_t>();
    column.places = number<std::uint8_t>();
    const auto marks = number<std::uint8_t>();
    column.autonumber = marks & mark::kAutonumber;
    column.newGuid = marks & mark::kNewGuid;
    column.defaultValue = text(kLongestText);
    if (table().columns.size() == kMostColumns) failDamaged();
    table().columns.push_back(std::move(column));
  }

  void readIndex() {
    JetIndex index;
    index.name = text(kLongestText);
    const auto marks = number<std::uint8_t>();
    index.primary = marks & mark::kPrimary;
    index.unique = marks & mark::kUnique;
    const auto count = number<std::uint8_t>();
    for (int i = 0; i < count; ++i) {
      const std::size_t column = number<std::uint16_t>();
      if (column >= table().columns.size()) failDamaged();
      index.parts.push_back({column, (number<std::uint8_t>() & mark::kDescending) != 0});
    }
    if (index.parts.empty() || table().indexes.size() == kMostIndexes) failDamaged();
    table().indexes.push_back(std::move(index));
  }

  void readQuery() {
    if (told_ || file_.queries.size() == kMostQueries) failDamaged();
    SavedQuery query;
    query.name = text(kLongestText);
    query.id = number<std::uint32_t>();
    file_.queries.push_back(std::move(query));
  }

  void tell() {
    if (told_) return;
    told_ = true;
    for (const JetTable& table : file_.tables) columns_.push_back(table.columns.size());
    sink_.tables(std::move(file_));
  }

  void beginRows() {
    tell();
    const auto table = number<std::uint32_t>();
    if (table >= columns_.size()) failDamaged();
    row_.assign(columns_[table], std::nullopt);
    inRows_ = true;
    sink_.beginRows(table);
  }

  void readRow() {
    if (!inRows_) failDamaged();
    const std::size_t before = held_.bytes();
    for (std::optional<std::string>& value : row_) {
      const auto length = number<std::uint32_t>();
      if (length == kNull) {
        value.reset();
        continue;
      }
      if (length > kLongestValue) failDamaged();
      if (!value) value.emplace();
      bytes(length, *value);
    }
    sink_.row(row_);
    held_.change(before);
    dropLongValues();
  }

  /// Room for usual values is used again.
  void dropLongValues() {
    constexpr std::size_t kUsual = std::size_t{64} * 1024;
    for (std::optional<std::string>& value : row_) {
      if (value && value->capacity() > kUsual) value.reset();
    }
  }

  ByteSource& source_;
  JetSink& sink_;
  std::array<char, std::size_t{64} * 1024> block_;
  std::size_t at_ = 0;
  std::size_t end_ = 0;
  JetFile file_;
  bool told_ = false;
  std::vector<std::size_t> columns_;  ///< of each table, how many
  bool inRows_ = false;
  JetRow row_;
  vbs::MemoryCharge held_;
};

}  // namespace

void readStream(ByteSource& source, JetSink& sink) {
  const auto reader = std::make_unique<StreamReader>(source, sink);
  reader->run();
}

}  // namespace quorvane::ado::jet
