#pragma once

#include "components/pictures/sheet.h"
#include "vbscript/values/value.h"

namespace quorvane::pictures {

inline std::uint32_t colourOf(std::int32_t number) {
  return static_cast<std::uint32_t>(number) & 0xFFFFFF;
}

/// DrawImage X, Y, Image [, Opacity [, TransparentColor [, Deviation]]].
vbs::Value drawPicture(Sheet& sheet, vbs::Args args);

}  // namespace quorvane::pictures
