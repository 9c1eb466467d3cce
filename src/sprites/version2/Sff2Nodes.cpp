// SPDX-License-Identifier: MIT
#include "sprites/version2/Sff2Nodes.h"

#include <algorithm>
#include <array>
#include <span>

#include "base/ByteReader.h"
#include "sprites/ArchiveUse.h"

namespace scenara {
namespace {

constexpr std::size_t kHeaderSize = 68;
constexpr std::size_t kPaletteNodeSize = 16;
constexpr std::size_t kSpriteNodeSize = 28;
constexpr std::uint64_t kMostPalettes = 65536;
constexpr std::size_t kNodesInPiece = 512;

// How many of `count` nodes the file has, from `start` on.
std::uint64_t NodesInFile(const InputFile& archive, std::uint64_t start, std::uint64_t count,
                          std::size_t size) {
    return Available(archive, start, count * size) / size;
}

Sff2SpriteNode ParseSprite(std::span<const std::byte> bytes) {
    ByteReader reader(bytes, "sprite");
    Sff2SpriteNode node;
    node.group = reader.U16();
    node.image = reader.U16();
    node.width = reader.U16();
    node.height = reader.U16();
    node.axisX = reader.I16();
    node.axisY = reader.I16();
    node.link = reader.U16();
    node.coding = static_cast<Sff2Coding>(reader.U8());
    node.depth = reader.U8();
    node.offset = reader.U32();
    node.length = reader.U32();
    node.palette = reader.U16();
    node.inTdata = (reader.U16() & 1U) != 0;
    return node;
}

}  // namespace

Sff2Header ReadSff2Header(InputFile& archive) {
    std::array<std::byte, kHeaderSize> bytes{};
    const std::size_t count = archive.ReadAt(0, bytes);
    ByteReader reader(std::span<const std::byte>(bytes).first(count), "archive header");
    Sff2Header header;
    reader.Skip(13);
    header.alphaCounts = reader.U8() != 0;
    reader.Skip(22);
    header.firstSprite = reader.U32();
    header.spriteCount = reader.U32();
    header.firstPalette = reader.U32();
    header.paletteCount = reader.U32();
    header.ldata = reader.U32();
    reader.Skip(4);
    header.tdata = reader.U32();
    return header;
}

std::vector<Sff2PaletteNode> ReadSff2Palettes(InputFile& archive, const Sff2Header& header) {
    const std::uint64_t count =
        std::min(NodesInFile(archive, header.firstPalette, header.paletteCount, kPaletteNodeSize),
                 kMostPalettes);
    std::vector<std::byte> bytes(static_cast<std::size_t>(count) * kPaletteNodeSize);
    bytes.resize(archive.ReadAt(header.firstPalette, bytes));
    ByteReader reader(bytes, "palettes");
    std::vector<Sff2PaletteNode> nodes(bytes.size() / kPaletteNodeSize);
    for (Sff2PaletteNode& node : nodes) {
        node.group = reader.U16();
        node.item = reader.U16();
        reader.Skip(2);
        node.link = reader.U16();
        node.offset = reader.U32();
        node.length = reader.U32();
    }
    return nodes;
}

std::string NameOf(Sff2Coding coding) {
    switch (coding) {
        case Sff2Coding::Raw: return "Raw";
        case Sff2Coding::Rle8: return "RLE8";
        case Sff2Coding::Rle5: return "RLE5";
        case Sff2Coding::Lz5: return "LZ5";
        case Sff2Coding::Png8: return "PNG8";
        case Sff2Coding::Png24: return "PNG24";
        case Sff2Coding::Png32: return "PNG32";
        case Sff2Coding::Invalid: break;
    }
    return "Coding " + std::to_string(static_cast<unsigned>(coding));
}

Sff2SpriteTable::Sff2SpriteTable(InputFile& archive, const Sff2Header& header)
    : archive_(archive),
      start_(header.firstSprite),
      announced_(header.spriteCount),
      inFile_(
          static_cast<std::uint32_t>(NodesInFile(archive, start_, announced_, kSpriteNodeSize))) {}

bool Sff2SpriteTable::Next() {
    if (seen_ >= inFile_) {
        return false;
    }
    if (at_ == piece_.size()) {
        const std::size_t nodes = std::min(std::size_t{inFile_ - seen_}, kNodesInPiece);
        piece_.resize(nodes * kSpriteNodeSize);
        const std::size_t count =
            archive_.ReadAt(start_ + std::uint64_t{seen_} * kSpriteNodeSize, piece_);
        piece_.resize(count - count % kSpriteNodeSize);
        at_ = 0;
        if (piece_.empty()) {
            inFile_ = seen_;  // the file has become shorter
            return false;
        }
    }
    node_ = ParseSprite(std::span<const std::byte>(piece_).subspan(at_, kSpriteNodeSize));
    at_ += kSpriteNodeSize;
    ++seen_;
    return true;
}

}  // namespace scenara
