#include <algorithm>
#include <array>
#include <vector>

#include "platform/windows/pictures.h"

namespace quorvane::picture_tools {

using Microsoft::WRL::ComPtr;

/// A thread that has entered another way already may use the codecs all the same.
Codecs::Codecs() : isEntered_(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_MULTITHREADED))) {
  ::CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                     IID_PPV_ARGS(factory_.GetAddressOf()));
}

Codecs::~Codecs() {
  factory_.Reset();
  if (isEntered_) ::CoUninitialize();
}

namespace {

const GUID& containerOf(Format format) {
  switch (format) {
    case Format::Jpeg:
      return GUID_ContainerFormatJpeg;
    case Format::Gif:
      return GUID_ContainerFormatGif;
    case Format::Png:
      return GUID_ContainerFormatPng;
    case Format::Bmp:
      break;
  }
  return GUID_ContainerFormatBmp;
}

/// The codecs give and take blue first; of four channels the last is left out where three are
/// wanted.
void swapColours(const char* in, int inChannels, char* out, int outChannels, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i, in += inChannels, out += outChannels) {
    out[0] = in[2];
    out[1] = in[1];
    out[2] = in[0];
    if (outChannels == 4) out[3] = in[3];
  }
}

WICPixelFormatGUID formatWith(int channels) {
  if (channels == 1) return GUID_WICPixelFormat8bppGray;
  return channels == 4 ? GUID_WICPixelFormat32bppBGRA : GUID_WICPixelFormat24bppBGR;
}

ComPtr<IWICBitmapFrameDecode> firstPicture(IWICImagingFactory* factory, std::string_view file) {
  const auto format = formatOf(file);
  ComPtr<IWICStream> stream;
  ComPtr<IWICBitmapDecoder> decoder;
  ComPtr<IWICBitmapFrameDecode> frame;
  auto* const bytes = reinterpret_cast<BYTE*>(const_cast<char*>(file.data()));  // only read
  if (!format || !factory || FAILED(factory->CreateStream(stream.GetAddressOf())) ||
      FAILED(stream->InitializeFromMemory(bytes, static_cast<DWORD>(file.size()))) ||
      FAILED(factory->CreateDecoder(containerOf(*format), &GUID_VendorMicrosoftBuiltIn,
                                    decoder.GetAddressOf())) ||
      FAILED(decoder->Initialize(stream.Get(), WICDecodeMetadataCacheOnDemand)) ||
      FAILED(decoder->GetFrame(0, frame.GetAddressOf()))) {
    return nullptr;
  }
  return frame;
}

/// Every picture is read with four channels: the one format that all others are turned into.
constexpr int kReadChannels = 4;

ComPtr<IWICBitmapSource> plain(IWICImagingFactory* factory, IWICBitmapSource* source) {
  ComPtr<IWICFormatConverter> converter;
  if (FAILED(factory->CreateFormatConverter(converter.GetAddressOf())) ||
      FAILED(converter->Initialize(source, formatWith(kReadChannels), WICBitmapDitherTypeNone,
                                   nullptr, 0, WICBitmapPaletteTypeCustom))) {
    return nullptr;
  }
  return converter;
}

/// The profile that a picture's colours are meant by, if it has one.
ComPtr<IWICColorContext> profileOf(IWICImagingFactory* factory, IWICBitmapFrameDecode* frame) {
  constexpr UINT kMost = 4;  // a picture tells of its colours in several ways at most
  std::array<ComPtr<IWICColorContext>, kMost> contexts;
  std::array<IWICColorContext*, kMost> list{};
  UINT count = 0;
  if (FAILED(frame->GetColorContexts(0, nullptr, &count)) || count == 0) return nullptr;
  for (std::size_t i = 0; i < kMost; ++i) {
    if (FAILED(factory->CreateColorContext(contexts[i].GetAddressOf()))) return nullptr;
    list[i] = contexts[i].Get();
  }
  const UINT most = std::min(count, kMost);
  if (FAILED(frame->GetColorContexts(most, list.data(), &count))) return nullptr;
  for (UINT i = 0; i < std::min(count, most); ++i) {
    WICColorContextType type = WICColorContextUninitialized;
    if (SUCCEEDED(list[i]->GetType(&type)) && type == WICColorContextProfile) return contexts[i];
  }
  return nullptr;
}

