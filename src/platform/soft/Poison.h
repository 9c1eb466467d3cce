// SPDX-License-Identifier: MIT
//
// In builds with the address sanitizer, memory of an arena that belongs to nobody is marked, so
// that a write past one texture into the next is found as it would be on the heap. Nothing else
// otherwise.
#pragma once

#include <cstddef>

#if defined(__SANITIZE_ADDRESS__)
#define SCENARA_HAS_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define SCENARA_HAS_ASAN 1
#endif
#endif

#ifdef SCENARA_HAS_ASAN
#include <sanitizer/asan_interface.h>
#endif

namespace scenara {

inline void Poison([[maybe_unused]] const std::byte* start, [[maybe_unused]] std::size_t bytes) {
#ifdef SCENARA_HAS_ASAN
    __asan_poison_memory_region(start, bytes);
#endif
}

inline void Unpoison([[maybe_unused]] const std::byte* start, [[maybe_unused]] std::size_t bytes) {
#ifdef SCENARA_HAS_ASAN
    __asan_unpoison_memory_region(start, bytes);
#endif
}

}  // namespace scenara
