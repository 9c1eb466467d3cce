// SPDX-License-Identifier: MIT
#include "sprites/SffArchive.h"

#include <span>

#include "base/ByteReader.h"
#include "base/RunTimeError.h"

namespace scenara {
namespace {

constexpr std::size_t kFileHeaderSize = 28;

// How often the bytes of a file may be used. Shown pictures need each byte once, and a damaged one
// may take its neighbour's; pictures that fail may each have been read to the end of the file.
constexpr std::uint64_t kMostShown = 2;
constexpr std::uint64_t kMostLost = 8;

SubfileHeader ParseSubfile(std::span<const std::byte> bytes) {
    ByteReader reader(bytes, "subfile header");
    SubfileHeader header;
    header.next = reader.U32();
    header.length = reader.I32();
    header.axisX = reader.I16();
    header.axisY = reader.I16();
    header.group = reader.I16();
    header.image = reader.I16();
    header.link = reader.I16();
    header.samePalette = reader.U8() != 0;
    return header;
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

SubfileChain::SubfileChain(InputFile& archive, const SffHeader& header)
    : archive_(archive), imageCount_(header.imageCount), nextPosition_(header.firstSubfile) {}

bool SubfileChain::Break(const std::string& reason) {
    broken_ = "Subfile " + std::to_string(seen_ + 1) + " of " + std::to_string(imageCount_) +
              " at " + std::to_string(nextPosition_) + ": " + reason;
    return false;
}

bool SubfileChain::IsOverused() const {
    return shownBytes_ / kMostShown > archive_.Size() || lostBytes_ / kMostLost > archive_.Size();
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
    shownBytes_ += bytes.size();
    if (IsOverused()) {
        return Break("the subfiles lie over each other.");
    }
    subfile_ = ParseSubfile(bytes);
    position_ = nextPosition_;
    nextPosition_ = subfile_.next;
    ++seen_;
    return true;
}

}  // namespace scenara