/// The picture with its colours moved to sRGB; null when it has no profile, or one that won't do.
ComPtr<IWICBitmapSource> inStandardColours(IWICImagingFactory* factory,
                                           IWICBitmapFrameDecode* frame) {
  constexpr UINT kStandardColours = 1;
  const ComPtr<IWICColorContext> profile = profileOf(factory, frame);
  ComPtr<IWICColorContext> standard;
  ComPtr<IWICColorTransform> moved;
  WICPixelFormatGUID format{};
  if (!profile || FAILED(factory->CreateColorContext(standard.GetAddressOf())) ||
      FAILED(standard->InitializeFromExifColorSpace(kStandardColours)) ||
      FAILED(factory->CreateColorTransformer(moved.GetAddressOf())) ||
      FAILED(moved->Initialize(frame, profile.Get(), standard.Get(), formatWith(kReadChannels))) ||
      FAILED(moved->GetPixelFormat(&format)) || format != formatWith(kReadChannels)) {
    return nullptr;
  }
  return moved;
}

WICRect rowsFrom(int y, int count, int width) {
  return {0, y, width, count};
}

/// So many rows are asked for at once.
constexpr int kStrip = 64;

bool copyRows(IWICBitmapSource* source, const PictureHead& head,
              const std::function<void(const char*)>& take) {
  const int channels = head.hasAlpha ? 4 : 3;
  UINT width = 0;
  UINT height = 0;
  if (FAILED(source->GetSize(&width, &height)) || static_cast<int>(width) != head.first.width ||
      static_cast<int>(height) != head.first.height) {
    return false;
  }
  const std::size_t length = std::size_t{width} * kReadChannels;
  std::vector<char> strip(length * kStrip);
  // The room around a first picture that is smaller than all of it is clear.
  std::vector<char> row(std::size_t{1} * head.size.width * channels);
  for (int y = 0; y < head.top; ++y) take(row.data());
  for (int y = 0; y < head.first.height; y += kStrip) {
    const int count = std::min(kStrip, head.first.height - y);
    const WICRect part = rowsFrom(y, count, head.first.width);
    if (FAILED(source->CopyPixels(&part, static_cast<UINT>(length), static_cast<UINT>(strip.size()),
                                  reinterpret_cast<BYTE*>(strip.data())))) {
      return false;
    }
    for (int i = 0; i < count; ++i) {
      swapColours(strip.data() + length * i, kReadChannels,
                  row.data() + std::size_t{1} * head.left * channels, channels, width);
      take(row.data());
    }
  }
  std::ranges::fill(row, '\0');
  for (int y = head.top + head.first.height; y < head.size.height; ++y) take(row.data());
  return true;
}

}  // namespace

bool readRows(std::string_view file, const PictureHead& head,
              const std::function<void(const char*)>& take) {
  const Codecs codecs;
  const auto frame = firstPicture(codecs.get(), file);
  if (!frame) return false;
  auto source = inStandardColours(codecs.get(), frame.Get());
  if (!source) source = plain(codecs.get(), frame.Get());
  return source && copyRows(source.Get(), head, take);
}

namespace {

/// A file as it is written, and the one picture in it.
class Writer {
 public:
  Writer(IWICImagingFactory* factory, Format format) {
    if (!factory || FAILED(::CreateStreamOnHGlobal(nullptr, TRUE, stream_.GetAddressOf())) ||
        FAILED(factory->CreateEncoder(containerOf(format), &GUID_VendorMicrosoftBuiltIn,
                                      encoder_.GetAddressOf())) ||
        FAILED(encoder_->Initialize(stream_.Get(), WICBitmapEncoderNoCache)) ||
        FAILED(encoder_->CreateNewFrame(frame_.GetAddressOf(), options_.GetAddressOf()))) {
      frame_.Reset();
    }
  }

