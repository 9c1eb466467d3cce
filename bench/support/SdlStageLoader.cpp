// SPDX-License-Identifier: MIT
#include "support/SdlStageLoader.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <span>
#include <stdexcept>

#include <SDL.h>
#include <SDL_image.h>

#include "base/ByteReader.h"

namespace scenara::bench {
namespace {

constexpr std::size_t kSubfileHeader = 32;
constexpr std::size_t kPaletteSize = 768;
constexpr std::byte kPaletteMark{12};

std::vector<std::byte> Contents(const std::string& path) {
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    const std::streamoff size = file.tellg();
    if (!file || size < 0) {
        throw std::runtime_error("cannot read " + path);
    }
    std::vector<std::byte> bytes(static_cast<std::size_t>(size));
    file.seekg(0);
    file.read(reinterpret_cast<char*>(bytes.data()), size);
    return bytes;
}

}  // namespace

void SdlStageLoader::Free::operator()(SDL_Surface* surface) const {
    SDL_FreeSurface(surface);
}

SdlStageLoader::SdlStageLoader() = default;
SdlStageLoader::~SdlStageLoader() = default;

void SdlStageLoader::Load(const std::string& path) {
    const std::vector<std::byte> archive = Contents(path);
    ByteReader header(archive, "archive");
    header.Skip(20);
    const std::uint32_t images = header.U32();
    std::uint32_t position = header.U32();
    std::vector<std::byte> palette(kPaletteSize);
    std::vector<std::byte> picture;
    for (std::uint32_t i = 0; i < images; ++i) {
        ByteReader subfile(archive, "archive");
        subfile.Skip(position);
        const std::uint32_t next = subfile.U32();
        const std::uint32_t length = subfile.U32();
        subfile.Skip(10);
        const bool samePalette = subfile.U8() != 0 && i > 0;
        if (length > 0) {
            const std::size_t start = position + kSubfileHeader;
            const std::size_t there = std::min<std::size_t>(length, archive.size() - start);
            const auto data = std::span(archive).subspan(start, there);
            picture.assign(data.begin(), data.end());
            if (samePalette) {
                // Where the length counts a palette that was left out, the bytes of the next
                // subfile must not be found first; many archives leave out all but the palette's
                // mark.
                const std::size_t behindMark = length - std::min<std::size_t>(length, kPaletteSize);
                if (start + length > next && behindMark < picture.size()) {
                    picture.resize(behindMark);
                }
                if (picture.back() != kPaletteMark) {
                    picture.push_back(kPaletteMark);
                }
                picture.insert(picture.end(), palette.begin(), palette.end());
            } else {
                if (data.size() < kPaletteSize) {
                    throw std::runtime_error(path + ": a palette is missing");
                }
                const auto own = data.last(kPaletteSize);
                palette.assign(own.begin(), own.end());
            }
            SDL_RWops* const memory =
                SDL_RWFromConstMem(picture.data(), static_cast<int>(picture.size()));
            const std::unique_ptr<SDL_Surface, Free> indexed(IMG_LoadPCX_RW(memory));
            SDL_RWclose(memory);
            if (!indexed) {
                throw std::runtime_error(path + ": " + IMG_GetError());
            }
            SDL_SetColorKey(indexed.get(), SDL_TRUE, 0);
            surfaces_.emplace_back(
                SDL_ConvertSurfaceFormat(indexed.get(), SDL_PIXELFORMAT_ARGB8888, 0));
        }
        position = next;
    }
}

std::size_t SdlStageLoader::Pixels() const {
    std::size_t pixels = 0;
    for (const auto& surface : surfaces_) {
        pixels += static_cast<std::size_t>(surface->w) * static_cast<std::size_t>(surface->h);
    }
    return pixels;
}

std::uint64_t SdlStageLoader::Checksum() const {
    std::uint64_t sum = 0;
    for (const auto& surface : surfaces_) {
        sum += PictureChecksum(static_cast<const std::uint32_t*>(surface->pixels),
                               static_cast<std::size_t>(surface->w),
                               static_cast<std::size_t>(surface->h),
                               static_cast<std::size_t>(surface->pitch) / sizeof(std::uint32_t));
    }
    return sum;
}

std::uint64_t PictureChecksum(const std::uint32_t* pixels, std::size_t width, std::size_t height,
                              std::size_t pitch) {
    std::uint64_t sum = 0;
    for (std::size_t y = 0; y < height; ++y) {
        for (std::size_t x = 0; x < width; ++x) {
            sum = sum * 31 + pixels[y * pitch + x];
        }
    }
    return sum;
}

}  // namespace scenara::bench
