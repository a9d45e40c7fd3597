#pragma once

#include <duktape.h>

#include <string>
#include <string_view>

namespace quorvane::jscript {

/// The text that stands at `index` in the form of the heap; empty for what is no text.
std::string_view textAt(duk_context* context, duk_idx_t index);

/// UTF-16 units as the heap holds them, each for itself, and back.
std::string encoded(std::u16string_view units);
std::u16string decoded(std::string_view bytes);

/// Whether both forms have the same bytes.
bool isAscii(std::string_view bytes);

}  // namespace quorvane::jscript
