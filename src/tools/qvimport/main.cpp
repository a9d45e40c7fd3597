#include <glib.h>
#include <mdbtools.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "components/ado/jet/stream_format.h"

namespace quorvane {

namespace {

using ado::jet::Record;
namespace mark = ado::jet::mark;

enum Exit { kDone = 0, kUnreadable = 1, kUsage = 2, kNoReader = 3 };

/// Where what becomes of the file goes to. Nobody who reads it any more ends the program.
class Output {
 public:
  void record(Record kind) { number(static_cast<unsigned char>(kind), 1); }
  void number(std::uint64_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) std::putc(static_cast<int>(value >> (8 * i) & 0xFF), stdout);
  }
  void text(std::string_view text) {
    number(text.size(), 4);
    raw(text);
  }
  void null() { number(ado::jet::kNull, 4); }
  void note(std::string_view text) {
    record(Record::Note);
    this->text(text);
  }
  void check() {
    if (std::ferror(stdout)) std::exit(kNoReader);
  }

 private:
  void raw(std::string_view bytes) { std::fwrite(bytes.data(), 1, bytes.size(), stdout); }
};

struct FreeTable {
  void operator()(MdbTableDef* table) const {
    mdb_free_indices(table->indices);
    table->indices = nullptr;
    mdb_free_tabledef(table);
  }
};
using Table = std::unique_ptr<MdbTableDef, FreeTable>;

struct CloseFile {
  void operator()(MdbHandle* file) const { mdb_close(file); }
};
using File = std::unique_ptr<MdbHandle, CloseFile>;

template <class Item>
Item* at(GPtrArray* list, unsigned index) {
  return static_cast<Item*>(g_ptr_array_index(list, index));
}

/// The content of a column that has its bytes elsewhere, or nothing when that is damaged.
class LongValue {
 public:
  LongValue(MdbHandle* file, const char* field, int length) : file_(file) {
    if (length < kHead) return;
    const auto head = static_cast<std::uint32_t>(mdb_get_int32(const_cast<char*>(field), 0));
    const auto place = static_cast<std::uint32_t>(mdb_get_int32(const_cast<char*>(field), 4));
    length_ = head & kLength;
    if (head & kInline) {
      whole_ = static_cast<std::uint32_t>(length - kHead) >= length_;
      if (whole_) content_.assign(field + kHead, length_);
    } else if (head & kOnePlace) {
      std::string_view part;
      whole_ = find(place, part) && part.size() >= length_;
      if (whole_) content_ = part.substr(0, length_);
    } else {
      follow(place);
    }
  }

  bool isWhole() const { return whole_; }
  const std::string& content() const { return content_; }

 private:
  static constexpr int kHead = 12;
  static constexpr std::uint32_t kInline = 0x80000000;
  static constexpr std::uint32_t kOnePlace = 0x40000000;
  static constexpr std::uint32_t kLength = 0x3FFFFFFF;
  static constexpr std::size_t kNext = 4;

  bool find(std::uint32_t place, std::string_view& part) {
    void* page = nullptr;
    int offset = 0;
    std::size_t length = 0;
    if (mdb_find_pg_row(file_, static_cast<int>(place), &page, &offset, &length) != 0) return false;
    if (!page || offset < 0 || offset + length > MDB_PGSIZE) return false;
    part = {static_cast<const char*>(page) + offset, length};
    return true;
  }

  /// Each part holds the place of the next. One that brings nothing would lead round for ever.
  void follow(std::uint32_t place) {
    while (place != 0 && content_.size() < length_) {
      std::string_view part;
      if (!find(place, part) || part.size() <= kNext) return;
      place = static_cast<std::uint32_t>(mdb_get_int32(const_cast<char*>(part.data()), 0));
      content_ += part.substr(kNext);
    }
    whole_ = content_.size() == length_;
  }

  MdbHandle* file_;
  std::uint32_t length_ = 0;
  std::string content_;
  bool whole_ = false;
};

class Reader {
 public:
  explicit Reader(MdbHandle* file) : file_(file) {}

  bool run() {
    out_.record(Record::File);
    out_.number(file_->f->jet_version, 1);
    out_.number(file_->f->code_page, 2);
    if (!mdb_read_catalog(file_, MDB_ANY)) return false;
    for (unsigned i = 0; i < file_->num_catalog; ++i)
      describe(at<MdbCatalogEntry>(file_->catalog, i));
    for (const bool system : {true, false}) {  // relations are part of what tables are
      for (std::size_t i = 0; i < tables_.size(); ++i) {
        if (isSystems(*tables_[i]->entry) == system) writeRows(i);
      }
    }
    out_.record(Record::End);
    out_.check();
    return std::fflush(stdout) == 0;
  }

 private:
  void describe(MdbCatalogEntry* entry) {
    if (entry->object_type == MDB_LINKED_TABLE) {
      out_.note(std::string("the table ") + entry->object_name + " is linked to another file");
    }
    if (entry->object_type == MDB_QUERY && entry->object_name[0] != '~') {
      out_.record(Record::Query);
      out_.text(entry->object_name);
      out_.number(entry->table_pg, 4);
    }
    if (!mdb_is_user_table(entry) && !isSystems(*entry)) return;
    Table table(mdb_read_table(entry));
    if (!table || !mdb_read_columns(table.get())) {
      out_.note(std::string("the table ") + entry->object_name + " can't be read");
      return;
    }
    mdb_read_indices(table.get());
    out_.record(Record::Table);
    out_.text(entry->object_name);
    out_.number(lastNumber(entry), 4);
    out_.number(isSystems(*entry) ? 1 : 0, 1);
    for (unsigned i = 0; i < table->num_cols; ++i) describe(*at<MdbColumn>(table->columns, i));
    for (unsigned i = 0; i < table->num_idxs; ++i)
      describe(*at<MdbIndex>(table->indices, i), *table);
    tables_.push_back(std::move(table));
  }

