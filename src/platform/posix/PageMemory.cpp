// SPDX-License-Identifier: MIT
#include "platform/PageMemory.h"

#include <bit>
#include <cerrno>
#include <cstdint>

#include <sys/mman.h>

#include "base/RunTimeError.h"

namespace scenara {
namespace {

// Since Linux 5.14; the C library's headers learn of it later than the kernel.
#ifndef MADV_POPULATE_WRITE
constexpr int MADV_POPULATE_WRITE = 23;
#endif

}  // namespace

std::byte* ReservePages(std::size_t bytes) {
    // One large page more than asked for leaves room to cut to a multiple of it.
    const std::size_t reserved = bytes + kLargePage;
    void* const raw =
        ::mmap(nullptr, reserved, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (raw == MAP_FAILED) {
        throw RunTimeError(RunTimeErrorKind::OutOfMemory);
    }
    auto* const first = static_cast<std::byte*>(raw);
    const std::size_t before =
        (kLargePage - std::bit_cast<std::uintptr_t>(first) % kLargePage) % kLargePage;
    if (before > 0) {
        ::munmap(first, before);
    }
    ::munmap(first + before + bytes, kLargePage - before);
    // Where the system hands out large pages by itself, a small stage would get one for its first
    // byte; PreferLargePages asks for them where they fit.
    ::madvise(first + before, bytes, MADV_NOHUGEPAGE);
    return first + before;
}

void PreferLargePages(std::byte* start, std::size_t bytes) {
    ::madvise(start, bytes, MADV_HUGEPAGE);
}

void CommitPages(std::byte* start, std::size_t bytes) {
    // A kernel that does not know the call brings the pages in at their first use.
    if (::madvise(start, bytes, MADV_POPULATE_WRITE) != 0 && (errno == ENOMEM || errno == EFAULT)) {
        throw RunTimeError(RunTimeErrorKind::OutOfMemory);
    }
}

void ReleasePages(std::byte* start, std::size_t bytes) {
    ::munmap(start, bytes);
}

}  // namespace scenara
