// SPDX-License-Identifier: MIT
//
// Any bytes as a PCX picture: through the decoder, and its packed bytes through every path of the
// unpacking, which must agree.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/headless/HeadlessMessages.h"
#include "platform/soft/SoftDevice.h"
#include "sprites/modFilePCX.h"
#include "support/FuzzChecks.h"
#include "support/StageFixture.h"

namespace {

using namespace scenara;

void Decode(const PcxHeader& header, std::span<const std::byte> data) {
    HeadlessMessages messages;
    SoftDevice device(test::KeptTextureMemory());
    PcxDecoder decoder(device, messages);
    PcxPicture picture;
    if (!decoder.LoadPCX(header, data, picture)) {
        test::Require(!messages.Recorded().empty(), "a failure says why");
        return;
    }
    test::Require(picture.consumed <= data.size(), "no more is used than there is");
    SpriteEntry entry;
    entry.width = static_cast<Integer>(picture.width);
    entry.height = static_cast<Integer>(picture.height);
    entry.texture = picture.texture;
    StageModel model;
    model.Sprites.push_back(entry);
    model.SpriteCount = 1;
    test::CheckModel(model);
}

void CompareUnpackPaths(std::span<const std::byte> data, std::size_t wanted) {
    ColorTable colors{};
    for (std::size_t i = 0; i < colors.size(); ++i) {
        colors[i] = static_cast<std::uint32_t>(i * 0x01010101U);
    }
    std::vector<std::uint32_t> plain(wanted + kUnpackSlack);
    const UnpackResult expected = UnpackPcx(UnpackPath::Plain, data, colors, plain, wanted);
    for (const UnpackPath path : {UnpackPath::Sse2, UnpackPath::Avx2}) {
        std::vector<std::uint32_t> pixels(wanted + kUnpackSlack);
        const UnpackResult result = UnpackPcx(path, data, colors, pixels, wanted);
        test::Require(result.consumed == expected.consumed && result.written == expected.written,
                      "every path uses and makes the same");
        test::Require(
            std::equal(plain.begin(), plain.begin() + static_cast<std::ptrdiff_t>(expected.written),
                       pixels.begin()),
            "every path makes the same pixels");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto bytes = std::as_bytes(std::span(data, size));
    if (bytes.size() < kPcxHeaderSize) {
        return 0;
    }
    const PcxHeader header = ReadPcxHeader(bytes.first<kPcxHeaderSize>());
    const auto packed = bytes.subspan(kPcxHeaderSize);
    Decode(header, packed);
    CompareUnpackPaths(packed, header.bytesPerLine % 4096U);
    return 0;
}
