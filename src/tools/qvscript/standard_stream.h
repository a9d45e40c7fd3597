#pragma once

#include <cstdio>

#include "components/text_stream.h"

namespace quorvane::qvscript {

/// A script's stream over one of the process's own, which stays open for good.
vbs::Ref<TextStream> standardStream(std::FILE* file, TextStream::Mode mode);

}  // namespace quorvane::qvscript
