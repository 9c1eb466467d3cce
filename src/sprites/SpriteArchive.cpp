// SPDX-License-Identifier: MIT
#include "sprites/SpriteArchive.h"

#include <algorithm>
#include <span>
#include <thread>

#include "base/ByteReader.h"
#include "sprites/version1/SffWalk.h"
#include "sprites/version2/Sff2Archive.h"

namespace scenara {
namespace {

constexpr std::size_t kSignatureSize = 12;

// What a header has at least, of either version.
constexpr std::size_t kLeastHeader = 28;

// More than these the disk and the memory do not feed.
constexpr unsigned kMostHelpers = 7;

}  // namespace

std::string ArchiveVersion::Text() const {
    return std::to_string(parts[3]) + "." + std::to_string(parts[2]) + std::to_string(parts[1]);
}

ArchiveVersion ReadArchiveVersion(InputFile& archive) {
    ArchiveVersion version;
    std::array<std::byte, kLeastHeader> bytes{};
    const std::size_t count = archive.ReadAt(0, bytes);
    ByteReader reader(std::span<const std::byte>(bytes).first(count), "archive header");
    reader.Skip(kSignatureSize);
    for (std::uint8_t& part : version.parts) {
        part = reader.U8();
    }
    reader.Skip(kLeastHeader - kSignatureSize - version.parts.size());
    return version;
}

bool MayRead(const ArchiveVersion& version, const ViewOptions& options) {
    return !version.Is2() || options.Additions;
}

unsigned ArchiveSource::HelpersOfThisMachine() {
    return std::clamp(std::thread::hardware_concurrency(), 1U, 1 + kMostHelpers) - 1;
}

SpriteArchive::Shown SpriteArchive::PictureOf(std::size_t place) const {
    while (At(place).linked) {
        const std::optional<std::size_t> link = LinkOf(place);
        if (!link) {
            return {place, false};
        }
        place = *link;
    }
    return {place, true};
}

std::unique_ptr<SpriteArchive> OpenArchive(const ArchiveSource& source, const ArchiveRules& rules) {
    if (ReadArchiveVersion(source.archive).Is2()) {
        return std::make_unique<Sff2Archive>(source, rules);
    }
    return std::make_unique<SffWalk>(source, rules);
}

}  // namespace scenara
