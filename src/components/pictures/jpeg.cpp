#include "components/pictures/jpeg.h"

#include <algorithm>
#include <memory>

#include "components/arguments.h"
#include "components/page_context.h"
#include "components/pictures/canvas.h"
#include "components/pictures/drawing.h"
#include "components/pictures/sheet.h"
#include "components/script_files.h"
#include "platform/services.h"
#include "support/files.h"
#include "support/paths.h"

namespace quorvane::pictures {

using vbs::Args;
using vbs::CallKind;
using vbs::Value;

namespace {

class Jpeg final : public vbs::NativeObject<Jpeg> {
 public:
  explicit Jpeg(const Services& services) : services_(services) {}
  std::string_view typeName() const override { return "IASPJpeg"; }

  static std::span<const vbs::Member<Jpeg>> members() {
    using Self = Jpeg;
    static constexpr vbs::Member<Self> kMembers[] = {
        {"open", 1, 1, &Self::open},
        {"openbinary", 1, 1, &Self::openBinary},
        {"new", 2, 3, &Self::makeNew},
        {"close", 0, 0, &Self::close},
        {"save", 1, 1, &Self::save},
        {"saveunique", 1, 1, &Self::saveUnique},
        {"binary", 0, 0, &Self::binary},
        {"sendbinary", 0, 1, &Self::sendBinary},
        {"width", 0, 0, &Self::getWidth, &Self::putWidth},
        {"height", 0, 0, &Self::getHeight, &Self::putHeight},
        {"originalwidth", 0, 0, &Self::originalWidth},
        {"originalheight", 0, 0, &Self::originalHeight},
        {"preserveaspectratio", 0, 0, &Self::getKeepsAspect, &Self::putKeepsAspect},
        {"interpolation", 0, 0, &Self::getInterpolation, &Self::putInterpolation},
        {"quality", 0, 0, &Self::getQuality, &Self::putQuality},
        {"progressive", 0, 0, &Self::getProgressive, &Self::putProgressive},
        {"pngoutput", 0, 0, &Self::getPng, &Self::putPng},
        {"crop", 4, 4, &Self::crop},
        {"sharpen", 2, 2, &Self::sharpen},
        {"rotate", 1, 2, &Self::rotate},
        {"rotatel", 0, 0, &Self::rotateLeft},
        {"rotater", 0, 0, &Self::rotateRight},
        {"fliph", 0, 0, &Self::flipH},
        {"flipv", 0, 0, &Self::flipV},
        {"grayscale", 0, 1, &Self::greyScale},
        {"torgb", 0, 0, &Self::toRgb},
        {"drawimage", 3, 6, &Self::drawImage},
        {"canvas", 0, 0, &Self::canvas},
        {"expires", 0, 0, &Self::expires},
        {"version", 0, 0, &Self::version},
        {"regkey", 0, 0, &Self::getKey, &Self::putKey},
    };
    return kMembers;
  }

  Sheet& sheet() { return *sheet_; }

 private:
  Value open(Args args) {
    constexpr std::uint64_t kMostBytes = std::uint64_t{128} << 20;
    const std::string path = ScriptFiles(services_).allowedPath(args[0]);
    const auto info = services_.files.stat(path);
    if (!info || info->isFolder) fail("The picture '" + path + "' could not be found.");
    if (info->size > kMostBytes) fail("The picture '" + path + "' is too large.");
    const vbs::MemoryCharge charge(info->size);
    auto bytes = services_.files.readAll(path);
    if (!bytes) fail("The picture '" + path + "' can't be read.");
    sheet_->open(std::move(*bytes));
    return {};
  }
  Value openBinary(Args args) {
    sheet_->open(std::string(arguments::bytes(args[0])));
    return {};
  }
  Value makeNew(Args args) {
    sheet_->make(vbs::toLong(args[0]), vbs::toLong(args[1]),
                 colourOf(arguments::number(args, 2, 0xFFFFFF)));
    return {};
  }
  Value close(Args) {
    sheet_->close();
    return {};
  }

  std::string encoded() {
    picture_tools::FileForm form;
    form.type = png_ ? picture_tools::FileType::Png : picture_tools::FileType::Jpeg;
    form.quality = quality_;
    form.progressive = progressive_;
    const RgbPicture& picture = sheet_->pixels();
    vbs::countWork(picture.pixels.size());
    auto bytes = library().encoded(picture, form);
    if (!bytes) fail("The picture can't be written.");
    return std::move(*bytes);
  }

  void write(const std::string& path) {
    if (!services_.files.writeAll(path, encoded())) {
      fail("The file '" + path + "' can't be written.");
    }
  }
  Value save(Args args) {
    write(ScriptFiles(services_).allowedPath(args[0]));
    return {};
  }
  /// Under the name given or one like it that is free; which, is the answer.
  Value saveUnique(Args args) {
    constexpr int kMostTries = 10'000;
    const std::string wanted = ScriptFiles(services_).allowedPath(args[0]);
    const std::string end(paths::extensionOf(wanted));
    std::string path = wanted;
    for (int i = 1; services_.files.stat(path); ++i) {
      if (i > kMostTries) fail("The file '" + wanted + "' is there in too many forms.");
      path = wanted.substr(0, wanted.size() - end.size()) + '(' + std::to_string(i) + ')' + end;
    }
    write(path);
    return Value(paths::fileNameOf(path));
  }
  Value binary(Args) { return Value::array(vbs::ArrayRep::fromBytes(encoded())); }
  Value sendBinary(Args) {
    const std::string bytes = encoded();
    if (services_.page) services_.page->write(bytes);
    return {};
  }

