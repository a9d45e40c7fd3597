#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace quorvane {

class Files;

/// zlib behind a handful of operations. Data is bytes in a string; a "byte array" and a "string"
/// are the same here, and the two families of names both exist because callers use both.
/// Nothing fails loudly: a failed operation returns false and leaves the data alone.
class clsZipString {
 public:
  /// The `Mode` that every caller passes: zlib's window bits for the gzip format.
  static constexpr std::int32_t kGzip = 31;

  /// What unpacks to more than this is refused: a few megabytes can unpack to a thousand times
  /// their size.
  static constexpr std::size_t kMostUnpacked = std::size_t{256} << 20;

  enum Action : std::int32_t { None = 0, Compress = 1, Uncompress = 2 };

  /// `files` outlives the object.
  explicit clsZipString(const Files& files) : files_(files) {}

  static std::uint32_t GetAdler32(const std::string& Data);
  static std::uint32_t GetCRC32(const std::string& Data);

  /// False for empty data.
  static bool CompressStringB(std::string& Data, std::int32_t Mode);
  static bool CompressString(std::string& Data, std::int32_t Mode) {
    return CompressStringB(Data, Mode);
  }

  /// False for empty data, a damaged or truncated stream, more than `mostUnpacked` bytes, and, in
  /// the gzip format, for content whose length is a multiple of 65,536: the first size tried is
  /// the low half of the trailer's length, and a size of 0 is not tried at all.
  static bool UncompressStringB(std::string& Data, std::int32_t Mode,
                                std::size_t mostUnpacked = kMostUnpacked);
  static bool UncompressString(std::string& Data, std::int32_t Mode) {
    return UncompressStringB(Data, Mode);
  }

  /// The file's bytes after `zipAction`, or as they are when that fails. Empty when the file is
  /// missing, unreadable or empty.
  std::string LoadFileB(const std::string& path2File, std::int32_t zipAction = None,
                        std::int32_t Mode = 0) const;
  std::string LoadFile(const std::string& path2File, std::int32_t zipAction = None,
                       std::int32_t Mode = 0) const {
    return LoadFileB(path2File, zipAction, Mode);
  }

  /// Replaces the file by `sData` after `zipAction`, which changes the caller's data too.
  bool SaveFileB(const std::string& path2File, std::string& sData, std::int32_t zipAction = None,
                 std::int32_t Mode = 0) const;
  bool SaveFile(const std::string& path2File, std::string sData, std::int32_t zipAction = None,
                std::int32_t Mode = 0) const {
    return SaveFileB(path2File, sData, zipAction, Mode);
  }

 private:
  const Files& files_;
};

}  // namespace quorvane
