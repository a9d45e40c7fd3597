#include "components/pictures/sheet.h"

#include <algorithm>
#include <cmath>

#include "components/component_error.h"
#include "components/pictures/pixel_work.h"
#include "vbscript/values/time_check.h"

namespace quorvane::pictures {

using picture_tools::Scaling;
using picture_tools::Size;

namespace {

std::size_t bytesOf(Size size) {
  return static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height) * 3;
}

Scaling scalingOf(int interpolation) {
  switch (interpolation) {
    case 0:
      return Scaling::Nearest;
    case 1:
      return Scaling::Linear;
    case 2:
      return Scaling::Cubic;
    default:
      return Scaling::Best;
  }
}

/// The side that keeps a picture's shape.
int following(int side, int of, int from) {
  return static_cast<int>(std::clamp(std::round(static_cast<double>(side) * of / from), 1.0, 1e6));
}

}  // namespace

void fail(std::string_view text) {
  constexpr std::int32_t kFailed = -2147467259;
  throwComponentError(kFailed, text, "Persits.Jpeg");
}

const picture_tools::Library& library() {
  const picture_tools::Loaded& pictures = picture_tools::load();
  if (!pictures.library) fail("Pictures can't be worked on here: " + pictures.complaint);
  return *pictures.library;
}

void Sheet::requireOpen() const {
  if (!isOpen_) fail("No picture is open.");
}

void Sheet::open(std::string file) {
  close();
  charge_.change(file.size());
  const auto size = library().sizeOf(file);
  if (!size) fail("This is no picture that can be read: its kind is unknown, or it is broken.");
  file_ = std::move(file);
  original_ = size_ = *size;
  isOpen_ = true;
}

void Sheet::make(int width, int height, std::uint32_t colour) {
  close();
  if (!picture_tools::isAllowed({width, height})) fail("A picture can't be of that size.");
  charge_.change(bytesOf({width, height}));
  picture_ = plain(width, height, colour);
  original_ = size_ = {width, height};
  isOpen_ = true;
}

void Sheet::close() {
  isOpen_ = false;
  file_ = std::string();
  picture_.reset();
  charge_.change(0);
}

Size Sheet::original() const {
  requireOpen();
  return original_;
}

Size Sheet::size() const {
  requireOpen();
  return size_;
}

Size Sheet::present() const {
  return picture_ ? Size{picture_->width, picture_->height} : original_;
}

void Sheet::setWidth(int width) {
  requireOpen();
  if (width < 1) fail("A picture can't be of that size.");
  size_.width = width;
  if (keepsAspect) size_.height = following(width, present().height, present().width);
}

void Sheet::setHeight(int height) {
  requireOpen();
  if (height < 1) fail("A picture can't be of that size.");
  size_.height = height;
  if (keepsAspect) size_.width = following(height, present().width, present().height);
}

RgbPicture& Sheet::pixels() {
  requireOpen();
  if (picture_ && present() == size_) return *picture_;
  if (!picture_tools::isAllowed(size_)) fail("A picture can't be of that size.");
  vbs::MemoryCharge coming(bytesOf(size_));
  std::optional<RgbPicture> result;
  if (!picture_) {
    vbs::countWork(bytesOf(original_));
    const bool smaller = size_.width < original_.width && size_.height < original_.height;
    if (size_ == original_) {
      result = library().decoded(file_, std::nullopt);
    } else if (smaller && interpolation != 0) {
      result = library().decoded(file_, size_);
    } else {
      coming.change(bytesOf(size_) + bytesOf(original_));
      result = library().decoded(file_, std::nullopt);
      if (result) result = library().resized(*result, size_, scalingOf(interpolation));
    }
  } else {
    vbs::countWork(picture_->pixels.size());
    result = library().resized(*picture_, size_, scalingOf(interpolation));
  }
  if (!result) fail("The picture is broken, or too large.");
  take(std::move(*result));
  return *picture_;
}

void Sheet::replace(std::optional<RgbPicture> picture) {
  if (!picture) fail("The picture is too large for this.");
  take(std::move(*picture));
}

void Sheet::take(RgbPicture picture) {
  file_ = std::string();
  charge_.change(picture.pixels.size());
  size_ = {picture.width, picture.height};
  picture_ = std::move(picture);
}

}  // namespace quorvane::pictures
