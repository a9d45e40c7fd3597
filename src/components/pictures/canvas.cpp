#include "components/pictures/canvas.h"

#include <algorithm>
#include <cmath>

#include "components/arguments.h"
#include "components/pictures/drawing.h"
#include "components/pictures/jpeg.h"
#include "support/text.h"
#include "vbscript/values/time_check.h"

namespace quorvane::pictures {

using vbs::Args;
using vbs::CallKind;
using vbs::Value;

namespace {

/// Pictures go no further, and sums of such numbers stay numbers.
int place(const Value& value) {
  constexpr double kFar = 100'000;
  return static_cast<int>(std::lround(std::clamp(vbs::toDouble(value), -kFar, kFar)));
}

Box boxOf(Args args) {
  Box box{place(args[0]), place(args[1]), place(args[2]), place(args[3])};
  if (box.left > box.right) std::swap(box.left, box.right);
  if (box.top > box.bottom) std::swap(box.top, box.bottom);
  return box;
}

Box circleBox(Args args) {
  const int radius = std::max(place(args[2]), 0);
  const int x = place(args[0]);
  const int y = place(args[1]);
  return {x - radius, y - radius, x + radius + 1, y + radius + 1};
}

}  // namespace

std::span<const vbs::Member<Pen>> Pen::members() {
  using Self = Pen;
  static constexpr vbs::Member<Self> kMembers[] = {
      {"color", 0, 0, &Self::getColour, &Self::putColour},
      {"width", 0, 0, &Self::getWidth, &Self::putWidth},
  };
  return kMembers;
}

void Pen::putColour(Args args, CallKind) {
  colour_ = colourOf(vbs::toLong(args[0]));
}

void Pen::putWidth(Args args, CallKind) {
  width_ = std::clamp(vbs::toLong(args[0]), 1, picture_tools::kMostSide);
}

std::span<const vbs::Member<Brush>> Brush::members() {
  using Self = Brush;
  static constexpr vbs::Member<Self> kMembers[] = {
      {"color", 0, 0, &Self::getColour, &Self::putColour},
      {"solid", 0, 0, &Self::getSolid, &Self::putSolid},
  };
  return kMembers;
}

void Brush::putColour(Args args, CallKind) {
  colour_ = colourOf(vbs::toLong(args[0]));
}

std::span<const vbs::Member<Font>> Font::members() {
  using Self = Font;
  static constexpr vbs::Member<Self> kMembers[] = {
      {"family", 0, 0, &Self::getFamily, &Self::putFamily},
      {"size", 0, 0, &Self::getNumber<&Self::size_>, &Self::putSize},
      {"color", 0, 0, &Self::getNumber<&Self::colour_>, &Self::putNumber<&Self::colour_>},
      {"bold", 0, 0, &Self::getFlag<&Self::bold_>, &Self::putFlag<&Self::bold_>},
      {"italic", 0, 0, &Self::getFlag<&Self::italic_>, &Self::putFlag<&Self::italic_>},
      {"underlined", 0, 0, &Self::getFlag<&Self::underlined_>, &Self::putFlag<&Self::underlined_>},
      {"bkmode", 0, 0, &Self::getGround, &Self::putGround},
      {"bkcolor", 0, 0, &Self::getNumber<&Self::ground_>, &Self::putNumber<&Self::ground_>},
      {"shadowcolor", 0, 0, &Self::getNumber<&Self::shadow_>, &Self::putNumber<&Self::shadow_>},
      {"shadowxoffset", 0, 0, &Self::getNumber<&Self::shadowX_>, &Self::putNumber<&Self::shadowX_>},
      {"shadowyoffset", 0, 0, &Self::getNumber<&Self::shadowY_>, &Self::putNumber<&Self::shadowY_>},
      {"quality", 0, 0, &Self::getNumber<&Self::quality_>, &Self::putNumber<&Self::quality_>},
      {"opacity", 0, 0, &Self::getOpacity, &Self::putOpacity},
  };
  return kMembers;
}

void Font::putSize(Args args, CallKind) {
  constexpr std::int32_t kMost = 2000;
  size_ = std::clamp(vbs::toLong(args[0]), 1, kMost);
}

void Font::putGround(Args args, CallKind) {
  opaque_ = equalsNoCase(vbs::toString(args[0]).narrow(), "opaque");
}

namespace {

/// Lines below each other, as the font spaces them.
double lineHeight(std::int32_t size) {
  constexpr double kShare = 1.2;
  return size * kShare;
}

picture_tools::TextMask maskOf(const std::string& utf8, const picture_tools::TextStyle& style) {
  const auto side = static_cast<std::size_t>(style.pixels);
  const std::size_t letters =
      std::min(utf8.size(), std::size_t{4} * picture_tools::kMostSide / side + 1);
  const vbs::MemoryCharge charge(side * side * letters);
  auto mask = library().textMask(utf8, style);
  if (!mask) fail("The text can't be drawn.");
  return std::move(*mask);
}

}  // namespace

int Font::width(const std::string& utf8) const {
  return maskOf(utf8, {family_, size_, bold_, italic_, underlined_}).advance;
}

void Font::print(RgbPicture& picture, int x, int y, const std::string& utf8) const {
  const picture_tools::TextMask mask = maskOf(utf8, {family_, size_, bold_, italic_, underlined_});
  const auto boxAt = [&](int dx, int dy) {
    const int left = x + mask.left + std::clamp(dx, -size_, size_);
    const int top = y + mask.top + std::clamp(dy, -size_, size_);
    return Box{left, top, left + mask.size.width, top + mask.size.height};
  };
  if (opaque_) {
    fill(picture, {x, y, x + mask.advance, y + static_cast<int>(lineHeight(size_))},
         {colourOf(ground_), opacity_});
  }
  if (shadowX_ != 0 || shadowY_ != 0) {
    cover(picture, boxAt(shadowX_, shadowY_), mask.covers, {colourOf(shadow_), opacity_});
  }
  cover(picture, boxAt(0, 0), mask.covers, {colourOf(colour_), opacity_});
}

std::span<const vbs::Member<Canvas>> Canvas::members() {
  using Self = Canvas;
  static constexpr vbs::Member<Self> kMembers[] = {
      {"font", 0, 0, &Self::getFont},
      {"pen", 0, 0, &Self::getPen},
      {"brush", 0, 0, &Self::getBrush},
      {"print", 3, 3, &Self::print},
      {"printtext", 3, 3, &Self::print},
      {"gettextextent", 1, 1, &Self::textExtent},
      {"line", 4, 4, &Self::line},
      {"drawline", 4, 4, &Self::line},
      {"bar", 4, 4, &Self::bar},
      {"drawbar", 4, 4, &Self::bar},
      {"ellipse", 4, 4, &Self::ellipse},
      {"drawellipse", 4, 4, &Self::ellipse},
      {"circle", 3, 3, &Self::circle},
      {"drawcircle", 3, 3, &Self::circle},
      {"arc", 5, 5, &Self::arc},
      {"drawarc", 5, 5, &Self::arc},
      {"drawimage", 3, 6, &Self::drawImage},
  };
  return kMembers;
}

Value Canvas::print(Args args) {
  font_->print(sheet_->pixels(), place(args[0]), place(args[1]), vbs::toString(args[2]).utf8());
  return {};
}

Value Canvas::textExtent(Args args) {
  return Value::longInt(font_->width(vbs::toString(args[0]).utf8()));
}

Value Canvas::line(Args args) {
  pictures::line(sheet_->pixels(), place(args[0]), place(args[1]), place(args[2]), place(args[3]),
                 pen_->width(), pen_->ink());
  return {};
}

Value Canvas::bar(Args args) {
  RgbPicture& picture = sheet_->pixels();
  const Box box = boxOf(args);
  if (brush_->fills()) fill(picture, box, brush_->ink());
  frame(picture, box, pen_->width(), pen_->ink());
  return {};
}

void Canvas::drawEllipse(const Box& box) {
  RgbPicture& picture = sheet_->pixels();
  if (brush_->fills()) fillEllipse(picture, box, brush_->ink());
  rim(picture, box, pen_->width(), pen_->ink());
}

Value Canvas::ellipse(Args args) {
  drawEllipse(boxOf(args));
  return {};
}

Value Canvas::circle(Args args) {
  drawEllipse(circleBox(args));
  return {};
}

Value Canvas::arc(Args args) {
  rim(sheet_->pixels(), circleBox(args), pen_->width(), pen_->ink(),
      {vbs::toDouble(args[3]), vbs::toDouble(args[4])});
  return {};
}

Value Canvas::drawImage(Args args) {
  return drawPicture(*sheet_, args);
}

Value drawPicture(Sheet& sheet, Args args) {
  RgbPicture& picture = sheet.pixels();
  const RgbPicture& over = sheetOf(args[2]).pixels();
  Layer layer;
  if (arguments::isGiven(args, 3)) layer.opacity = vbs::toDouble(args[3]);
  layer.hasClear = arguments::isGiven(args, 4);
  layer.clear = colourOf(arguments::number(args, 4, 0));
  layer.deviation = arguments::number(args, 5, 0);
  if (&over == &picture) {
    lay(picture, place(args[0]), place(args[1]), RgbPicture(over), layer);
  } else {
    lay(picture, place(args[0]), place(args[1]), over, layer);
  }
  return {};
}

}  // namespace quorvane::pictures
