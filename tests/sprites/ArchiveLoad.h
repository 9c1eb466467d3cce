// SPDX-License-Identifier: MIT
//
// ArchiveLoad: one archive in memory loaded into a model, with everything that was said and done on
// the way; and the small parts that archives of tests are made of.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "Pictures.h"
#include "RecordingDevice.h"
#include "platform/headless/HeadlessMessages.h"
#include "platform/headless/HeadlessWindow.h"
#include "platform/png/LibPngPictures.h"
#include "samplemaker/PcxWriter.h"
#include "samplemaker/Sff1Writer.h"
#include "sprites/sff2.h"
#include "stage/StageModel.h"
#include "support/MemoryFiles.h"
#include "support/MessageTexts.h"

namespace scenara::test {

using samplemaker::Sff1Options;
using samplemaker::Sff1Subfile;
using samplemaker::WritePcx;
using samplemaker::WriteSff1;

inline constexpr const char* kArchiveName = "stages/test.sff";

class ArchiveLoad {
public:
    ArchiveLoad() = default;
    explicit ArchiveLoad(DeviceLines lines) : device(lines) {}
    explicit ArchiveLoad(HeadlessWindow::Script script) : window(std::move(script)) {}

    StageModel model;
    ViewOptions options = kPlainView;
    HeadlessMessages messages;
    HeadlessWindow window;
    RecordingDevice device;
    LibPngPictures png;
    std::string name = kArchiveName;
    unsigned helpers = ArchiveSource::HelpersOfThisMachine();
    std::uint64_t helpFrom = 0;
    std::unique_ptr<MemoryFile> file;

    void Run(std::span<const std::byte> archive) {
        file = std::make_unique<MemoryFile>(archive);
        LoadSprites(model, {*file, name, device, messages, options, &png, helpers, helpFrom},
                    window);
    }

    [[nodiscard]] const SpriteEntry& Sprite(std::size_t index) const {
        return model.Sprites.at(index);
    }
    [[nodiscard]] Words Pixels(std::size_t index) const { return PixelsOf(*Sprite(index).texture); }

    [[nodiscard]] std::vector<std::string> Texts() const { return TextsOf(messages); }
    [[nodiscard]] std::vector<MessageKind> Kinds() const { return KindsOf(messages); }

    // Sum of what the file was asked for: also what buffers had to be made for.
    [[nodiscard]] std::uint64_t BytesAskedFor() const {
        std::uint64_t sum = 0;
        for (const MemoryFile::Read& read : file->Reads()) {
            sum += read.wanted;
        }
        return sum;
    }
};

// All that an entry of the table says, on one line.
inline std::string NumbersOf(const SpriteEntry& entry) {
    std::string line;
    const auto add = [&](const char* what, auto first, auto second) {
        line.append(what).append(std::to_string(first)).append(",").append(std::to_string(second));
    };
    add("", entry.group, entry.image);
    add(" axis ", entry.axisX, entry.axisY);
    add(" size ", entry.width, entry.height);
    add(" key ", entry.keyAlpha, entry.keyRed);
    add(",", entry.keyGreen, entry.keyBlue);
    add(" self,link ", entry.selfIndex, entry.linkedTo);
    add(" masked,reserved ", entry.masked, entry.reserved);
    return line;
}

// A subfile with a picture.
inline Sff1Subfile Shown(std::int16_t group, std::int16_t image, std::vector<std::byte> pcx) {
    Sff1Subfile subfile;
    subfile.group = group;
    subfile.image = image;
    subfile.data = std::move(pcx);
    return subfile;
}

// One of the length 0, which shows the picture of another.
inline Sff1Subfile Linked(std::int16_t group, std::int16_t image, std::int16_t link) {
    Sff1Subfile subfile = Shown(group, image, {});
    subfile.linkIndex = link;
    return subfile;
}

inline Sff1Subfile WithAxis(Sff1Subfile subfile, int x, int y) {
    subfile.axisX = static_cast<std::int16_t>(x);
    subfile.axisY = static_cast<std::int16_t>(y);
    return subfile;
}

// One that uses the palette of the picture before.
inline Sff1Subfile Sharing(Sff1Subfile subfile) {
    subfile.samePalette = true;
    return subfile;
}

inline void PatchU16(std::vector<std::byte>& bytes, std::size_t at, unsigned value) {
    bytes.at(at) = static_cast<std::byte>(value & 0xFFU);
    bytes.at(at + 1) = static_cast<std::byte>(value >> 8U & 0xFFU);
}

inline void PatchU32(std::vector<std::byte>& bytes, std::size_t at, std::uint32_t value) {
    PatchU16(bytes, at, value & 0xFFFFU);
    PatchU16(bytes, at + 2, value >> 16U);
}

inline std::uint32_t U32At(std::span<const std::byte> bytes, std::size_t at) {
    std::uint32_t value = 0;
    for (std::size_t i = 4; i-- > 0;) {
        value = value << 8U | std::to_integer<std::uint32_t>(bytes[at + i]);
    }
    return value;
}

// Where the subfiles of an archive of Sff1Writer lie: the chain's offsets, `count` of them.
inline std::vector<std::size_t> SubfileOffsets(std::span<const std::byte> archive,
                                               std::size_t count) {
    std::vector<std::size_t> offsets;
    std::size_t at = U32At(archive, 24);
    for (std::size_t i = 0; i < count; ++i) {
        offsets.push_back(at);
        at = U32At(archive, at);
    }
    return offsets;
}

// A picture that cannot be decoded: its header promises more pixels than there are.
inline std::vector<std::byte> BrokenPcx(std::uint8_t seed = 0) {
    std::vector<std::byte> pcx = WritePcx(StripedPicture(4, 4, PaletteOf(seed)));
    PatchU16(pcx, 10, 30000);  // yMax
    return pcx;
}

}  // namespace scenara::test
