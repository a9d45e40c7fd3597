#pragma once

#include "components/component.h"

namespace quorvane {

/// Persits.Jpeg.
extern const Component kJpeg;

namespace pictures {

class Sheet;

/// The picture of such an object. Error 13 for anything else.
Sheet& sheetOf(const vbs::Value& value);

}  // namespace pictures

}  // namespace quorvane
