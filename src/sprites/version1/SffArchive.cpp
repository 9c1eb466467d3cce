// SPDX-License-Identifier: MIT
#include "sprites/version1/SffArchive.h"

#include <array>
#include <span>

#include "base/ByteReader.h"

namespace scenara {
namespace {

constexpr std::size_t kFileHeaderSize = 28;

Subfile ParseSubfile(std::span<const std::byte> bytes, std::uint32_t position) {
    ByteReader reader(bytes, "subfile header");
    Subfile subfile;
    subfile.position = position;
    subfile.next = reader.U32();
    subfile.length = reader.I32();
    subfile.axisX = reader.I16();
    subfile.axisY = reader.I16();
    subfile.group = reader.I16();
    subfile.image = reader.I16();
    subfile.link = reader.I16();
    subfile.samePalette = reader.U8() != 0;
    return subfile;
}

}  // namespace

SffHeader ReadSffHeader(InputFile& archive) {
    std::array<std::byte, kFileHeaderSize> bytes{};
    const std::size_t count = archive.ReadAt(0, bytes);
    ByteReader reader(std::span<const std::byte>(bytes).first(count), "archive header");
    SffHeader header;
    reader.Skip(20);
    header.imageCount = reader.U32();
    header.firstSubfile = reader.U32();
    return header;
}

SubfileChain::SubfileChain(InputFile& archive, const SffHeader& header)
    : archive_(archive),
      imageCount_(header.imageCount),
      nextPosition_(header.firstSubfile),
      use_(archive.Size()) {}

std::string SubfileChain::BreakText(std::size_t before, std::uint32_t position,
                                    std::string_view reason) const {
    return "Subfile " + std::to_string(before + 1) + " of " + std::to_string(imageCount_) + " at " +
           std::to_string(position) + ": " + std::string(reason);
}

bool SubfileChain::Break(std::string_view reason) {
    broken_ = BreakText(seen_, nextPosition_, reason);
    return false;
}

bool SubfileChain::Next() {
    if (seen_ >= imageCount_ || broken_) {
        return false;
    }
    if (nextPosition_ < kFileHeaderSize) {
        return Break("the chain ends there.");  // 0 is how the last subfile says that it is
    }
    std::array<std::byte, kSubfileHeaderSize> bytes{};
    const std::size_t count = archive_.ReadAt(nextPosition_, bytes);
    if (count < bytes.size()) {
        return Break("the file ends there.");
    }
    if (!visited_.insert(nextPosition_).second) {
        return Break("it was read before, the chain goes round.");
    }
    use_.CountShown(bytes.size());
    if (use_.IsTooMuch()) {
        return Break(kSubfilesOverlap);
    }
    subfile_ = ParseSubfile(bytes, nextPosition_);
    nextPosition_ = subfile_.next;
    ++seen_;
    return true;
}

}  // namespace scenara
