#pragma once

#include <array>
#include <cstddef>

#include "vbscript/values/object.h"

namespace quorvane {

/// The members of one kind of object: those that it shares with other kinds, then its own.
template <class Self, std::size_t Shared, std::size_t Own>
constexpr auto joinedMembers(const std::array<vbs::Member<Self>, Shared>& shared,
                             const vbs::Member<Self> (&own)[Own]) {
  std::array<vbs::Member<Self>, Shared + Own> all{};
  for (std::size_t i = 0; i < Shared; ++i) all[i] = shared[i];
  for (std::size_t i = 0; i < Own; ++i) all[Shared + i] = own[i];
  return all;
}

}  // namespace quorvane
