#pragma once

#include <cstdint>

/// What qvimport says of an Access file: a program of its own reads those files, because damaged
/// ones hang or crash the library that does it. Each record is a letter and its fields. Numbers
/// have their lowest byte first, texts are UTF-8 behind their length in four bytes.
///
/// All tables come first, each with its columns and indexes behind it, and the names of saved
/// queries; then the rows of each table, those of the system's first. Only a stream that ends with
/// End is whole.
namespace quorvane::ado::jet {

enum class Record : char {
  File = 'F',    ///< kind (1 byte), the file's code page (2)
  Table = 'T',   ///< name, the last number of its autonumber column (4), 1 if it is a system's (1)
  Column = 'C',  ///< name, type (1), bytes (4), digits (1), places (1), marks (1), default value
  Index =
      'I',  ///< name, marks (1), count of columns (1); for each its number from 0 (2), marks (1)
  Query = 'Q',  ///< name, the number that its pieces have (4)
  Rows = 'B',   ///< the number of the table from 0 (4)
  Row = 'R',    ///< each column's bytes as the file holds them behind their length (4)
  Note = 'N',   ///< a text for the operator
  End = 'E',
};

/// In place of a length.
inline constexpr std::uint32_t kNull = 0xFFFFFFFF;

namespace mark {
inline constexpr std::uint8_t kAutonumber = 1;  ///< of columns
inline constexpr std::uint8_t kNewGuid = 2;
inline constexpr std::uint8_t kPrimary = 1;  ///< of indexes
inline constexpr std::uint8_t kUnique = 2;
inline constexpr std::uint8_t kDescending = 1;  ///< of an index's columns
}  // namespace mark

/// Types of columns, as the file numbers them.
enum class ColumnType : std::uint8_t {
  Boolean = 1,  ///< one byte, 0 or 1; what this program makes of the file's own mark
  Byte = 2,
  Short = 3,
  Long = 4,
  Currency = 5,  ///< ten-thousandths
  Single = 6,
  Double = 7,
  Date = 8,  ///< days and a fraction
  Binary = 9,
  Text = 10,
  Ole = 11,   ///< bytes of any length, whole
  Memo = 12,  ///< text of any length, whole
  Guid = 15,
  Numeric = 16,  ///< a sign, then sixteen bytes of digits
  Complex = 18,  ///< rows of a table that can't be seen: attachments and lists
  Large = 19,    ///< eight bytes
};

/// Tables of the system that are told as well.
inline constexpr const char* kRelationsTable = "MSysRelationships";
inline constexpr const char* kQueriesTable = "MSysQueries";

}  // namespace quorvane::ado::jet
