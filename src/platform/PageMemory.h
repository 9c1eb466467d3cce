// SPDX-License-Identifier: MIT
//
// PageMemory: address space from the system, filled with memory as it is needed.
//
// Reserved bytes cost nothing until they are committed. Committing brings the pages in by one call,
// which costs a third less than touching them one by one; whole large pages cost a third of that
// again. Each machine has its own.
#pragma once

#include <cstddef>

namespace scenara {

inline constexpr std::size_t kSmallPage = std::size_t{4} << 10U;
inline constexpr std::size_t kLargePage = std::size_t{2} << 20U;

// `bytes` (a multiple of kLargePage) at an address that is a multiple of kLargePage. Raises
// RunTimeError "Out of memory".
[[nodiscard]] std::byte* ReservePages(std::size_t bytes);

// Asks for large pages where `bytes` from `start` on are committed later; both are multiples of
// kLargePage. A wish: small pages serve as well.
void PreferLargePages(std::byte* start, std::size_t bytes);

// Makes sure that `bytes` from `start` on are there; both are multiples of kSmallPage. Raises
// RunTimeError "Out of memory" when they cannot be had. On any thread, several at the same time.
void CommitPages(std::byte* start, std::size_t bytes);

void ReleasePages(std::byte* start, std::size_t bytes);

}  // namespace scenara