  /// Codecs without the option do without it.
  void setOption(const wchar_t* name, const VARIANT& value) {
    PROPBAG2 option{};
    option.pstrName = const_cast<wchar_t*>(name);
    VARIANT copy = value;
    if (options_) options_->Write(1, &option, &copy);
  }

  IWICBitmapFrameEncode* frame() const { return frame_.Get(); }

  bool begin(Size size) {
    return frame_ && SUCCEEDED(frame_->Initialize(options_.Get())) &&
           SUCCEEDED(
               frame_->SetSize(static_cast<UINT>(size.width), static_cast<UINT>(size.height)));
  }

  bool setFormat(const GUID& wanted) {
    WICPixelFormatGUID format = wanted;
    return SUCCEEDED(frame_->SetPixelFormat(&format)) && format == wanted;
  }

  std::optional<std::string> finish() {
    HGLOBAL memory = nullptr;
    STATSTG about{};
    if (FAILED(frame_->Commit()) || FAILED(encoder_->Commit()) ||
        FAILED(stream_->Stat(&about, STATFLAG_NONAME)) ||
        FAILED(::GetHGlobalFromStream(stream_.Get(), &memory))) {
      return std::nullopt;
    }
    const auto* const bytes = static_cast<const char*>(::GlobalLock(memory));
    if (!bytes) return std::nullopt;
    std::string file(bytes, about.cbSize.QuadPart);
    ::GlobalUnlock(memory);
    return file;
  }

 private:
  ComPtr<IStream> stream_;
  ComPtr<IWICBitmapEncoder> encoder_;
  ComPtr<IPropertyBag2> options_;
  ComPtr<IWICBitmapFrameEncode> frame_;
};

std::string inCodecOrder(const Raster& picture) {
  std::string pixels = picture.pixels;
  if (picture.channels == 1) return pixels;
  const auto count = pixels.size() / static_cast<std::size_t>(picture.channels);
  swapColours(picture.pixels.data(), picture.channels, pixels.data(), picture.channels, count);
  return pixels;
}

bool writeRows(IWICBitmapFrameEncode* frame, const Raster& picture) {
  std::string pixels = inCodecOrder(picture);
  return SUCCEEDED(frame->WritePixels(
      static_cast<UINT>(picture.size.height), static_cast<UINT>(picture.rowLength()),
      static_cast<UINT>(pixels.size()), reinterpret_cast<BYTE*>(pixels.data())));
}

std::optional<std::string> written(Writer& writer, const Raster& picture) {
  if (!writer.begin(picture.size) || !writer.setFormat(formatWith(picture.channels)) ||
      !writeRows(writer.frame(), picture)) {
    return std::nullopt;
  }
  return writer.finish();
}

}  // namespace

std::optional<std::string> writeJpeg(const Raster& picture, int quality) {
  const Codecs codecs;
  Writer writer(codecs.get(), Format::Jpeg);
  VARIANT part{};
  part.vt = VT_R4;
  part.fltVal = static_cast<float>(quality) / 100;
  writer.setOption(L"ImageQuality", part);
  return written(writer, picture);
}

std::optional<std::string> writePng(const Raster& picture, bool interlaced) {
  const Codecs codecs;
  Writer writer(codecs.get(), Format::Png);
  VARIANT passes{};
  passes.vt = VT_BOOL;
  passes.boolVal = interlaced ? VARIANT_TRUE : VARIANT_FALSE;
  writer.setOption(L"InterlaceOption", passes);
  return written(writer, picture);
}

}  // namespace quorvane::picture_tools
