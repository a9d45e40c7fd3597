#pragma once

#include "components/component.h"

namespace quorvane {

/// The objects by which pages take the files of a form: Persits.Upload, SoftArtisans.FileUp and
/// aspSmartUpload.SmartUpload.
extern const Component kUpload;
extern const Component kFileUp;
extern const Component kSmartUpload;

}  // namespace quorvane
