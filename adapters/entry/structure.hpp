// Structures whose makers may know another version of them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "adapters/entry/failure.hpp"
#include "zendara/zendara.h"

namespace zendara {

// The sizes of the first versions: up to the end of their last member. What is added later stands behind it, and this
// table stays as it is.
template <typename Structure>
inline constexpr std::size_t kFirstSize = 0;

// NOLINTBEGIN(bugprone-macro-parentheses,bugprone-sizeof-expression): names of types, sizes of pointers.
#define ZENDARA_FIRST_VERSION(structure, last_member)  \
  template <>                                          \
  inline constexpr std::size_t kFirstSize<structure> = \
      offsetof(structure, last_member) + sizeof(structure::last_member)

ZENDARA_FIRST_VERSION(zendara_error, detail);
ZENDARA_FIRST_VERSION(zendara_session, Programa);
ZENDARA_FIRST_VERSION(zendara_slots, items);
ZENDARA_FIRST_VERSION(zendara_dialogs, Beep);
ZENDARA_FIRST_VERSION(zendara_pick_list, Choose);
ZENDARA_FIRST_VERSION(zendara_banner, AvisoCierre);
ZENDARA_FIRST_VERSION(zendara_listing_viewer, Visualiza);
ZENDARA_FIRST_VERSION(zendara_files, ReadRecord);
ZENDARA_FIRST_VERSION(zendara_shell, ActivateTitle);
ZENDARA_FIRST_VERSION(zendara_clock, Now);
ZENDARA_FIRST_VERSION(zendara_log, Line);
ZENDARA_FIRST_VERSION(zendara_platform, log);
ZENDARA_FIRST_VERSION(zendara_user, Listing);

#undef ZENDARA_FIRST_VERSION
// NOLINTEND(bugprone-macro-parentheses,bugprone-sizeof-expression)

// `size` comes first in all of them. It is all that may be read before it is known.
template <typename Structure>
std::size_t SizeOf(const Structure* given) {
  static_assert(offsetof(Structure, size) == 0 && kFirstSize<Structure> != 0);
  std::uint32_t size;
  std::memcpy(&size, &Needed(given, "a structure is null"), sizeof size);
  if (size < kFirstSize<Structure>) Refuse(ZENDARA_INVALID, "a structure is smaller than its first version");
  return std::min<std::size_t>(size, sizeof(Structure));
}

// What the host has filled in; the rest is zero.
template <typename Structure>
Structure CopyOf(const Structure* given) {
  Structure copy{};
  std::memcpy(&copy, given, SizeOf(given));
  return copy;
}

// Fills in what the host has room for; its `size` stays.
template <typename Structure>
zendara_result FillOut(Structure* room, const Structure& filled) noexcept {
  return Answer([&] {
    const std::size_t size = SizeOf(room);
    constexpr std::size_t kBehind = sizeof room->size;
    std::memcpy(reinterpret_cast<char*>(room) + kBehind, reinterpret_cast<const char*>(&filled) + kBehind,
                size - kBehind);
  });
}

}  // namespace zendara
