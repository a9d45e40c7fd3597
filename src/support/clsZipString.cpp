#include "support/clsZipString.h"

#include <zlib.h>

#include <algorithm>
#include <limits>

#include "support/files.h"

namespace quorvane {

namespace {

/// zlib counts input and output in unsigned ints; larger data is handed over in pieces.
constexpr std::size_t kMostPerCall = std::size_t{1} << 30;

const Bytef* bytesOf(const std::string& data) {
  return reinterpret_cast<const Bytef*>(data.data());
}

using Checksum = uLong (*)(uLong, const Bytef*, uInt);

std::uint32_t checksumOf(const std::string& data, Checksum step) {
  uLong sum = step(0, nullptr, 0);
  for (std::size_t at = 0; at < data.size(); at += kMostPerCall) {
    const std::size_t count = std::min(kMostPerCall, data.size() - at);
    sum = step(sum, bytesOf(data) + at, static_cast<uInt>(count));
  }
  return static_cast<std::uint32_t>(sum);
}

/// Gives a stream the input in pieces that it can count.
class InputFeed {
 public:
  InputFeed(z_stream& stream, const std::string& data) : stream_(stream), left_(data.size()) {
    stream_.next_in = const_cast<Bytef*>(bytesOf(data));
  }
  void refill() {
    if (stream_.avail_in != 0) return;
    const std::size_t count = std::min(kMostPerCall, left_);
    stream_.avail_in = static_cast<uInt>(count);
    left_ -= count;
  }
  bool isLast() const { return left_ == 0; }

 private:
  z_stream& stream_;
  std::size_t left_;
};

/// Makes room behind the `used` bytes of `out` and points the stream there.
void offerRoom(z_stream& stream, std::string& out, std::size_t used, std::size_t room) {
  out.resize(used + std::min(room, kMostPerCall));
  stream.next_out = reinterpret_cast<Bytef*>(out.data()) + used;
  stream.avail_out = static_cast<uInt>(out.size() - used);
}

bool deflateAll(z_stream& stream, const std::string& data, std::string& out) {
  InputFeed feed(stream, data);
  std::size_t used = 0;
  for (;;) {
    feed.refill();
    offerRoom(stream, out, used, deflateBound(&stream, stream.avail_in) + 1);
    const std::size_t offered = stream.avail_out;
    const int status = deflate(&stream, feed.isLast() ? Z_FINISH : Z_NO_FLUSH);
    used += offered - stream.avail_out;
    if (status == Z_STREAM_END) break;
    if (status != Z_OK && status != Z_BUF_ERROR) return false;
  }
  out.resize(used);
  return true;
}

bool inflateAll(z_stream& stream, const std::string& data, std::size_t firstSize, std::size_t most,
                std::string& out) {
  InputFeed feed(stream, data);
  std::size_t used = 0;
  std::size_t room = firstSize;
  for (;;) {
    feed.refill();
    offerRoom(stream, out, used, std::min(room, most - used));
    const std::size_t offered = stream.avail_out;
    const int status = inflate(&stream, Z_NO_FLUSH);
    used += offered - stream.avail_out;
    if (status == Z_STREAM_END) break;
    const bool starved = stream.avail_out != 0 && stream.avail_in == 0 && feed.isLast();
    if ((status != Z_OK && status != Z_BUF_ERROR) || starved || used >= most) return false;
    room = std::max(data.size(), used);
  }
  out.resize(used);
  return true;
}

/// The size tried first when unpacking. Of the gzip trailer only the low half of the length is
/// read, which is why content of a multiple of 65,536 bytes has no size to start from.
std::size_t firstUnpackedSize(const std::string& data, std::int32_t mode) {
  if (mode != clsZipString::kGzip) {
    return std::min(data.size(), std::numeric_limits<std::size_t>::max() / 3) * 3;
  }
  if (data.size() < 4) return 0;
  const auto low = static_cast<unsigned char>(data[data.size() - 4]);
  const auto high = static_cast<unsigned char>(data[data.size() - 3]);
  return low + std::size_t{256} * high;
}

}  // namespace

std::uint32_t clsZipString::GetAdler32(const std::string& Data) {
  return checksumOf(Data, adler32);
}

std::uint32_t clsZipString::GetCRC32(const std::string& Data) {
  return checksumOf(Data, crc32);
}

bool clsZipString::CompressStringB(std::string& Data, std::int32_t Mode) {
  if (Data.empty()) return false;
  z_stream stream{};
  if (deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, Mode, 8, Z_DEFAULT_STRATEGY) !=
      Z_OK) {
    return false;
  }
  std::string packed;
  const bool done = deflateAll(stream, Data, packed);
  deflateEnd(&stream);
  if (done) Data = std::move(packed);
  return done;
}

bool clsZipString::UncompressStringB(std::string& Data, std::int32_t Mode,
                                     std::size_t mostUnpacked) {
  if (Data.empty()) return false;
  const std::size_t firstSize = firstUnpackedSize(Data, Mode);
  if (firstSize == 0 || mostUnpacked == 0) return false;
  z_stream stream{};
  if (inflateInit2(&stream, Mode) != Z_OK) return false;
  std::string unpacked;
  const bool done = inflateAll(stream, Data, firstSize, mostUnpacked, unpacked);
  inflateEnd(&stream);
  if (done) Data = std::move(unpacked);
  return done;
}

std::string clsZipString::LoadFileB(const std::string& path2File, std::int32_t zipAction,
                                    std::int32_t Mode) const {
  std::string data = files_.readAll(path2File).value_or("");
  if (zipAction == Compress) {
    CompressStringB(data, Mode);
  } else if (zipAction != None) {
    UncompressStringB(data, Mode);
  }
  return data;
}

bool clsZipString::SaveFileB(const std::string& path2File, std::string& sData,
                             std::int32_t zipAction, std::int32_t Mode) const {
  files_.remove(path2File);
  if (zipAction == Compress) {
    CompressStringB(sData, Mode);
  } else if (zipAction != None) {
    UncompressStringB(sData, Mode);
  }
  return files_.writeAll(path2File, sData);
}

}  // namespace quorvane
