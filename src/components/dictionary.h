#pragma once

#include <cstdint>
#include <span>

#include "vbscript/values/value.h"

namespace quorvane {

/// What CreateObject("Scripting.Dictionary") makes.
vbs::Value createDictionary();

/// How many dictionaries this thread has made so far.
std::uint64_t dictionariesMade();

/// Empties those dictionaries among the ones made after the first `made` that nothing in `kept`
/// leads to. For the end of a run: dictionaries that hold one another would never go.
void dropCircles(std::uint64_t made, std::span<const vbs::Value> kept);

/// Whether any made after the first `made` is still there.
bool anyDictionarySince(std::uint64_t made);

}  // namespace quorvane
