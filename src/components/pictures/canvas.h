#pragma once

#include <memory>
#include <string>

#include "components/pictures/pixel_work.h"
#include "components/pictures/sheet.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/object.h"

/// What is drawn on a picture, and with what.
namespace quorvane::pictures {

/// Lines and rims.
class Pen final : public vbs::NativeObject<Pen> {
 public:
  std::string_view typeName() const override { return "IAspJpegPen"; }
  static std::span<const vbs::Member<Pen>> members();

  Ink ink() const { return {colour_}; }
  int width() const { return width_; }

 private:
  vbs::Value getColour(vbs::Args) { return vbs::Value::longInt(static_cast<int>(colour_)); }
  void putColour(vbs::Args args, vbs::CallKind);
  vbs::Value getWidth(vbs::Args) { return vbs::Value::longInt(width_); }
  void putWidth(vbs::Args args, vbs::CallKind);

  std::uint32_t colour_ = 0;
  int width_ = 1;
};

/// What is inside of rims.
class Brush final : public vbs::NativeObject<Brush> {
 public:
  std::string_view typeName() const override { return "IAspJpegBrush"; }
  static std::span<const vbs::Member<Brush>> members();

  Ink ink() const { return {colour_}; }
  bool fills() const { return solid_; }

 private:
  vbs::Value getColour(vbs::Args) { return vbs::Value::longInt(static_cast<int>(colour_)); }
  void putColour(vbs::Args args, vbs::CallKind);
  vbs::Value getSolid(vbs::Args) { return vbs::Value::boolean(solid_); }
  void putSolid(vbs::Args args, vbs::CallKind) { solid_ = vbs::toBoolean(args[0]); }

  std::uint32_t colour_ = 0;
  bool solid_ = true;
};

class Font final : public vbs::NativeObject<Font> {
 public:
  std::string_view typeName() const override { return "IAspJpegFont"; }
  static std::span<const vbs::Member<Font>> members();

  /// Draws with its shadow and on its ground; (x, y) is where the letters' room begins.
  void print(RgbPicture& picture, int x, int y, const std::string& utf8) const;
  int width(const std::string& utf8) const;

 private:
  template <bool Font::*member>
  vbs::Value getFlag(vbs::Args) {
    return vbs::Value::boolean(this->*member);
  }
  template <bool Font::*member>
  void putFlag(vbs::Args args, vbs::CallKind) {
    this->*member = vbs::toBoolean(args[0]);
  }
  template <std::int32_t Font::*member>
  vbs::Value getNumber(vbs::Args) {
    return vbs::Value::longInt(this->*member);
  }
  template <std::int32_t Font::*member>
  void putNumber(vbs::Args args, vbs::CallKind) {
    this->*member = vbs::toLong(args[0]);
  }
  vbs::Value getFamily(vbs::Args) { return vbs::Value(vbs::String::fromUtf8(family_)); }
  void putFamily(vbs::Args args, vbs::CallKind) { family_ = vbs::toString(args[0]).utf8(); }
  void putSize(vbs::Args args, vbs::CallKind);
  vbs::Value getGround(vbs::Args) { return vbs::Value(opaque_ ? "Opaque" : "Transparent"); }
  void putGround(vbs::Args args, vbs::CallKind);
  vbs::Value getOpacity(vbs::Args) { return vbs::Value::number(opacity_); }
  void putOpacity(vbs::Args args, vbs::CallKind) { opacity_ = vbs::toDouble(args[0]); }

  std::string family_ = "Arial";
  std::int32_t size_ = 24;  ///< pixels
  std::int32_t colour_ = 0;
  bool bold_ = false;
  bool italic_ = false;
  bool underlined_ = false;
  bool opaque_ = false;
  std::int32_t ground_ = 0xFFFFFF;
  std::int32_t shadow_ = 0;
  std::int32_t shadowX_ = 0;
  std::int32_t shadowY_ = 0;
  std::int32_t quality_ = 1;
  double opacity_ = 1;
};

class Canvas final : public vbs::NativeObject<Canvas> {
 public:
  explicit Canvas(std::shared_ptr<Sheet> sheet) : sheet_(std::move(sheet)) {}
  std::string_view typeName() const override { return "IAspJpegCanvas"; }
  static std::span<const vbs::Member<Canvas>> members();

 private:
  vbs::Value getPen(vbs::Args) { return vbs::Value::object(pen_.get()); }
  vbs::Value getBrush(vbs::Args) { return vbs::Value::object(brush_.get()); }
  vbs::Value getFont(vbs::Args) { return vbs::Value::object(font_.get()); }
  vbs::Value print(vbs::Args args);
  vbs::Value textExtent(vbs::Args args);
  vbs::Value line(vbs::Args args);
  vbs::Value bar(vbs::Args args);
  vbs::Value ellipse(vbs::Args args);
  vbs::Value circle(vbs::Args args);
  vbs::Value arc(vbs::Args args);
  vbs::Value drawImage(vbs::Args args);

  void drawEllipse(const Box& box);

  std::shared_ptr<Sheet> sheet_;
  vbs::Ref<Pen> pen_ = vbs::make<Pen>();
  vbs::Ref<Brush> brush_ = vbs::make<Brush>();
  vbs::Ref<Font> font_ = vbs::make<Font>();
};

}  // namespace quorvane::pictures