  Value getWidth(Args) { return Value::longInt(sheet_->size().width); }
  void putWidth(Args args, CallKind) { sheet_->setWidth(vbs::toLong(args[0])); }
  Value getHeight(Args) { return Value::longInt(sheet_->size().height); }
  void putHeight(Args args, CallKind) { sheet_->setHeight(vbs::toLong(args[0])); }
  Value originalWidth(Args) { return Value::longInt(sheet_->original().width); }
  Value originalHeight(Args) { return Value::longInt(sheet_->original().height); }
  Value getKeepsAspect(Args) { return Value::boolean(sheet_->keepsAspect); }
  void putKeepsAspect(Args args, CallKind) { sheet_->keepsAspect = vbs::toBoolean(args[0]); }
  Value getInterpolation(Args) { return Value::longInt(sheet_->interpolation); }
  void putInterpolation(Args args, CallKind) {
    sheet_->interpolation = std::max(vbs::toLong(args[0]), 0);
  }
  Value getQuality(Args) { return Value::longInt(quality_); }
  void putQuality(Args args, CallKind) {
    const std::int32_t quality = vbs::toLong(args[0]);
    if (quality < 0 || quality > 100) fail("The quality is a number from 0 to 100.");
    quality_ = quality;
  }
  Value getProgressive(Args) { return Value::boolean(progressive_); }
  void putProgressive(Args args, CallKind) { progressive_ = vbs::toBoolean(args[0]); }
  Value getPng(Args) { return Value::boolean(png_); }
  void putPng(Args args, CallKind) { png_ = vbs::toBoolean(args[0]); }

  Value crop(Args args) {
    const RgbPicture& picture = sheet_->pixels();
    const Box box{std::max(vbs::toLong(args[0]), 0), std::max(vbs::toLong(args[1]), 0),
                  std::min(vbs::toLong(args[2]), picture.width),
                  std::min(vbs::toLong(args[3]), picture.height)};
    if (box.isEmpty()) fail("Nothing of the picture lies within these coordinates.");
    sheet_->replace(cropped(picture, box));
    return {};
  }
  Value sharpen(Args args) {
    const RgbPicture& picture = sheet_->pixels();
    vbs::countWork(picture.pixels.size() * 4);
    sheet_->replace(library().sharpened(picture, vbs::toDouble(args[0]), vbs::toDouble(args[1])));
    return {};
  }
  Value rotate(Args args) {
    const RgbPicture& picture = sheet_->pixels();
    vbs::countWork(picture.pixels.size() * 4);
    sheet_->replace(library().turned(picture, vbs::toDouble(args[0]),
                                     colourOf(arguments::number(args, 1, 0xFFFFFF))));
    return {};
  }
  Value rotateLeft(Args) {
    sheet_->replace(turnedLeft(sheet_->pixels()));
    return {};
  }
  Value rotateRight(Args) {
    sheet_->replace(turnedRight(sheet_->pixels()));
    return {};
  }
  Value flipH(Args) {
    flipAcross(sheet_->pixels());
    return {};
  }
  Value flipV(Args) {
    flipDown(sheet_->pixels());
    return {};
  }
  Value greyScale(Args) {
    makeGrey(sheet_->pixels());
    return {};
  }
  Value toRgb(Args) {
    sheet_->size();  // there has to be a picture
    return {};
  }
  Value drawImage(Args args) { return drawPicture(*sheet_, args); }
  Value canvas(Args) { return Value::object(canvas_.get()); }

  Value expires(Args) {
    constexpr double kLastDay = 2958352;  // 9 September 9999, as of a component without an end
    return Value::date(kLastDay);
  }
  Value version(Args) { return Value("2.9.0.0"); }
  Value getKey(Args) { return Value(key_); }
  void putKey(Args args, CallKind) { key_ = vbs::toString(args[0]); }

  const Services& services_;
  std::shared_ptr<Sheet> sheet_ = std::make_shared<Sheet>();
  vbs::Ref<Canvas> canvas_ = vbs::make<Canvas>(sheet_);
  std::int32_t quality_ = 80;
  bool progressive_ = false;
  bool png_ = false;
  vbs::String key_;
};

}  // namespace

Sheet& sheetOf(const Value& value) {
  const Value& plain = value.deref();
  auto* jpeg = plain.isObject() ? dynamic_cast<Jpeg*>(plain.asObject()) : nullptr;
  if (!jpeg) vbs::throwError(vbs::ErrorCode::TypeMismatch);
  return jpeg->sheet();
}

}  // namespace quorvane::pictures

namespace quorvane {

const Component kJpeg{
    "persits.jpeg",
    [](const Services& services) { return vbs::Value::adopt(new pictures::Jpeg(services)); },
    /*isOurs=*/true};

}  // namespace quorvane
