// SPDX-License-Identifier: MIT
#include "sprites/version1/SffArchive.h"

#include <algorithm>
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

std::string SffHeader::VersionText() const {
    return std::to_string(version[3]) + "." + std::to_string(version[2]) +
           std::to_string(version[1]);
}

SffHeader ReadSffHeader(InputFile& archive) {
    std::array<std::byte, kFileHeaderSize> bytes{};
    const std::size_t count = archive.ReadAt(0, bytes);
    ByteReader reader(std::span<const std::byte>(bytes).first(count), "archive header");
    SffHeader header;
    reader.Skip(12);
    for (std::uint8_t& part : header.version) {
        part = reader.U8();
    }
    reader.Skip(4);
    header.imageCount = reader.U32();
    header.firstSubfile = reader.U32();
    return header;
}

std::uint64_t Available(const InputFile& file, std::uint64_t start, std::uint64_t wanted) {
    return start < file.Size() ? std::min(wanted, file.Size() - start) : 0;
}

SubfileChain::SubfileChain(InputFile& archive, const SffHeader& header)
    : archive_(archive),
      imageCount_(header.imageCount),
      nextPosition_(header.firstSubfile),
      use_(archive.Size()) {}

bool SubfileChain::Break(const std::string& reason) {
    broken_ = "Subfile " + std::to_string(seen_ + 1) + " of " + std::to_string(imageCount_) +
              " at " + std::to_string(nextPosition_) + ": " + reason;
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
        return Break("the subfiles lie over each other.");
    }
    subfile_ = ParseSubfile(bytes, nextPosition_);
    nextPosition_ = subfile_.next;
    ++seen_;
    return true;
}

}  // namespace scenara
