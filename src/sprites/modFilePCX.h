// SPDX-License-Identifier: MIT
//
// modFilePCX: PCX pictures to device textures.
//
// The published ZSoft PCX format, as sprite archives hold it (little-endian):
//
//   offset size
//        0    1  manufacturer, 10
//        1    1  version
//        2    1  encoding: 0 = bytes as they are, else (1) run-length
//        3    1  bits per pixel and plane: 1, 2, 4 or 8
//        4    8  xMin, yMin, xMax, yMax: both corners belong to the picture
//       16   48  16 colours, red green blue, of pictures below 8 bits
//       65    1  planes: 1, or 2 to 4 of 1 bit, or 3 or 4 of 8 bits
//       66    2  bytes per line of one plane: width and padding, odd values too
//      128    -  lines from the top, each plane by plane; padding is no part of the picture
//
// One plane of 8 bits takes its colours from the palette set before (SetPalette); the file's own is
// the archive reader's affair. 1 plane: index 0 is the transparent colour; such pixels get alpha 0
// and keep their colour, whatever other pixels look the same. More planes have no index: "yo..." is
// said, and pixels in the key colour of the picture before are the transparent ones. A fourth plane
// of 8 bits is not shown.
//
// Bad input: a header that does not add up, sizes beyond 32767, and data that end before the last
// line are failures, reported in one message box by LoadPCX. No size is believed, and no memory
// taken, before the packed bytes could yield it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

#include "base/Integers.h"
#include "base/NotCopied.h"
#include "platform/Direct3D8.h"
#include "platform/Messages.h"
#include "sprites/PaletteBytes.h"
#include "sprites/PcxUnpack.h"
#include "sprites/TextureLock.h"

namespace scenara {

inline constexpr MessageKind kMessageThreePlanes{"true-colour"};
inline constexpr MessageKind kMessageLoadPcx{"picture-damaged", Severity::Warning};

inline constexpr std::size_t kPcxHeaderSize = 128;
inline constexpr std::size_t kPcxPaletteSize = kPaletteSize;

struct PcxHeader {
    std::uint8_t manufacturer = 0;
    std::uint8_t encoding = 0;
    std::uint8_t bitsPerPixel = 0;
    std::uint8_t planes = 0;
    std::uint16_t xMin = 0;
    std::uint16_t yMin = 0;
    std::uint16_t xMax = 0;
    std::uint16_t yMax = 0;
    std::uint16_t bytesPerLine = 0;  // of one plane
    std::array<std::uint8_t, 48> colors{};

    // Pixels; 0 or less when the corners are the wrong way round.
    [[nodiscard]] Long Width() const { return Long{xMax} - xMin + 1; }
    [[nodiscard]] Long Height() const { return Long{yMax} - yMin + 1; }
    // Unpacked bytes of a line, all planes, and of the picture.
    [[nodiscard]] std::size_t LineBytes() const { return std::size_t{bytesPerLine} * planes; }
    [[nodiscard]] std::uint64_t PictureBytes() const;
    // The same without the padding behind the last line, which no pixel needs.
    [[nodiscard]] std::size_t LastLineBytes() const;
    [[nodiscard]] std::uint64_t NeededBytes() const {
        return PictureBytes() == 0 ? 0 : PictureBytes() - LineBytes() + LastLineBytes();
    }
    [[nodiscard]] bool IsRunLength() const { return encoding != 0; }
    // The one kind that has a palette of 256 colours.
    [[nodiscard]] bool Is256Colors() const { return planes == 1 && bitsPerPixel == 8; }
};

// Takes any 128 bytes; whether they add up is checked when the picture is decoded.
[[nodiscard]] PcxHeader ReadPcxHeader(std::span<const std::byte, kPcxHeaderSize> bytes);

// Raises RunTimeError for a header that does not add up, or that asks for more pixels than `packed`
// bytes of data can yield.
void CheckPcxHeader(const PcxHeader& header, std::uint64_t packed);

// The most bytes that `packed` packed ones can yield (63 from two where run-length packed).
[[nodiscard]] std::uint64_t MostUnpackedBytes(const PcxHeader& header, std::uint64_t packed);

// The most packed bytes that a picture takes: two for each unpacked one. (Runs of length 0, which
// make nothing, could take more; nobody writes them.)
[[nodiscard]] std::uint64_t MostPackedBytes(const PcxHeader& header);

struct PcxPicture {
    std::shared_ptr<Direct3DTexture8> texture;
    Long width = 0;
    Long height = 0;
    std::uint32_t key = 0;     // the transparent colour made opaque, ARGB; 0 = none so far
    std::size_t consumed = 0;  // bytes of the data that the pixels took
};

// A picture between the steps of the decoder, which fill it.
struct PcxTask : NotCopied {
    PcxHeader header;
    std::span<const std::byte> data;  // outlives the decoding
    ColorTable colors{};              // of a picture of one plane
    std::uint32_t keyBefore = 0;      // that of the picture before
    UnpackPath path = UnpackPath::Plain;
    PcxPicture picture;
    std::optional<TextureLock> lock;
};

// The decoder and what it keeps from one picture to the next: the palette and the key colour.
// Device and messages outlive it.
//
// A picture takes three steps: Prepare and Take in the order of pictures and on one thread, Decode
// in between on any one. A picture of several planes is prepared once those before it were taken.
class PcxDecoder {
public:
    // `path`: for benchmarks; by itself the decoder takes the fastest one.
    PcxDecoder(TextureMaker& device, Messages& messages, UnpackPath path = BestUnpackPath());

    // 256 times red, green, blue: for this and the following pictures.
    void SetPalette(std::span<const std::byte, kPcxPaletteSize> palette);

    // All three steps. What follows the last line in `data` is not looked at. False on any failure:
    // then the reason has been shown, `picture` is as it was, and decoder, palette and key colour
    // serve the next picture.
    [[nodiscard]] bool LoadPCX(const PcxHeader& header, std::span<const std::byte> data,
                               PcxPicture& picture);

    // The bytes after the header become a task with its texture. Raises RunTimeError for what is no
    // picture.
    void Prepare(const PcxHeader& header, std::span<const std::byte> data, PcxTask& task);
    // Raises RunTimeError for data that end early.
    static void Decode(PcxTask& task);
    // Says what is to be said of a picture that was decoded.
    [[nodiscard]] PcxPicture Take(PcxTask& task);

    // The message box of the image routines.
    void HandleError(std::string_view reason);

private:
    TextureMaker& device_;
    Messages& messages_;
    UnpackPath path_;
    ColorTable palette_{};
    std::uint32_t key_ = 0;  // of the last picture, as it has it
};

}  // namespace scenara