  static bool isSystems(const MdbCatalogEntry& entry) {
    return entry.object_type == MDB_TABLE &&
           (std::strcmp(entry.object_name, ado::jet::kRelationsTable) == 0 ||
            std::strcmp(entry.object_name, ado::jet::kQueriesTable) == 0);
  }

  /// It stands in the head of the table's first page, and the library passes over it.
  std::uint32_t lastNumber(MdbCatalogEntry* entry) {
    constexpr int kPlace = 20;
    constexpr int kOldPlace = 16;
    if (mdb_read_pg(file_, entry->table_pg) != file_->fmt->pg_size) return 0;
    return static_cast<std::uint32_t>(mdb_pg_get_int32(file_, IS_JET3(file_) ? kOldPlace : kPlace));
  }

  void describe(const MdbColumn& column) {
    out_.record(Record::Column);
    out_.text(column.name);
    out_.number(static_cast<std::uint64_t>(column.col_type), 1);
    out_.number(static_cast<std::uint64_t>(column.col_size), 4);
    // The library has the names of these two the wrong way round.
    out_.number(static_cast<std::uint64_t>(column.col_scale), 1);
    out_.number(static_cast<std::uint64_t>(column.col_prec), 1);
    out_.number(
        (column.is_long_auto ? mark::kAutonumber : 0) | (column.is_uuid_auto ? mark::kNewGuid : 0),
        1);
    const char* value = column.props ? mdb_col_get_prop(&column, "DefaultValue") : nullptr;
    out_.text(value ? value : "");
  }

  void describe(const MdbIndex& index, const MdbTableDef& table) {
    constexpr int kPrimaryKey = 1;
    constexpr int kForeignKey = 2;  // tells of a relation, which is read elsewhere
    if (index.index_type == kForeignKey) return;
    if (!isWhole(index, table)) {
      return out_.note(std::string("an index of the table ") + table.name + " can't be read");
    }
    out_.record(Record::Index);
    out_.text(index.name);
    out_.number((index.index_type == kPrimaryKey ? mark::kPrimary : 0) |
                    (index.flags & MDB_IDX_UNIQUE ? mark::kUnique : 0),
                1);
    out_.number(index.num_keys, 1);
    for (unsigned i = 0; i < index.num_keys; ++i) {
      out_.number(static_cast<std::uint64_t>(index.key_col_num[i] - 1), 2);
      out_.number(index.key_col_order[i] == MDB_DESC ? mark::kDescending : 0, 1);
    }
  }

  static bool isWhole(const MdbIndex& index, const MdbTableDef& table) {
    if (index.num_keys == 0 || index.num_keys > MDB_MAX_IDX_COLS) return false;
    for (unsigned i = 0; i < index.num_keys; ++i) {
      if (index.key_col_num[i] < 1 || index.key_col_num[i] > static_cast<int>(table.num_cols)) {
        return false;
      }
    }
    return true;
  }

  void writeRows(std::size_t number) {
    MdbTableDef* const table = tables_[number].get();
    out_.record(Record::Rows);
    out_.number(number, 4);
    damaged_ = 0;
    mdb_rewind_table(table);
    while (mdb_fetch_row(table)) {
      out_.record(Record::Row);
      for (unsigned i = 0; i < table->num_cols; ++i) writeValue(*at<MdbColumn>(table->columns, i));
      out_.check();
    }
    if (damaged_ > 0) {
      out_.note(std::to_string(damaged_) + " values of the table " + table->name + " are damaged");
    }
  }

  void writeValue(const MdbColumn& column) {
    if (column.col_type == MDB_BOOL) {  // its value is whether it is missing
      out_.number(1, 4);
      out_.number(column.cur_value_len ? 0 : 1, 1);
      return;
    }
    const int start = column.cur_value_start;
    const int length = column.cur_value_len;
    if (length == 0) return out_.null();
    if (start < 0 || length < 0 || start + length > MDB_PGSIZE) return writeDamaged();
    // A long value's pages take the place of this one.
    const char* const field = reinterpret_cast<const char*>(file_->pg_buf) + start;
    if (column.col_type != MDB_OLE && column.col_type != MDB_MEMO) {
      return out_.text({field, static_cast<std::size_t>(length)});
    }
    const LongValue value(file_, field, length);
    if (!value.isWhole()) return writeDamaged();
    out_.text(value.content());
  }

  void writeDamaged() {
    ++damaged_;
    out_.null();
  }

  MdbHandle* file_;
  Output out_;
  std::vector<Table> tables_;
  unsigned long damaged_ = 0;
};

int run(int argc, char** argv) {
  if (argc != 2 && argc != 3) {
    std::fputs(
        "usage: qvimport FILE [CODEPAGE]\n"
        "Writes the content of an Access file to standard output, for the server to read.\n",
        stderr);
    return kUsage;
  }
  // The library reads these; texts beside the rows are to be UTF-8.
  g_unsetenv("MDBOPTS");
  g_unsetenv("MDBICONV");
  g_unsetenv("MDB_JET3_CHARSET");
  if (argc == 3) g_setenv("MDB_JET3_CHARSET", argv[2], TRUE);
  const File file(mdb_open(argv[1], MDB_NOFLAGS));
  if (!file) return kUnreadable;
  return Reader(file.get()).run() ? kDone : kUnreadable;
}

}  // namespace

}  // namespace quorvane

int main(int argc, char** argv) {
  return quorvane::run(argc, argv);
}
